// A long stream of blocks in random order, as no branch predictor or cache can learn it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

// Blocks back to back, drawn evenly from the categories that the files hold and always in the same order. Blocks that
// the standard profile does not decode are left out.
std::vector<uint8_t> shuffled_stream(const std::vector<std::string> &files, size_t octets);

} // namespace bench
