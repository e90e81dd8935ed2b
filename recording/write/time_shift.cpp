#include "write/time_shift.hpp"

namespace ast::recording {

namespace {

// The time with this time of day that is nearest to another one.
int64_t nearest_s(int64_t of_day_s, int64_t to_s) {
    constexpr int64_t kHalfDay = kSecondsPerDay / 2;
    const int64_t apart = (of_day_s - to_s % kSecondsPerDay) % kSecondsPerDay;
    return to_s + (apart + kSecondsPerDay + kHalfDay) % kSecondsPerDay - kHalfDay;
}

} // namespace

// When a record was made, on a line of time that goes on over midnight. What has no time of day was made when the one
// before it was, or else when it was received.
int64_t TimeShift::recorded_s(const ast_datarecord_t &record, const std::optional<Time> &received) {
    answerer_.set_record(record);
    const ast_answers_t &answers = answerer_.answers();
    const bool is_about_known = last_s_ || received;
    const int64_t about_s = last_s_ ? *last_s_ : received ? received->seconds : 0;
    if ((answers.present & AST_ANSWER_TIME) == 0 || !(answers.time_of_day_s < kSecondsPerDay)) return about_s;
    const auto of_day_s = static_cast<int64_t>(answers.time_of_day_s);
    const int64_t at_s = is_about_known ? nearest_s(of_day_s, about_s) : of_day_s;
    last_s_ = at_s;
    if (!seconds_) seconds_ = now().seconds - at_s;
    return at_s;
}

void TimeShift::move(DecodedBlock &decoded, const EditionMemory &editions) {
    answerer_.set_block(decoded);
    const std::optional<Time> received = decoded.datagram->time;
    rewriter_.rewrite(decoded, editions, [&](const ast_datarecord_t &record, uint64_t, uint8_t *octets) {
        const int64_t at_s = recorded_s(record, received);
        const std::optional<int64_t> seconds = seconds_ ? seconds_ : reception_s_;
        if (seconds) ast_datarecord_move_times(octets, &record, at_s, *seconds);
    });
}

const Datagram &TimeShift::move(const Datagram &datagram) {
    datagram_ = datagram;
    if (!datagram.time) return datagram_;
    if (!reception_s_) reception_s_ = now().seconds - datagram.time->seconds;
    datagram_.time->seconds += *reception_s_;
    return datagram_;
}

} // namespace ast::recording
