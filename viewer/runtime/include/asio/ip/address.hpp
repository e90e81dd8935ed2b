// In place of Asio's, which needs sockets: addresses and their texts.
#pragma once

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <netinet/in.h>
#include <string>
#include <system_error>

namespace asio::ip {

class address_v4 {
public:
    using bytes_type = std::array<unsigned char, 4>;
    bytes_type to_bytes() const { return bytes_; }

    bytes_type bytes_{};
};

class address_v6 {
public:
    using bytes_type = std::array<unsigned char, 16>;
    bytes_type to_bytes() const { return bytes_; }
    unsigned long scope_id() const { return scope_; }

    std::string to_string() const {
        char text[INET6_ADDRSTRLEN];
        std::string whole = ::inet_ntop(AF_INET6, bytes_.data(), text, sizeof text);
        if (scope_ != 0) whole.append("%").append(std::to_string(scope_));
        return whole;
    }

    bytes_type bytes_{};
    unsigned long scope_ = 0;
};

class address {
public:
    bool is_v6() const { return is_v6_; }
    address_v4 to_v4() const { return v4_; }
    address_v6 to_v6() const { return v6_; }

    bool is_v6_ = false;
    address_v4 v4_;
    address_v6 v6_;
};

inline address_v6 make_address_v6(const address_v6::bytes_type &bytes, unsigned long scope = 0) {
    address_v6 made;
    made.bytes_ = bytes;
    made.scope_ = scope;
    return made;
}

// An interface is known by its number alone.
inline address make_address(const std::string &text, std::error_code &failure) {
    address made;
    const size_t end = std::min(text.find('%'), text.size());
    failure.clear();
    if (::inet_pton(AF_INET, text.c_str(), made.v4_.bytes_.data()) == 1) return made;
    made.is_v6_ = true;
    const char *const scope_end = text.data() + text.size();
    const char *const scope = text.data() + std::min(end + 1, text.size());
    const auto read = std::from_chars(scope, scope_end, made.v6_.scope_);
    const bool is_scope = end == text.size() || (read.ec == std::errc() && read.ptr == scope_end);
    const bool is_address = ::inet_pton(AF_INET6, text.substr(0, end).c_str(), made.v6_.bytes_.data()) == 1;
    if (!is_scope || !is_address) failure = std::make_error_code(std::errc::invalid_argument);
    return made;
}

} // namespace asio::ip
