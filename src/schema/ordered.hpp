// Records from JSON that stands as it is written: the members of each object in the order of the tables, nothing wrong.
#pragma once

#include "schema/encode.hpp"

namespace ast::schema {

// As far as FSPECs of nine octets go.
constexpr uint32_t kMaxFrn = 63;
constexpr uint32_t kFrnsOfOctet = 7;

// Encodes a record while its text is read, once. False for anything out of the ordinary, of which nothing is said:
// other orders, escapes, octets beside values, faults, a buffer that is too short.
bool read_ordered(ast_json_result_t &result, uint8_t *buffer, uint64_t length, Slice json);

} // namespace ast::schema
