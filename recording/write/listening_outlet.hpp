// Blocks for whoever connects.
#pragma once

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <thread>

#include "source/live_url.hpp"
#include "write/connections.hpp"

namespace ast::recording {

class ListeningOutlet : public Outlet {
public:
    // Throws std::system_error where it cannot be listened.
    ListeningOutlet(const LiveUrl &url, Interruption &interruption);
    ~ListeningOutlet() override;
    ListeningOutlet(const ListeningOutlet &) = delete;
    ListeningOutlet &operator=(const ListeningOutlet &) = delete;

    // Waits for nobody, and is sent where nobody listens, too.
    std::error_code send(Octets octets, bool may_wait) override;
    void finish() override;
    std::vector<OutletEvent> take_events() override { return connections_.take_events(); }

private:
    void listen(const asio::ip::tcp::endpoint &endpoint);
    void serve();
    void accept();

    asio::io_context context_;
    asio::ip::tcp::acceptor listener_{context_};
    Interruption &interruption_;
    Interruption end_; // of the thread
    Connections connections_{Connections::Role::client};
    std::thread thread_;
};

} // namespace ast::recording
