// What is read, piece by piece, for a program.
#pragma once

#include <string>
#include <variant>

#include "api/block_job.hpp"

namespace ast::recording {

// An input begins.
struct Opened {
    uint64_t place = 0; // among the inputs; of those that are merged, of the last one
    std::string name;
    std::string framing;
    uint64_t octets = 0; // 0 where that is not known
};

// Something is told that stands beside the octets.
struct Told {
    Report report;
    std::string file;
    uint32_t code = AST_RECORDING_ERROR_NONE; // of a failure
};

// Some blocks, and what is reported between them.
struct Filled {
    const BlockJob *job;
};

struct End {};

using Delivery = std::variant<Opened, Told, Filled, End>;

} // namespace ast::recording
