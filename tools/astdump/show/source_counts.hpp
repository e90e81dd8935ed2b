// What has been met of each data source and category.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "show/sink.hpp"

namespace ast::recording::astdump {

struct SourceCounts {
    uint64_t blocks = 0;
    uint64_t records = 0;
    uint64_t damaged = 0;           // blocks
    uint64_t unsupported = 0;       // blocks
    std::optional<Profile> profile; // of the last block
    std::optional<Time> received;   // the last one
    char time_of_day[16] = "";      // of its last record, where it is not known when it was received

    // What follows.
    SourceCounts &operator+=(const SourceCounts &other);
};

// "025/012", empty where a block does not say it, and the category.
using SourceKey = std::pair<std::string, uint32_t>;
using Sources = std::map<SourceKey, SourceCounts>;

// Writes what it counts in a form that add_rendered() reads.
std::unique_ptr<Renderer> make_source_counter();

// When the first and the last datagram were received.
struct Span {
    Time first;
    Time last;

    double seconds() const;
};

// Adds what has been rendered, and widens the span.
void add_rendered(Sources &sources, std::optional<Span> &span, std::string_view rendered);

} // namespace ast::recording::astdump
