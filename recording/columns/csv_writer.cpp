#include "columns/csv_writer.hpp"

#include <algorithm>
#include <utility>

#include "ask/quantities.hpp"
#include "columns/csv_cell.hpp"

namespace ast::recording {

namespace {

// A cell, without quotes.
void put_value(TextBuffer &out, const Column &column, uint64_t row);

// The elements of a list are set apart by blanks.
void put_list(TextBuffer &out, const Column &list, uint64_t row) {
    for (int32_t element = list.begin_of(row); element < list.end_of(row); ++element) {
        if (element != list.begin_of(row)) out.put(' ');
        put_value(out, list.children()[0], static_cast<uint64_t>(element));
    }
}

void put_number(CellWriter &out, const ColumnHead &head, double value) {
    if (head.form == CellForm::clock) return out.clock(value);
    out.shortest(value, head.decimals, head.form == CellForm::published);
}

void put_number(CellWriter &out, int64_t value) {
    if (value < 0) out.put('-');
    out.digits(value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value), 1);
}

void put_value(TextBuffer &out, const Column &column, uint64_t row) {
    if (!column.has(row)) return;
    const ColumnHead &head = column.head();
    if (head.type == ColumnType::text) return out.put(column.dictionary()[column.value<uint32_t>(row)]);
    if (head.type == ColumnType::list) return put_list(out, column, row);
    if (head.type == ColumnType::boolean) return out.put(column.flags()[row] ? '1' : '0');
    out.put_with(kQuantityRoom, [&](char *room) {
        CellWriter writer(room);
        if (head.type == ColumnType::float64)
            put_number(writer, head, column.value<double>(row));
        else if (head.type == ColumnType::time)
            write_moment(writer, column.value<int64_t>(row));
        else if (head.type == ColumnType::int32)
            put_number(writer, column.value<int32_t>(row));
        else
            put_number(writer, column.value<int64_t>(row));
        return writer.size();
    });
}

void put_cell(TextBuffer &out, const Column &column, uint64_t row) {
    const ColumnHead &head = column.head();
    if (!column.has(row)) return;
    if (head.form == CellForm::quoted) return put_quoted_cell(out, column.dictionary()[column.value<uint32_t>(row)]);
    const size_t begin = out.size();
    put_value(out, column, row);
    if (head.type == ColumnType::text || head.type == ColumnType::list) finish_cell(out, begin);
}

} // namespace

bool CsvWriter::can_have(const ColumnHead &head) {
    const ColumnHead &cell = head.type == ColumnType::list ? head.children[0] : head;
    return cell.children.empty();
}

CsvWriter::CsvWriter(std::span<const ColumnHead> heads, PutOctets put) : put_(std::move(put)) {
    for (const ColumnHead &head : heads) {
        if (&head != heads.data()) lines_.put(',');
        recording::put_cell(lines_, head.name);
    }
    lines_.put('\n');
    put_(lines_.text());
}

void CsvWriter::write(const Batch &batch) {
    constexpr size_t kAtOnce = size_t{64} * 1024; // octets
    lines_.clear();
    for (uint64_t row = 0; row < batch.rows; ++row) {
        for (const Column &column : batch.columns) {
            if (&column != batch.columns.data()) lines_.put(',');
            put_cell(lines_, column, row);
        }
        lines_.put('\n');
        if (lines_.size() < kAtOnce && row + 1 != batch.rows) continue;
        put_(lines_.text());
        lines_.clear();
    }
}

} // namespace ast::recording
