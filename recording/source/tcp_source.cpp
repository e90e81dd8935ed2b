#include "source/tcp_source.hpp"

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <sstream>
#include <system_error>
#include <utility>

#include "source/socket_endpoint.hpp"
#include "system/sockets.hpp"

namespace ast::recording {

namespace {

using asio::ip::tcp;

// A socket that is closed, unless the connection stands.
class Attempt {
public:
    explicit Attempt(const tcp::endpoint &endpoint) : connection_(system::open_connection(endpoint)) {}
    ~Attempt() { system::close(connection_); }
    Attempt(const Attempt &) = delete;
    Attempt &operator=(const Attempt &) = delete;

    // None when the connection stands; without waiting any longer when the user has ended that.
    std::error_code connect(const tcp::endpoint &endpoint, Interruption &interruption) {
        const std::error_code failure = system::begin_to_connect(connection_, endpoint);
        if (failure != std::errc::operation_in_progress) return failure;
        if (!interruption.for_output(connection_)) return {};
        return system::connect_failure(connection_);
    }

    tcp::endpoint local() const { return system::endpoint_of(connection_); }
    system::Descriptor release() { return std::exchange(connection_, {}); }

private:
    system::Descriptor connection_;
};

} // namespace

std::optional<TcpConnection> connect_tcp(const LiveUrl &url, Interruption &interruption, const Announce &announce) {
    asio::io_context context;
    std::error_code failure;
    for (const tcp::endpoint &endpoint : resolve<tcp>(url, context)) {
        Attempt attempt(endpoint);
        failure = attempt.connect(endpoint, interruption);
        if (interruption.ended()) return std::nullopt;
        if (failure) continue;
        std::ostringstream text;
        text << endpoint;
        announce("connected to " + text.str());
        const Endpoints endpoints{to_endpoint(endpoint), to_endpoint(attempt.local())};
        return TcpConnection{attempt.release(), endpoints};
    }
    throw std::system_error(failure, url.text);
}

bool TcpSource::fill(Chunk &chunk) {
    if (!has_ended_ && blocks_->fill(chunk)) {
        chunk.stamp(now(), endpoints_);
        return true;
    }
    if (std::exchange(has_ended_, true) || stream_.cut_off()) return false;
    chunk.reports().note("the other side has closed the connection");
    return true;
}

} // namespace ast::recording
