// Network interfaces by what users call them.
#pragma once

#include <string>

namespace astdump {

// The index of an interface that is given by its name or by one of its addresses. Throws std::system_error when there
// is none.
unsigned interface_index(const std::string &name_or_address);

} // namespace astdump
