// HTML from what may hold anything.
#pragma once

#include <string>
#include <string_view>

namespace astdump {

// A text as HTML shows it.
std::string escape(std::string_view text);

// A view of the library as it is, but for what items carried as characters: the library writes those without escaping,
// so everything is escaped that is not the markup of its fragments, to the letter. Summaries that the library has not
// are left out.
void append_fragment(std::string &html, std::string_view fragment);

} // namespace astdump
