// Where and why a block cannot be decoded further.
#pragma once

#include <string>

#include "ast.h"
#include "datagram.hpp"

namespace astdump {

// The place where the records of a block stop making sense under one profile.
struct Fault {
    uint64_t octets = 0;     // of the block decoded before it
    ast_datarecord_t record; // in which it lies, as far as that goes; valid when it is one record too many
    std::string reason;      // empty until it is looked for
};

// Takes over the library's log. It is not shown, since attempts with a profile that does not fit log, too, but the last
// message on the item at a fault is its reason. At other times the library need not even write its messages. Once,
// before anything is decoded: a thread that listens would miss its message.
void silence_library_log();

// Where a block that is not valid stops; the record at that place is read by `uap`.
Fault find_fault(const ast_datablock_t &block, Octets octets, const ast_uap_t &uap);

std::string fault_reason(const Fault &fault, Octets block);

} // namespace astdump
