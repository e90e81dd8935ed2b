// Turns records into rows of a table.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "ask/answerer.hpp"
#include "columns/column.hpp"
#include "columns/table.hpp"

namespace ast::recording {

class RowWriter {
public:
    // `table` stays as it is as long as this writes.
    explicit RowWriter(const Table &table);

    // The rows that follow are those of `batch`, which is empty, until finish().
    void begin(Batch &batch);

    // The records of a block that are asked for; `file` is the name of its input.
    void add(const DecodedBlock &decoded, const std::string &file);

    // All columns get as many rows as there are.
    void finish();

private:
    static constexpr unsigned kMostAnswers = 64; // as many as a word has bits

    // Codes of an answer that is text, by its number.
    struct Texts {
        NumberCodes numbers;
        std::vector<uint32_t> codes;
    };

    void add_record(const ast_datarecord_t &record);
    void put(Column &column, Texts &texts, const QuantityColumn &source, uint64_t there) const;
    template <typename Value>
    void put_numbers(Column &column, const QuantityColumn &source, uint64_t there) const;
    void put_flags(Column &column, const QuantityColumn &source, uint64_t there) const;
    void put_texts(Column &column, Texts &texts, const QuantityColumn &source, uint64_t there) const;
    void put_answers();
    uint64_t rows_with(uint64_t answer) const; // a bit for each, of those whose answers wait
    void put_path(Column &column, const PathColumn &source, const ast_datarecord_t &record);

    const Table &table_;
    std::vector<size_t> quantities_; // the places of their columns
    std::vector<size_t> paths_;
    std::vector<size_t> besides_;
    std::vector<int> items_; // by the number of an item, the place of its column, or -1
    bool has_items_ = false;
    Batch *batch_ = nullptr;
    Answerer answerer_;
    std::vector<Texts> texts_; // by column
    std::array<ast_answers_t, kMostAnswers> answers_{};
    unsigned answer_count_ = 0; // of records that have not been put into columns yet
};

} // namespace ast::recording
