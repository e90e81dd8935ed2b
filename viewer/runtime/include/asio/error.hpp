// In place of Asio's, which needs sockets: there are no look-ups of names that could fail.
#pragma once

#include <system_error>

namespace asio::error {

class NoCategory final : public std::error_category {
    const char *name() const noexcept override { return ""; }
    std::string message(int) const override { return {}; }
};

inline const std::error_category &get_netdb_category() {
    static const NoCategory category;
    return category;
}
inline const std::error_category &get_addrinfo_category() { return get_netdb_category(); }

} // namespace asio::error
