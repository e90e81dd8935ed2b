// What holds of every decoded record and block, and of what is copied from them.
#pragma once

#include "harness.hpp"

namespace ast_fuzz {

bool same_octets(const uint8_t *one, const uint8_t *other, uint64_t count);

// The octets that the record was decoded from begin at record.data; `available` of them may be read.
void check_record(const ast_datarecord_t &record, uint64_t available);

// What a valid record answers is in range, and the same beside any time of reception but for what depends on it.
void check_answers(const ast_datarecord_t &record);

// The same for the records of a block, which follow one another and fill it when it is valid.
void check_records(const ast_datablock_t &block, Octets octets);

// The records of a block, put together, are its octets again, and fit no buffer that is shorter.
void check_joining(const ast_datablock_t &block);

// Copies and modifies nothing in a valid record: both give its octets.
void check_rewriting(const ast_datarecord_t &record);

} // namespace ast_fuzz
