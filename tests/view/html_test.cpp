#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

constexpr const char *kEnd = AST_HTML_TABLE_END_OF_ROW;

std::string table_begin() { return written(ast_html_gen_table_begin); }

// Not swept over capacities: each row turns the parity.
std::string row(int32_t header, const char *first, const char *second) {
    char text[200];
    ast_html_gen_table_row(text, sizeof text, header, first, second, kEnd);
    return text;
}

std::string times(unsigned count, const std::string &text) {
    std::string result;
    for (unsigned i = 0; i < count; ++i) result += text;
    return result;
}

TEST(Html, TitleAndParagraph) {
    EXPECT_EQ(shown(ast_html_gen_title_h4, "%s #%d", "A", 7), "<h4>A #7</h4>");
    EXPECT_EQ(shown(ast_html_gen_para, "%.1f%%", 2.5), "<p>2.5%</p>");
    EXPECT_EQ(shown(ast_html_gen_para, "%s", ""), "<p></p>");
}

TEST(Html, EverySecondDataRowIsEven) {
    EXPECT_EQ(table_begin(), "<table class=\"detail_table\">");
    EXPECT_EQ(row(0, "a", "b"), "<tr><td>a</td><td>b</td></tr>");
    EXPECT_EQ(row(0, "c", ""), "<tr class=\"even_row\"><td>c</td><td></td></tr>");
    EXPECT_EQ(row(0, "e", "f"), "<tr><td>e</td><td>f</td></tr>");
    EXPECT_EQ(written(ast_html_gen_table_end), "</table><br/>");
    EXPECT_EQ(row(0, "g", "h"), "<tr class=\"even_row\"><td>g</td><td>h</td></tr>") << "an end keeps the parity";
    EXPECT_EQ(row(0, "i", "j"), "<tr><td>i</td><td>j</td></tr>");
    EXPECT_EQ(row(-1, "H", "I"), "<tr><th>H</th><th>I</th></tr>");
    EXPECT_EQ(row(0, "k", "l"), "<tr><td>k</td><td>l</td></tr>") << "a header clears it";
    table_begin();
    EXPECT_EQ(row(0, "m", "n"), "<tr><td>m</td><td>n</td></tr>") << "and so does a start";
}

TEST(Html, RowsEndAtTheSentinelAsText) {
    const std::string same_text = "AST_HTML_TABLE_END_OF_ROW";
    table_begin();
    EXPECT_EQ(row(0, same_text.c_str(), "never"), "<tr></tr>");
    EXPECT_EQ(row(0, "one", same_text.c_str()), "<tr class=\"even_row\"><td>one</td></tr>");
    EXPECT_EQ(row(0, nullptr, "<&>"), "<tr><td></td><td><&></td></tr>") << "cells are not escaped";
    EXPECT_EQ(shown(ast_html_gen_table_row, 1, "x", "y", "z", kEnd), "<tr><th>x</th><th>y</th><th>z</th></tr>");
}

TEST(Html, FlavorOneHasBorders) {
    const auto data = octets("00");
    ast_html_set_flavor(1);
    EXPECT_EQ(table_begin(), "<table class=\"detail_table\" border=\"1\" cellspacing=\"0\">");
    const std::string hex = shown(ast_html_gen_hex_table, data.data(), 1U);
    const std::string bits = shown(ast_html_gen_bin_table, data.data(), 1U);
    EXPECT_EQ(hex.find("<table class=\"hex_table\" border=\"1\" cellspacing=\"0\"><tr>"), 0U);
    EXPECT_EQ(bits.find("<table class=\"bin_table\" border=\"1\" cellspacing=\"0\"><tr"), 0U);
    for (const uint32_t plain : {2U, 0U}) {
        ast_html_set_flavor(plain);
        EXPECT_EQ(table_begin(), "<table class=\"detail_table\">");
    }
}

TEST(Html, HexTableHas16OctetsARow) {
    const auto data = octets("00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F F0");
    const auto hex = [&](uint64_t count) { return shown(ast_html_gen_hex_table, data.data(), count); };
    const std::string start = "<table class=\"hex_table\"><tr><th colspan=8 align=\"left\">Octet 1</th>"
                              "<th colspan=8 align=\"right\">Octet 16</th></tr>";
    const std::string full =
        "<tr><td>00</td><td>01</td><td>02</td><td>03</td><td>04</td><td>05</td><td>06</td><td>07</td>"
        "<td>08</td><td>09</td><td>0A</td><td>0B</td><td>0C</td><td>0D</td><td>0E</td><td>0F</td></tr>";
    EXPECT_EQ(hex(0), "");
    EXPECT_EQ(hex(16), start + full + "</table>");
    EXPECT_EQ(hex(17), start + full + "<tr><td>F0</td>" + times(15, "<td>--</td>") + "</tr></table>");
    EXPECT_EQ(shown(ast_html_gen_hex_table, nullptr, 9U), "");
}

TEST(Html, BitTableHasFourOctetsARow) {
    const auto data = octets("00 FF 80 01 A5");
    const auto bits = [&](uint64_t count) { return shown(ast_html_gen_bin_table, data.data(), count); };
    const std::string no = "<td>0</td>", yes = "<td>1</td>", none = "<td>-</td>";
    const std::string first =
        "<tr class=\"caption_row\"><th colspan=8>Octet 1 - 00</th><th colspan=8>Octet 2 - FF</th>"
        "<th colspan=8>Octet 3 - 80</th><th colspan=8>Octet 4 - 01</th></tr><tr class=\"data_row\">" +
        times(8, no) + times(8, yes) + yes + times(7, no) + times(7, no) + yes + "</tr>";
    const std::string second =
        "<tr class=\"caption_row\"><th colspan=8>Octet 5 - A5</th><th colspan=8>Octet 6 - --</th>"
        "<th colspan=8>Octet 7 - --</th><th colspan=8>Octet 8 - --</th></tr><tr class=\"data_row\">" +
        yes + no + yes + no + no + yes + no + yes + times(24, none) + "</tr>";
    EXPECT_EQ(bits(0), "");
    EXPECT_EQ(bits(4), "<table class=\"bin_table\">" + first + "</table>");
    EXPECT_EQ(bits(5), "<table class=\"bin_table\">" + first + second + "</table>");
    EXPECT_EQ(shown(ast_html_gen_bin_table, nullptr, 9U), "");
}

TEST(Html, MapLinkNamesItsServiceAndCountsWhatItWrites) {
    for (uint32_t service = 1; service <= 4; ++service) {
        char url[512];
        ASSERT_TRUE(ast_map_get_link_url(url, sizeof url, service, 48.5, -2.25));
        const std::string link = "<a href=\"" + std::string(url) + "\">" + ast_map_get_service_name(service) + "</a>";
        EXPECT_EQ(written([&](char *text, uint64_t capacity) {
                      const uint64_t count = ast_html_gen_location_map_link(text, capacity, service, 48.5, -2.25);
                      EXPECT_EQ(count, text && capacity ? std::string(text).size() : 0U);
                  }),
                  link);
    }
    EXPECT_EQ(written([](char *text, uint64_t capacity) {
                  EXPECT_EQ(ast_html_gen_location_map_link(text, capacity, 5, 1, 2), 0U);
              }),
              "");
}

} // namespace
