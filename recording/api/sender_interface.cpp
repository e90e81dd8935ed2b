// The exported functions that send. None lets an exception out.

#include <algorithm>
#include <deque>
#include <iterator>

#include "api/opening.hpp"
#include "datagram/report.hpp"
#include "write/sender.hpp"

struct ast_sender {
    ast_sender(const char *url, const ast::recording::SendOptions &options) : sender(url, options, interruption) {}
    ~ast_sender() {
        if (!interruption.ended()) sender.finish();
    }
    ast_sender(const ast_sender &) = delete;
    ast_sender &operator=(const ast_sender &) = delete;

    ast::recording::Interruption interruption;
    ast::recording::Sender sender;
    std::deque<ast::recording::OutletEvent> events; // that are still to be handed over
};

namespace {

using namespace ast::recording;

[[noreturn]] void refuse(const char *what) { throw CannotOpen(AST_RECORDING_ERROR_OPTION, what); }

SendOptions read_send_options(const ast_sender_options_t &options, bool listens) {
    SendOptions read;
    if (!(options.speed >= 0)) refuse("speed: is less than 0, or no number");
    if (options.speed > 0) read.pace.speed = options.speed;
    read.pace.bits_per_s = options.most_bits_per_s;
    if (options.ttl > UINT8_MAX) refuse("ttl: is more than 255");
    if (options.ttl != 0) read.form.ttl = static_cast<uint8_t>(options.ttl);
    read.form.listens = listens;
    if (options.network_interface) read.form.interface = options.network_interface;
    if (std::ranges::any_of(options.reserved, [](const void *any) { return any != nullptr; }))
        refuse("reserved: is for later versions, and null");
    return read;
}

ast_sender *open_sender(const char *url, const ast_sender_options_t *options, bool listens,
                        ast_recording_error_t *error) {
    return opened(options, error, [&](const ast_sender_options_t &chosen) {
        return new ast_sender(url ? url : "", read_send_options(chosen, listens));
    });
}

std::optional<int64_t> known_time(int64_t time_ns) {
    return time_ns == AST_TIME_UNKNOWN ? std::nullopt : std::optional(time_ns);
}

uint32_t kind_of(OutletEvent::Kind kind) {
    switch (kind) {
    case OutletEvent::Kind::listening:
        return AST_SENDER_LISTENING;
    case OutletEvent::Kind::connected:
        return AST_SENDER_CONNECTED;
    case OutletEvent::Kind::slow:
        return AST_SENDER_SLOW;
    case OutletEvent::Kind::gone:
        break;
    }
    return AST_SENDER_GONE;
}

} // namespace

ast_sender_t *ast_sender_open(const char *url, const ast_sender_options_t *options, ast_recording_error_t *error) {
    return open_sender(url, options, false, error);
}

ast_sender_t *ast_sender_listen(const char *url, const ast_sender_options_t *options, ast_recording_error_t *error) {
    return open_sender(url, options, true, error);
}

bool ast_sender_send_at(ast_sender_t *sender, const uint8_t *octets, uint64_t count, int64_t time_ns) {
    if (!sender || (!octets && count != 0)) return false;
    return sender->sender.send({octets, count}, known_time(time_ns));
}

bool ast_sender_wait_within(ast_sender_t *sender, uint64_t count, int64_t time_ns, uint32_t timeout_ms) {
    return sender && sender->sender.wait_for(count, known_time(time_ns), std::chrono::milliseconds(timeout_ms));
}

void ast_sender_restart(ast_sender_t *sender) {
    if (sender) sender->sender.restart();
}

void ast_sender_get_statistics(const ast_sender_t *sender, ast_sender_statistics_t *statistics) {
    if (!statistics) return;
    *statistics = {};
    if (!sender) return;
    const Sent &sent = sender->sender.sent();
    statistics->sent = sent.datagrams;
    statistics->octets = sent.octets;
    statistics->failed = sent.failed;
    statistics->late_median_ns = sent.lateness.median().count();
    statistics->late_greatest_ns = sent.lateness.greatest().count();
    if (!sent.failure) return;
    try {
        set_error(statistics->failure, code_of(sent.failure), sent.failure.message());
    } catch (const std::exception &) {
        statistics->failure.code = AST_RECORDING_ERROR_MEMORY;
    }
}

bool ast_sender_next_event(ast_sender_t *sender, ast_sender_event_t *event) try {
    if (event) *event = {};
    if (!sender || !event) return false;
    if (sender->events.empty()) std::ranges::copy(sender->sender.take_events(), std::back_inserter(sender->events));
    if (sender->events.empty()) return false;
    const OutletEvent &next = sender->events.front();
    event->kind = kind_of(next.kind);
    event->endpoint = to_public(next.endpoint);
    event->lost_blocks = next.lost.blocks;
    event->lost_octets = next.lost.octets;
    if (next.failure) set_error(event->failure, code_of(next.failure), next.failure.message());
    sender->events.pop_front();
    return true;
} catch (const std::exception &) {
    return false;
}

void ast_sender_interrupt(ast_sender_t *sender) {
    if (sender) sender->interruption.interrupt();
}

void ast_sender_close(ast_sender_t *sender) { delete sender; }
