#include "page/markup.hpp"

#include <algorithm>
#include <iterator>

#include "base/printable.hpp"
#include "show/item_views.hpp"

namespace ast::recording::astdump {

namespace {

// The most frequent first.
constexpr std::string_view kMarkup[] = {
    "<td>",
    "</td>",
    "</tr>",
    "<tr>",
    "<tr class=\"even_row\">",
    "<th colspan=8>",
    "</th>",
    "<th>",
    "<tr class=\"caption_row\">",
    "<tr class=\"data_row\">",
    "<table class=\"detail_table\">",
    "<table class=\"bin_table\">",
    "<table class=\"hex_table\">",
    "</table>",
    "<br/>",
    "<th colspan=8 align=\"left\">",
    "<th colspan=8 align=\"right\">",
    "<h4>",
    "</h4>",
    "<p>",
    "</p>",
    "<b>",
    "</b>",
    "</a>",
};

// A link to a page on the web, and nothing else in its tag; empty when there is none.
std::string_view link_tag(std::string_view html) {
    constexpr std::string_view kStart = "<a href=\"";
    constexpr std::string_view kEnd = "\">";
    if (!html.starts_with(kStart)) return {};
    const std::string_view address =
        html.substr(kStart.size(), html.find_first_of("\"<>", kStart.size()) - kStart.size());
    const bool web = address.starts_with("https://") || address.starts_with("http://");
    if (!web || html.substr(kStart.size() + address.size(), kEnd.size()) != kEnd) return {};
    return html.substr(0, kStart.size() + address.size() + kEnd.size());
}

bool has_meaning(char c) { return c == '<' || c == '>' || c == '&' || c == '"'; }

void append_escaped(std::string &html, char c) {
    if (c == '<')
        html += "&lt;";
    else if (c == '>')
        html += "&gt;";
    else if (c == '&')
        html += "&amp;";
    else if (c == '"')
        html += "&quot;";
    else
        html += c;
}

} // namespace

std::string_view markup_at(std::string_view html) {
    constexpr size_t kShortest = 3;
    if (html.size() < kShortest || html.front() != '<') return {};
    const auto found = std::ranges::find_if(kMarkup, [&](std::string_view known) {
        return known[1] == html[1] && known[2] == html[2] && html.starts_with(known);
    });
    return found == std::end(kMarkup) ? link_tag(html) : *found;
}

std::string escape(std::string_view text) {
    std::string html;
    for (const char c : text) append_escaped(html, c);
    return html;
}

void put_shown(TextBuffer &out, std::string_view text) {
    if (text == kNoSummary) return;
    if (std::ranges::none_of(text, has_meaning)) return put_printable(out, text);
    out.put(escape(printable(text)));
}

void put_shown_markup(TextBuffer &out, std::string_view html) {
    while (!html.empty()) {
        std::string_view piece = markup_at(html);
        if (!piece.empty()) {
            out.put(piece);
        } else {
            piece = html.substr(0, html.find('<', 1));
            put_shown(out, piece);
        }
        html.remove_prefix(piece.size());
    }
}

} // namespace ast::recording::astdump
