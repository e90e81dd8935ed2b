// What the system gives as the reason of a failure.
#pragma once

#include <system_error>
#include <winsock2.h>

namespace ast::recording::system {

// Of the last call of the socket library, or of any other.
inline std::error_code socket_failure() { return {WSAGetLastError(), std::system_category()}; }
inline std::error_code last_failure() { return {static_cast<int>(GetLastError()), std::system_category()}; }

} // namespace ast::recording::system
