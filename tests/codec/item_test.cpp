#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

TEST(ItemType, ReadsAsItsReference) {
    each_case("48010 = I048/010; 240051 = I240/051; 62999 = I062/SPF; 21998 = I021/REF; 1997 = I001/RFS; "
              "1901 = I001/130; 1902 = I001/210; 1903 = I001/130; 1904 = I001/210; 1951 = I001/951; 2901 = I002/050; "
              "2902 = I002/050; 2951 = I002/951; 21902 = I021/130; 21903 = I021/040; 21904 = I021/131; "
              "21905 = I021/090; 21906 = I021/210; 21907 = I021/271; 21908 = I021/200; 21901 = I021/901; "
              "48901 = I048/901; 0 = I000/000; 30123 = I030/123; 255998 = I255/REF; 999999 = I999/SPF",
              [](const std::string &type, const std::string &text) {
                  EXPECT_EQ(ast_dataitem_type_to_str(static_cast<ast_dataitem_type_t>(std::stoul(type))), text);
              });
    EXPECT_EQ(std::string(ast_dataitem_type_to_str(UINT32_MAX)), "I4294967/") << "cut to nine characters";
}

TEST(ItemRegistry, ReportsUnknownTypesButNotNone) {
    LogCapture log;
    const ast_dataitem_func_t none = ast_dataitem_get_func(0);
    EXPECT_EQ(log.take(), LogLines{});
    EXPECT_FALSE(none.get_size || none.get_name || none.get_summary || none.get_detail_html || none.encode);
    EXPECT_FALSE(ast_dataitem_get_func(48011).get_size);
    EXPECT_FALSE(ast_dataitem_get_func(256010).get_size);
    EXPECT_EQ(log.take(), (LogLines{{3, "Unsupported dataitem I048/011"}, {3, "Unsupported dataitem I256/010"}}));
    EXPECT_STREQ(ast_dataitem_get_name(48011), "UNKNOWN NAME");
    EXPECT_STREQ(ast_dataitem_get_name(63070), "UNKNOWN NAME") << "known to its category only";
    EXPECT_STREQ(ast_dataitem_063_get_name(63070), "Time Stamping Bias");
    EXPECT_STREQ(ast_dataitem_get_name(48010), "Data Source Identifier");
}

TEST(Item, DecodeSizesIt) {
    LogCapture log;
    const auto data = octets("19 0C FF");
    const ast_dataitem_t item = ast_dataitem_decode(data.data(), 3, 48010);
    EXPECT_TRUE(item.valid && item.data == data.data() && item.size == 2 && item.type == 48010 && item.following == 1);
    EXPECT_EQ(ast_dataitem_get_size(data.data(), 3, 48010), 2U);

    const ast_dataitem_t cut = ast_dataitem_decode(data.data(), 1, 48010);
    EXPECT_TRUE(!cut.valid && cut.data == data.data() && cut.size == 0 && cut.type == 48010);
    EXPECT_FALSE(ast_dataitem_decode(nullptr, 3, 48010).valid);
    EXPECT_FALSE(ast_dataitem_decode(data.data(), 3, 0).valid);
    EXPECT_EQ(log.take(), LogLines{});
    EXPECT_FALSE(ast_dataitem_decode(data.data(), 3, 48055).valid);
    EXPECT_EQ(ast_dataitem_get_size(data.data(), 3, 48055), 0U);
    EXPECT_EQ(log.take(), (LogLines{{3, "Unsupported dataitem I048/055"}, {3, "Unsupported dataitem I048/055"}}));
}

TEST(Item, CountsWhatFollowsUpTo255) {
    const auto data = repeated("00", 300);
    constexpr struct {
        uint64_t available;
        uint8_t following;
    } kCases[] = {{2, 0}, {3, 1}, {256, 254}, {257, 255}, {258, 255}, {300, 255}};
    for (const auto &c : kCases) EXPECT_EQ(ast_dataitem_decode(data.data(), c.available, 48010).following, c.following);
    const auto length = octets("09 00");
    EXPECT_EQ(ast_dataitem_decode(length.data(), 2, 48998).following, 0U)
        << "the item is longer than what is available";
}

TEST(Item, CopyNeedsRoomAndAValidSource) {
    const auto data = octets("19 0C");
    ast_dataitem_t source = ast_dataitem_decode(data.data(), 2, 48010);
    auto buffer = octets("EE EE EE");
    const ast_dataitem_t copy = ast_dataitem_copy(buffer.data(), 2, &source);
    EXPECT_TRUE(copy.valid && copy.data == buffer.data() && copy.size == 2 && copy.type == 48010);
    EXPECT_EQ(buffer, octets("19 0C EE"));

    auto small = octets("EE");
    const ast_dataitem_t cut = ast_dataitem_copy(small.data(), 1, &source);
    EXPECT_TRUE(!cut.valid && cut.data == small.data() && cut.size == 0 && cut.type == 0);
    EXPECT_EQ(small, octets("EE"));
    EXPECT_FALSE(ast_dataitem_copy(nullptr, 2, &source).valid);
    EXPECT_FALSE(ast_dataitem_copy(buffer.data(), 2, nullptr).valid);
    source.valid = false;
    EXPECT_FALSE(ast_dataitem_copy(buffer.data(), 2, &source).valid);
}

TEST(Item, EncodeFailsWithoutEncoderValueOrBuffer) {
    LogCapture log;
    uint8_t buffer[8] = {};
    uint32_t value = 0;
    const ast_dataitem_src_t unencodable{48998, &value};
    const ast_dataitem_src_t unknown{48055, &value};
    const ast_dataitem_src_t empty{48010, nullptr};

    const ast_dataitem_t result = ast_dataitem_encode(buffer, sizeof buffer, &unencodable);
    EXPECT_TRUE(!result.valid && result.data == buffer && result.size == 0 && result.type == 48998);
    EXPECT_EQ(log.take(), (LogLines{{2, "Enconding function not implemented for dataitem I048/REF."}}));
    EXPECT_FALSE(ast_dataitem_encode(buffer, sizeof buffer, &unknown).valid);
    EXPECT_EQ(log.take(), (LogLines{{3, "Unsupported dataitem I048/055"},
                                    {2, "Enconding function not implemented for dataitem I048/055."}}));
    EXPECT_FALSE(ast_dataitem_encode(buffer, sizeof buffer, &empty).valid);
    EXPECT_FALSE(ast_dataitem_encode(nullptr, sizeof buffer, &unencodable).valid);
    EXPECT_FALSE(ast_dataitem_encode(buffer, sizeof buffer, nullptr).valid);
    EXPECT_EQ(log.take(), LogLines{});
}

} // namespace
