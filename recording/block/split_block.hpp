// One block as the outputs see it: split into its records, however many these are.
#pragma once

#include <memory>
#include <span>

#include "block/edition_memory.hpp"
#include "datagram/datagram.hpp"

namespace ast::recording {

// The records of a block that is split, each made from its items when it is asked for.
class Records {
public:
    Records();

    // Good until another one is asked for.
    const ast_datarecord_t &operator[](uint64_t number) const {
        if (number != made_) make(number);
        return record_;
    }

    // The items of a record as they lie in the block.
    std::span<const ast_split_item_t> items(uint64_t number) const {
        const ast_split_record_t &record = split_.records[number];
        return {split_.items + record.first_item, record.item_count};
    }

    // The octets of the block up to the end of so many records, its header included.
    uint64_t octets_of(uint64_t count) const;

    // What there is of the record that is broken, or has more items than a record holds.
    ast_datarecord_t incomplete() const;

private:
    friend struct SplitBlock;

    // The first record with more items than a record holds ends the block there.
    bool read(EditionMemory &editions, Octets octets, ast_reader_result_t &result);
    void make_room(uint64_t octets);
    void make(uint64_t number) const;
    void fill(ast_datarecord_t &record, const ast_split_record_t &from) const;

    std::unique_ptr<ast_split_record_t[]> records_;
    std::unique_ptr<ast_split_item_t[]> items_;
    ast_split_t split_{};
    mutable uint64_t made_;
    mutable ast_datarecord_t record_; // with that number
};

struct SplitBlock {
    // Splits a whole block. What it held before is gone.
    void read(EditionMemory &editions, Octets octets);

    uint32_t category = 0;
    uint64_t record_count = 0;
    Records records;
    const ast_uap_t *uap = nullptr; // that of the profile; records of category 001 have their own
    Profile profile;
    bool valid = false;           // the records fill the block
    ast_reader_result_t result{}; // where and why it ended
};

} // namespace ast::recording
