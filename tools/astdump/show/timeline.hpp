// Times of a recording put on one line, whatever they lack.
#pragma once

#include <cstdint>
#include <optional>

namespace ast::recording::astdump {

// In nanoseconds. Times without a date go on the day that brings them nearest to the one before; and if the first has
// none, those that have one do, too.
class Timeline {
public:
    int64_t place(int64_t time_ns, bool has_date);
    void restart() { last_ns_.reset(); }

private:
    std::optional<int64_t> last_ns_;
    bool is_dated_ = false;
};

} // namespace ast::recording::astdump
