#include "system/failure.hpp"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <winsock2.h>

namespace ast::recording::system {

namespace {

struct Meaning {
    int code; // of sockets
    int error;
};

constexpr Meaning kMeanings[] = {
    {WSAEACCES, EACCES},
    {WSAEADDRINUSE, EADDRINUSE},
    {WSAEADDRNOTAVAIL, EADDRNOTAVAIL},
    {WSAECONNREFUSED, ECONNREFUSED},
    {WSAECONNRESET, ECONNRESET},
    {WSAECONNABORTED, ECONNRESET},
    {WSAETIMEDOUT, ETIMEDOUT},
    {WSAEHOSTUNREACH, EHOSTUNREACH},
    {WSAENETUNREACH, ENETUNREACH},
    {WSAENOBUFS, ENOMEM},
};

} // namespace

// The C library's own are of the generic category; of the system's, those of files mean what the standard library
// knows.
int errno_of(const std::error_code &error) {
    const auto *const found = std::ranges::find(kMeanings, error.value(), &Meaning::code);
    return found != std::end(kMeanings) ? found->error : error.default_error_condition().value();
}

} // namespace ast::recording::system
