// Live blocks from a TCP connection.
#pragma once

#include <memory>
#include <optional>

#include "input.hpp"
#include "live_url.hpp"

namespace astdump {

struct TcpConnection {
    int descriptor;
    Endpoints endpoints; // from the other side to this one
};

// Connects to the first address of a host that answers, and says so on standard error. Nothing when the user ends the
// waiting. Throws std::system_error.
std::optional<TcpConnection> connect_tcp(const LiveUrl &url, Waiting &waiting);

class TcpSource : public Source {
public:
    TcpSource(std::unique_ptr<Source> blocks, const OctetStream &stream, const Endpoints &endpoints)
        : blocks_(std::move(blocks)), stream_(stream), endpoints_(endpoints) {}

    // What the source of its blocks gives, with the time at which that came. Says when the other side has closed.
    bool fill(Chunk &chunk) override;

private:
    std::unique_ptr<Source> blocks_;
    const OctetStream &stream_;
    Endpoints endpoints_;
    bool has_ended_ = false;
};

} // namespace astdump
