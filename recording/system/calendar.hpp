// Dates.
#pragma once

#include <cstdint>
#include <ctime>

namespace ast::recording::system {

// Seconds since 1970 in UTC; all 0 for what is too far from that.
std::tm calendar_of(int64_t seconds);

} // namespace ast::recording::system
