#include "show/markup.hpp"

namespace ast::recording::astdump {

namespace {

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

} // namespace ast::recording::astdump
