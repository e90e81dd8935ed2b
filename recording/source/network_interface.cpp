#include "source/network_interface.hpp"
#include "base/endpoint.hpp"

#include <asio/ip/address.hpp>
#include <cerrno>
#include <cstring>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <netinet/in.h>
#include <optional>
#include <system_error>

namespace ast::recording {

namespace {

using asio::ip::address;

struct Free {
    void operator()(ifaddrs *list) const { freeifaddrs(list); }
};

std::unique_ptr<ifaddrs, Free> list_interfaces() {
    ifaddrs *list = nullptr;
    if (getifaddrs(&list) != 0) throw std::system_error(errno, std::generic_category());
    return std::unique_ptr<ifaddrs, Free>(list);
}

// The scope of a link-local address, being the index of the interface itself, is left out.
std::optional<address> read_address(const sockaddr *raw) {
    if (raw && raw->sa_family == AF_INET) {
        asio::ip::address_v4::bytes_type octets;
        std::memcpy(octets.data(), &reinterpret_cast<const sockaddr_in *>(raw)->sin_addr, octets.size());
        return asio::ip::address_v4(octets);
    }
    if (raw && raw->sa_family == AF_INET6) {
        asio::ip::address_v6::bytes_type octets;
        std::memcpy(octets.data(), &reinterpret_cast<const sockaddr_in6 *>(raw)->sin6_addr, octets.size());
        return asio::ip::address_v6(octets);
    }
    return std::nullopt;
}

} // namespace

unsigned interface_index(const std::string &name_or_address) {
    if (const unsigned index = if_nametoindex(name_or_address.c_str())) return index;
    std::error_code no_address;
    const address wanted = asio::ip::make_address(name_or_address, no_address);
    const auto list = list_interfaces();
    for (const ifaddrs *entry = list.get(); entry && !no_address; entry = entry->ifa_next)
        if (read_address(entry->ifa_addr) == wanted) return if_nametoindex(entry->ifa_name);
    throw std::system_error(ENODEV, std::generic_category());
}

unsigned link_local_interface() {
    const auto list = list_interfaces();
    for (const ifaddrs *entry = list.get(); entry; entry = entry->ifa_next) {
        const auto own = read_address(entry->ifa_addr);
        if (own && own->is_v6() && own->to_v6().is_link_local() && (entry->ifa_flags & IFF_UP) != 0)
            return if_nametoindex(entry->ifa_name);
    }
    return interface_index("127.0.0.1");
}

} // namespace ast::recording
