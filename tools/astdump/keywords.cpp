#include "keywords.hpp"

#include <algorithm>
#include <iterator>

#include "shared_items.hpp"
#include "text.hpp"

namespace astdump {

namespace {

// In the order of their numbers.
constexpr std::string_view kNames[] = {
    "sacsic", "time",     "type",  "track", "squawk",  "fl",       "selalt", "callsign",
    "icao",   "position", "polar", "speed", "heading", "velocity", "vrate",
};
static_assert(std::size(kNames) == AST_KEYWORDS);

constexpr size_t kTextOctets = 128; // more than any value takes

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
    char buffer[kTextOctets];
    ast_datarecord_get_keyword(buffer, sizeof buffer, &record, keyword, AST_POSITION_DEGREES);
    const char *first = buffer;
    while (*first == ' ') ++first;
    const size_t begin = out.size();
    put_printable(out, first);
    out.trim(begin);
    return out.size() > begin || put_shared_item(out, record, keyword);
}

std::string_view keyword_text(const ast_datarecord_t &record, uint32_t keyword) {
    thread_local TextBuffer text;
    text.clear();
    put_keyword(text, record, keyword);
    return text.text();
}

} // namespace astdump
