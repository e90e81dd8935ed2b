// The exported functions that send. None lets an exception out.

#include <algorithm>
#include <iterator>

#include "api/opening.hpp"
#include "write/sender.hpp"

struct ast_sender {
    ast_sender(const char *url, const ast::recording::SendOptions &options) : sender(url, options, interruption) {}

    ast::recording::Interruption interruption;
    ast::recording::Sender sender;
};

namespace {

using namespace ast::recording;

[[noreturn]] void refuse(const char *what) { throw CannotOpen(AST_RECORDING_ERROR_OPTION, what); }

SendOptions read_send_options(const ast_sender_options_t &options) {
    SendOptions read;
    if (!(options.speed >= 0)) refuse("speed: is less than 0, or no number");
    if (options.speed > 0) read.pace.speed = options.speed;
    read.pace.bits_per_s = options.most_bits_per_s;
    if (options.ttl > UINT8_MAX) refuse("ttl: is more than 255");
    if (options.ttl != 0) read.form.ttl = static_cast<uint8_t>(options.ttl);
    if (options.network_interface) read.form.interface = options.network_interface;
    if (std::ranges::any_of(options.reserved, [](const void *any) { return any != nullptr; }))
        refuse("reserved: is for later versions, and null");
    return read;
}

} // namespace

ast_sender_t *ast_sender_open(const char *url, const ast_sender_options_t *options, ast_recording_error_t *error) {
    return opened(options, error, [&](const ast_sender_options_t &chosen) {
        return new ast_sender(url ? url : "", read_send_options(chosen));
    });
}

bool ast_sender_send_at(ast_sender_t *sender, const uint8_t *octets, uint64_t count, int64_t time_ns) {
    if (!sender || (!octets && count != 0)) return false;
    const auto time = time_ns == AST_TIME_UNKNOWN ? std::nullopt : std::optional(time_ns);
    return sender->sender.send({octets, count}, time);
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

void ast_sender_interrupt(ast_sender_t *sender) {
    if (sender) sender->interruption.interrupt();
}

void ast_sender_close(ast_sender_t *sender) { delete sender; }
