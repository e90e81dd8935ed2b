#include "columns/table_formats.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "columns/arrow_writer.hpp"
#include "columns/csv_writer.hpp"
#include "columns/parquet_writer.hpp"

namespace ast::recording {

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
    : group_(heads), writer_(make_table_writer(format, heads, std::move(put))) {}

void RowGroups::add(const Batch &piece) {
    for (uint64_t done = 0; done < piece.rows;) {
        done = group_.add(piece, done);
        if (group_.is_full()) write();
    }
}

void RowGroups::write() {
    writer_->write(group_.batch());
    group_.clear(writer_->shares_dictionaries());
}

void RowGroups::finish() {
    if (group_.batch().rows != 0) write();
    writer_->finish(group_.batch());
}

} // namespace ast::recording
