#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

using ItemView = void(char *text, uint64_t capacity, const ast_dataitem_t *item);

std::string text_of(ItemView *view, const ast_dataitem_t *item) { return shown(view, item); }

TEST(ItemView, ShowsOctets) {
    const auto data = octets("0A 1B FF");
    ast_dataitem_t item = ast_dataitem_decode(data.data(), 3, 48140);
    const char kBinary[] = "00001010 00011011 11111111";
    EXPECT_EQ(text_of(ast_dataitem_get_hex_str, &item), "0a 1b ff");
    EXPECT_EQ(text_of(ast_dataitem_get_bin_str, &item), kBinary);
    EXPECT_NE(text_of(ast_dataitem_get_hex_html, &item).find("<td>0A</td><td>1B</td><td>FF</td><td>--</td>"),
              std::string::npos);
    EXPECT_NE(text_of(ast_dataitem_get_bin_html, &item).find("Octet 3 - FF"), std::string::npos);
    item.valid = false;
    EXPECT_EQ(text_of(ast_dataitem_get_bin_str, &item), kBinary) << "also of an item that is not valid";
    for (ItemView *const render : {ast_dataitem_get_hex_str, ast_dataitem_get_hex_html, ast_dataitem_get_bin_html})
        EXPECT_EQ(text_of(render, &item), "");
    item.size = 0;
    EXPECT_EQ(text_of(ast_dataitem_get_bin_str, &item), "");
}

TEST(ItemView, FallsBackWhereThereIsNothingToShow) {
    const auto data = octets("0A");
    const ast_dataitem_t invalid = ast_dataitem_decode(data.data(), 1, 48140);
    const ast_dataitem_t name_only = ast_dataitem_decode(data.data(), 1, 34110);
    const ast_dataitem_t claimed{.data = data.data(), .size = 9, .type = 48140, .valid = false, .following = 0};
    ASSERT_TRUE(name_only.valid);
    for (const ast_dataitem_t *const item :
         {&invalid, &name_only, &claimed, static_cast<const ast_dataitem_t *>(nullptr)}) {
        EXPECT_EQ(text_of(ast_dataitem_get_summary, item), "NOT_IMPLEMENTED");
        EXPECT_EQ(text_of(ast_dataitem_get_detail_html, item), "");
    }
    EXPECT_EQ(written(ast_dataitem_get_detail_html_dummy), "");
    for (ItemView *const render : {ast_dataitem_get_hex_str, ast_dataitem_get_bin_str, ast_dataitem_get_hex_html})
        EXPECT_EQ(text_of(render, nullptr), "");
}

TEST(SubfieldView, FallsBackWhereThereIsNothingToShow) {
    const ast_dataitem_t item{};
    EXPECT_EQ(shown(ast_subfield_get_summary, &item, 48010001U), "NOT_IMPLEMENTED");
    EXPECT_EQ(shown(ast_subfield_get_detail_html, &item, 48010001U), "");
}

TEST(SubfieldView, ShowsOctetsAsBits) {
    const auto data = octets("A5");
    ast_subfield_t subfield{.present = true, .data = data.data(), .size = 1, .type = 48130001, .valid = true};
    const auto bits = [&](char *text, uint64_t capacity) { ast_subfield_get_bin_html(text, capacity, &subfield); };
    EXPECT_NE(written(bits).find("Octet 1 - A5"), std::string::npos);
    subfield.valid = false;
    EXPECT_EQ(written(bits), "");
}

} // namespace
