// What is done with decoded blocks: shown one by one, counted, or both.
#pragma once

#include <string>

#include "decode.hpp"

namespace astdump {

class Sink {
public:
    virtual ~Sink() = default;

    // The blocks that follow come from this file.
    virtual void file(const std::string &name) = 0;
    virtual void block(const DecodedBlock &decoded) = 0;

    // No block follows.
    virtual void finish() = 0;
};

} // namespace astdump
