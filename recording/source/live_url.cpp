#include "source/live_url.hpp"

#include <algorithm>
#include <asio/ip/address.hpp>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "base/numbers.hpp"

namespace ast::recording {

namespace {

constexpr std::string_view kUdp = "udp://";
constexpr std::string_view kTcp = "tcp://";

bool is_name(std::string_view host) {
    const auto belongs = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '.' ||
               c == '_';
    };
    const bool is_number = host.find_first_not_of("0123456789.") == std::string_view::npos;
    return !host.empty() && !is_number && std::ranges::all_of(host, belongs);
}

bool is_host(const std::string &host, bool is_bracketed) {
    std::error_code no_address;
    const auto address = asio::ip::make_address(host, no_address);
    return no_address ? !is_bracketed && is_name(host) : address.is_v6() == is_bracketed;
}

LiveUrl read_live_url(const std::string &text) {
    const std::string rest = text.substr(kUdp.size());
    const size_t colon = std::min(rest.rfind(':'), rest.size());
    const auto port = read_number<uint16_t>(std::string_view(rest).substr(std::min(colon + 1, rest.size())));
    std::string host = rest.substr(0, colon);
    const bool is_bracketed = host.starts_with('[') && host.ends_with(']');
    if (is_bracketed) host = host.substr(1, host.size() - 2);
    if (!is_live(text) || !port || !is_host(host, is_bracketed))
        throw std::invalid_argument('\'' + text +
                                    "' is neither udp://HOST:PORT nor tcp://HOST:PORT, where a HOST is a name, an IPv4 "
                                    "address, or an IPv6 address in brackets");
    return {.is_tcp = text.starts_with(kTcp), .host = host, .port = *port, .text = text};
}

} // namespace

bool is_live(const std::string &text) { return text.starts_with(kUdp) || text.starts_with(kTcp); }

std::vector<LiveUrl> read_live_urls(const std::string &text) {
    std::vector<LiveUrl> urls;
    if (!is_live(text)) return urls;
    std::istringstream words(text);
    for (std::string word; words >> word;) urls.push_back(read_live_url(word));
    return urls;
}

bool join_live(std::vector<std::string> &inputs) {
    const auto live = std::ranges::count_if(inputs, is_live);
    if (live == 0) return false;
    std::string all;
    for (const std::string &input : inputs) all.append(all.empty() ? "" : " ").append(input);
    const bool is_tcp = std::ranges::any_of(inputs, [](const auto &input) { return input.starts_with("tcp://"); });
    if (static_cast<size_t>(live) != inputs.size() || (is_tcp && inputs.size() > 1))
        throw std::invalid_argument("udp:// takes no FILE but other udp:// beside it, and tcp:// none at all");
    read_live_urls(all);
    inputs = {all};
    return true;
}

} // namespace ast::recording
