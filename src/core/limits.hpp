// What values of records cannot exceed.
#pragma once

namespace ast {

inline constexpr double kDayS = 24 * 60 * 60;
inline constexpr double kMaxLatitudeDeg = 90;
inline constexpr double kMaxLongitudeDeg = 180;
inline constexpr double kLowestLevelFl = -15;
inline constexpr double kHighestLevelFl = 1500;
inline constexpr double kHighestSpeedKt = 4000;

} // namespace ast
