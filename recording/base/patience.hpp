// How long a search goes on that nobody may be waiting for any more.
#pragma once

#include <cstdint>

#include "base/interruption.hpp"

namespace ast::recording {

// A short search goes to its end, also after an interruption, so that what has come by then is told as ever; of a long
// one, the result is of no use to anybody.
class Patience {
public:
    // Null is for a search that nobody can end.
    explicit Patience(const Interruption *interruption) : interruption_(interruption) {}

    // Whether the search may go on behind so many octets more.
    bool lasts(uint64_t octets) {
        searched_ += octets;
        if (searched_ > kShort && interruption_ && interruption_->ended()) is_over_ = true;
        return !is_over_;
    }

    // Whether it was broken off: what it has not found may be there.
    bool is_over() const { return is_over_; }

private:
    static constexpr uint64_t kShort = 4096; // octets

    const Interruption *interruption_;
    uint64_t searched_ = 0;
    bool is_over_ = false;
};

} // namespace ast::recording
