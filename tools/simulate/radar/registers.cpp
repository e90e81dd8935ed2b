#include "registers.hpp"

#include <cmath>

namespace simulation {

namespace {

constexpr double kAngleLsbDeg = 90.0 / 512;
constexpr double kRollLsbDeg = 45.0 / 256;
constexpr double kTurnLsbDegPerS = 8.0 / 256;
constexpr double kSpeedLsbKt = 2;
constexpr double kMachLsb = 2.048 / 512;
constexpr double kRateLsbFtMin = 32;
constexpr double kSelectedAltitudeLsbFt = 16;
constexpr double kPressureLsbMb = 0.1;
constexpr double kPressureBaseMb = 800;
constexpr double kStandardPressureMb = 1013.2;

// One register. Its bits are numbered from 1, the most significant of the first octet, to 56; the octet behind them
// says which register it is.
class Register {
public:
    explicit Register(uint8_t number) { octets_.back() = number; }

    void set(unsigned bit) { octets_[(bit - 1) / 8] |= static_cast<uint8_t>(0x80U >> (bit - 1) % 8); }

    // A status bit, and the number of steps in the bits behind it up to the last. A negative number is in two's
    // complement, as transponders send it, though the library's register views read its sign and magnitude.
    void put(unsigned status, unsigned last, double value, double lsb) {
        const auto steps = static_cast<uint64_t>(std::lround(value / lsb));
        set(status);
        for (unsigned bit = last; bit > status; --bit)
            if (steps >> (last - bit) & 1) set(bit);
    }

    const Octets &octets() const { return octets_; }

private:
    Octets octets_ = Octets(8);
};

// An angle as registers carry it, (-180, 180]: they have no room for 359 degrees.
double signed_angle_deg(double degrees) { return degrees > 180 ? degrees - 360 : degrees; }

Register vertical_intention(const Aircraft &aircraft) {
    constexpr unsigned kModeStatus = 48;
    constexpr unsigned kAltitudeHold = 50;
    constexpr unsigned kSourceStatus = 54;
    constexpr unsigned kSourceMcp = 55; // bits 55-56 are 10: the altitude selected on the control panel
    Register intention(0x40);
    intention.put(1, 13, aircraft.selected_altitude_ft, kSelectedAltitudeLsbFt);
    intention.put(14, 26, aircraft.selected_altitude_ft, kSelectedAltitudeLsbFt);
    intention.put(27, 39, kStandardPressureMb - kPressureBaseMb, kPressureLsbMb);
    intention.set(kModeStatus);
    if (aircraft.vertical_rate_ft_min == 0) intention.set(kAltitudeHold);
    intention.set(kSourceStatus);
    intention.set(kSourceMcp);
    return intention;
}

Register track_and_turn(const Aircraft &aircraft) {
    const Ground velocity_kt = ground_velocity_kt(aircraft);
    Register turn(0x50);
    turn.put(1, 11, aircraft.bank_deg, kRollLsbDeg);
    turn.put(12, 23, signed_angle_deg(bearing_deg(velocity_kt)), kAngleLsbDeg);
    turn.put(24, 34, length(velocity_kt), kSpeedLsbKt);
    turn.put(35, 45, turn_rate_deg_s(aircraft), kTurnLsbDegPerS);
    turn.put(46, 56, aircraft.airspeed_kt, kSpeedLsbKt);
    return turn;
}

Register heading_and_speed(const Aircraft &aircraft) {
    Register speed(0x60);
    speed.put(1, 12, signed_angle_deg(magnetic_heading_deg(aircraft)), kAngleLsbDeg);
    speed.put(13, 23, indicated_airspeed_kt(aircraft), 1);
    speed.put(24, 34, mach(aircraft), kMachLsb);
    speed.put(35, 45, aircraft.vertical_rate_ft_min, kRateLsbFtMin);
    speed.put(46, 56, aircraft.vertical_rate_ft_min, kRateLsbFtMin);
    return speed;
}

} // namespace

Octets encode_registers(const Aircraft &aircraft) {
    const Register registers[] = {vertical_intention(aircraft), track_and_turn(aircraft), heading_and_speed(aircraft)};
    Octets item = {static_cast<uint8_t>(std::size(registers))};
    for (const Register &each : registers) item.insert(item.end(), each.octets().begin(), each.octets().end());
    return item;
}

} // namespace simulation
