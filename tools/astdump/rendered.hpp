// What becomes of a chunk.
#pragma once

#include "asked.hpp"
#include "chunk.hpp"
#include "counts.hpp"
#include "text_buffer.hpp"

namespace astdump {

struct Rendered {
    std::vector<TextBuffer> texts; // by sink
    Damage damage;                 // the place of a report is in the text of the first sink
    Tally tally;
    uint64_t unconverted = 0; // records that are left out
    uint64_t shown = 0;       // as the first sink counts
    Asked asked;
};

} // namespace astdump
