// Blocks: a header, and records that follow one another. Who walks one says what becomes of a record.
#pragma once

#include "codec/category.hpp"
#include "codec/record.hpp"
#include "core/bits.hpp"

namespace ast {

// CAT, then LEN in two octets; LEN counts the whole block.
constexpr uint64_t kBlockHeaderOctets = 3;

// Decodes a block of a category each of whose records may have a profile of its own.
void decode_mixed(ast_datablock_t &block, const uint8_t *data, uint64_t available, const Category &category);

// Walks the records of a block up to its LEN. `take(record, available, reading)` returns the octets of a record, or 0
// to end the walk; `choose(record, available)` names the reading of each, or null, which ends it too. A record may read
// past LEN, as far as octets are available. Returns where the walk ended.
template <typename Choose, typename Take>
uint64_t walk_records(const uint8_t *block, uint64_t length, uint64_t available, Choose choose, Take take) {
    uint64_t offset = kBlockHeaderOctets;
    while (offset < length) {
        const uint8_t *const record = block + offset;
        const Reading *const reading = choose(record, available - offset);
        const uint64_t octets = reading ? take(record, available - offset, *reading) : 0;
        if (octets == 0) break;
        offset += octets;
    }
    return offset;
}

// The choice of one reading for all records.
inline auto always(const Reading &reading) {
    return [&reading](const uint8_t *, uint64_t) { return &reading; };
}

// The choice of a category for each record. One that does not tell is read as the record before it, the first one with
// `otherwise`, where that is given; then what it tells is read as published.
class ChosenByRecord {
public:
    explicit ChosenByRecord(const Category &category, const ast_uap_t *otherwise = nullptr, ItemSizer *sizer = nullptr)
        : category_(category), otherwise_(otherwise), reading_(category.number, AST_UAP_STANDARD, sizer) {}

    const Reading *operator()(const uint8_t *record, uint64_t available) {
        const auto choose = otherwise_ ? category_.choose_profile_as_published : category_.choose_profile;
        const ast_uap_t *const told = choose(record, available);
        const ast_uap_t *const uap = told ? told : otherwise_;
        if (!uap) return nullptr;
        if (otherwise_) otherwise_ = uap;
        if (uap != reading_.uap) reading_ = Reading(category_.number, *uap, reading_.size_item);
        return &reading_;
    }

private:
    const Category &category_;
    const ast_uap_t *otherwise_;
    Reading reading_;
};

// What a walk chooses by.
inline auto chooser(const Reading &reading) { return always(reading); }
inline ChosenByRecord chooser(const ChosenByRecord &choice) { return choice; }

// Decodes or splits a block with a reading of the caller's for all records, or with one for each; then the block names
// AST_UAP_STANDARD.
void decode_block(ast_datablock_t &block, const uint8_t *data, uint64_t available, const Reading &reading);
void decode_block(ast_datablock_t &block, const uint8_t *data, uint64_t available, const ChosenByRecord &choice);
bool split_block(ast_split_t &split, const uint8_t *data, uint64_t available, const Reading &reading);
bool split_block(ast_split_t &split, const uint8_t *data, uint64_t available, const ChosenByRecord &choice);

} // namespace ast
