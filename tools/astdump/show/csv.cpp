#include "show/csv.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "ask/answerer.hpp"
#include "ask/suggestion.hpp"
#include "base/time.hpp"
#include "columns/csv_cell.hpp"
#include "show/field_text.hpp"

namespace ast::recording::astdump {

namespace {

// Shown of every record, behind the name of its file.
constexpr std::string_view kFile = "file";
constexpr std::string_view kBeforeColumns[] = {"block", "record", "received", "category"};

std::vector<std::string> words(const std::string &list) {
    std::vector<std::string> words;
    for (size_t at = 0; at <= list.size();) {
        const size_t comma = std::min(list.find(',', at), list.size());
        words.push_back(list.substr(at, comma - at));
        at = comma + 1;
    }
    return words;
}

void add(std::vector<CsvColumn> &columns, CsvColumn column) {
    const bool is_there = std::ranges::count(kBeforeColumns, column.title) != 0 ||
                          std::ranges::count(columns, column.title, &CsvColumn::title) != 0;
    if (!is_there) columns.push_back(std::move(column));
}

std::optional<FieldPath> read_path(const std::string &name) try {
    return FieldPath::read(name);
} catch (const std::invalid_argument &error) {
    throw std::invalid_argument(error.what() + suggestion(name));
}

void add(std::vector<CsvColumn> &columns, const std::string &name) {
    const QuantityName quantity = find_quantities(name);
    for (const Quantity *const each : quantity.quantities) add(columns, {std::string(each->name), each});
    if (!quantity.quantities.empty()) return;
    const auto path = read_path(name);
    if (!path)
        throw std::invalid_argument("'" + name + "' is no quantity, nor a path such as I010/SIC" + suggestion(name));
    if (path->fields().empty())
        throw std::invalid_argument("'" + name + "' has no value of its own but holds fields that have");
    add(columns, {name, *path});
}

// ---- Cells ----

void put_cell(TextBuffer &out, Answerer &answerer, const Quantity *quantity) {
    const ast_answers_t &answers = answerer.answers();
    if (!quantity->is_in(answers)) return;
    char text[kQuantityRoom];
    CellWriter writer(text);
    quantity->write(writer, answers);
    if (quantity->is_quoted())
        put_quoted_cell(out, {text, writer.size()});
    else
        out.put({text, writer.size()});
}

// The elements of a list are set apart by blanks. One number is a cell as it is.
void put_cell(TextBuffer &out, Answerer &answerer, const FieldPath &path) {
    const size_t begin = out.size();
    size_t values = 0;
    bool is_number = true;
    path.each_value(answerer.record(), [&](const ast_field_value_t &value) {
        if (values++ != 0) out.put(' ');
        is_number = is_number && value.has_number;
        put_value(out, value);
    });
    if (values > 1 || !is_number) finish_cell(out, begin);
}

class CsvRenderer : public Renderer {
public:
    explicit CsvRenderer(const std::vector<CsvColumn> &columns) : columns_(columns) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        answerer_.set_block(decoded);
        for (uint64_t i = 0; i < decoded.block->record_count; ++i)
            if (decoded.shown[i]) record(decoded, i, out);
    }

private:
    void record(const DecodedBlock &decoded, uint64_t number, TextBuffer &out) {
        const ast_datarecord_t &record = decoded.block->records[number];
        answerer_.set_record(record);
        if (decoded.datagram->file) {
            put_cell(out, *decoded.datagram->file);
            out.put(',');
        }
        out.number(decoded.number);
        out.put(',');
        out.number(number + 1);
        out.put(',');
        if (decoded.datagram->time && has_date(*decoded.datagram->time)) put_iso_time(out, *decoded.datagram->time);
        out.put(',');
        out.number(record.category);
        for (const CsvColumn &column : columns_) {
            out.put(',');
            std::visit([&](const auto &what) { put_cell(out, answerer_, what); }, column.what);
        }
        out.put('\n');
    }

    const std::vector<CsvColumn> &columns_;
    Answerer answerer_;
};

} // namespace

bool is_csv_columns(const std::string &list) {
    return std::ranges::any_of(words(list), [](const auto &word) {
        return !find_quantities(word).quantities.empty() || FieldPath::has_form(word);
    });
}

std::vector<CsvColumn> read_csv_columns(const std::string &list) try {
    std::vector<CsvColumn> columns;
    if (list.empty())
        for (const Quantity &each : kQuantities) add(columns, {std::string(each.name), &each});
    else
        for (const std::string &name : words(list)) add(columns, name);
    return columns;
} catch (const std::invalid_argument &error) {
    throw std::invalid_argument(std::string("--csv: ") + error.what());
}

bool asks_position(const CsvColumn &column) {
    const auto *const quantity = std::get_if<const Quantity *>(&column.what);
    return quantity && ((*quantity)->answer & (AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE)) != 0;
}

std::unique_ptr<Renderer> Csv::renderer() const { return std::make_unique<CsvRenderer>(columns_); }

void Csv::file(const std::string &name) {
    if (!headed_) header();
    name_.clear();
    put_cell(name_, name);
    name_.put(',');
}

void Csv::header() {
    auto title = [&, is_first = true](std::string_view text) mutable {
        if (!std::exchange(is_first, false)) lines_.put(',');
        put_cell(lines_, text);
    };
    if (name_files_) title(kFile);
    for (const std::string_view each : kBeforeColumns) title(each);
    for (const CsvColumn &column : columns_) title(column.title);
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
