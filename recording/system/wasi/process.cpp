// One thread, and no terminal.
#include "system/process.hpp"

#include <system_error>

namespace ast::recording::system {

std::thread start_thread(std::function<void()>) {
    throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
}

size_t processors() { return 1; }

} // namespace ast::recording::system
