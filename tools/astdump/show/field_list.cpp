#include "show/field_list.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "ask/published_fields.hpp"
#include "ask/quantities.hpp"
#include "base/letters.hpp"
#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

namespace {

struct Row {
    std::string path;
    std::string title;
    std::string unit{};
    uint32_t bits = 0; // 0 where that is not known, or varies
    std::string step{};
    std::vector<std::pair<uint64_t, std::string>> texts{}; // of codes
    std::vector<std::string_view> stands_for{};            // quantities
    bool is_list = false;
};

constexpr size_t kCategory = 5; // "I048/"

// "048/I020/TYP", and "I020/TYP" of any category: how a path may be written, too.
std::array<std::string, 2> other_forms(std::string_view path) {
    if (path.size() <= kCategory || path[kCategory - 1] != '/') return {};
    const std::string_view item = path.substr(kCategory);
    const std::string name = (is_digit(item.front()) ? "I" : "") + std::string(item);
    return {std::string(path.substr(1, kCategory - 1)) + name, name};
}

class Pattern {
public:
    explicit Pattern(std::string_view text) : text_(text) {
        if (text.find_first_of("*?") == std::string_view::npos) text_ = '*' + text_ + '*';
    }

    bool is_of(std::string_view path, std::string_view title) const {
        const auto is_met = [&](std::string_view text) { return is_like(text, text_); };
        return is_met(path) || is_met(title) || std::ranges::any_of(other_forms(path), is_met);
    }

private:
    std::string text_;
};

std::vector<std::pair<uint64_t, std::string>> texts_of(const ast_field_t &field) {
    constexpr uint32_t kMostBits = 8; // that codes with texts have
    std::vector<std::pair<uint64_t, std::string>> texts;
    if (field.kind != AST_FIELD_CODE) return texts;
    char text[256];
    for (uint64_t code = 0; code < uint64_t{1} << std::min(field.bits, kMostBits); ++code) {
        ast_field_get_text(text, sizeof text, &field, code);
        if (text[0] != '\0') texts.emplace_back(code, text);
    }
    return texts;
}

std::string step_of(const ast_field_t &field) {
    if (field.numerator == 0 || field.numerator == field.denominator) return {};
    const std::string numerator = std::to_string(field.numerator);
    return field.denominator == 1 ? numerator : numerator + '/' + std::to_string(field.denominator);
}

std::vector<Row> rows_of(std::string_view pattern_text) {
    const Pattern pattern(pattern_text);
    std::vector<Row> rows;
    for (const std::string_view name : known_names()) {
        const QuantityName known = find_quantities(name);
        const Quantity &first = *known.quantities.front();
        Row row{.path = std::string(name), .title = std::string(first.title)};
        if (first.name != name)
            for (const Quantity *const each : known.quantities) row.stands_for.push_back(each->name);
        else
            row.unit = first.unit;
        if (known.quantities.size() > 1) row.title.append("; ").append(known.quantities.back()->title);
        if (pattern.is_of(row.path, row.title)) rows.push_back(std::move(row));
    }
    for (const PublishedField &each : published_fields())
        if (pattern.is_of(each.path, each.field.title))
            rows.push_back({.path = each.path,
                            .title = each.field.title,
                            .unit = each.field.unit,
                            .bits = has_value(each.field) ? each.field.bits : 0,
                            .step = step_of(each.field),
                            .texts = texts_of(each.field),
                            .stands_for = {},
                            .is_list = each.is_list});
    return rows;
}

// ---- As a table ----

// Behind the title: "0 No detection, 1 Single PSR detection".
std::string notes_of(const Row &row) {
    std::string notes;
    const auto add = [&](const std::string &note) { notes.append(notes.empty() ? "" : ", ").append(note); };
    for (const auto &[code, text] : row.texts) add(std::to_string(code) + ' ' + text);
    for (const std::string_view name : row.stands_for) add("= " + std::string(name));
    return notes;
}

constexpr std::array<std::string_view, 6> kTitles = {"Path", "Bits", "Step", "Unit", "Title", "Texts"};
using Cells = std::array<std::string, kTitles.size()>;

constexpr size_t kMostWidth = 44; // of a column, but for the longest titles
constexpr size_t kGap = 2;

std::string table(const std::vector<Row> &rows) {
    std::vector<Cells> lines(1);
    std::ranges::copy(kTitles, lines.front().begin());
    for (const Row &row : rows)
        lines.push_back(
            {row.path, row.bits == 0 ? "" : std::to_string(row.bits), row.step, row.unit, row.title, notes_of(row)});
    std::array<size_t, kTitles.size()> widths{};
    for (const Cells &cells : lines)
        for (size_t i = 0; i + 1 < cells.size(); ++i)
            widths[i] = std::max(widths[i], std::min(characters(cells[i]), kMostWidth));
    std::string text;
    for (const Cells &cells : lines) {
        const size_t begin = text.size();
        for (size_t i = 0; i < cells.size(); ++i) {
            text += cells[i];
            const size_t width = std::max(widths[i], characters(cells[i])); // a long title pushes what follows
            if (i + 1 < cells.size()) text.append(width + kGap - characters(cells[i]), ' ');
        }
        while (text.size() > begin && text.back() == ' ') text.pop_back();
        text += '\n';
    }
    return text;
}

// ---- As JSON ----

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') result += '\\';
        result += c;
    }
    return result + '"';
}

std::string json(const std::vector<Row> &rows) {
    std::string lines;
    for (const Row &row : rows) {
        lines += "{\"path\":" + quoted(row.path) + ",\"title\":" + quoted(row.title);
        if (!row.unit.empty()) lines += ",\"unit\":" + quoted(row.unit);
        if (row.bits != 0) lines += ",\"bits\":" + std::to_string(row.bits);
        if (!row.step.empty()) lines += ",\"step\":" + quoted(row.step);
        if (row.is_list) lines += ",\"list\":true";
        const auto put_all = [&](const char *name, const auto &all, char open, char close, const auto &put) {
            if (all.empty()) return;
            lines.append(",\"").append(name).append("\":") += open;
            for (size_t i = 0; i < all.size(); ++i) lines += (i == 0 ? "" : ",") + put(all[i]);
            lines += close;
        };
        put_all("texts", row.texts, '{', '}',
                [](const auto &text) { return quoted(std::to_string(text.first)) + ':' + quoted(text.second); });
        put_all("stands_for", row.stands_for, '[', ']', [](std::string_view name) { return quoted(name); });
        lines += "}\n";
    }
    return lines;
}

} // namespace

std::string field_list(std::string_view pattern, bool as_json) {
    const std::vector<Row> rows = rows_of(pattern);
    if (rows.empty()) return {};
    return as_json ? json(rows) : table(rows);
}

} // namespace ast::recording::astdump
