#include "write/open_outlet.hpp"

#include <algorithm>
#include <asio/io_context.hpp>
#include <asio/ip/multicast.hpp>
#include <asio/ip/udp.hpp>
#include <asio/ip/unicast.hpp>
#include <cerrno>

#include "source/live_url.hpp"
#include "source/network_interface.hpp"
#include "source/socket_endpoint.hpp"
#include "system/failure.hpp"
#include "system/sockets.hpp"
#include "write/listening_outlet.hpp"
#include "write/tcp_outlet.hpp"

namespace ast::recording {

namespace {

using asio::ip::udp;

constexpr int kSendBufferOctets = 8 * 1024 * 1024; // asked for; the system may grant less

LiveUrl read_destination(const std::string &text, bool listens) {
    try {
        const std::vector<LiveUrl> urls = read_live_urls(text);
        if (urls.size() == 1 && (urls.front().port != 0 || listens)) return urls.front();
    } catch (const std::invalid_argument &) {
    }
    throw NoDestination('\'' + text +
                        "' is neither udp://HOST:PORT nor tcp://HOST:PORT with the address and the port to send to");
}

class UdpOutlet : public Outlet {
public:
    UdpOutlet(const LiveUrl &url, const OutletForm &form) : socket_(context_) {
        std::error_code failure;
        for (const udp::endpoint &endpoint : resolve<udp>(url, context_)) {
            failure = connect(endpoint, form);
            if (!failure) return;
        }
        if (system::errno_of(failure) == EACCES)
            throw NoDestination(url.text + ": is a broadcast address, to which nothing is sent");
        throw std::system_error(failure, url.text);
    }

    // A refusal comes from the other side, of a datagram before this one.
    std::error_code send(Octets octets, bool) override {
        const std::error_code failure = system::send(socket_, octets);
        if (system::errno_of(failure) != ECONNREFUSED) return failure;
        const std::error_code second = system::send(socket_, octets);
        return second ? second : failure;
    }

private:
    // Without the option for broadcast, the system refuses that.
    std::error_code connect(udp::endpoint endpoint, const OutletForm &form) try {
        if (endpoint.address().is_unspecified() ||
            endpoint.address() == asio::ip::address(asio::ip::address_v4::broadcast()))
            return std::make_error_code(std::errc::permission_denied);
        const unsigned index = form.interface.empty() ? 0 : interface_index(form.interface);
        const unsigned scope = give_scope(endpoint, index);
        socket_ = udp::socket(context_, endpoint.protocol());
        socket_.set_option(udp::socket::send_buffer_size(kSendBufferOctets));
        if (endpoint.address().is_multicast())
            shape_multicast(endpoint, scope, form);
        else if (form.ttl)
            socket_.set_option(asio::ip::unicast::hops(*form.ttl));
        socket_.connect(endpoint);
        return {};
    } catch (const std::system_error &error) {
        return error.code();
    }

    void shape_multicast(const udp::endpoint &group, unsigned interface, const OutletForm &form) {
        constexpr uint8_t kThisNetwork = 1;
        socket_.set_option(asio::ip::multicast::hops(form.ttl.value_or(kThisNetwork)));
        if (interface != 0) system::send_groups_by(socket_, group.address().is_v6(), interface);
    }

    asio::io_context context_;
    udp::socket socket_;
};

asio::ip::address plain(const asio::ip::address &address) {
    if (!address.is_v6()) return address;
    asio::ip::address_v6 v6 = address.to_v6();
    if (v6.is_v4_mapped()) return asio::ip::make_address_v4(asio::ip::v4_mapped, v6);
    v6.scope_id(0);
    return v6;
}

// Whether an address is one of this host's own, which alone can be bound to.
bool is_own(const asio::ip::address &address, asio::io_context &context) {
    std::error_code failure;
    udp::socket socket(context);
    udp::endpoint endpoint(address, 0);
    give_scope(endpoint, 0);
    socket.open(endpoint.protocol(), failure);
    if (!failure) socket.bind(endpoint, failure);
    return !failure;
}

// Who listens to any address hears those of this host, and groups that another program has joined; any one of IPv6 may
// be any one of IPv4, too.
bool is_heard(const udp::endpoint &sent, const udp::endpoint &heard, asio::io_context &context) {
    if (sent.port() != heard.port()) return false;
    const asio::ip::address to = plain(sent.address()), at = plain(heard.address());
    if (to == at) return true;
    if (!at.is_unspecified() || (to.is_v6() && at.is_v4())) return false;
    return to.is_multicast() || is_own(to, context);
}

} // namespace

bool is_heard_by(const std::string &url, bool listens, const std::string &input) {
    asio::io_context context;
    const LiveUrl destination = read_destination(url, listens);
    const std::vector<udp::endpoint> sent = resolve<udp>(destination, context);
    for (const LiveUrl &heard : read_live_urls(input))
        for (const udp::endpoint &at :
             heard.is_tcp == destination.is_tcp ? resolve<udp>(heard, context) : std::vector<udp::endpoint>())
            if (std::ranges::any_of(sent, [&](const auto &to) {
                    return listens ? is_heard(at, to, context) : is_heard(to, at, context);
                }))
                return true;
    return false;
}

std::unique_ptr<Outlet> open_outlet(const std::string &url, const OutletForm &form, Interruption &interruption) {
    const LiveUrl destination = read_destination(url, form.listens);
    if (form.listens && !destination.is_tcp)
        throw NoDestination('\'' + url + "' is not tcp://HOST:PORT, to which clients can connect");
    if (form.listens) return std::make_unique<ListeningOutlet>(destination, interruption);
    if (destination.is_tcp) return std::make_unique<TcpOutlet>(destination, interruption);
    return std::make_unique<UdpOutlet>(destination, form);
}

} // namespace ast::recording
