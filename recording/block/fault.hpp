// Where and why a block cannot be read further.
#pragma once

#include <string>

#include "block/split_block.hpp"
#include "datagram/report.hpp"

namespace ast::recording {

enum class FaultKind {
    damaged,              // the octets contradict themselves
    unsupported_category, // nobody has published it
    unsupported_edition,  // an FRN that means nothing in any edition that is known
    unsupported_item,     // an item of which nothing is known but its number
    unsupported_record,   // with more items than a record holds
    not_asterix,          // other traffic that happens to begin like a block
};

constexpr bool is_unsupported(FaultKind kind) { return kind != FaultKind::damaged && kind != FaultKind::not_asterix; }

// "damaged", "not supported", "not ASTERIX".
constexpr const char *fault_word(FaultKind kind) {
    if (kind == FaultKind::not_asterix) return "not ASTERIX";
    return is_unsupported(kind) ? "not supported" : "damaged";
}

// The place where the records of a block stop making sense.
struct Fault {
    FaultKind kind = FaultKind::damaged;
    uint32_t code = 0;                            // AST_SPLIT_...
    uint64_t octets = 0;                          // of the block in front of it
    uint32_t frn = 0;                             // of the item at fault, 0 for none
    ast_dataitem_type_t item = AST_DATAITEM_NONE; // which that announces, if it does
    ast_datarecord_t record{};                    // in which it lies, as far as that goes
    std::string reason;
};

// Of a block that is not valid, with the datagram that it came in.
Fault find_fault(const SplitBlock &block, const Datagram &datagram);

// What is to be told of it, where the block stands so many octets behind the beginning of its datagram.
Report fault_report(const Fault &fault, const SplitBlock &block, const Datagram &datagram, uint64_t offset);

} // namespace ast::recording
