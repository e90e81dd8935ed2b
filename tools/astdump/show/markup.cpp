#include "show/markup.hpp"

#include <algorithm>

#include "base/printable.hpp"
#include "show/item_views.hpp"

namespace ast::recording::astdump {

namespace {

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

} // namespace ast::recording::astdump
