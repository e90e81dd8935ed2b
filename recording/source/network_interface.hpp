// Network interfaces by what users call them.
#pragma once

#include <string>

namespace ast::recording {

// The index of an interface that is given by its name or by one of its addresses. Throws std::system_error when there
// is none.
unsigned interface_index(const std::string &name_or_address);

// The index of an interface for link-local addresses of IPv6 where none is given: the first that is up and has one, or
// else the loopback interface.
unsigned link_local_interface();

} // namespace ast::recording
