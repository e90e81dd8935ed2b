#include "source/socket_endpoint.hpp"

#include "source/network_interface.hpp"

namespace ast::recording {

unsigned give_scope(asio::ip::udp::endpoint &endpoint, unsigned interface) {
    if (!endpoint.address().is_v6()) return interface;
    auto address = endpoint.address().to_v6();
    if (!address.is_link_local() && !address.is_multicast_link_local()) return interface;
    if (interface != 0) address.scope_id(interface);
    if (address.scope_id() == 0) address.scope_id(link_local_interface());
    endpoint.address(address);
    return static_cast<unsigned>(address.scope_id());
}

} // namespace ast::recording
