#include "base/letters.hpp"

namespace ast::recording {

// Goes back to the last "*", which takes one character more, where the text does not go on as the pattern does.
bool is_like(std::string_view text, std::string_view pattern) {
    size_t at = 0;
    size_t p = 0;
    size_t star = std::string_view::npos;
    size_t resume = 0;
    while (at < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = at;
        } else if (p < pattern.size() && (pattern[p] == '?' || to_small(pattern[p]) == to_small(text[at]))) {
            ++p;
            ++at;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

} // namespace ast::recording
