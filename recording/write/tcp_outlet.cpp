#include "write/tcp_outlet.hpp"

#include <algorithm>

#include "source/tcp_source.hpp"
#include "system/process.hpp"

namespace ast::recording {

TcpOutlet::TcpOutlet(const LiveUrl &url, Interruption &interruption) : url_(url), interruption_(interruption) {
    if (!connect(interruption, false))
        throw std::system_error(std::make_error_code(std::errc::operation_canceled), url.text);
    thread_ = system::start_thread([this] { serve(); });
}

TcpOutlet::~TcpOutlet() {
    end_.interrupt();
    connections_.end();
    thread_.join();
}

bool TcpOutlet::connect(Interruption &interruption, bool is_again) {
    const auto connection = connect_tcp(url_, interruption, [](const std::string &) {});
    if (connection) connections_.add(connection->descriptor, connection->endpoints.source, is_again);
    return connection.has_value();
}

void TcpOutlet::serve() {
    while (connections_.serve({}) != Connections::Turn::end)
        if (connections_.count() == 0) connect_again();
}

// Not at once, so that a server that ends each connection is not kept busy by that.
void TcpOutlet::connect_again() {
    using namespace std::chrono;
    constexpr milliseconds kFirstPause{100}, kLongestPause{10'000};
    for (auto pause = kFirstPause; end_.until(steady_clock::now() + pause);
         pause = std::min(2 * pause, kLongestPause)) {
        try {
            connect(end_, true);
            return;
        } catch (const std::exception &) {
            // It is told that the connection is gone, and not how often it is tried.
        }
    }
}

std::error_code TcpOutlet::send(Octets octets, bool may_wait) {
    if (may_wait) connections_.wait_for_room(octets.size(), interruption_);
    if (may_wait && interruption_.ended()) return std::make_error_code(std::errc::operation_canceled);
    return connections_.send(octets);
}

void TcpOutlet::finish() {
    connections_.wait_for_all(interruption_);
    end_.interrupt();
    connections_.end();
    connections_.close();
}

} // namespace ast::recording
