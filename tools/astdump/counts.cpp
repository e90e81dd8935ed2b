#include "counts.hpp"

namespace astdump {

Counts &Counts::operator+=(const Counts &other) {
    blocks += other.blocks;
    invalid += other.invalid;
    records += other.records;
    items += other.items;
    octets += other.octets;
    return *this;
}

Counts count(const DecodedBlock &decoded) {
    Counts counts{.blocks = 1,
                  .invalid = decoded.fault ? 1U : 0U,
                  .records = decoded.shown.count(),
                  .octets = decoded.octets.size()};
    for (uint64_t r = 0; r < decoded.block->record_count; ++r)
        if (decoded.shown[r]) counts.items += decoded.block->records[r].item_count;
    return counts;
}

} // namespace astdump
