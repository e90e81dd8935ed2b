#include "system/calendar.hpp"

namespace ast::recording::system {

std::tm calendar_of(int64_t seconds) {
    const std::time_t time = seconds;
    std::tm utc{};
    gmtime_r(&time, &utc);
    return utc;
}

} // namespace ast::recording::system
