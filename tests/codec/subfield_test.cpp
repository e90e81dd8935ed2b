#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

ast_subfields_t split(const std::vector<uint8_t> &data, uint32_t type) {
    const ast_dataitem_t item = ast_dataitem_decode(data.data(), data.size(), type);
    return ast_dataitem_subfields_decode(&item);
}

TEST(Subfields, ListsPresentAndAbsent) {
    const auto data = octets("90 12 34 56"); // I048/130: SRL and PRL
    const ast_subfields_t subfields = split(data, 48130);
    EXPECT_TRUE(subfields.valid && subfields.primary.length == 1 && subfields.primary.item_count == 2);
    ASSERT_EQ(subfields.subfield_count, 7U);
    for (uint32_t i = 0; i < 7; ++i) {
        const ast_subfield_t &subfield = subfields.subfields[i];
        const bool present = i == 0 || i == 3;
        EXPECT_TRUE(subfield.valid && subfield.type == 48130001 + i && subfield.present == present) << i;
        EXPECT_EQ(subfield.size, present ? 1U : 0U) << i;
        EXPECT_EQ(subfield.data, present ? data.data() + (i == 0 ? 1 : 2) : nullptr) << i;
    }
}

TEST(Subfields, AreWalkedByTheirSizes) {
    // The size, the number of subfields listed, and the sizes of the present ones.
    const auto expect_walks = [](uint32_t type, const char *cases) {
        each_case(cases, [&](const std::string &hex, const std::string &expected) {
            const auto data = octets(hex);
            const uint64_t size = ast_dataitem_get_size(data.data(), data.size(), type);
            const ast_subfields_t subfields = split(data, type);
            EXPECT_EQ(ast_dataitem_subfields_get_size(data.data(), data.size(), type), size) << hex;
            EXPECT_EQ(subfields.valid, size != 0) << hex;
            std::string walk = std::to_string(size) + " " + std::to_string(subfields.subfield_count) + ":";
            for (uint64_t i = 0; i < subfields.subfield_count; ++i)
                if (subfields.subfields[i].present) walk += " " + std::to_string(subfields.subfields[i].size);
            EXPECT_EQ(walk, expected) << type << ": " << hex;
        });
    };
    expect_walks(48130, "80 12 FF = 2 7: 1; 01 = 0 0:; 00 00 = 0 0:");   // primary subfields cut short and empty
    expect_walks(34050, "62 FF = 1 7: 0 0 0; D0 11 22 33 = 3 7: 1 0 1"); // spares
    expect_walks(62380, "01 60 02 = 0 0:; 01 60 00 AA BB = 5 14: 1 2; 01 40 01 01 02 = 2 14: 0; "
                        "01 40 01 01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 FF = 18 14: 16");
    expect_walks(4120, "C0 01 01 00 AA = 5 4: 3 1"); // an extended one
    // A bit beyond the item's count is sized as nothing.
    expect_walks(48120, "01 80 = 2 2:; C0 01 02 01 02 03 04 05 06 = 0 0:");
    EXPECT_EQ(ast_dataitem_subfields_get_size(nullptr, 5, 48130), 0U);
    EXPECT_FALSE(ast_dataitem_subfields_decode(nullptr).valid);
    const ast_dataitem_t invalid{};
    EXPECT_FALSE(ast_dataitem_subfields_decode(&invalid).valid);
}

// A primary subfield of 144 octets announces numbers up to 1008; those from 1001 on are not those from 1 on again.
TEST(Subfields, FromTheThousandthOnAreSizedAsNothing) {
    auto data = repeated("01", 143);
    data.push_back(0x80); // number 1002
    data.resize(160, 0xFF);
    for (const uint32_t type : {48130U, 62380U, 15600U})
        EXPECT_EQ(ast_dataitem_get_size(data.data(), data.size(), type), 144U) << type;
    LogCapture log;
    EXPECT_EQ(ast_dataitem_get_size(data.data(), data.size(), 21110), 144U);
    EXPECT_EQ(log.take(), (LogLines{{3, "Unsupported Subfield type 21111002"}}));
}

TEST(Subfields, MayBeEmptyByOption) {
    ast_library_set_option(AST_OPTION_ALLOW_EMPTY_FSPEC);
    const ast_subfields_t subfields = split(octets("00"), 48130);
    ast_library_reset_option();
    EXPECT_TRUE(subfields.valid);
    EXPECT_EQ(subfields.subfield_count, 7U);
}

TEST(Subfields, OfOtherItemsAreReported) {
    LogCapture log;
    EXPECT_EQ(ast_dataitem_subfields_get_number(48010), 0U);
    EXPECT_EQ(ast_dataitem_subfields_get_number(20500), 0U) << "sized as a compound item but without subfields";
    EXPECT_EQ(log.take(), (LogLines{{3, "Undefined Subfield I048/010"}, {3, "Undefined Subfield I020/500"}}));
    EXPECT_EQ(ast_dataitem_subfields_get_size(octets("80 00").data(), 2, 48010), 1U) << "its primary subfield";
    log.take();
    EXPECT_EQ(split(octets("80 00"), 48010).subfield_count, 0U);
    EXPECT_EQ(log.take(), (LogLines{{3, "Undefined Subfield I048/010"}}));
}

TEST(Subfields, UnknownOnesHaveFallbacks) {
    LogCapture log;
    for (const uint32_t type : {48130000U, 48130008U, 48010001U, 0U, UINT32_MAX, 4100007U, 4171000U}) {
        EXPECT_STREQ(ast_subfield_get_id(type), type / 100000 == 41 ? "--" : "---") << type;
        EXPECT_STREQ(ast_subfield_get_name(type), "UNKNOWN_SUBFIELD_NAME");
        EXPECT_EQ(ast_subfield_get_size(octets("00").data(), 1, type), 0U);
    }
    const ast_subfield_func_t none = ast_subfield_get_func(48010001);
    EXPECT_FALSE(none.get_size || none.get_id || none.get_name || none.get_summary || none.get_detail_html);
    EXPECT_EQ(log.take(), LogLines{});
    EXPECT_EQ(ast_subfield_get_size(octets("00").data(), 1, 21110003), 0U);
    EXPECT_EQ(ast_dataitem_get_size(octets("A0 00").data(), 2, 21110), 2U);
    EXPECT_EQ(log.take(), LogLines(2, {3, "Unsupported Subfield type 21110003"}));
}

} // namespace
