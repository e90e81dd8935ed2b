#include "item_values.hpp"

#include <algorithm>

#include "field_text.hpp"
#include "text.hpp"

namespace astdump {

namespace {

constexpr size_t kMaxSummary = 64;   // characters
constexpr size_t kMaxBriefText = 16; // of a code behind a name, longer ones are numbers
constexpr size_t kMaxLoneText = 40;  // of one without
constexpr std::string_view kOmission = " ...";

char capital(char c) {
    if (c == ' ') return '_';
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// "45.5", and codes as their text where that is short: "SINGLE_TARGET".
std::string brief_text(const ast_field_value_t &value, size_t most) {
    TextBuffer out;
    const std::string_view text = value.text;
    const bool is_named = value.field->kind == AST_FIELD_CODE && !text.empty() && text.size() <= most;
    if (is_named)
        put_plain(out, text);
    else
        put_value(out, value);
    std::string result(out.text());
    if (is_named) std::ranges::transform(result, result.begin(), capital);
    return cut(result, kMaxLoneText);
}

// With its unit, or with what the code stands for.
std::string whole_text(const ast_field_value_t &value) {
    TextBuffer out;
    put_value(out, value);
    const std::string_view behind = value.field->kind == AST_FIELD_CODE ? value.text : value.field->unit;
    if (!behind.empty()) out.put(' ');
    put_plain(out, behind);
    return std::string(out.text());
}

bool is_below(std::string_view path, std::string_view above) {
    return path.starts_with(above) &&
           (path.size() == above.size() || path[above.size()] == '/' || path[above.size()] == '[');
}

// The last name of a path, "MCP_ALT" of "[1]/MCP_ALT"; an element of a list has none.
std::string_view last_name(std::string_view path) {
    const size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) return {};
    path.remove_prefix(slash + 1);
    return path.substr(0, path.find('['));
}

// As options take it: "I040/RHO" of "I048/040/RHO".
std::string option_path(std::string_view path) {
    constexpr size_t kCategory = std::string_view("I048/").size();
    path.remove_prefix(std::min(kCategory, path.size()));
    const bool is_number = !path.empty() && path[0] >= '0' && path[0] <= '9';
    return (is_number ? "I" : "") + std::string(path);
}

// What the library calls an item of a category that it does not know, and one of a category that it does.
bool is_no_name(std::string_view name) { return name == "UNKNOWN NAME" || name.starts_with("Unknown CAT"); }

std::string row(std::string_view kind, std::string_view cell, std::initializer_list<std::string_view> cells) {
    std::string html(kind);
    for (const std::string_view text : cells)
        html.append("<").append(cell).append(">").append(text).append("</").append(cell).append(">");
    return html + "</tr>";
}

} // namespace

void ItemValues::read(const ast_dataitem_t &item, const Reading &reading) {
    values_.clear();
    ast_dataitem_walk(&item, reading.uap, reading.message_type, take, this);
}

void ItemValues::take(void *context, const ast_field_value_t *value) {
    const ast_field_t &field = *value->field;
    const bool is_code = field.kind == AST_FIELD_CODE;
    const std::string whole = whole_text(*value);
    TextBuffer title;
    put_plain(title, field.title);
    static_cast<ItemValues *>(context)->values_.push_back(
        {.path = field.path,
         .title = std::string(title.text()),
         .text = whole,
         .brief = brief_text(*value, kMaxBriefText),
         .alone = is_code ? brief_text(*value, kMaxLoneText) : cut(whole, kMaxSummary),
         .is_clear = is_code && field.bits == 1 && value->raw == 0});
}

std::string ItemValues::summary(std::string_view below) const {
    const bool all_clear = std::ranges::all_of(
        values_, [&](const Value &value) { return value.is_clear || !is_below(value.path, below); });
    std::string line;
    for (const Value &value : values_) {
        if (!is_below(value.path, below) || (value.is_clear && !all_clear)) continue;
        const std::string_view name = last_name(std::string_view(value.path).substr(below.size()));
        const std::string word = name.empty() ? value.alone : std::string(name) + ':' + value.brief;
        if (!line.empty() && line.size() + 1 + word.size() + kOmission.size() > kMaxSummary)
            return line.append(kOmission);
        if (!line.empty()) line += ' ';
        line += word;
    }
    return line;
}

std::string ItemValues::table(std::string_view below) const {
    std::string rows;
    bool is_even = false;
    for (const Value &value : values_) {
        if (!is_below(value.path, below)) continue;
        rows +=
            row(is_even ? "<tr class=\"even_row\">" : "<tr>", "td", {option_path(value.path), value.title, value.text});
        is_even = !is_even;
    }
    if (rows.empty()) return rows;
    return "<table class=\"detail_table\">" + row("<tr>", "th", {"Field", "Item", "Value"}) + rows + "</table><br/>";
}

std::string item_name(ast_dataitem_type_t type, const ast_uap_t &uap) {
    const std::string_view known = ast_dataitem_get_name(type);
    TextBuffer title;
    if (is_no_name(known))
        ast_dataitem_describe(
            type, uap,
            [](void *context, const ast_field_t *field) {
                auto &out = *static_cast<TextBuffer *>(context);
                if (out.size() == 0) put_plain(out, field->title);
            },
            &title);
    return std::string(title.size() != 0 ? title.text() : known);
}

} // namespace astdump
