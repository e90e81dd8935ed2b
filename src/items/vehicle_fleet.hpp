// Which fleet a vehicle on an airport belongs to.
#pragma once

#include "core/text.hpp"

namespace ast {

inline const char *vehicle_fleet(uint32_t fleet) {
    static constexpr const char *kFleets[] = {
        "UNKNOWN",
        "ATC_MAINTENANCE",
        "AIRPORT_MAINTENANCE",
        "FIRE",
        "BIRD_SCARER",
        "SNOW_PLOUGH",
        "RUNWAY_SWEEPER",
        "EMERGENCY",
        "POLICE",
        "BUS",
        "TUG",
        "GRASS_CUTTER",
        "FUEL",
        "BAGGAGE",
        "CATERING",
        "AIRCRAFT_MAINTENANCE",
        "FOLLOW_ME",
    };
    return text_of(kFleets, fleet, "UNDEFINED");
}

} // namespace ast
