// What becomes of a chunk.
#pragma once

#include "ask/asked.hpp"
#include "base/text_buffer.hpp"
#include "datagram/report.hpp"
#include "show/counts.hpp"

namespace ast::recording::astdump {

struct Rendered {
    std::vector<TextBuffer> texts; // by sink
    Reports reports;               // the place of a report is in the text of the first sink
    Tally tally;
    uint64_t unconverted = 0; // records that are left out
    uint64_t shown = 0;       // as the first sink counts
    Asked asked;
};

} // namespace ast::recording::astdump
