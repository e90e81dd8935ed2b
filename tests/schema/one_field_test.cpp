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
