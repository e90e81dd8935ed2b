// Writes tables, a group of rows at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include "columns/column.hpp"

namespace ast::recording {

using PutOctets = std::function<void(std::string_view)>;

class TableWriter {
public:
    virtual ~TableWriter() = default;

    // Rows, complete.
    virtual void write(const Batch &batch) = 0;

    // Whether the dictionaries of what is written go on from one group of rows to the next.
    virtual bool shares_dictionaries() const { return false; }

    // What stands at the end; `last` has the dictionaries that groups share.
    virtual void finish(const Batch &last) = 0;
};

enum class TableFormat : uint8_t { parquet, arrow, arrow_stream, csv };

// Throws std::invalid_argument for columns that a format cannot have.
void check_columns(TableFormat format, std::span<const ColumnHead> heads);

// The heads stay where they are as long as it writes. Throws what `put` throws.
std::unique_ptr<TableWriter> make_table_writer(TableFormat format, std::span<const ColumnHead> heads, PutOctets put);

// Collects rows and writes them in groups, the same ones in whatever pieces the rows come.
class RowGroups {
public:
    static constexpr uint64_t kUsualRows = 100'000;

    RowGroups(TableFormat format, std::span<const ColumnHead> heads, PutOctets put);

    void add(const Batch &piece);
    void finish();

private:
    void write();

    Batch batch_;
    std::unique_ptr<TableWriter> writer_;
};

} // namespace ast::recording
