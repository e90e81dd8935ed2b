#include "show/timeline.hpp"

#include "base/time.hpp"

namespace ast::recording::astdump {

int64_t Timeline::place(int64_t time_ns, bool has_date) {
    constexpr int64_t kDay_ns = kSecondsPerDay * 1'000'000'000;
    if (!last_ns_) is_dated_ = has_date;
    if (last_ns_ && !(is_dated_ && has_date)) {
        const int64_t apart_ns = (time_ns % kDay_ns - *last_ns_ % kDay_ns + kDay_ns + kDay_ns / 2) % kDay_ns;
        time_ns = *last_ns_ + apart_ns - kDay_ns / 2;
    }
    last_ns_ = time_ns;
    return time_ns;
}

} // namespace ast::recording::astdump
