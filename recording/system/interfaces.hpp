// Network interfaces.
#pragma once

#include <asio/ip/address.hpp>
#include <string>
#include <vector>

namespace ast::recording::system {

// 0 where there is none of that name.
unsigned interface_named(const std::string &name);

struct InterfaceAddress {
    asio::ip::address address; // without its scope
    unsigned index;            // of the interface
    bool is_up;
};

// Of all interfaces. Throws std::system_error.
std::vector<InterfaceAddress> interface_addresses();

} // namespace ast::recording::system
