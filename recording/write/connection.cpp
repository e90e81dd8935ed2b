#include "write/connection.hpp"

#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

constexpr size_t kMostKeptOctets = 4 * 1024 * 1024;
constexpr size_t kKeepingOctets = 64; // that keeping a datagram takes besides its own
constexpr int kSendBufferOctets = 256 * 1024;

} // namespace

Lost all_of(Octets datagram) { return {.blocks = count_blocks(datagram).count, .octets = datagram.size()}; }

// A block goes at once: it does not wait for others to fill a packet.
Connection::Connection(int descriptor, const Endpoint &other) : descriptor_(descriptor), other_(other) {
    constexpr int kOn = 1;
    ::setsockopt(descriptor_, IPPROTO_TCP, TCP_NODELAY, &kOn, sizeof kOn);
    ::setsockopt(descriptor_, SOL_SOCKET, SO_SNDBUF, &kSendBufferOctets, sizeof kSendBufferOctets);
}

Connection::~Connection() { ::close(descriptor_); }

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
    size_t sent = 0;
    while (!failure_ && sent < octets.size()) {
        const ssize_t count =
            ::send(descriptor_, octets.data() + sent, octets.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count >= 0)
            sent += static_cast<size_t>(count);
        else if (errno == EAGAIN)
            break;
        else if (errno != EINTR)
            failure_ = {errno, std::generic_category()};
    }
    return sent;
}

void Connection::pass_over_input() {
    char octets[4096];
    const ssize_t count = ::recv(descriptor_, octets, sizeof octets, MSG_DONTWAIT);
    if (count < 0 && errno != EAGAIN && errno != EINTR) failure_ = {errno, std::generic_category()};
    if (count == 0 && has_input_ended_) failure_ = std::make_error_code(std::errc::connection_reset);
    has_input_ended_ = has_input_ended_ || count == 0;
}

void Connection::give_up() {
    for (const auto &datagram : waiting_) lost_ += all_of(datagram);
    waiting_.clear();
    kept_octets_ = sent_of_first_ = 0;
}

} // namespace ast::recording
