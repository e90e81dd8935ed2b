// What a run has met, in numbers.
#pragma once

#include "decode.hpp"

namespace astdump {

struct Counts {
    uint64_t blocks = 0;
    uint64_t invalid = 0;
    uint64_t records = 0;
    uint64_t items = 0;
    uint64_t octets = 0;

    Counts &operator+=(const Counts &other);
};

// One block, with those of its records that are asked for. Of a damaged one, the records before the fault count.
Counts count(const DecodedBlock &decoded);

} // namespace astdump
