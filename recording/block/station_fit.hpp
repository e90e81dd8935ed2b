// From where a station has seen aircraft whose places are known, by least squares.
#pragma once

#include <ast.h>
#include <optional>
#include <span>

namespace ast::recording {

// What a station measured of an aircraft, and where that was.
struct Meeting {
    uint32_t address;
    ast_place_t target;
    double target_error_m; // standard error of what the target was placed by
    double range_nm;
    double azimuth_deg;
};

struct StationFit {
    ast_place_t place;       // at height 0, which hardly matters
    double azimuth_bias_deg; // to be added to the azimuths of that place
    double standard_error_m; // of the place, in any direction
};

// Meetings that lie far off those of most are left out. None where there are too few, of too few aircraft, or to one
// side, and where they do not agree well enough on a place.
std::optional<StationFit> fit_station(std::span<const Meeting> meetings);

} // namespace ast::recording
