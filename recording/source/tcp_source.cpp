#include "source/tcp_source.hpp"

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <cerrno>
#include <sstream>
#include <system_error>
#include <utility>

#include "source/socket_endpoint.hpp"

namespace ast::recording {

namespace {

using asio::ip::tcp;

// 0 when the connection stands; without waiting any longer when the user has ended that.
std::error_code connect(tcp::socket &socket, const tcp::endpoint &endpoint, Interruption &interruption) {
    socket.open(endpoint.protocol());
    socket.native_non_blocking(true);
    int error =
        ::connect(socket.native_handle(), endpoint.data(), static_cast<socklen_t>(endpoint.size())) == 0 ? 0 : errno;
    if (error == EINPROGRESS) {
        if (!interruption.for_output(socket.native_handle())) return {};
        socklen_t size = sizeof error;
        getsockopt(socket.native_handle(), SOL_SOCKET, SO_ERROR, &error, &size);
    }
    socket.native_non_blocking(false);
    return {error, std::generic_category()};
}

} // namespace

std::optional<TcpConnection> connect_tcp(const LiveUrl &url, Interruption &interruption, const Announce &announce) {
    asio::io_context context;
    std::error_code failure;
    for (const tcp::endpoint &endpoint : resolve<tcp>(url, context)) {
        tcp::socket socket(context);
        failure = connect(socket, endpoint, interruption);
        if (interruption.ended()) return std::nullopt;
        if (failure) continue;
        std::ostringstream text;
        text << endpoint;
        announce("connected to " + text.str());
        const Endpoints endpoints{to_endpoint(endpoint), to_endpoint(socket.local_endpoint())};
        return TcpConnection{socket.release(), endpoints};
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
