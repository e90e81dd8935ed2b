// How long an item or a subfield is: a rule is a value, and whoever sizes something reads the same one.
#pragma once

#include <cstdint>

#include "ast.h"
#include "core/bits.hpp"

namespace ast {

using SizeFunction = uint64_t(const uint8_t *data, uint64_t available);

struct SizeRule {
    enum class Kind : uint8_t {
        None,       // not known
        Fixed,      // `octets`
        Extended,   // octets chained by FX, at most `octets`
        Repetitive, // a repetition count, then that many elements of `octets`
        Explicit,   // what the first octet says; it counts itself
        Subfields,  // those of a compound item, which `function` adds up
        Own,        // what `function` says
    };
    Kind kind = Kind::None;
    uint16_t octets = 0;
    bool is_disputed = false;         // the document lays it out otherwise
    SizeFunction *function = nullptr; // of the last two kinds alone
};

// Extended items without a bound of their own.
constexpr uint16_t kUnlimitedOctets = 999;

constexpr char kItemTooLong[] = "Dataitem length exceed max: %d";
constexpr char kSubfieldTooLong[] = "Subfield length exceed max: %d";

// Octets chained by FX, at most `maximum`. A chain that goes on after them is cut there and reported with `report`, but
// only where an octet to go on with is available: a chain that ends with the data is incomplete.
inline uint64_t extended_size(const uint8_t *data, uint64_t available, uint64_t maximum, const char *report) {
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

// The same of at least one octet that is available, but 0 also for what is reported. Most chains end at once.
inline uint64_t plain_extended_size(const uint8_t *data, uint64_t available, uint64_t maximum) {
    if (!has_fx(data[0])) return 1;
    const uint64_t limit = available < maximum ? available : maximum;
    for (uint64_t i = 1; i < limit; ++i)
        if (!has_fx(data[i])) return i + 1;
    return 0;
}

// A repetition count, then that many elements.
inline uint64_t repetitive_size(const uint8_t *data, uint64_t available, uint64_t element_octets) {
    if (!data || available == 0 || element_octets == 0) return 0;
    const uint64_t size = 1 + element_octets * data[0];
    return size <= available ? size : 0;
}

// The size of an item, 0 when the octets do not hold all of it. An explicit length is not compared with what is
// available: who reads on does that.
inline uint64_t item_size(SizeRule::Kind kind, uint64_t octets, const uint8_t *data, uint64_t available) {
    switch (kind) {
    case SizeRule::Kind::Fixed:
        return available >= octets ? octets : 0;
    case SizeRule::Kind::Extended:
        return extended_size(data, available, octets, kItemTooLong);
    case SizeRule::Kind::Repetitive:
        return repetitive_size(data, available, octets);
    case SizeRule::Kind::Explicit:
        return data && available ? data[0] : 0;
    default:
        return 0;
    }
}

template <uint16_t Octets>
constexpr SizeRule fixed = {SizeRule::Kind::Fixed, Octets};

template <uint16_t MaximumOctets>
constexpr SizeRule extended = {SizeRule::Kind::Extended, MaximumOctets};

template <uint16_t ElementOctets>
constexpr SizeRule repetitive = {SizeRule::Kind::Repetitive, ElementOctets};

constexpr SizeRule explicit_length = {SizeRule::Kind::Explicit};

constexpr SizeRule sized_by_subfields(SizeFunction *function) {
    return {SizeRule::Kind::Subfields, 0, false, function};
}
constexpr SizeRule sized_by(SizeFunction *function) { return {SizeRule::Kind::Own, 0, false, function}; }

// A rule that the document does not agree with: whoever reads by the document has to ask it.
constexpr SizeRule disputed(SizeRule rule) {
    rule.is_disputed = true;
    return rule;
}

inline uint64_t item_size(const SizeRule &rule, const uint8_t *data, uint64_t available) {
    if (rule.function) return rule.function(data, available);
    return item_size(rule.kind, rule.octets, data, available);
}

// The size of a subfield. A fixed one holds whatever is available, so that an item that runs out of octets comes out
// longer than what it has, and fails as a whole.
inline uint64_t subfield_size(const SizeRule &rule, const uint8_t *data, uint64_t available) {
    if (rule.kind == SizeRule::Kind::Fixed) return rule.octets;
    if (rule.kind == SizeRule::Kind::Extended) return extended_size(data, available, rule.octets, kSubfieldTooLong);
    return item_size(rule, data, available);
}

} // namespace ast
