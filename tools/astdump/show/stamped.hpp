// Pieces of rendered text that keep the time of what they were made of, for sinks that go by it.
#pragma once

#include <cstring>
#include <optional>
#include <string_view>

#include "base/text_buffer.hpp"
#include "base/time.hpp"

namespace ast::recording::astdump {

struct Stamp {
    size_t octets; // of the piece, which follows
    Time time;
    bool has_time;
};

inline void put_stamped(TextBuffer &out, const std::optional<Time> &time, std::string_view piece) {
    const Stamp stamp{.octets = piece.size(), .time = time.value_or(Time{}), .has_time = time.has_value()};
    out.put({reinterpret_cast<const char *>(&stamp), sizeof stamp});
    out.put(piece);
}

// Calls take(time, piece) for each of them.
template <typename Take>
void each_stamped(std::string_view rendered, Take take) {
    while (!rendered.empty()) {
        Stamp stamp{};
        std::memcpy(&stamp, rendered.data(), sizeof stamp);
        take(stamp.has_time ? std::optional(stamp.time) : std::nullopt, rendered.substr(sizeof stamp, stamp.octets));
        rendered.remove_prefix(sizeof stamp + stamp.octets);
    }
}

} // namespace ast::recording::astdump
