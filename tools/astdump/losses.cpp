#include "losses.hpp"

#include "text.hpp"

namespace astdump {

Losses &Losses::operator+=(const Losses &other) {
    truncated += other.truncated;
    dropped += other.dropped;
    undissected += other.undissected;
    incomplete += other.incomplete;
    missing += other.missing;
    invalid += other.invalid;
    skipped += other.skipped;
    unread_lines += other.unread_lines;
    unfinished += other.unfinished;
    unsupported += other.unsupported;
    foreign += other.foreign;
    foreign_streams += other.foreign_streams;
    return *this;
}

bool Losses::any_damage() const {
    Losses damage = *this;
    damage.unsupported = damage.foreign = damage.foreign_streams = 0;
    return !(damage == Losses{});
}

std::string Losses::text() const {
    const struct {
        uint64_t count;
        const char *noun;
        const char *fate;
    } losses[] = {
        {truncated, "datagram", "truncated"},
        {dropped, "datagram", "dropped by the system"},
        {undissected, "packet", "not dissected"},
        {incomplete, "datagram", "with missing fragments"},
        {missing, "octet", "missing in TCP streams"},
        {invalid, "block", "invalid"},
        {skipped, "octet", "skipped"},
        {unread_lines, "line", "not read"},
        {unfinished, "input", "not read to the end"},
    };
    std::string text;
    for (const auto &loss : losses) {
        if (loss.count == 0) continue;
        text.append(text.empty() ? "" : ", ").append(counted(loss.count, loss.noun)).append(" ").append(loss.fate);
    }
    return text;
}

std::string Losses::foreign_text() const {
    std::string text;
    if (foreign != 0) text = counted(foreign, "datagram");
    if (foreign_streams != 0) text.append(text.empty() ? "" : ", ").append(counted(foreign_streams, "TCP stream"));
    return text;
}

} // namespace astdump
