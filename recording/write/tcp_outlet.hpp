// Blocks over a connection to a server.
#pragma once

#include "base/interruption.hpp"
#include "source/live_url.hpp"
#include "write/outlet.hpp"

namespace ast::recording {

class TcpOutlet : public Outlet {
public:
    // Waits for the connection, and for a server that is slow, up to an interruption. Throws std::system_error.
    TcpOutlet(const LiveUrl &url, Interruption &interruption);
    ~TcpOutlet() override;
    TcpOutlet(const TcpOutlet &) = delete;
    TcpOutlet &operator=(const TcpOutlet &) = delete;

    // Sends nothing more once a part has not been sent: what stands behind a gap is no stream of blocks.
    std::error_code send(Octets octets) override;

private:
    Interruption &interruption_;
    int descriptor_;
    std::error_code failure_;
};

} // namespace ast::recording
