#include "write/tcp_outlet.hpp"

#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

#include "source/tcp_source.hpp"

namespace ast::recording {

namespace {

int connected(const LiveUrl &url, Interruption &interruption) {
    const auto connection = connect_tcp(url, interruption, [](const std::string &) {});
    if (!connection) throw std::system_error(std::make_error_code(std::errc::operation_canceled), url.text);
    return connection->descriptor;
}

} // namespace

TcpOutlet::TcpOutlet(const LiveUrl &url, Interruption &interruption)
    : interruption_(interruption), descriptor_(connected(url, interruption)) {}

TcpOutlet::~TcpOutlet() { ::close(descriptor_); }

std::error_code TcpOutlet::send(Octets octets) {
    while (!failure_ && !octets.empty()) {
        const ssize_t count = ::send(descriptor_, octets.data(), octets.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count >= 0)
            octets = octets.subspan(static_cast<size_t>(count));
        else if (errno != EAGAIN && errno != EINTR)
            failure_ = {errno, std::generic_category()};
        else if (!interruption_.for_output(descriptor_))
            failure_ = std::make_error_code(std::errc::operation_canceled);
    }
    return failure_;
}

} // namespace ast::recording
