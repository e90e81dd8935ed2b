// Arrow's IPC formats: a stream, whose dictionaries stand before the rows that use them, or a file, which has them and
// a directory of all at its end.
#pragma once

#include <string>
#include <vector>

#include "columns/flat_buffer.hpp"
#include "columns/table_writer.hpp"

namespace ast::recording {

// What a stream begins with, a description of its columns, without what frames it.
std::string arrow_schema(std::span<const ColumnHead> heads);

class ArrowWriter : public TableWriter {
public:
    ArrowWriter(std::span<const ColumnHead> heads, bool is_file, PutOctets put);

    void write(const Batch &batch) override;
    bool shares_dictionaries() const override { return is_file_; }
    void finish(const Batch &last) override;

private:
    // What follows a message: octets, or zeros for null.
    struct Piece {
        const void *octets;
        size_t count;
        size_t width; // of a value
    };

    // Rows as a message has them: their columns, and the buffers of these.
    struct Rows {
        int64_t count = 0;
        std::vector<int64_t> nodes;
        std::vector<int64_t> places;
        std::vector<Piece> pieces;
        int64_t octets = 0;

        void add(const Column &column);
        void add(const void *octets, size_t count, size_t width);
        FlatBuffer::Place put(FlatBuffer &message) const;
    };

    void write_dictionaries(const Column &column, int64_t &id);
    void write_rows(const Rows &rows, FlatBuffer &message, uint8_t kind, FlatBuffer::Place header,
                    std::vector<int64_t> &directory);
    int64_t put_message(const std::string &message);
    void put(std::string_view octets);

    std::span<const ColumnHead> heads_;
    bool is_file_;
    PutOctets put_;
    int64_t written_ = 0;
    std::vector<int64_t> dictionaries_; // blocks
    std::vector<int64_t> batches_;
};

} // namespace ast::recording
