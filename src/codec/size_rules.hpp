// How long an item is: one template per family of rules. A rule takes the item's first octet and the octets available,
// and returns the size, 0 when the octets do not hold all of the item.
#pragma once

#include <cstdint>

#include "ast.h"
#include "core/bits.hpp"

namespace ast {

using SizeRule = uint64_t(const uint8_t *data, uint64_t available);

// Extended items without a bound of their own.
constexpr uint64_t kUnlimitedOctets = 999;

// Octets chained by FX, at most `maximum`. A chain that goes on after them is cut there and reported with `report`, but
// only where an octet to go on with is available: a chain that ends with the data is incomplete.
inline uint64_t chained_size(const uint8_t *data, uint64_t available, uint64_t maximum, const char *report) {
    if (!data || maximum == 0) return 0;
    for (uint64_t i = 0; i < available; ++i) {
        if (i == maximum) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
            ast_log(AST_LOG_CRITICAL, report, static_cast<int>(maximum));
#pragma GCC diagnostic pop
            return maximum;
        }
        if (!has_fx(data[i])) return i + 1;
    }
    return 0;
}

constexpr char kItemTooLong[] = "Dataitem length exceed max: %d";
constexpr char kSubfieldTooLong[] = "Subfield length exceed max: %d";

// A repetition count, then that many elements.
inline uint64_t repeated_size(const uint8_t *data, uint64_t available, uint64_t element_octets) {
    if (!data || available == 0 || element_octets == 0) return 0;
    const uint64_t size = 1 + element_octets * data[0];
    return size <= available ? size : 0;
}

template <uint64_t Octets>
uint64_t fixed(const uint8_t *, uint64_t available) {
    return available >= Octets ? Octets : 0;
}

template <uint64_t MaximumOctets>
uint64_t variable(const uint8_t *data, uint64_t available) {
    return chained_size(data, available, MaximumOctets, kItemTooLong);
}

template <uint64_t ElementOctets>
uint64_t repetitive(const uint8_t *data, uint64_t available) {
    return repeated_size(data, available, ElementOctets);
}

// The first octet is the length and counts itself. It is not compared with what is available: who reads on does that.
inline uint64_t explicit_length(const uint8_t *data, uint64_t available) { return data && available ? data[0] : 0; }

} // namespace ast
