#include "source/network_interface.hpp"

#include <algorithm>
#include <system_error>

#include "system/interfaces.hpp"

namespace ast::recording {

unsigned interface_index(const std::string &name_or_address) {
    if (const unsigned index = system::interface_named(name_or_address)) return index;
    std::error_code no_address;
    const asio::ip::address wanted = asio::ip::make_address(name_or_address, no_address);
    if (!no_address)
        for (const system::InterfaceAddress &own : system::interface_addresses())
            if (own.address == wanted) return own.index;
    throw std::system_error(std::make_error_code(std::errc::no_such_device));
}

unsigned link_local_interface() {
    const auto addresses = system::interface_addresses();
    const auto found = std::ranges::find_if(addresses, [](const system::InterfaceAddress &own) {
        return own.address.is_v6() && own.address.to_v6().is_link_local() && own.is_up;
    });
    return found == addresses.end() ? interface_index("127.0.0.1") : found->index;
}

} // namespace ast::recording
