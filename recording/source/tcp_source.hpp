// Live blocks from a TCP connection.
#pragma once

#include <memory>
#include <optional>

#include "base/octet_stream.hpp"
#include "datagram/datagram_source.hpp"
#include "source/live_url.hpp"

namespace ast::recording {

struct TcpConnection {
    system::Descriptor descriptor;
    Endpoints endpoints; // from the other side to this one
};

// Connects to the first address of a host that answers, and announces that. Nothing when the waiting is ended. Throws
// std::system_error.
std::optional<TcpConnection> connect_tcp(const LiveUrl &url, Interruption &interruption, const Announce &announce);

class TcpSource : public DatagramSource {
public:
    TcpSource(std::unique_ptr<DatagramSource> blocks, const OctetStream &stream, const Endpoints &endpoints)
        : blocks_(std::move(blocks)), stream_(stream), endpoints_(endpoints) {}

    // What the source of its blocks gives, with the time at which that came. Says when the other side has closed.
    bool fill(Chunk &chunk) override;

private:
    std::unique_ptr<DatagramSource> blocks_;
    const OctetStream &stream_;
    Endpoints endpoints_;
    bool has_ended_ = false;
};

} // namespace ast::recording
