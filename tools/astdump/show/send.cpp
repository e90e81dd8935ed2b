#include "show/send.hpp"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "ask/answerer.hpp"
#include "base/counted.hpp"
#include "base/endpoint.hpp"
#include "show/chosen_datagrams.hpp"
#include "show/stamped.hpp"
#include "show/terminal.hpp"

namespace ast::recording::astdump {

namespace {

// Datagrams with the time that they were received at, or else with the time of day of their last record.
class SendRenderer : public DatagramRenderer {
public:
    explicit SendRenderer(bool remainders)
        : DatagramRenderer(remainders, remainders ? Behind::everything : Behind::trailers) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        const std::optional<Time> time = decoded.datagram->time ? std::nullopt : time_of_day(decoded);
        DatagramRenderer::block(decoded, out);
        if (time) time_of_day_ = time;
    }

private:
    void put(TextBuffer &out, const Datagram &datagram, Octets payload) override {
        const std::optional<Time> &time = datagram.time ? datagram.time : time_of_day_;
        put_stamped(out, time, {reinterpret_cast<const char *>(payload.data()), payload.size()});
        time_of_day_.reset();
    }

    std::optional<Time> time_of_day(const DecodedBlock &decoded) {
        answerer_.set_block(decoded);
        for (uint64_t i = decoded.block->record_count; i-- > 0;) {
            const ast_datarecord_t record = decoded.block->records[i];
            answerer_.set_record(record);
            const ast_answers_t &answers = answerer_.answers();
            if ((answers.present & AST_ANSWER_TIME) == 0) continue;
            constexpr double kNanosecondsPerS = 1e9;
            const auto whole_s = static_cast<int64_t>(answers.time_of_day_s);
            const double rest_s = answers.time_of_day_s - static_cast<double>(whole_s);
            return Time{whole_s, static_cast<uint32_t>(rest_s * kNanosecondsPerS)};
        }
        return std::nullopt;
    }

    Answerer answerer_;
    std::optional<Time> time_of_day_; // of the datagram at hand
};

std::string milliseconds_text(std::chrono::nanoseconds late) {
    constexpr double kNanosecondsPerMs = 1e6;
    char text[32];
    std::snprintf(text, sizeof text, "%.3f ms", static_cast<double>(late.count()) / kNanosecondsPerMs);
    return text;
}

// "127.0.0.1:51234 has gone, having lost 12 blocks of 3400 octets: Connection reset by peer"
std::string event_text(const OutletEvent &event) {
    const std::string other = event.endpoint == Endpoint() ? "the connection" : endpoint_text(event.endpoint);
    const auto lost = [&](const char *words) {
        if (event.lost.octets == 0) return std::string();
        return words + counted(event.lost.blocks, "block") + " of " + counted(event.lost.octets, "octet");
    };
    switch (event.kind) {
    case OutletEvent::Kind::listening:
        return "listening on " + other;
    case OutletEvent::Kind::connected:
        return "connected to " + other + lost(", which meanwhile has lost ");
    case OutletEvent::Kind::slow:
        return other + " takes less than is sent, and loses blocks";
    case OutletEvent::Kind::gone:
        break;
    }
    return other + (event.failure ? " has gone" : "") + lost(event.failure ? ", having lost " : " has lost ") +
           (event.failure ? ": " + event.failure.message() : "");
}

} // namespace

std::string lateness_text(const Lateness &lateness) {
    return "late by " + milliseconds_text(lateness.median()) + " in the median and " +
           milliseconds_text(lateness.greatest()) + " at most";
}

Send::Send(const std::vector<Destination> &destinations, const SendOptions &options,
           const std::vector<std::string> &inputs, bool remainders, Interruption &interruption)
    : remainders_(remainders), interruption_(interruption) {
    for (const auto &[url, listens] : destinations) {
        SendOptions own = options;
        own.form.listens = listens;
        ways_.push_back({url, Sender(url, own, interruption)});
        for (const std::string &input : inputs)
            if (is_heard_by(url, listens, input))
                throw std::runtime_error(url + ": is an input, and nothing is sent to it");
    }
    tell_events();
}

std::unique_ptr<Renderer> Send::renderer() const { return std::make_unique<SendRenderer>(remainders_); }

// Recordings that are not merged follow one another at once, whenever they were made.
void Send::file(const std::string &) {
    for (Way &way : ways_) way.sender.restart();
    timeline_.restart();
}

void Send::take(std::string_view rendered) {
    each_stamped(rendered, [&](const std::optional<Time> &time, std::string_view payload) {
        if (interruption_.ended()) return;
        send({reinterpret_cast<const uint8_t *>(payload.data()), payload.size()}, time);
    });
}

// To one address after the other, so that none waits for more than this datagram.
void Send::send(Octets octets, const std::optional<Time> &time) {
    std::optional<int64_t> time_ns = time ? nanoseconds_of(*time) : std::nullopt;
    if (time_ns) time_ns = timeline_.place(*time_ns, has_date(*time));
    last_ = time;
    for (Way &way : ways_)
        if (is_live_)
            way.sender.relay(octets, time);
        else
            way.sender.send(octets, time_ns);
    tell_events();
}

std::vector<SentTo> Send::sent() const {
    std::vector<SentTo> sent;
    for (const Way &way : ways_) sent.push_back({way.url, way.sender.sent()});
    return sent;
}

void Send::tell_events() {
    for (Way &way : ways_) tell_events(way);
}

void Send::tell_events(Way &way) {
    for (const OutletEvent &event : way.sender.take_events()) tell(way.url + ": " + event_text(event));
}

bool Send::has_lost_any() const {
    return std::ranges::any_of(ways_, [](const Way &way) { return way.sender.sent().failed != 0; });
}

// "sent up to 2014-02-25 12:43:47.401501, 35.0 datagrams/s, late by 0.080 ms in the median and 1.200 ms at most"
std::string Send::progress() {
    const Sent &sent = ways_.front().sender.sent();
    const auto now = std::chrono::steady_clock::now();
    const double seconds = std::chrono::duration<double>(now - std::exchange(shown_at_, now)).count();
    const uint64_t datagrams = sent.datagrams - std::exchange(shown_, sent.datagrams);
    char rate[64];
    std::snprintf(rate, sizeof rate, ", %.1f datagrams/s", static_cast<double>(datagrams) / seconds);
    std::string text = (last_ ? "sent up to " + time_text(*last_) : "sent") + rate;
    if (sent.lateness.count() != 0) text += ", " + lateness_text(sent.lateness);
    return text;
}

void Send::finish(uint64_t) {
    for (Way &way : ways_) {
        way.sender.finish();
        tell_events(way);
        const Sent &sent = way.sender.sent();
        std::string text = way.url + ": " + counted(sent.datagrams, "datagram") + " sent";
        if (sent.lateness.count() != 0) text += ", " + lateness_text(sent.lateness);
        if (sent.failed != 0) text += "; " + counted(sent.failed, "datagram") + " failed: " + sent.failure.message();
        tell(text);
    }
}

} // namespace ast::recording::astdump
