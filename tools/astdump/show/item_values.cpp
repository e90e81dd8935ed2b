#include "show/item_values.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "show/field_text.hpp"
#include "show/terminal.hpp"

namespace ast::recording::astdump {

namespace {

constexpr size_t kMaxSummary = 64;   // characters
constexpr size_t kMaxBriefText = 16; // of a code behind a name, longer ones are numbers
constexpr size_t kMaxLoneText = 40;  // of one without
constexpr std::string_view kOmission = " ...";

char capital(char c) {
    if (c == ' ') return '_';
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// With its unit, or with what the code stands for.
void put_whole(TextBuffer &out, const ast_field_value_t &value) {
    put_value(out, value);
    const std::string_view behind = value.field->kind == AST_FIELD_CODE ? value.text : value.field->unit;
    if (!behind.empty()) out.put(' ');
    put_plain(out, behind);
}

// A flag that is not set.
bool is_clear(const ast_field_value_t &value) {
    return value.field->kind == AST_FIELD_CODE && value.field->bits == 1 && value.raw == 0;
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

// Calls visit(value) for the values of an item below a path.
template <typename Visit>
void each_value(const ast_dataitem_t &item, const Reading &reading, std::string_view below, Visit visit) {
    auto visit_below = [&](const ast_field_value_t &value) {
        if (is_below(value.field->path, below)) visit(value);
    };
    const auto take = [](void *context, const ast_field_value_t *value) {
        (*static_cast<decltype(visit_below) *>(context))(*value);
    };
    ast_dataitem_walk(&item, reading.uap, reading.message_type, take, &visit_below);
}

// "40" is 64.
uint32_t register_number(const ast_field_value_t &value) {
    return static_cast<uint32_t>(std::strtoul(value.text, nullptr, 16));
}

// Its number stands behind its octets, unless its place tells it.
RegisterOctets register_octets(const ast_field_value_t &value) {
    RegisterOctets octets{};
    uint64_t rest = value.field->bits > 8 * octets.size() ? value.raw >> 8 : value.raw;
    for (auto octet = octets.rbegin(); octet != octets.rend(); ++octet, rest >>= 8) *octet = static_cast<uint8_t>(rest);
    return octets;
}

// Where the cells of a row end: path, title and value, one behind the other.
using CellEnds = std::array<size_t, 3>;

CellEnds put_cells(TextBuffer &out, const ast_field_value_t &value) {
    CellEnds ends{};
    put_option_path(out, value.field->path);
    ends[0] = out.size();
    put_plain(out, value.field->title);
    ends[1] = out.size();
    put_whole(out, value);
    ends[2] = out.size();
    return ends;
}

void begin_table(DetailSink &sink) { sink.table_begin(texts("Field", "Item", "Value")); }

void put_row(DetailSink &sink, std::string_view text, size_t begin, const CellEnds &ends) {
    const auto cell = [&](size_t from, size_t to) { return text.substr(from, to - from); };
    sink.row(texts(cell(begin, ends[0]), cell(ends[0], ends[1]), cell(ends[1], ends[2])));
}

// What the library calls an item of a category that it does not know, and one of a category that it does.
bool is_no_name(std::string_view name) { return name == "UNKNOWN NAME" || name.starts_with("Unknown CAT"); }

} // namespace

// "45.5", and codes as their text where that is short: "SINGLE_TARGET".
std::string ItemValues::brief_text(const ast_field_value_t &value, size_t most) {
    scratch_.clear();
    const std::string_view text = value.text;
    const bool is_named = value.field->kind == AST_FIELD_CODE && !text.empty() && text.size() <= most;
    if (is_named)
        put_plain(scratch_, text);
    else
        put_value(scratch_, value);
    std::string result(scratch_.text());
    if (is_named) std::ranges::transform(result, result.begin(), capital);
    return cut(result, kMaxLoneText);
}

// "SPD:450", and "450 kt" without a name.
std::string ItemValues::word(const ast_field_value_t &value, std::string_view name) {
    if (!name.empty()) return std::string(name) + ':' + brief_text(value, kMaxBriefText);
    if (value.field->kind == AST_FIELD_CODE) return brief_text(value, kMaxLoneText);
    scratch_.clear();
    put_whole(scratch_, value);
    return cut(std::string(scratch_.text()), kMaxSummary);
}

std::string ItemValues::summary(const ast_dataitem_t &item, const Reading &reading, std::string_view below) {
    bool all_clear = true;
    each_value(item, reading, below, [&](const ast_field_value_t &value) {
        all_clear = all_clear && (is_clear(value) || value.field->kind == AST_FIELD_REGISTER);
    });
    std::string line;
    bool is_full = false;
    each_value(item, reading, below, [&](const ast_field_value_t &value) {
        const bool is_number = value.field->kind == AST_FIELD_REGISTER; // whose fields follow
        if (is_full || is_number || (is_clear(value) && !all_clear)) return;
        const std::string next = word(value, last_name(std::string_view(value.field->path).substr(below.size())));
        is_full = !line.empty() && line.size() + 1 + next.size() + kOmission.size() > kMaxSummary;
        if (!line.empty() && !is_full) line += ' ';
        line += is_full ? kOmission : next;
    });
    return line;
}

void ItemValues::put_table(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading,
                           std::string_view below) {
    bool is_begun = false;
    TextBuffer cells;
    each_value(item, reading, below, [&](const ast_field_value_t &value) {
        if (!is_begun) begin_table(sink);
        is_begun = true;
        cells.clear();
        const CellEnds ends = put_cells(cells, value);
        put_row(sink, cells.text(), 0, ends);
    });
    if (is_begun) sink.table_end();
}

std::string ItemValues::find(const ast_dataitem_t &item, const Reading &reading, std::string_view path,
                             const std::function<bool(const ast_field_value_t &value)> &wanted) {
    TextBuffer found;
    each_value(item, reading, path, [&](const ast_field_value_t &value) {
        if (found.size() == 0 && value.field->path == path && wanted(value)) put_whole(found, value);
    });
    return std::string(found.text());
}

bool ItemValues::put_registers(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading,
                               std::string_view below) {
    bool is_list = false;
    registers_.clear();
    row_ends_.clear();
    rows_.clear();
    each_value(item, reading, below, [&](const ast_field_value_t &value) {
        if (value.field->kind != AST_FIELD_REGISTER) return row_ends_.push_back(put_cells(rows_, value));
        is_list = value.field->path[below.size()] == '[';
        registers_.push_back({register_number(value), register_octets(value), row_ends_.size()});
    });
    if (registers_.empty()) return false;
    if (is_list) {
        sink.title(texts("BDS List"));
        sink.table_begin(texts("BDS", "Name"));
        for (const Register &each : registers_)
            sink.row(texts(ast_bds_type_to_str(each.number), ast_bds_get_name(each.number)));
        sink.table_end();
    }
    for (size_t i = 0; i < registers_.size(); ++i) {
        const Register &each = registers_[i];
        sink.title(texts(ast_bds_type_to_str(each.number), " - ", ast_bds_get_name(each.number)));
        sink.bits(each.octets);
        sink.paragraph(texts(""));
        const size_t end = i + 1 < registers_.size() ? registers_[i + 1].first_row : row_ends_.size();
        if (each.first_row == end) continue;
        begin_table(sink);
        for (size_t row = each.first_row; row < end; ++row)
            put_row(sink, rows_.text(), row == 0 ? 0 : row_ends_[row - 1][2], row_ends_[row]);
        sink.table_end();
    }
    return true;
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

} // namespace ast::recording::astdump
