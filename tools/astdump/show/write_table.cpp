#include "show/write_table.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "columns/report_rows.hpp"
#include "show/write_file.hpp"

namespace ast::recording::astdump {

namespace {

constexpr struct {
    std::string_view extension;
    TableFormat format;
} kFormats[] = {
    {".parquet", TableFormat::parquet},
    {".arrow", TableFormat::arrow},
    {".csv", TableFormat::csv},
};

// Puts the rows of a chunk into a piece, and renders its number.
class TableRenderer : public Renderer {
public:
    TableRenderer(const Table &table, TablePieces &pieces, const std::string &input)
        : pieces_(pieces), input_(input), rows_(table) {}

    void block(const DecodedBlock &decoded, TextBuffer &) override {
        if (!piece_) {
            piece_ = pieces_.make();
            rows_.begin(pieces_[*piece_]);
        }
        rows_.add(decoded, input_);
    }

    void end(TextBuffer &out) override {
        if (!piece_) return;
        rows_.finish();
        const size_t number = *std::exchange(piece_, std::nullopt);
        out.put({reinterpret_cast<const char *>(&number), sizeof number});
    }

private:
    TablePieces &pieces_;
    const std::string &input_;
    RowWriter rows_;
    std::optional<size_t> piece_;
};

} // namespace

std::optional<TableFormat> find_table_format(std::string_view path) {
    const auto *const found =
        std::ranges::find_if(kFormats, [&](const auto &each) { return path.ends_with(each.extension); });
    return found == std::end(kFormats) ? std::nullopt : std::optional(found->format);
}

// ---- Pieces ----

size_t TablePieces::make() {
    const std::lock_guard lock(mutex_);
    if (free_.empty()) {
        all_.push_back(std::make_unique<Batch>(table_.heads));
        return all_.size() - 1;
    }
    const size_t number = free_.back();
    free_.pop_back();
    return number;
}

Batch &TablePieces::operator[](size_t number) {
    const std::lock_guard lock(mutex_);
    return *all_[number];
}

void TablePieces::give_back(size_t number) {
    const std::lock_guard lock(mutex_);
    all_[number]->clear();
    free_.push_back(number);
}

// ---- The sink ----

WriteTable::WriteTable(const std::string &path, const std::vector<std::string> &inputs,
                       std::shared_ptr<const Table> table)
    : table_(std::move(table)),
      file_(std::in_place, path, inputs),
      groups_(*find_table_format(path), table_->heads, [this](std::string_view octets) { file_->write(octets); }),
      pieces_(*table_) {}

WriteTable::WriteTable(Output &out, std::shared_ptr<const Table> table)
    : table_(std::move(table)),
      groups_(TableFormat::arrow_stream, table_->heads, [&out](std::string_view octets) { out.write(octets); }),
      pieces_(*table_) {}

std::unique_ptr<Renderer> WriteTable::renderer() const {
    if (!table_->is_of_records()) return nullptr;
    return std::make_unique<TableRenderer>(*table_, pieces_, input_);
}

uint64_t WriteTable::shows(const DecodedBlock &decoded) const {
    return table_->is_of_records() ? decoded.shown.count() : 1;
}

void WriteTable::take(std::string_view rendered) {
    for (size_t number = 0; !rendered.empty(); rendered.remove_prefix(sizeof number)) {
        std::memcpy(&number, rendered.data(), sizeof number);
        groups_.add(pieces_[number]);
        pieces_.give_back(number);
    }
}

void WriteTable::report(const Report &report) {
    if (table_->is_of_records()) return;
    Batch row(table_->heads);
    add_report(row, report, input_);
    row.complete();
    groups_.add(row);
}

void WriteTable::finish(uint64_t) {
    groups_.finish();
    if (file_) file_->replace();
}

// The part is a table of its own.
void WriteTable::break_off() {
    groups_.finish();
    if (file_) tell_part(*file_);
}

} // namespace ast::recording::astdump
