// Live datagrams from one or more sockets.
#pragma once

#include <asio/io_context.hpp>
#include <asio/ip/udp.hpp>
#include <vector>

#include "base/octet_stream.hpp"
#include "datagram/datagram_source.hpp"
#include "source/live_url.hpp"
#include "system/sockets.hpp"

namespace ast::recording {

class UdpSource : public DatagramSource {
public:
    // Listens to addresses of this host and to multicast groups, on one interface or, if that is empty, on those that
    // the system chooses, and announces that. Throws std::system_error.
    UdpSource(const std::vector<LiveUrl> &urls, const std::string &interface, Interruption &interruption,
              const Announce &announce);

    // Waits for a datagram, and takes those that wait with it; the end is that of the interruption, behind what has
    // come until then.
    bool fill(Chunk &chunk) override;

private:
    struct Socket {
        asio::ip::udp::socket socket;
        asio::ip::udp::endpoint local;
        uint64_t room_octets; // for what waits
        uint32_t dropped = 0; // as the system counts
    };

    void listen(const LiveUrl &url, unsigned interface);
    void listen(asio::ip::udp::endpoint endpoint, unsigned interface);
    uint64_t receive(Socket &socket, Chunk &chunk);
    void add(const Socket &socket, const system::Arrival &arrival, const asio::ip::udp::endpoint &sender, Chunk &chunk);
    static void take_dropped(Socket &socket, std::optional<uint32_t> dropped, Reports &reports);
    void end(Chunk &chunk);

    Interruption &interruption_;
    asio::io_context context_;
    std::vector<Socket> sockets_;
    std::vector<system::Descriptor> descriptors_; // of these
    size_t next_ = 0;                             // socket to look at, so that a busy one leaves the others their turn
    system::Arrivals arrivals_;
    uint64_t packet_ = 0;
    bool has_ended_ = false;
};

} // namespace ast::recording
