// Outlets by the addresses that users write.
#pragma once

#include <memory>
#include <string>

#include "base/interruption.hpp"
#include "write/outlet.hpp"

namespace ast::recording {

// "udp://HOST:PORT", or "tcp://HOST:PORT", which waits up to an interruption. Throws NoDestination for any other text,
// and for broadcast and unspecified addresses, and std::system_error.
std::unique_ptr<Outlet> open_outlet(const std::string &url, const OutletForm &form, Interruption &interruption);

// Whether what is sent to an address is received from an input, which may be several addresses, or a file.
bool is_heard_by(const std::string &url, const std::string &input);

} // namespace ast::recording
