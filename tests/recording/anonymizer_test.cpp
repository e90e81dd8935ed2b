// Every field that tells of an aircraft has a pseudonym in its place, on the library's own parts.

#include <ast.h>
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "ask/published_fields.hpp"
#include "block/profile_names.hpp"
#include "write/anonymizer.hpp"

namespace {

using namespace ast::recording;

TEST(Pseudonyms, AreOneToOneAndKeepCodesOfMany) {
    const Pseudonyms pseudonyms("a seed"), others("another");
    std::set<uint32_t> codes, ones;
    size_t same = 0, like_others = 0;
    for (uint32_t code = 0; code <= 07777; ++code) {
        codes.insert(pseudonyms.code(code));
        same += pseudonyms.code(code) == code ? 1U : 0U;
        like_others += pseudonyms.code(code) == others.code(code) ? 1U : 0U;
    }
    EXPECT_EQ(codes.size(), 4096U);
    EXPECT_EQ(*codes.rbegin(), 07777U);
    for (const uint32_t code : {07500U, 07600U, 07700U, 02000U, 07000U}) EXPECT_EQ(pseudonyms.code(code), code);
    EXPECT_LT(same, 20U);
    EXPECT_LT(like_others, 20U);
    for (uint32_t code = 0; code < 32; ++code) ones.insert(pseudonyms.short_code(code, 5));
    EXPECT_EQ(ones.size(), 32U);
    EXPECT_EQ(*ones.rbegin(), 31U);
    std::vector<bool> taken(1 << 24);
    for (uint32_t address = 0; address < 1 << 24; address += 61) {
        const uint32_t other = pseudonyms.address(address);
        ASSERT_LT(other, taken.size());
        ASSERT_FALSE(taken[other]) << address;
        taken[other] = true;
    }
    EXPECT_EQ(pseudonyms.address(0), 0U);
    EXPECT_EQ(Pseudonyms("a seed").address(0x3C4A12), pseudonyms.address(0x3C4A12));
}

TEST(Pseudonyms, OfCallsignsHaveTheirForm) {
    const Pseudonyms pseudonyms("a seed");
    const std::string other = pseudonyms.callsign("DLH4AB-");
    EXPECT_NE(other, "DLH4AB-");
    for (const size_t i : {0U, 1U, 2U, 4U, 5U}) EXPECT_TRUE(other[i] >= 'A' && other[i] <= 'Z') << other;
    EXPECT_TRUE(other[3] >= '0' && other[3] <= '9') << other;
    EXPECT_EQ(other[6], '-');
    EXPECT_NE(pseudonyms.callsign("DLH4AC-").substr(0, 3), other.substr(0, 3)) << "by all of the text";
}

// What is told of an aircraft, by the words of the documents alone; and what these say of something else.
constexpr const char *kWords[] = {"24 Bits Aircraft Address",
                                  "Mode S Address",
                                  "Mode S address",
                                  "Target Address",
                                  "Aircraft Address",
                                  "Callsign",
                                  "Aircraft Identif",
                                  "Aircraft identification",
                                  "Target Identification",
                                  "Mode-3/A Code in",
                                  "Mode-3/A Reply in",
                                  "Mode-2 Code in",
                                  "Mode-2 Reply in",
                                  "Mode 3/A Reply in",
                                  "Mode 3A",
                                  "Mode-1 Code",
                                  "Mode 1 Code in"};
constexpr const char *kOthers[] = {"Duplicate", "Confidence", "capability", "Capability", "category", "Status", "List"};

// Fields of these kinds that are none, and those that a register which its place tells does not have.
constexpr const char *kExceptions[] = {
    "I004/100/AN", // the name of an area
    "I025/020",    // of a service
    "/260/ID",
    "/ACS/ID",
};

bool has_any(const std::string &title, const auto &words) {
    return std::any_of(std::begin(words), std::end(words),
                       [&](const char *word) { return title.find(word) != std::string::npos; });
}

bool is_of_aircraft(const ast_field_t &field, const std::string &path) {
    if (field.bits < 5 || field.numerator != 0 || field.kind == AST_FIELD_CODE || field.kind > AST_FIELD_ICAO)
        return false;
    if (std::any_of(std::begin(kExceptions), std::end(kExceptions),
                    [&](const char *exception) { return path.find(exception) != std::string::npos; }))
        return false;
    if (field.kind == AST_FIELD_OCTAL || field.kind == AST_FIELD_ICAO) return true;
    if (field.kind == AST_FIELD_RAW && field.bits == 24) return true;
    if (path.ends_with("/TCODE1")) return true; // which has no title
    return has_any(field.title, kWords) && !has_any(field.title, kOthers);
}

std::string without_places(std::string path) {
    for (size_t at = path.find('['); at != std::string::npos; at = path.find('[', at + 1))
        path.erase(at + 1, path.find(']', at) - at - 1);
    return path;
}

struct Found {
    std::string path;
    bool is_of_aircraft;
    uint64_t raw;
    std::string text;
};

std::vector<Found> walked(const ast_dataitem_t &item, const ast_uap_t &uap) {
    std::vector<Found> all;
    const auto visit = [](void *context, const ast_field_value_t *value) {
        const std::string path = without_places(value->field->path);
        if (value->field->kind != AST_FIELD_REGISTER)
            static_cast<std::vector<Found> *>(context)->push_back(
                {path, is_of_aircraft(*value->field, path), value->raw, value->text});
    };
    ast_dataitem_walk(&item, uap, 0, visit, &all);
    return all;
}

class EveryField : public testing::Test {
protected:
    // Registers that are known, octal digits in characters, octets that go on or not.
    uint8_t some_octet(bool is_digit) {
        static constexpr uint8_t kRegisters[] = {0x05, 0x08, 0x09, 0x10, 0x20, 0x30, 0x40};
        const uint64_t what = is_digit ? 1 : random_() % 4;
        return what == 0   ? kRegisters[random_() % 7]
               : what == 1 ? static_cast<uint8_t>('0' + random_() % 8)
                           : static_cast<uint8_t>(random_() | (what == 2 ? 1U : 0U));
    }

    // Behind the length, if there is one, a small count, presence bits of one subfield, or of one in one, or anything.
    std::vector<uint8_t> some_octets(size_t length_octets) {
        std::vector<uint8_t> octets(120);
        const bool has_digits = random_() % 8 == 0;
        for (uint8_t &octet : octets) octet = some_octet(has_digits);
        size_t at = length_octets;
        const auto one_bit = [&] { octets[at++] = static_cast<uint8_t>(2U << random_() % 7); };
        switch (has_digits ? 0 : random_() % 4) {
        case 1:
            octets[at] = static_cast<uint8_t>(1 + random_() % 3);
            break;
        case 2:
            one_bit();
            one_bit();
            break;
        case 3:
            for (uint64_t more = random_() % 4; more != 0; --more) octets[at++] = 1;
            one_bit();
            octets[at] = 1;
            break;
        default:
            break;
        }
        return octets;
    }

    void expect_changed(ast_dataitem_type_t type, const ast_uap_t &uap, std::vector<uint8_t> octets, uint64_t size) {
        const ast_dataitem_t item{.data = octets.data(), .size = size, .type = type, .valid = true, .following = 0};
        std::vector<uint8_t> written = octets;
        anonymizer_.write(item, uap, 0, written.data());
        const ast_dataitem_t after{.data = written.data(), .size = size, .type = type, .valid = true, .following = 0};
        const auto before_values = walked(item, uap), after_values = walked(after, uap);
        ASSERT_EQ(before_values.size(), after_values.size());
        for (size_t i = 0; i < before_values.size(); ++i) {
            const auto &[path, is_wanted, raw, text] = before_values[i];
            const bool is_same = raw == after_values[i].raw && text == after_values[i].text;
            EXPECT_TRUE(is_wanted || is_same) << path << " tells nothing of an aircraft";
            if (is_wanted && !is_same) changed_.insert(path);
        }
    }

    void sweep(ast_dataitem_type_t type, const ast_uap_t &uap) {
        bool any = false;
        describe_fields(type, uap, [&](const ast_field_t &field, std::string_view path) {
            if (!is_of_aircraft(field, std::string(path))) return;
            wanted_.insert(std::string(path));
            any = true;
        });
        const bool has_length = type % AST_DATAITEM_TYPE(1, 0) >= 900; // Reserved Expansion and Special Purpose Fields
        for (unsigned round = 0; any && round < 2000; ++round) {
            std::vector<uint8_t> octets = some_octets(has_length ? 1 : 0);
            for (unsigned length = has_length ? 2 : 100; length < 101; ++length) {
                if (has_length) octets[0] = static_cast<uint8_t>(length);
                const uint64_t size = ast_dataitem_get_published_size(octets.data(), octets.size(), type, uap);
                if (size != 0) expect_changed(type, uap, octets, size);
            }
        }
    }

    Anonymizer anonymizer_{"seed"};
    std::mt19937 random_{1};
    std::set<std::string> wanted_, changed_;
};

TEST_F(EveryField, ThatTellsOfAnAircraftIsChangedAndNoOther) {
    for (uint32_t category = 0; category < 256; ++category) {
        if (ast_uap_max_frn_published(category) == 0) continue;
        for (uint32_t number = 0; number < 1000; ++number) {
            sweep(AST_DATAITEM_TYPE(category, number), AST_UAP_PUBLISHED);
            if (category == 21)
                for (const ast_uap_info_t &profile : profiles())
                    sweep(AST_DATAITEM_TYPE(category, number), *profile.uap);
        }
    }
    EXPECT_GT(wanted_.size(), 60U);
    for (const std::string &path : wanted_) EXPECT_TRUE(changed_.contains(path)) << path;
}

} // namespace
