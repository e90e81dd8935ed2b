#include "ask/keywords.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "ask/shared_items.hpp"
#include "base/printable.hpp"

namespace ast::recording {

namespace {

// In the order of their numbers.
constexpr std::string_view kNames[] = {
    "sacsic", "time",     "type",  "track", "squawk",  "fl",       "selalt", "callsign",
    "icao",   "position", "polar", "speed", "heading", "velocity", "vrate",
};
static_assert(std::size(kNames) == AST_KEYWORDS);

constexpr size_t kKeywordRoom = 128; // more characters than any value takes

// By the items that categories share, for those without accessors.
size_t write_shared_keyword(char *text, const ast_datarecord_t &record, uint32_t keyword) {
    thread_local TextBuffer shared;
    shared.clear();
    put_shared_item(shared, record, keyword);
    return shared.text().copy(text, kKeywordRoom);
}

// Without blanks around it, and printable: a callsign is what an aircraft has sent.
size_t tidy_keyword(char *text, size_t size) {
    while (size != 0 && text[size - 1] == ' ') --size;
    size_t blanks = 0;
    while (blanks != size && text[blanks] == ' ') ++blanks;
    if (blanks != 0) std::memmove(text, text + blanks, size -= blanks);
    make_printable({text, size});
    return size;
}

size_t write_keyword(char *text, const ast_datarecord_t &record, uint32_t keyword) {
    const size_t size = ast_datarecord_write_keyword(text, kKeywordRoom, &record, keyword, AST_POSITION_DEGREES);
    if (keyword == AST_KEYWORD_CALLSIGN) return tidy_keyword(text, size);
    return size == 0 && is_shared(keyword) ? write_shared_keyword(text, record, keyword) : size;
}

} // namespace

std::optional<uint32_t> find_keyword(std::string_view name) {
    const auto found = std::ranges::find(kNames, name);
    if (found == std::end(kNames)) return std::nullopt;
    return static_cast<uint32_t>(found - std::begin(kNames));
}

std::string keyword_names() {
    std::string names;
    for (const std::string_view name : kNames) names.append(names.empty() ? "" : ", ").append(name);
    return names;
}

bool put_keyword(TextBuffer &out, const ast_datarecord_t &record, uint32_t keyword) {
    return out.put_with(kKeywordRoom, [&](char *text) { return write_keyword(text, record, keyword); }) != 0;
}

std::string_view keyword_text(const ast_datarecord_t &record, uint32_t keyword) {
    thread_local TextBuffer text;
    text.clear();
    put_keyword(text, record, keyword);
    return text.text();
}

} // namespace ast::recording
