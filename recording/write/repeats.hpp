// Records that came before.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ask/answerer.hpp"
#include "block/decoded_block.hpp"

namespace ast::recording {

struct RepeatCounts {
    uint64_t same_octets = 0;
    uint64_t other_ways = 0; // the same report in other octets

    RepeatCounts take() { return std::exchange(*this, {}); }
    RepeatCounts &operator+=(const RepeatCounts &other);

    // "12 records that came twice left out, 2 of them in other octets"; empty for none.
    std::string text() const;
};

// Blocks come in their order. What came longer ago than the window is forgotten.
class Repeats {
public:
    explicit Repeats(int64_t window_ns) : window_ns_(window_ns) {}

    // What comes next is the first.
    void restart() { *this = Repeats(window_ns_); }

    // Leaves out of what is asked for the records with the octets of one that came within the window, and those of the
    // same source, address or track, and time of day as one that came over another way then: between other addresses,
    // or from another file.
    void leave_out(DecodedBlock &decoded, RepeatCounts &counts);

private:
    struct Way {
        std::optional<Endpoints> endpoints;
        const std::string *file = nullptr;

        bool operator==(const Way &) const = default;
    };
    struct Seen {
        int64_t at_ns;
        Way way;
    };

    bool is_repeated(const DecodedBlock &decoded, const ast_datarecord_t &record, RepeatCounts &counts);
    int64_t came_ns(const Datagram &datagram);
    void forget(int64_t now_ns);
    const Seen *find_or_add(const std::string &key, const Seen &seen);

    int64_t window_ns_;
    int64_t last_ns_ = 0;
    Answerer answerer_;
    std::vector<bool> chosen_;
    std::unordered_map<std::string, Seen> seen_;                // by octets, and by what is reported
    std::deque<std::pair<int64_t, const std::string *>> order_; // in which these came, with their times
};

} // namespace ast::recording
