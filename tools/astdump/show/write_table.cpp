#include "show/write_table.hpp"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <set>
#include <stdexcept>
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

// A piece of what goes to one file, as it is rendered.
struct RenderedPiece {
    Partition partition;
    size_t number;
};

// Puts the rows of a chunk into pieces, and renders the numbers of these.
class TableRenderer : public Renderer {
public:
    TableRenderer(const Table &table, TablePieces &pieces, const std::string &input, bool is_partitioned)
        : table_(table), pieces_(pieces), input_(input), is_partitioned_(is_partitioned) {}

    void block(const DecodedBlock &decoded, TextBuffer &) override {
        if (!is_partitioned_) return rows_of({}).add(decoded, input_);
        find_partitions(decoded);
        DecodedBlock part = decoded;
        for (const Partition &partition : std::set(partitions_.begin(), partitions_.end())) {
            part.shown.set(partitions_.size(),
                           [&](uint64_t i) { return decoded.shown[i] && partitions_[i] == partition; });
            if (part.shown.any()) rows_of(partition).add(part, input_);
        }
    }

    void end(TextBuffer &out) override {
        for (auto &[partition, rows] : rows_) {
            if (!rows.piece) continue;
            rows.writer.finish();
            const RenderedPiece rendered{partition, *std::exchange(rows.piece, std::nullopt)};
            out.put({reinterpret_cast<const char *>(&rendered), sizeof rendered});
        }
    }

private:
    struct Rows {
        explicit Rows(const Table &table) : writer(table) {}

        RowWriter writer;
        std::optional<size_t> piece;
    };

    RowWriter &rows_of(const Partition &partition) {
        Rows &rows = rows_.try_emplace(partition, table_).first->second;
        if (!rows.piece) {
            rows.piece = pieces_.make();
            rows.writer.begin(pieces_[*rows.piece]);
        }
        return rows.writer;
    }

    // By the dates of records, or else of their reception.
    void find_partitions(const DecodedBlock &decoded) {
        constexpr int64_t kNanosecondsPerSecond = 1'000'000'000;
        const std::optional<Time> &received = decoded.datagram->time;
        partitions_.clear();
        answerer_.set_block(decoded);
        for (uint64_t i = 0; i < decoded.block->record_count; ++i) {
            Partition &partition = partitions_.emplace_back(Partition{.category = decoded.block->category});
            answerer_.set_record(decoded.block->records[i]);
            const ast_answers_t &answers = answerer_.answers();
            if ((answers.present & AST_ANSWER_TIMESTAMP) != 0)
                partition.day = answers.timestamp_ns / (kSecondsPerDay * kNanosecondsPerSecond);
            else if (received && has_date(*received))
                partition.day = received->seconds / kSecondsPerDay;
            if (partition.day && !is_in_calendar({*partition.day * kSecondsPerDay, 0})) partition.day.reset();
        }
    }

    const Table &table_;
    TablePieces &pieces_;
    const std::string &input_;
    bool is_partitioned_;
    std::map<Partition, Rows> rows_;
    Answerer answerer_;
    std::vector<Partition> partitions_; // of the records of a block
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

WriteTable::File::File(const std::string &path, const std::vector<std::string> &inputs, const Table &table)
    : file(path, inputs),
      groups(*find_table_format(path), table.heads, [this](std::string_view octets) { file.write(octets); }) {}

WriteTable::WriteTable(const std::string &path, const std::vector<std::string> &inputs,
                       std::shared_ptr<const Table> table, bool is_partitioned)
    : table_(std::move(table)), path_(path), inputs_(inputs), is_partitioned_(is_partitioned), pieces_(*table_) {
    if (!is_partitioned) groups_of({}); // also where there will be no rows
}

WriteTable::WriteTable(Output &out, std::shared_ptr<const Table> table)
    : table_(std::move(table)),
      stream_(std::in_place, TableFormat::arrow_stream, table_->heads,
              [&out](std::string_view octets) { out.write(octets); }),
      pieces_(*table_) {}

std::string WriteTable::path_of(const Partition &partition) const {
    constexpr const char *kUnknown = "__HIVE_DEFAULT_PARTITION__"; // as those who read partitions call it
    if (!is_partitioned_) return path_;
    const Time midnight{partition.day.value_or(0) * kSecondsPerDay, 0};
    std::string date = time_text(midnight);
    date.resize(date.find(' '));
    const std::filesystem::path path(path_);
    const std::filesystem::path folder = path.parent_path() / ("date=" + (partition.day ? date : kUnknown)) /
                                         ("category=" + std::to_string(partition.category));
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    if (failure) throw std::runtime_error(folder.string() + ": " + failure.message());
    return (folder / path.filename()).string();
}

RowGroups &WriteTable::groups_of(const Partition &partition) {
    if (stream_) return *stream_;
    const auto known = files_.find(partition);
    if (known != files_.end()) return known->second.groups;
    return files_.try_emplace(partition, path_of(partition), inputs_, *table_).first->second.groups;
}

std::unique_ptr<Renderer> WriteTable::renderer() const {
    if (!table_->is_of_records()) return nullptr;
    return std::make_unique<TableRenderer>(*table_, pieces_, input_, is_partitioned_);
}

uint64_t WriteTable::shows(const DecodedBlock &decoded) const {
    return table_->is_of_records() ? decoded.shown.count() : 1;
}

void WriteTable::take(std::string_view rendered) {
    for (RenderedPiece piece; !rendered.empty(); rendered.remove_prefix(sizeof piece)) {
        std::memcpy(static_cast<void *>(&piece), rendered.data(), sizeof piece);
        groups_of(piece.partition).add(pieces_[piece.number]);
        pieces_.give_back(piece.number);
    }
}

void WriteTable::report(const Report &report) {
    if (table_->is_of_records()) return;
    Batch row(table_->heads);
    add_report(row, report, input_);
    row.complete();
    groups_of({}).add(row);
}

void WriteTable::finish(uint64_t) {
    if (stream_) stream_->finish();
    for (auto &[partition, file] : files_) {
        file.groups.finish();
        file.file.replace();
    }
}

// Each part is a table of its own.
void WriteTable::break_off() {
    if (stream_) stream_->finish();
    for (auto &[partition, file] : files_) {
        file.groups.finish();
        tell_part(file.file);
    }
}

} // namespace ast::recording::astdump
