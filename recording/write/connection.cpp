#include "write/connection.hpp"

#include "framing/block_header.hpp"
#include "system/sockets.hpp"

namespace ast::recording {

namespace {

constexpr size_t kMostKeptOctets = 4 * 1024 * 1024;
constexpr size_t kKeepingOctets = 64; // that keeping a datagram takes besides its own
constexpr int kSendBufferOctets = 256 * 1024;

} // namespace

Lost all_of(Octets datagram) { return {.blocks = count_blocks(datagram).count, .octets = datagram.size()}; }

Connection::Connection(system::Descriptor descriptor, const Endpoint &other) : descriptor_(descriptor), other_(other) {
    system::prepare_to_send(descriptor_, kSendBufferOctets);
}

Connection::~Connection() { system::close(descriptor_); }

// Any datagram goes into what is empty.
bool Connection::has_room(size_t octets) const {
    return waiting_.empty() || kept_octets_ + octets + kKeepingOctets <= kMostKeptOctets;
}

bool Connection::offer(Octets datagram) {
    flush();
    if (!failure_ && !has_room(datagram.size())) {
        lost_ += all_of(datagram);
        return false;
    }
    const size_t sent = waiting_.empty() ? send_some(datagram) : 0;
    if (failure_ || sent == datagram.size()) return !failure_;
    if (waiting_.empty()) sent_of_first_ = sent;
    waiting_.emplace_back(datagram.begin(), datagram.end());
    kept_octets_ += datagram.size() + kKeepingOctets;
    return true;
}

size_t Connection::flush() {
    size_t flushed = 0;
    while (!waiting_.empty()) {
        const Octets first = waiting_.front();
        const size_t sent = send_some(first.subspan(sent_of_first_));
        flushed += sent;
        sent_of_first_ += sent;
        if (sent_of_first_ < first.size()) break;
        kept_octets_ -= first.size() + kKeepingOctets;
        sent_of_first_ = 0;
        waiting_.pop_front();
    }
    return flushed;
}

// As many octets as the system takes.
size_t Connection::send_some(Octets octets) {
    std::span<const uint8_t> left = octets;
    while (!failure_ && !left.empty()) {
        const std::error_code failure = system::send(descriptor_, left);
        if (failure == std::errc::operation_would_block) break;
        failure_ = failure;
    }
    return octets.size() - left.size();
}

void Connection::pass_over_input() {
    uint8_t octets[4096];
    const auto count = system::receive(descriptor_, octets, failure_);
    if (count == 0 && has_input_ended_) failure_ = std::make_error_code(std::errc::connection_reset);
    has_input_ended_ = has_input_ended_ || count == 0;
}

void Connection::give_up() {
    for (const auto &datagram : waiting_) lost_ += all_of(datagram);
    waiting_.clear();
    kept_octets_ = sent_of_first_ = 0;
}

} // namespace ast::recording
