#include "datagram/losses.hpp"

#include "base/counted.hpp"

namespace ast::recording {

// Blocks count by what becomes of them, all else by its reason.
void Losses::add(const Report &report) {
    const ast_recording_report_t &data = report.data;
    switch (data.reason) {
    case AST_REASON_UNFINISHED:
        ++unfinished;
        break;
    case AST_REASON_FRAGMENTS:
        incomplete += data.count;
        break;
    case AST_REASON_DROPPED:
        dropped += data.count;
        break;
    case AST_REASON_TRUNCATED:
        ++truncated;
        skipped += data.octets;
        break;
    case AST_REASON_UNDISSECTED:
        ++undissected;
        break;
    case AST_REASON_STREAM_GAP:
        missing += data.octets;
        break;
    case AST_REASON_STREAM_REST:
    case AST_REASON_SHORT_HEADER:
    case AST_REASON_SHORT_LENGTH:
    case AST_REASON_PAST_END:
    case AST_REASON_TEXT:
    case AST_REASON_NO_BLOCKS:
    case AST_REASON_NO_FRAME:
        skipped += data.octets;
        break;
    case AST_REASON_LINE:
        ++unread_lines;
        break;
    case AST_REASON_OTHER_DATAGRAM:
        ++foreign;
        break;
    case AST_REASON_OTHER_STREAM:
        ++foreign_streams;
        break;
    case AST_REASON_BLOCK:
        ++(data.kind == AST_REPORT_DAMAGED ? invalid : data.kind == AST_REPORT_UNSUPPORTED ? unsupported : foreign);
        break;
    default:
        break;
    }
}

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
    Losses losses = *this;
    losses.unsupported = losses.foreign = losses.foreign_streams = 0;
    return !(losses == Losses{});
}

std::string Losses::text() const {
    const struct {
        uint64_t count;
        const char *noun;
        const char *fate;
    } losses[] = {
        {truncated, "datagram", "cut by the capture"},
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

} // namespace ast::recording
