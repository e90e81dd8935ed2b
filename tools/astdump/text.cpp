#include "text.hpp"

#include <algorithm>
#include <asio/ip/address_v6.hpp>
#include <cstring>
#include <ctime>

namespace astdump {

std::string counted(uint64_t count, const char *noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

void put_counted(TextBuffer &out, uint64_t count, std::string_view noun) {
    out.number(count);
    out.put(' ');
    out.put(noun);
    if (count != 1) out.put('s');
}

void put_time(TextBuffer &out, const Time &time) {
    const std::time_t seconds = time.seconds;
    // Datagrams come in their order: most share their second with the one before.
    thread_local std::time_t last_seconds = -1;
    thread_local std::string last;
    if (seconds != last_seconds) {
        std::tm utc{};
        gmtime_r(&seconds, &utc);
        char text[32];
        last.assign(text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &utc));
        last_seconds = seconds;
    }
    out.put(last);
    out.put('.');
    if (time.nanoseconds % 1000 == 0)
        out.number(time.nanoseconds / 1000, 6, '0');
    else
        out.number(time.nanoseconds, 9, '0');
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

std::string cut(std::string text, size_t width) {
    if (text.size() > width) text.replace(width - 3, std::string::npos, "...");
    return text;
}

namespace {

bool is_foreign(char c) { return c < ' ' || c > '~'; }

// Eight at a time: one that is below a blank borrows, one above a tilde carries or has its highest bit set already, and
// what that does to its neighbours matters no more.
bool any_foreign(std::string_view text) {
    constexpr uint64_t kOnes = 0x0101010101010101;
    constexpr uint64_t kHighest = 0x80 * kOnes;
    uint64_t eight;
    for (; text.size() >= sizeof eight; text.remove_prefix(sizeof eight)) {
        std::memcpy(&eight, text.data(), sizeof eight);
        if ((((eight - ' ' * kOnes) | (eight + kOnes) | eight) & kHighest) != 0) return true;
    }
    return std::ranges::any_of(text, is_foreign);
}

} // namespace

std::string printable(std::string_view text) {
    std::string result(text);
    std::ranges::replace_if(result, is_foreign, '.');
    return result;
}

void put_printable(TextBuffer &out, std::string_view text) {
    if (!any_foreign(text)) return out.put(text);
    out.put(printable(text));
}

} // namespace astdump
