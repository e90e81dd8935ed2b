#include "columns/csv_cell.hpp"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/numbers.hpp"

namespace ast::recording {

namespace {

bool wants_quotes(char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; }

// Puts what stands in quotes, from `begin` on.
void quote(TextBuffer &out, size_t begin) {
    std::string quoted = "\"";
    for (const char c : out.text().substr(begin)) quoted.append(c == '"' ? 2 : 1, c);
    quoted += '"';
    out.cut(begin);
    out.put(quoted);
}

bool is_number(std::string_view cell) {
    if (cell.starts_with('+')) cell.remove_prefix(1);
    const auto number = read_number<double>(cell);
    return number && std::isfinite(*number);
}

// What a spreadsheet would take for a formula.
bool is_formula(std::string_view cell) {
    constexpr std::string_view kBegins = "=+-@";
    return !cell.empty() && kBegins.find(cell.front()) != std::string_view::npos && !is_number(cell);
}

// Sets an apostrophe before the cell that stands from `begin` on, where it needs one.
void guard_formula(TextBuffer &out, size_t begin) {
    if (!is_formula(out.text().substr(begin))) return;
    const std::string cell(out.text().substr(begin));
    out.cut(begin);
    out.put('\'');
    out.put(cell);
}

} // namespace

void finish_cell(TextBuffer &out, size_t begin) {
    guard_formula(out, begin);
    if (std::ranges::any_of(out.text().substr(begin), wants_quotes)) quote(out, begin);
}

void put_cell(TextBuffer &out, std::string_view text) {
    const size_t begin = out.size();
    out.put(text);
    finish_cell(out, begin);
}

void put_quoted_cell(TextBuffer &out, std::string_view text) {
    if (!is_formula(text) && text.find('"') == std::string_view::npos) {
        out.put('"');
        out.put(text);
        return out.put('"');
    }
    const size_t begin = out.size();
    out.put(text);
    guard_formula(out, begin);
    quote(out, begin);
}

} // namespace ast::recording
