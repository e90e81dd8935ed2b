#include "system/failure.hpp"

namespace ast::recording::system {

int errno_of(const std::error_code &error) { return error.value(); }

} // namespace ast::recording::system
