#include "endpoint.hpp"

#include <algorithm>
#include <string>

#include "numbers.hpp"

namespace astdump {

std::optional<asio::ip::udp::endpoint> read_endpoint(std::string_view text) {
    const size_t colon = std::min(text.rfind(':'), text.size());
    std::string host(text.substr(0, colon));
    const bool bracketed = host.starts_with('[') && host.ends_with(']');
    if (bracketed) host = host.substr(1, host.size() - 2);
    const auto port = read_number<uint16_t>(text.substr(std::min(colon + 1, text.size())));
    std::error_code no_address;
    const auto address = asio::ip::make_address(host, no_address);
    if (no_address || !port || address.is_v6() != bracketed) return std::nullopt;
    return asio::ip::udp::endpoint(address, *port);
}

Endpoint to_endpoint(const asio::ip::address &address, uint16_t port) {
    Endpoint to{.address = {.is_ipv6 = address.is_v6()}, .port = port};
    if (to.address.is_ipv6) {
        std::ranges::copy(address.to_v6().to_bytes(), to.address.octets.begin());
        to.address.scope = static_cast<uint32_t>(address.to_v6().scope_id());
    } else {
        std::ranges::copy(address.to_v4().to_bytes(), to.address.octets.begin());
    }
    return to;
}

} // namespace astdump
