// The members of a line of JSON that are no items.
#pragma once

#include <iterator>

#include "schema/slice.hpp"

namespace ast::schema {

enum LineKey : unsigned {
    kFile,
    kBlock,
    kRecord,
    kTime,
    kSource,
    kDestination,
    kOffset,
    kCategory,
    kProfile,
    kAmbiguous,
    kImplausible,
    kError,
    kOctets,
    kNoLineKey
};

constexpr Slice kLineKeys[] = {"\"file\"",        "\"block\"",  "\"record\"",   "\"time\"",    "\"source\"",
                               "\"destination\"", "\"offset\"", "\"category\"", "\"profile\"", "\"ambiguous\"",
                               "\"implausible\"", "\"error\"",  "\"octets\""};
static_assert(std::size(kLineKeys) == kNoLineKey);

inline unsigned find_line_key(Slice key) {
    if (key.size() < 2 || key[1] < 'a') return kNoLineKey; // as those of items
    unsigned place = 0;
    while (place != kNoLineKey && kLineKeys[place] != key) ++place;
    return place;
}
inline bool is_line_key(Slice key) { return find_line_key(key) != kNoLineKey; }

} // namespace ast::schema
