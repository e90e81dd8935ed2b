// Blocks over a connection to a server.
#pragma once

#include <thread>

#include "source/live_url.hpp"
#include "write/connections.hpp"

namespace ast::recording {

class TcpOutlet : public Outlet {
public:
    // Waits for the connection up to an interruption. Throws std::system_error where there is none at first; one that
    // fails later is made again.
    TcpOutlet(const LiveUrl &url, Interruption &interruption);
    ~TcpOutlet() override;
    TcpOutlet(const TcpOutlet &) = delete;
    TcpOutlet &operator=(const TcpOutlet &) = delete;

    std::error_code send(Octets octets, bool may_wait) override;
    void finish() override;
    std::vector<OutletEvent> take_events() override { return connections_.take_events(); }

private:
    bool connect(Interruption &interruption, bool is_again);
    void serve();
    void connect_again();

    LiveUrl url_;
    Interruption &interruption_;
    Interruption end_; // of the thread
    Connections connections_{Connections::Role::server};
    std::thread thread_;
};

} // namespace ast::recording
