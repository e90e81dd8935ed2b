#include "show/csv.hpp"

#include <algorithm>
#include <stdexcept>

#include "ask/keywords.hpp"
#include "base/printable.hpp"
#include "base/time.hpp"
#include "show/field_text.hpp"

namespace ast::recording::astdump {

namespace {

constexpr struct {
    const char *title;
    std::initializer_list<uint32_t> keywords;
} kUsual[] = {
    {"time_of_day", {AST_KEYWORD_TIMEOFDAY}},
    {"sacsic", {AST_KEYWORD_SACSIC}},
    {"type", {AST_KEYWORD_MSGTYPE}},
    {"track", {AST_KEYWORD_TRACKNUM}},
    {"squawk", {AST_KEYWORD_SQUAWK}},
    {"callsign", {AST_KEYWORD_CALLSIGN}},
    {"icao", {AST_KEYWORD_ICAOADDR}},
    {"height_ft", {AST_KEYWORD_FLIGHTLEVEL}},
    {"selected_ft", {AST_KEYWORD_SELALTITUDE}},
    {"position", {AST_KEYWORD_WGS84COORD, AST_KEYWORD_POLARCOORD}},
    {"speed_kt", {AST_KEYWORD_SPEED}},
    {"heading", {AST_KEYWORD_HEADING}},
    {"vrate_ft_min", {AST_KEYWORD_VRATE}},
    {"velocity_m_s", {AST_KEYWORD_CARTESIANVEL}},
};

std::vector<std::string> words(const std::string &list) {
    std::vector<std::string> words;
    for (size_t at = 0; at <= list.size();) {
        const size_t comma = std::min(list.find(',', at), list.size());
        words.push_back(list.substr(at, comma - at));
        at = comma + 1;
    }
    return words;
}

CsvColumn read_column(const std::string &name) {
    if (const auto keyword = find_keyword(name)) return {name, std::vector{*keyword}};
    const auto path = FieldPath::read(name);
    if (!path)
        throw std::invalid_argument("'" + name + "' is none of " + keyword_names() + ", nor a path such as I010/SIC");
    if (path->fields().empty())
        throw std::invalid_argument("'" + name + "' has no value of its own but holds fields that have");
    return {name, *path};
}

std::vector<CsvColumn> usual_columns() {
    std::vector<CsvColumn> columns = {{"octets", RecordOctets()}};
    for (const auto &[title, keywords] : kUsual) columns.push_back({title, std::vector<uint32_t>(keywords)});
    return columns;
}

// ---- Cells ----

bool wants_quotes(char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; }

// Puts what stands in quotes where it has to, from `begin` on.
void quote(TextBuffer &out, size_t begin) {
    const std::string_view cell = out.text().substr(begin);
    if (std::ranges::none_of(cell, wants_quotes)) return;
    std::string quoted = "\"";
    for (const char c : cell) quoted.append(c == '"' ? 2 : 1, c);
    quoted += '"';
    out.cut(begin);
    out.put(quoted);
}

void put_text(TextBuffer &out, std::string_view text) {
    const size_t begin = out.size();
    out.put(text);
    quote(out, begin);
}

void put_cell(TextBuffer &out, const ast_datarecord_t &record, const std::vector<uint32_t> &keywords) {
    for (const uint32_t keyword : keywords) {
        const std::string_view text = keyword_text(record, keyword);
        if (!text.empty()) return put_printable(out, text);
    }
}

void put_cell(TextBuffer &out, const ast_datarecord_t &record, RecordOctets) { out.number(record.size); }

// The elements of a list are set apart by blanks.
void put_cell(TextBuffer &out, const ast_datarecord_t &record, const FieldPath &path) {
    bool is_first = true;
    path.each_value(record, [&](const ast_field_value_t &value) {
        if (!is_first) out.put(' ');
        is_first = false;
        put_value(out, value);
    });
}

class CsvRenderer : public Renderer {
public:
    explicit CsvRenderer(const std::vector<CsvColumn> &columns) : columns_(columns) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        for (uint64_t i = 0; i < decoded.block->record_count; ++i)
            if (decoded.shown[i]) record(decoded, i, out);
    }

private:
    void record(const DecodedBlock &decoded, uint64_t number, TextBuffer &out) {
        const ast_datarecord_t &record = decoded.block->records[number];
        if (decoded.datagram->file) {
            put_text(out, *decoded.datagram->file);
            out.put(',');
        }
        out.number(decoded.number);
        out.put(',');
        out.number(number + 1);
        out.put(',');
        if (decoded.datagram->time) put_iso_time(out, *decoded.datagram->time);
        out.put(',');
        out.number(record.category);
        for (const CsvColumn &column : columns_) {
            out.put(',');
            const size_t begin = out.size();
            std::visit([&](const auto &what) { put_cell(out, record, what); }, column.what);
            quote(out, begin);
        }
        out.put('\n');
    }

    const std::vector<CsvColumn> &columns_;
};

} // namespace

bool is_csv_columns(const std::string &list) {
    return std::ranges::any_of(words(list),
                               [](const auto &word) { return find_keyword(word) || FieldPath::has_form(word); });
}

std::vector<CsvColumn> read_csv_columns(const std::string &list) try {
    std::vector<CsvColumn> columns;
    if (list.empty())
        columns = usual_columns();
    else
        std::ranges::transform(words(list), std::back_inserter(columns), read_column);
    return columns;
} catch (const std::invalid_argument &error) {
    throw std::invalid_argument(std::string("--csv: ") + error.what());
}

std::unique_ptr<Renderer> Csv::renderer() const { return std::make_unique<CsvRenderer>(columns_); }

void Csv::file(const std::string &name) {
    if (!headed_) header();
    name_.clear();
    put_text(name_, name);
    name_.put(',');
}

void Csv::header() {
    lines_.put(name_files_ ? "file,block,record,time,category" : "block,record,time,category");
    for (const CsvColumn &column : columns_) {
        lines_.put(',');
        put_text(lines_, column.title);
    }
    lines_.put('\n');
    out_.write(lines_.text());
    headed_ = true;
}

// No cell holds the end of a line.
void Csv::take(std::string_view rendered) {
    if (!name_files_ || merged_) return out_.write(rendered);
    lines_.clear();
    while (!rendered.empty()) {
        const size_t end = rendered.find('\n') + 1;
        lines_.put(name_.text());
        lines_.put(rendered.substr(0, end));
        rendered.remove_prefix(end);
    }
    out_.write(lines_.text());
}

} // namespace ast::recording::astdump
