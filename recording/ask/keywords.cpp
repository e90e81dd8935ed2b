#include "ask/keywords.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "base/printable.hpp"

namespace ast::recording {

namespace {

// In the order of their numbers.
constexpr std::string_view kNames[] = {
    "sacsic", "time",     "type",  "track", "squawk",  "fl",       "selalt", "callsign",
    "icao",   "position", "polar", "speed", "heading", "velocity", "vrate",
};
static_assert(std::size(kNames) == AST_KEYWORDS);

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

size_t write_shared_keyword(char *text, const ast_datarecord_t &record, uint32_t keyword) {
    thread_local TextBuffer shared;
    shared.clear();
    put_shared_item(shared, record, keyword);
    return shared.text().copy(text, kKeywordRoom);
}

size_t tidy_keyword(char *text, size_t size) {
    while (size != 0 && text[size - 1] == ' ') --size;
    size_t blanks = 0;
    while (blanks != size && text[blanks] == ' ') ++blanks;
    if (blanks != 0) std::memmove(text, text + blanks, size -= blanks);
    make_printable({text, size});
    return size;
}

bool put_keyword(TextBuffer &out, const ast_datarecord_t &record, uint32_t keyword) {
    return out.put_with(kKeywordRoom, [&](char *text) { return write_keyword(text, record, keyword); }) != 0;
}

uint32_t keywords_of(uint32_t category) {
    const ast_datarecord_func_t functions = ast_datarecord_get_func(category);
    const bool has_keyword[] = {
        true, // as far as shared items go
        true,
        true,
        functions.get_tracknum != nullptr,
        functions.get_squawk != nullptr,
        functions.get_flightlevel != nullptr,
        functions.get_selaltitude != nullptr,
        functions.get_callsign != nullptr,
        functions.get_icaoaddr != nullptr,
        functions.get_coordinate != nullptr,
        functions.get_polarcoord != nullptr,
        functions.get_speed != nullptr,
        functions.get_heading != nullptr,
        functions.get_cartesianvel != nullptr,
        functions.get_vrate != nullptr,
    };
    static_assert(std::size(has_keyword) == AST_KEYWORDS);
    uint32_t keywords = 0;
    for (size_t i = 0; i < std::size(has_keyword); ++i)
        if (has_keyword[i]) keywords |= UINT32_C(1) << i;
    return keywords;
}

std::string_view keyword_text(const ast_datarecord_t &record, uint32_t keyword) {
    thread_local TextBuffer text;
    text.clear();
    put_keyword(text, record, keyword);
    return text.text();
}

} // namespace ast::recording
