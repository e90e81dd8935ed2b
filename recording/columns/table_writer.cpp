#include "columns/table_writer.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "columns/arrow_writer.hpp"
#include "columns/csv_writer.hpp"
#include "columns/parquet_writer.hpp"

namespace ast::recording {

namespace {

constexpr uint64_t kMostOctets = uint64_t{256} << 20; // of a group of rows, which is looked at now and then
constexpr uint64_t kLookedAtRows = 500;

} // namespace

void check_columns(TableFormat format, std::span<const ColumnHead> heads) {
    if (format != TableFormat::csv) return;
    for (const ColumnHead &head : heads)
        if (!CsvWriter::can_have(head))
            throw std::invalid_argument("'" + head.name + "' holds several values, which CSV cannot have");
}

std::unique_ptr<TableWriter> make_table_writer(TableFormat format, std::span<const ColumnHead> heads, PutOctets put) {
    switch (format) {
    case TableFormat::parquet:
        return std::make_unique<ParquetWriter>(heads, std::move(put));
    case TableFormat::csv:
        return std::make_unique<CsvWriter>(heads, std::move(put));
    default:
        return std::make_unique<ArrowWriter>(heads, format == TableFormat::arrow, std::move(put));
    }
}

RowGroups::RowGroups(TableFormat format, std::span<const ColumnHead> heads, PutOctets put)
    : batch_(heads), writer_(make_table_writer(format, heads, std::move(put))) {}

void RowGroups::add(const Batch &piece) {
    for (uint64_t done = 0; done < piece.rows;) {
        const uint64_t more = std::min(piece.rows - done, kLookedAtRows - batch_.rows % kLookedAtRows);
        batch_.append(piece, done, more);
        done += more;
        const bool is_looked_at = batch_.rows % kLookedAtRows == 0;
        if (batch_.rows == kUsualRows || (is_looked_at && batch_.octets() >= kMostOctets)) write();
    }
}

void RowGroups::write() {
    writer_->write(batch_);
    batch_.clear(writer_->shares_dictionaries());
}

void RowGroups::finish() {
    if (batch_.rows != 0) write();
    writer_->finish(batch_);
}

} // namespace ast::recording
