// I048/250 Mode S MB Data: what an aircraft keeps in its transponder registers.
#pragma once

#include "common/splice.hpp"
#include "common/traffic.hpp"

namespace simulation {

// The item with registers 4,0 (selected vertical intention), 5,0 (track and turn) and 6,0 (heading and speed).
Octets encode_registers(const Aircraft &aircraft);

} // namespace simulation
