// A record as values: one JSON object, written item by item, and its octets.
#pragma once

#include <string>

#include "common/splice.hpp"

namespace simulation {

class Json {
public:
    // One or more members, as printf writes them: "\"I040\":%u".
    [[gnu::format(printf, 2, 3)]] void add(const char *format, ...);

    // A member that is an object itself, such as a compound item.
    void add_object(const char *name, const Json &members);

    std::string text() const { return "{" + members_ + "}"; }

private:
    void separate();

    std::string members_;
};

// The record ready for its block. Throws std::logic_error, with the place, for what cannot be encoded.
Octets encode(const Json &record);

} // namespace simulation
