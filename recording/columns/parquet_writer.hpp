// Parquet: groups of rows, and in these a chunk of each column, packed, with its least and greatest value, by which
// readers pass over what they do not look for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/packing.hpp"
#include "columns/parquet_levels.hpp"
#include "columns/table_writer.hpp"

namespace ast::recording {

class ParquetWriter : public TableWriter {
public:
    ParquetWriter(std::span<const ColumnHead> heads, PutOctets put);

    void write(const Batch &batch) override;
    void finish(const Batch &last) override;

private:
    // What is known of a chunk of a column.
    struct Chunk {
        uint64_t values = 0; // and nulls
        uint64_t nulls = 0;
        std::optional<int64_t> dictionary{}; // where it stands in the file, as the next
        int64_t data = 0;
        int64_t octets = 0;
        int64_t packed_octets = 0;
        std::string least{}; // empty where there is no value
        std::string greatest{};
    };
    struct Group {
        uint64_t rows;
        std::vector<Chunk> chunks;
    };
    enum class PageKind : int32_t { data = 0, dictionary = 2 };

    void write_leaves(LeafPath &path, Group &group);
    Chunk write_chunk(const LeafPath &path);
    void write_texts(const Column &leaf, const Levels &levels, Chunk &chunk);
    void write_flags(const Column &leaf, const Levels &levels, Chunk &chunk);
    template <typename Value>
    void write_numbers(const Column &leaf, const Levels &levels, Chunk &chunk);
    template <typename Value>
    bool find_numbers(const Column &leaf, const Levels &levels);
    void write_dictionary(uint64_t count, Chunk &chunk);
    void write_codes(const Levels &levels, uint64_t most, Chunk &chunk);
    void write_page(PageKind kind, uint64_t values, int32_t encoding, Chunk &chunk);
    void put(std::string_view octets);

    std::span<const ColumnHead> heads_;
    PutOctets put_;
    std::unique_ptr<Packing> packing_;
    int64_t written_ = 0;
    std::vector<Group> groups_;

    // Of the page at hand.
    std::string page_;
    std::string packed_;
    NumberCodes numbers_;
    std::vector<uint32_t> codes_;
};

} // namespace ast::recording
