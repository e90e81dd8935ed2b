// The formats that tables are written in.
#pragma once

#include <memory>
#include <span>

#include "columns/row_group.hpp"
#include "columns/table_writer.hpp"

namespace ast::recording {

enum class TableFormat : uint8_t { parquet, arrow, arrow_stream, csv };

// Throws std::invalid_argument for columns that a format cannot have.
void check_columns(TableFormat format, std::span<const ColumnHead> heads);

// The heads stay where they are as long as it writes. Throws what `put` throws.
std::unique_ptr<TableWriter> make_table_writer(TableFormat format, std::span<const ColumnHead> heads, PutOctets put);

// Writes rows in groups, the same ones in whatever pieces the rows come.
class RowGroups {
public:
    RowGroups(TableFormat format, std::span<const ColumnHead> heads, PutOctets put);

    void add(const Batch &piece);
    void finish();

private:
    void write();

    RowGroup group_;
    std::unique_ptr<TableWriter> writer_;
};

} // namespace ast::recording
