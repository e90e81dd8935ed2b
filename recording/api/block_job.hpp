// What becomes of a chunk for a program that takes its blocks one by one.
#pragma once

#include <ast_recording.h>
#include <vector>

#include "base/category_set.hpp"
#include "base/interruption.hpp"
#include "block/split_block.hpp"
#include "source/pipeline.hpp"

namespace ast::recording {

struct HandedBlock {
    const Datagram *datagram;
    uint64_t datagram_number; // in its input, from 1, as is the next
    uint64_t number;
    uint64_t offset; // in its datagram
    Octets octets;
    uint64_t records;
    ast_reader_result_t read;
    uint32_t state; // AST_BLOCK_...
};

struct BlockJob : Job {
    using Job::Job;

    // Numbers the datagrams of the chunk from `next` on, those that came in one packet alike. Returns the number of the
    // one behind the last.
    uint64_t number_datagrams(uint64_t next);

    std::vector<uint64_t> datagram_numbers; // in the order of the chunk
    std::vector<HandedBlock> blocks;
    Reports reports; // the place of one is the number of blocks in front of it
};

// Splits the blocks of the categories that are asked for, and keeps how that went.
class BlockReader {
public:
    BlockReader(const CategorySet &categories, const Interruption &interruption)
        : categories_(categories), interruption_(interruption) {}

    // Up to an interruption.
    void read(BlockJob &job);

private:
    struct Walk;

    const CategorySet &categories_;
    const Interruption &interruption_;
    EditionMemory editions_;
    SplitBlock block_;
};

} // namespace ast::recording
