#include "system/interfaces.hpp"

#include <cstring>
#include <functional>
#include <system_error>
#include <winsock2.h>
#include <ws2tcpip.h>

#include <iphlpapi.h>

namespace ast::recording::system {

namespace {

using Visit = std::function<void(const IP_ADAPTER_ADDRESSES &)>;

// The list may become longer between two calls.
void each_adapter(const Visit &visit) {
    std::vector<uint64_t> room;
    ULONG octets = 16 * 1024;
    ULONG result = ERROR_BUFFER_OVERFLOW;
    auto *first = static_cast<IP_ADAPTER_ADDRESSES *>(nullptr);
    while (result == ERROR_BUFFER_OVERFLOW) {
        room.resize(octets / sizeof room[0] + 1);
        first = reinterpret_cast<IP_ADAPTER_ADDRESSES *>(room.data());
        result = GetAdaptersAddresses(AF_UNSPEC, 0, nullptr, first, &octets);
    }
    if (result == ERROR_NO_DATA) return;
    if (result != NO_ERROR) throw std::system_error(static_cast<int>(result), std::system_category());
    for (const auto *adapter = first; adapter; adapter = adapter->Next) visit(*adapter);
}

std::string narrow(const wchar_t *text) {
    const int octets = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(octets), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow.data(), octets, nullptr, nullptr);
    narrow.resize(std::strlen(narrow.c_str()));
    return narrow;
}

unsigned index_of(const IP_ADAPTER_ADDRESSES &adapter) {
    return static_cast<unsigned>(adapter.IfIndex != 0 ? adapter.IfIndex : adapter.Ipv6IfIndex);
}

// The scope of a link-local address is the index of the interface itself.
asio::ip::address address_of(const SOCKET_ADDRESS &own) {
    if (own.lpSockaddr->sa_family == AF_INET) {
        asio::ip::address_v4::bytes_type octets;
        std::memcpy(octets.data(), &reinterpret_cast<const sockaddr_in *>(own.lpSockaddr)->sin_addr, octets.size());
        return asio::ip::address_v4(octets);
    }
    asio::ip::address_v6::bytes_type octets;
    std::memcpy(octets.data(), &reinterpret_cast<const sockaddr_in6 *>(own.lpSockaddr)->sin6_addr, octets.size());
    return asio::ip::address_v6(octets);
}

} // namespace

// As users see it, "Ethernet".
unsigned interface_named(const std::string &name) {
    unsigned index = 0;
    each_adapter([&](const IP_ADAPTER_ADDRESSES &adapter) {
        if (narrow(adapter.FriendlyName) == name) index = index_of(adapter);
    });
    return index;
}

std::vector<InterfaceAddress> interface_addresses() {
    std::vector<InterfaceAddress> addresses;
    each_adapter([&](const IP_ADAPTER_ADDRESSES &adapter) {
        for (const auto *own = adapter.FirstUnicastAddress; own; own = own->Next)
            addresses.push_back({.address = address_of(own->Address),
                                 .index = index_of(adapter),
                                 .is_up = adapter.OperStatus == IfOperStatusUp});
    });
    return addresses;
}

} // namespace ast::recording::system
