// What errors of the system mean.
#pragma once

#include <system_error>

namespace ast::recording::system {

// As errno numbers it, also where the system has another number for it; that one where there is none.
int errno_of(const std::error_code &error);

} // namespace ast::recording::system
