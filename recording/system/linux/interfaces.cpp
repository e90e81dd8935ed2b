#include "system/interfaces.hpp"

#include <cerrno>
#include <cstring>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <netinet/in.h>
#include <optional>
#include <system_error>

namespace ast::recording::system {

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

// The scope of a link-local address is the index of the interface itself.
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

unsigned interface_named(const std::string &name) { return if_nametoindex(name.c_str()); }

std::vector<InterfaceAddress> interface_addresses() {
    std::vector<InterfaceAddress> addresses;
    const auto list = list_interfaces();
    for (const ifaddrs *entry = list.get(); entry; entry = entry->ifa_next)
        if (const auto own = read_address(entry->ifa_addr))
            addresses.push_back(
                {.address = *own, .index = if_nametoindex(entry->ifa_name), .is_up = (entry->ifa_flags & IFF_UP) != 0});
    return addresses;
}

} // namespace ast::recording::system
