// HTML from what may hold anything.
#pragma once

#include <string>
#include <string_view>

#include "text.hpp"
#include "views.hpp"

namespace astdump {

// A text as HTML shows it.
std::string escape(std::string_view text);

// The markup at the start of a view of the library, if it is some that the library writes, to the letter; empty before
// anything else. What items carried as characters the library writes without escaping, so that all else is text.
std::string_view markup_at(std::string_view html);

// Reads a view of the library as pieces of markup, and printable texts between them. Summaries that the library has not
// are left out.
template <typename OnMarkup, typename OnText>
void read_fragment(std::string_view html, OnMarkup on_markup, OnText on_text) {
    while (!html.empty()) {
        std::string_view piece = markup_at(html);
        if (!piece.empty()) {
            on_markup(piece);
        } else {
            piece = html.substr(0, html.find('<', 1));
            on_text(piece == kNoSummary ? std::string() : printable(piece));
        }
        html.remove_prefix(piece.size());
    }
}

} // namespace astdump
