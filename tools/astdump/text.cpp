#include "text.hpp"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace astdump {

std::string counted(uint64_t count, const char *noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string time_text(const Time &time) {
    const std::time_t seconds = time.seconds;
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char text[32];
    const size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &utc);
    char fraction[16];
    if (time.nanoseconds % 1000 == 0)
        std::snprintf(fraction, sizeof fraction, ".%06u", time.nanoseconds / 1000);
    else
        std::snprintf(fraction, sizeof fraction, ".%09u", time.nanoseconds);
    return std::string(text, length) + fraction;
}

std::string endpoint_text(const Endpoint &endpoint) {
    const bool ipv6 = endpoint.address.find(':') != std::string::npos;
    const std::string address = ipv6 ? '[' + endpoint.address + ']' : endpoint.address;
    return address + ':' + std::to_string(endpoint.port);
}

std::string cut(std::string text, size_t width) {
    if (text.size() > width) text.replace(width - 3, std::string::npos, "...");
    return text;
}

std::string printable(std::string_view text) {
    std::string result(text);
    std::ranges::replace_if(
        result, [](char c) { return c < ' ' || c > '~'; }, '.');
    return result;
}

} // namespace astdump
