// Blocks: a header, and records that follow one another. Who walks one says what becomes of a record.
#pragma once

#include "codec/category.hpp"
#include "codec/record.hpp"
#include "core/bits.hpp"

namespace ast {

constexpr uint64_t kMaxBlockOctets = 65535;

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

// The choice of a category for each record.
class ChosenByRecord {
public:
    explicit ChosenByRecord(const Category &category)
        : category_(category), reading_(category.number, AST_UAP_STANDARD) {}

    const Reading *operator()(const uint8_t *record, uint64_t available) {
        const ast_uap_t *const uap = category_.choose_profile(record, available);
        if (!uap) return nullptr;
        reading_ = Reading(category_.number, *uap);
        return &reading_;
    }

private:
    const Category &category_;
    Reading reading_;
};

} // namespace ast
