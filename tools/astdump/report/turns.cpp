#include "report/turns.hpp"

#include <algorithm>
#include <cmath>

namespace ast::recording::astdump {

std::optional<double> median_of(std::deque<double> values) {
    if (values.empty()) return std::nullopt;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

// A mark that came twice, or over two ways, is one.
void Turns::mark(double time_s) {
    constexpr size_t kLately = 31;
    const double apart_s = last_s_ ? time_s - *last_s_ : 0;
    if (last_s_ && period_s_ && std::abs(apart_s) < *period_s_ / 2) return;
    ++marks_;
    if (last_s_ && apart_s > 0) {
        const double turns = period_s_ ? std::round(apart_s / *period_s_) : 1;
        if (turns == 1) {
            durations_.add(apart_s);
            lately_s_.push_back(apart_s);
            if (lately_s_.size() > kLately) lately_s_.pop_front();
            period_s_ = median_of(lately_s_);
            reports_.add(static_cast<double>(reports_now_));
            tracks_.add(static_cast<double>(tracks_now_.size()));
        } else if (turns - 1 <= kMostMissing) {
            missing_ += static_cast<uint64_t>(turns) - 1;
        }
    }
    last_s_ = time_s;
    reports_now_ = 0;
    tracks_now_.clear();
}

void Turns::report(std::optional<uint32_t> track_number) {
    ++reports_now_;
    if (track_number) tracks_now_.insert(*track_number);
}

} // namespace ast::recording::astdump
