// Outlets by the addresses that users write.
#pragma once

#include <memory>
#include <string>

#include "base/interruption.hpp"
#include "write/outlet.hpp"

namespace ast::recording {

// "udp://HOST:PORT", or "tcp://HOST:PORT", to connect to, up to an interruption, or to listen at. Throws NoDestination
// for any other text, and for broadcast and unspecified addresses, and std::system_error.
std::unique_ptr<Outlet> open_outlet(const std::string &url, const OutletForm &form, Interruption &interruption);

// Whether what is sent to an address, or to those who connect to it, is received from an input, which may be several
// addresses, or a file.
bool is_heard_by(const std::string &url, bool listens, const std::string &input);

} // namespace ast::recording
