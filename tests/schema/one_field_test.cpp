// One field by its path is what a walk over the whole item finds under that path.

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "ast.h"

namespace {

// What is said of a value, but for its path.
using Said = std::tuple<std::string, uint32_t, uint64_t, bool, double, std::string>;

Said said_of(const ast_field_value_t &value) {
    const bool is_code = value.field->kind == AST_FIELD_CODE; // whose text one has to ask for
    return {value.field->title, value.field->kind, value.raw,
            value.has_number,   value.number,      is_code ? "" : value.text};
}

// "I048/250[1]/MCP_ALT" as a field is described: "I048/250[]/MCP_ALT".
std::string without_places(std::string path) {
    for (size_t at = path.find('['); at != std::string::npos; at = path.find('[', at + 1))
        path.erase(at + 1, path.find(']', at) - at - 1);
    return path;
}

using ByPath = std::map<std::string, std::vector<Said>>;

ByPath walked(const ast_dataitem_t &item, const ast_uap_t &uap) {
    ByPath found;
    const auto visit = [](void *context, const ast_field_value_t *value) {
        // The octets of what should have been fields are no field.
        const std::string_view path = value->field->path;
        if (value->field->kind != AST_FIELD_REGISTER && !path.ends_with("/octets") && !path.ends_with("/REF"))
            (*static_cast<ByPath *>(context))[without_places(value->field->path)].push_back(said_of(*value));
    };
    ast_dataitem_walk(&item, uap, 0, visit, &found);
    return found;
}

class OneField : public testing::Test {
protected:
    // Octets of which a register is now and then one that is known.
    std::vector<uint8_t> some_octets() {
        std::vector<uint8_t> octets(80);
        for (uint8_t &octet : octets)
            octet = static_cast<uint8_t>(random_() % 4 == 0 ? 0x40 + random_() % 3 * 16 : random_());
        octets[0] = static_cast<uint8_t>(random_() % 2 == 0 ? 2 : random_()); // also a count that fits
        return octets;
    }

    void expect_alike(ast_dataitem_type_t type, const ast_uap_t &uap) {
        const std::vector<uint8_t> octets = some_octets();
        const uint64_t size = ast_dataitem_get_published_size(octets.data(), octets.size(), type, uap);
        if (size == 0) return;
        const ast_dataitem_t item{.data = octets.data(), .size = size, .type = type, .valid = true, .following = 0};
        for (const auto &[path, values] : walked(item, uap)) expect_values(item, uap, path, values);
    }

    void expect_values(const ast_dataitem_t &item, const ast_uap_t &uap, const std::string &path,
                       const std::vector<Said> &values) {
        SCOPED_TRACE(path);
        ast_field_place_t places[16];
        const uint32_t count = ast_dataitem_find_field(item.type, uap, path.c_str(), places, std::size(places));
        ASSERT_TRUE(count != 0 && count <= std::size(places));
        std::vector<Said> read;
        const auto visit = [](void *context, const ast_field_value_t *value) {
            static_cast<std::vector<Said> *>(context)->push_back(said_of(*value));
        };
        ASSERT_TRUE(ast_dataitem_read_field(&item, uap, 0, places, count, visit, &read));
        EXPECT_EQ(read, values);
        uint64_t raw = 0;
        if (count != 1 || !ast_dataitem_get_bits(&item, places, &raw)) return;
        EXPECT_EQ(raw, std::get<2>(values.at(0)));
        ++fixed_;
        ast_dataitem_t cut = item;
        cut.size = places->needed / 8 - 1;
        EXPECT_FALSE(ast_dataitem_get_bits(&cut, places, &raw));
    }

    std::mt19937 random_{1};
    size_t fixed_ = 0;
};

TEST_F(OneField, IsWhatAWalkFindsUnderItsPath) {
    constexpr uint32_t kItems = 1000;
    for (uint32_t category = 0; category < 256; ++category) {
        if (ast_uap_max_frn_published(category) == 0) continue;
        for (const ast_uap_t &uap : {AST_UAP_PUBLISHED, AST_UAP_CAT021_VER023, AST_UAP_CAT021_VER026})
            for (uint32_t number = 0; number < kItems; ++number)
                for (int i = 0; i < 4; ++i) expect_alike(AST_DATAITEM_TYPE(category, number), uap);
    }
    EXPECT_GT(fixed_, 5000U);
}

// Bits that are written where they stand are those that were there, in octets of which all others are set.
TEST_F(OneField, IsWrittenWhereItStands) {
    struct Changer {
        std::vector<uint8_t> bits;
        uint64_t shown = 0;
    } changer;
    const auto keep = [](void *context, const ast_field_value_t *, uint64_t *) {
        ++static_cast<Changer *>(context)->shown;
        return true;
    };
    for (uint32_t category = 0; category < 256; ++category) {
        if (ast_uap_max_frn_published(category) == 0) continue;
        for (uint32_t number = 0; number < 1000; ++number) {
            const ast_dataitem_type_t type = AST_DATAITEM_TYPE(category, number);
            const std::vector<uint8_t> octets = some_octets();
            const uint64_t size =
                ast_dataitem_get_published_size(octets.data(), octets.size(), type, AST_UAP_PUBLISHED);
            if (size == 0) continue;
            const ast_dataitem_t item{.data = octets.data(), .size = size, .type = type, .valid = true, .following = 0};
            for (const uint8_t all : {uint8_t{0x00}, uint8_t{0xFF}}) {
                std::vector<uint8_t> written(octets.size(), all);
                const uint64_t before = changer.shown;
                const uint64_t count =
                    ast_dataitem_change_values(written.data(), &item, AST_UAP_PUBLISHED, 0, keep, &changer);
                EXPECT_EQ(count, changer.shown - before);
                for (size_t i = 0; i < octets.size(); ++i) {
                    const auto differs = static_cast<uint8_t>(written[i] ^ octets[i]);
                    EXPECT_EQ(differs & (written[i] ^ all), 0) << type << " octet " << i;
                    EXPECT_TRUE(i < size || written[i] == all);
                }
            }
        }
    }
    EXPECT_GT(changer.shown, 2000U);
}

// I048/070: V, G, L, a spare bit, and 2345 in octal digits. The register 3,0 with the address of a threat, which is one
// of two readings of its bits, behind 30 others.
TEST_F(OneField, IsGivenAnotherValue) {
    struct Wanted {
        const char *path;
        uint64_t raw;
    };
    const auto change = [](void *context, const ast_field_value_t *value, uint64_t *raw) {
        const auto &wanted = *static_cast<const Wanted *>(context);
        *raw = wanted.raw;
        return std::string_view(value->field->path) == wanted.path;
    };
    const auto changed = [&](ast_dataitem_type_t type, std::vector<uint8_t> octets, Wanted wanted) {
        const ast_dataitem_t item{
            .data = octets.data(), .size = octets.size(), .type = type, .valid = true, .following = 0};
        const uint64_t count = ast_dataitem_change_values(octets.data(), &item, AST_UAP_PUBLISHED, 0, change, &wanted);
        octets.push_back(static_cast<uint8_t>(count));
        return octets;
    };
    using Octets = std::vector<uint8_t>;
    EXPECT_EQ(changed(48070, {0xF4, 0xE5}, {"I048/070/MODE3A", 07700}), (Octets{0xFF, 0xC0, 1}));
    EXPECT_EQ(changed(48070, {0xF4, 0xE5}, {"I048/070/MODE3A", 010000}), (Octets{0xF4, 0xE5, 0})) << "13 bits";
    EXPECT_EQ(changed(48070, {0xF4, 0xE5}, {"I048/070/G", 0}), (Octets{0xB4, 0xE5, 1}));
    EXPECT_EQ(changed(48260, {0x30, 0, 0, 0x05, 0x23, 0x45, 0x64}, {"I048/260/ADDRESS", 0xABCDEF}),
              (Octets{0x30, 0, 0, 0x06, 0xAF, 0x37, 0xBC, 1}));
    EXPECT_EQ(ast_dataitem_change_values(nullptr, nullptr, AST_UAP_PUBLISHED, 0, change, nullptr), 0U);
}

TEST_F(OneField, IsNoneWhereThereIsNone) {
    ast_field_place_t place;
    EXPECT_EQ(ast_dataitem_find_field(48040, AST_UAP_PUBLISHED, "I048/040/NONE", &place, 1), 0U);
    EXPECT_EQ(ast_dataitem_find_field(48040, AST_UAP_PUBLISHED, "I048/040", &place, 1), 0U) << "holds others";
    EXPECT_EQ(ast_dataitem_find_field(48040, AST_UAP_PUBLISHED, nullptr, &place, 1), 0U);
    EXPECT_EQ(ast_dataitem_find_field(48040, AST_UAP_PUBLISHED, "I048/040/THETA", nullptr, 1), 1U) << "counts alone";
    ASSERT_EQ(ast_dataitem_find_field(48040, AST_UAP_PUBLISHED, "I048/040/THETA", &place, 1), 1U);
    EXPECT_EQ(place.bit, 16U);
    EXPECT_EQ(place.needed, 32U);
    ASSERT_EQ(ast_dataitem_find_field(48250, AST_UAP_PUBLISHED, "I048/250[]/MCP_ALT", &place, 1), 1U);
    EXPECT_EQ(place.bit, AST_FIELD_VARIES);
}

} // namespace
