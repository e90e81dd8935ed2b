// Records as those of another category that says the same.
#pragma once

#include <string>
#include <vector>

#include "base/category_set.hpp"
#include "block/decoded_block.hpp"

namespace ast::recording {

// Categories from a list such as "1,2". Throws std::invalid_argument unless each is one that others convert to.
CategorySet read_convert_targets(const std::string &list);

class BlockConverter {
public:
    // Converts to these categories what converts to them.
    explicit BlockConverter(const CategorySet &targets) : targets_(targets) { editions_.freeze(); }

    // Replaces a block by one with the records that are asked for, and without its fault. What does not convert stays;
    // records of a category that converts, but not they themselves, are left out. Gives their number, or
    // nothing for a block that stays. The result is good until the next call.
    std::optional<uint64_t> convert(DecodedBlock &decoded);

private:
    CategorySet targets_;
    std::vector<uint8_t> octets_;
    EditionMemory editions_;
    SplitBlock block_;
};

} // namespace ast::recording
