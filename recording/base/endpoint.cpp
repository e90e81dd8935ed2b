#include "base/endpoint.hpp"

#include <algorithm>
#include <asio/ip/address.hpp>

#include "base/numbers.hpp"

namespace ast::recording {

std::optional<Address> read_address(std::string_view text) {
    std::error_code no_address;
    const auto address = asio::ip::make_address(std::string(text), no_address);
    if (no_address) return std::nullopt;
    Address result{.is_ipv6 = address.is_v6()};
    if (result.is_ipv6) {
        std::ranges::copy(address.to_v6().to_bytes(), result.octets.begin());
        result.scope = static_cast<uint32_t>(address.to_v6().scope_id());
    } else {
        std::ranges::copy(address.to_v4().to_bytes(), result.octets.begin());
    }
    return result;
}

std::optional<Endpoint> read_endpoint(std::string_view text) {
    const size_t colon = std::min(text.rfind(':'), text.size());
    std::string_view host = text.substr(0, colon);
    const bool bracketed = host.starts_with('[') && host.ends_with(']');
    if (bracketed) host = host.substr(1, host.size() - 2);
    const auto port = read_number<uint16_t>(text.substr(std::min(colon + 1, text.size())));
    const auto address = read_address(host);
    if (!address || !port || address->is_ipv6 != bracketed) return std::nullopt;
    return Endpoint{*address, *port};
}

namespace {

void put_ipv4(TextBuffer &out, const Address &address) {
    for (size_t i = 0; i < 4; ++i) {
        if (i != 0) out.put('.');
        out.number(address.octets[i]);
    }
}

void put_ipv6(TextBuffer &out, const Address &address) {
    out.put('[');
    out.put(asio::ip::make_address_v6(address.octets, address.scope).to_string());
    out.put(']');
}

} // namespace

void put_endpoint(TextBuffer &out, const Endpoint &endpoint) {
    if (endpoint.address.is_ipv6)
        put_ipv6(out, endpoint.address);
    else
        put_ipv4(out, endpoint.address);
    out.put(':');
    out.number(endpoint.port);
}

void put_route(TextBuffer &out, const Endpoints &endpoints) {
    put_endpoint(out, endpoints.source);
    out.put(" > ");
    put_endpoint(out, endpoints.destination);
}

std::string endpoint_text(const Endpoint &endpoint) {
    TextBuffer text;
    put_endpoint(text, endpoint);
    return std::string(text.text());
}

std::string route_text(const Endpoints &endpoints) {
    TextBuffer text;
    put_route(text, endpoints);
    return std::string(text.text());
}

} // namespace ast::recording
