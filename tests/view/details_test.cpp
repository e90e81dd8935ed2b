#include <random>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/octets.hpp"
#include "support/registered_items.hpp"

using namespace ast_test;

namespace {

// The HTML of a view, made of its pieces.
struct Html {
    std::string text;
    bool is_even = false;

    static Html &of(void *context) { return *static_cast<Html *>(context); }

    void escaped(const ast_detail_text_t &piece) {
        for (const char c : std::string_view(piece.text, piece.size))
            text += c == '<'   ? "&lt;"
                    : c == '>' ? "&gt;"
                    : c == '&' ? "&amp;"
                    : c == '"' ? "&quot;"
                               : std::string(1, c);
    }
    void element(const std::string &tag, const ast_detail_text_t *pieces, uint64_t count) {
        text += '<' + tag + '>';
        for (uint64_t i = 0; i < count; ++i) {
            const bool is_strong = pieces[i].kind == AST_DETAIL_STRONG;
            if (is_strong) text += "<b>";
            if (pieces[i].kind == AST_DETAIL_PLAIN)
                text.append(pieces[i].text, pieces[i].size);
            else
                escaped(pieces[i]);
            if (is_strong) text += "</b>";
        }
        text += "</" + tag + '>';
    }
    void cells(const std::string &tag, const ast_detail_text_t *all, uint64_t count) {
        text += is_even ? "<tr class=\"even_row\">" : "<tr>";
        for (uint64_t i = 0; i < count; ++i) element(tag, &all[i], 1);
        is_even = !is_even;
    }
};

constexpr ast_details_visitor_t kHtml = {
    .title = [](void *to, const ast_detail_text_t *pieces, uint64_t n) { Html::of(to).element("h4", pieces, n); },
    .paragraph = [](void *to, const ast_detail_text_t *pieces, uint64_t n) { Html::of(to).element("p", pieces, n); },
    .table_begin =
        [](void *to, const ast_detail_text_t *header, uint64_t count) {
            Html &html = Html::of(to);
            html.text += "<table class=\"detail_table\">";
            html.is_even = false;
            html.cells("th", header, count);
            html.text += "</tr>";
            html.is_even = false;
        },
    .row =
        [](void *to, const ast_detail_text_t *cells, uint64_t count) {
            Html::of(to).cells("td", cells, count);
            Html::of(to).text += "</tr>";
        },
    .link_row =
        [](void *to, const ast_detail_text_t *cells, uint64_t count, const ast_detail_link_t *link) {
            Html::of(to).cells("td", cells, count);
            char anchor[600];
            ast_html_gen_location_map_link(anchor, sizeof anchor, link->service, link->latitude, link->longitude);
            EXPECT_NE(std::string_view(anchor).find(link->url), std::string_view::npos);
            EXPECT_STREQ(link->title, ast_map_get_service_name(link->service));
            Html::of(to).text += "<td>" + std::string(anchor) + "</td></tr>";
        },
    .table_end = [](void *to) { Html::of(to).text += "</table><br/>"; },
    .bits =
        [](void *to, const uint8_t *octets, uint64_t count) {
            std::string table(4096 + 200 * count, '\0');
            ast_html_gen_bin_table(table.data(), table.size(), octets, count);
            Html::of(to).text += table.c_str();
        },
};

// An item of the sizes that its sample has, of other octets.
std::vector<uint8_t> varied(const RegisteredItem &item, std::mt19937 &random) {
    auto octets = item.sample;
    const uint64_t subfields = ast_dataitem_subfields_get_number(item.type);
    const uint64_t fixed = item.is_extended ? octets.size() : subfields != 0 ? (subfields + 6) / 7 : item.is_lenient;
    for (size_t i = fixed; i < octets.size(); ++i) octets[i] = static_cast<uint8_t>(random());
    if (ast_dataitem_get_size(octets.data(), octets.size(), item.type) != octets.size()) return item.sample;
    return octets;
}

std::string html_of(const ast_dataitem_t &item) {
    static std::string text(1 << 18, '\0');
    ast_dataitem_get_detail_html(text.data(), text.size(), &item);
    return text.c_str();
}

TEST(Details, ArePiecesOfTheHtml) {
    ast_log_handler_reg(nullptr);
    std::mt19937 random(1);
    size_t shown = 0;
    for (const RegisteredItem &registered : registered_items()) {
        for (int round = 0; round < 8; ++round) {
            const auto octets = round == 0 ? registered.sample : varied(registered, random);
            const ast_dataitem_t item = ast_dataitem_decode(octets.data(), octets.size(), registered.type);
            Html html;
            ast_dataitem_get_details(&item, &kHtml, &html);
            EXPECT_EQ(html.text, html_of(item)) << ast_dataitem_type_to_str(registered.type);
            shown += html.text.size();
            const ast_details_visitor_t nobody{};
            ast_dataitem_get_details(&item, &nobody, nullptr);
            ast_dataitem_get_details(&item, nullptr, nullptr);
            for (uint32_t number = 0; number <= ast_dataitem_subfields_get_number(registered.type) + 1; ++number) {
                const uint32_t subfield = AST_SUBFIELD_TYPE(registered.type, number);
                static std::string text(1 << 16, '\0');
                ast_subfield_get_detail_html(text.data(), text.size(), &item, subfield);
                Html own;
                ast_subfield_get_details(&item, subfield, &kHtml, &own);
                EXPECT_EQ(own.text, text.c_str()) << subfield;
            }
        }
    }
    ast_log_handler_reg(ast_log_stdout);
    EXPECT_GT(shown, 1000000U);
}

TEST(Details, MarkWhatCameIn) {
    std::string pieces;
    constexpr ast_details_visitor_t kMarks = {
        .paragraph =
            [](void *to, const ast_detail_text_t *all, uint64_t count) {
                for (uint64_t i = 0; i < count; ++i)
                    *static_cast<std::string *>(to) +=
                        std::to_string(all[i].kind) + '[' + std::string(all[i].text, all[i].size) + ']';
            },
    };
    const auto summary = octets("04 3C 62 3E 07"); // "<b>" and a bell
    const ast_dataitem_t item = ast_dataitem_decode(summary.data(), summary.size(), 240030);
    ast_dataitem_get_details(&item, &kMarks, &pieces);
    EXPECT_EQ(pieces, "0[Video summary: \"]2[<b> ]0[\"]");
    EXPECT_EQ(html_of(item), "<p>Video summary: \"<b>&lt;b&gt; </b>\"</p>");
}

TEST(Details, OfARegister) {
    const auto octets = ast_test::octets("20 2C C3 71 CB 3D 20");
    const ast_bds_t bds = ast_bds_decode(octets.data(), octets.size(), 0x20);
    static char text[4096];
    ast_bds_get_detail_html(text, sizeof text, &bds);
    Html html;
    ast_bds_get_details(&bds, &kHtml, &html);
    EXPECT_EQ(html.text, text);
    ast_bds_get_details(&bds, nullptr, nullptr);
}

} // namespace
