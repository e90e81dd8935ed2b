// Live datagrams from a socket.
#pragma once

#include <asio/io_context.hpp>
#include <asio/ip/udp.hpp>
#include <sys/socket.h>
#include <vector>

#include "input.hpp"

namespace astdump {

// "udp://ADDRESS:PORT" or "udp://[ADDRESS]:PORT"; nothing for a text that does not begin with "udp://". Throws
// std::invalid_argument when no endpoint follows.
std::optional<asio::ip::udp::endpoint> read_udp_url(const std::string &text);

class UdpSource : public Source {
public:
    // Listens to an address of this host or to a multicast group, on one interface or, if that is empty, on those that
    // the system chooses, and says so on standard error. Throws std::system_error.
    UdpSource(asio::ip::udp::endpoint endpoint, const std::string &interface, Waiting &waiting);

    // Waits for a datagram; the end is that of the waiting.
    bool fill(Chunk &chunk) override;

private:
    void listen(asio::ip::udp::endpoint endpoint, unsigned interface);
    std::optional<size_t> receive(Damage &damage);
    void check(const msghdr &message, Damage &damage);

    Waiting &waiting_;
    asio::io_context context_;
    asio::ip::udp::socket socket_;
    asio::ip::udp::endpoint local_;
    asio::ip::udp::endpoint sender_;
    std::vector<uint8_t> buffer_;
    uint64_t packet_ = 0;
    uint32_t dropped_ = 0; // as the system counts
};

} // namespace astdump
