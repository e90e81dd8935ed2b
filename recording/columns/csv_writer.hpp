// Comma-separated values, with the titles of columns in the first line.
#pragma once

#include "base/text_buffer.hpp"
#include "columns/table_writer.hpp"

namespace ast::recording {

class CsvWriter : public TableWriter {
public:
    static bool can_have(const ColumnHead &head);

    CsvWriter(std::span<const ColumnHead> heads, PutOctets put);

    void write(const Batch &batch) override;
    void finish(const Batch &) override {}

private:
    PutOctets put_;
    TextBuffer lines_;
};

} // namespace ast::recording
