// The tables of answers, a row for each item that has some, category beside category. Bits count from 1 at the first
// of the item or subfield. A field is the first choice of its category, with as_choice(1) the second, and so on.

#include "reader/answer_tables.hpp"

#include <array>
#include <bit>

#include "schema/edition.hpp"

namespace ast::reader {

namespace {

using enum Answer;

// An item that answers something.
struct Row {
    uint16_t item;
    Read read;
};

// clang-format off

// Units: NM, kt, ft and ft/min in those of the fields.
constexpr Step metres(Step step) { return {step.numerator, step.denominator * 1852}; }
constexpr Step nm_per_s(uint64_t denominator) { return {3600, denominator}; }
constexpr Step metres_high(Step step) { return {step.numerator * 1250, step.denominator * 381}; }
constexpr Step metres_per_s_up(Step step) { return {step.numerator * 75000, step.denominator * 381}; }
constexpr uint64_t kKnotsNumerator = 900; // of a metre per second
constexpr uint64_t kKnotsDenominator = 463;

constexpr Step kTurn16 = {360, 1U << 16};

// ---- What many categories have alike ----

constexpr Read kSource = read<2, kSac, kSic>;
constexpr Read kTime = read<3, number(Time, 1, 24, {1, 1U << 7})>;
constexpr Read kTrackNumber12 = read<2, code(TrackNumber, 5, 12)>;
constexpr Read kTrackNumber15 = read<2, code(TrackNumber, 2, 15)>;
constexpr Read kTrackNumber16 = read<2, code(TrackNumber, 1, 16)>;
constexpr Read kAddress = read<3, code(Icao24, 1, 24)>;

// V, G and L in front of the code; V is set when it is not validated.
constexpr Field kValidated = mark(SquawkValidated, 1, false);
constexpr Field kGarbled = mark(SquawkGarbled, 2);
constexpr Field kSmoothed = mark(SquawkSmoothed, 3);
constexpr Field kCode = code(Squawk, 5, 12);
constexpr Read kMode3A = read<2, kCode, kValidated, kGarbled, kSmoothed>;
constexpr Read kCodeAlone = read<2, kCode>;

constexpr Field kLevel16 = signed_number(Fl, 1, 16, {1, 4});
constexpr Field kLevel14 = signed_number(Fl, 3, 14, {1, 4}).when_clear(1, 2); // behind V and G
constexpr Read kModeC = read<2, kLevel14>;
// Behind QNH: what is corrected is no level.
constexpr Read kBarometric = read<2, signed_number(Fl, 2, 15, {1, 4}).when_clear(1).as_choice(1)>;

constexpr Field kHeight25 = signed_number(Altitude, 3, 14, {25, 1});
constexpr Read kRadarHeight = read<2, kHeight25>;
constexpr Read kGeometric = read<2, signed_number(Altitude, 1, 16, {25, 4})>;

constexpr Read kPolar256 = read<4, number(Range, 1, 16, {1, 256}), number(Azimuth, 17, 16, kTurn16)>;
constexpr Read kPlane128 = read<4, signed_number(X, 1, 16, {1, 128}), signed_number(Y, 17, 16, {1, 128})>;
constexpr Read kPlaneMetres = read<4, signed_number(X, 1, 16, metres({1, 1})), signed_number(Y, 17, 16, metres({1, 1}))>;
constexpr Read kPlaneHalfMetres =
    read<6, signed_number(X, 1, 24, metres({1, 2})), signed_number(Y, 25, 24, metres({1, 2}))>;
template <uint64_t denominator>
constexpr Read kGlobe32 =
    read<8, signed_number(Latitude, 1, 32, {180, denominator}), signed_number(Longitude, 33, 32, {180, denominator})>;
template <unsigned choice>
constexpr Read kGlobe24 =
    read<6, signed_number(Latitude, 1, 24, {180, 1U << 23}).as_choice(choice),
            signed_number(Longitude, 25, 24, {180, 1U << 23}).as_choice(choice)>;

constexpr Read kPolarVelocity = read<4, number(Groundspeed, 1, 16, nm_per_s(1U << 14)), number(Track, 17, 16, kTurn16)>;
template <unsigned choice>
constexpr Read kQuarterVelocity = read_velocity<1, 16, kKnotsNumerator, 4 * kKnotsDenominator, choice>;
constexpr Read kVerticalRate = read<2, signed_number(VerticalRate, 1, 16, {25, 4})>;

constexpr Read kSixBit = read_six_bit_callsign<0, 0>;
constexpr Read kSixBitBehindSource = read_six_bit_callsign<1, 0>; // STI, and seven bits in all before it

// Flight status of a Mode S transponder: 4 and 5 with SPI, 1 and 3 on ground, from 4 on either, 6 and 7 not known.
constexpr Field kStatusSpi = flag(Spi, 4, 3, 1U << 4 | 1U << 5).not_known_by(1U << 6 | 1U << 7);
constexpr Field kStatusGround =
    flag(OnGround, 4, 3, 1U << 1 | 1U << 3).not_known_by(1U << 4 | 1U << 5 | 1U << 6 | 1U << 7);
constexpr Read kFlightStatus = read<2, kStatusSpi, kStatusGround>;
constexpr uint32_t kPriorities = 1U << 1 | 1U << 2 | 1U << 3 | 1U << 4 | 1U << 5 | 1U << 6;

// Target report descriptor of a Mode S radar; a report without detection is what the tracker expects.
constexpr Read kRadarDescriptor =
    read<1, flag(Coasted, 1, 3, 1U << 0), flag(Simulated, 4), flag(Spi, 6), flag(Test, 9), flag(Emergency, 12)>;
constexpr Read kRadarTrackStatus = read_all<read<1, flag(Ended, 9)>, read_frame<12>>;

// Behind SUM, PMN and POS of Mode 5.
template <unsigned choice>
constexpr Read kMode5Height = read<2, kHeight25.as_choice(choice)>;

// ---- 001: monoradar plots and tracks ----

constexpr Kind kTypes001[] = {{0, AST_MESSAGE_PLOT}, {1, AST_MESSAGE_TRACK}};

constexpr Row k001[] = {
    {10, kSource},
    {20, read_all<read_type<kTypes001, 1, 1>,
                  read<1, flag(Simulated, 2), flag(Coasted, 3, 2, 1U << 0), flag(Spi, 6), flag(Test, 9),
                          flag(Emergency, 10, 2, 1U << 1 | 1U << 2 | 1U << 3), flag(Emergency, 12)>>},
    {40, read<4, number(Range, 1, 16, {1, 128}), number(Azimuth, 17, 16, kTurn16)>},
    {42, read<4, signed_number(X, 1, 16, {1, 64}), signed_number(Y, 17, 16, {1, 64})>},
    {70, kMode3A},
    {90, kModeC},
    {141, read_truncated_time},
    {161, kTrackNumber16},
    {170, read<1, flag(Ended, 9)>},
    {200, kPolarVelocity},
};

// ---- 002: monoradar service messages ----

constexpr Kind kTypes002[] = {
    {1, AST_MESSAGE_NORTH_MARKER}, {2, AST_MESSAGE_SECTOR_CROSSING}, {3, AST_MESSAGE_SOUTH_MARKER},
    {8, AST_MESSAGE_FILTERING}, {9, AST_MESSAGE_FILTERING},
};

constexpr Row k002[] = {
    {0, read_type<kTypes002, 1, 8>},
    {10, kSource},
    {30, kTime},
};

// ---- 004: safety net messages, of the first of the two aircraft ----

constexpr Subfield kAircraft004[] = {
    {7, read_ascii_callsign<7, 1>}, {2, kCodeAlone}, {10}, {8}, {3}, {2}, chained(), {6, kSixBit},
};

constexpr Kind kTypes004[] = {{1, AST_MESSAGE_STATUS}};

// Every other message is an alert.
constexpr Row k004[] = {
    {0, read_type<kTypes004, 1, 8, AST_MESSAGE_ALERT>},
    {10, kSource},
    {20, kTime},
    {30, kTrackNumber16},
    {170, read_compound<kAircraft004>},
};

// ---- 007: directed interrogation ----

constexpr Subfield kMode5In007[] = {{1}, {4}, {6, kGlobe24<0>}, {2, kMode5Height<1>}};

constexpr Kind kTypes007[] = {
    {0, AST_MESSAGE_INTERROGATION}, {1, AST_MESSAGE_INTERROGATION}, {2, AST_MESSAGE_INTERROGATION},
    {3, AST_MESSAGE_INTERROGATION}, {4, kPlotOrTrack}, {5, AST_MESSAGE_INTERROGATION}, {6, AST_MESSAGE_INTERROGATION},
    {7, AST_MESSAGE_INTERROGATION}, {8, AST_MESSAGE_INTERROGATION},
};

constexpr Row k007[] = {
    {10, kSource},
    {20, kRadarDescriptor},
    {40, kPolar256},
    {42, kPlane128},
    {70, kMode3A},
    {85, read_compound<kMode5In007>},
    {90, kModeC},
    {110, kRadarHeight},
    {140, kTime},
    {161, kTrackNumber12},
    {170, kRadarTrackStatus},
    {200, kPolarVelocity},
    {220, kAddress},
    {230, kFlightStatus},
    {240, kSixBit},
    {250, read_registers<1>},
    {410, read_type<kTypes007, 1, 8>},
};

// ---- 008, 009: weather ----

constexpr Row k008[] = {
    {10, kSource},
    {20, read<1, flag(Test, 14)>},
    {90, kTime},
};

constexpr Row k009[] = {
    {10, kSource},
    {70, kTime},
};

// ---- 010: monosensor surface movement ----

constexpr Kind kTypes010[] = {
    {1, kPlotOrTrack}, {2, AST_MESSAGE_UPDATE_CYCLE}, {3, AST_MESSAGE_STATUS}, {4, AST_MESSAGE_STATUS},
};

constexpr Row k010[] = {
    {0, read_type<kTypes010, 1, 8>},
    {10, kSource},
    {20, read<1, flag(OnGround, 6), flag(Simulated, 9), flag(Test, 10), flag(Spi, 17)>},
    {40, read<4, number(Range, 1, 16, metres({1, 1})), number(Azimuth, 17, 16, kTurn16)>},
    {41, kGlobe32<1U << 31>},
    {42, kPlaneMetres},
    {60, kMode3A},
    {90, kModeC},
    {140, kTime},
    {161, kTrackNumber12},
    {170, read<1, flag(Ended, 2), flag(Coasted, 3, 2, 1U << 1 | 1U << 2 | 1U << 3)>},
    {200, kPolarVelocity},
    {202, kQuarterVelocity<1>},
    {220, kAddress},
    {245, kSixBitBehindSource},
    {250, read_registers<2>},
};

// ---- 011: surface movement, system tracks ----

constexpr Kind kTypes011[] = {
    {1, AST_MESSAGE_TRACK}, {2, AST_MESSAGE_FLIGHT_PLAN}, {3, AST_MESSAGE_FLIGHT_PLAN}, {4, AST_MESSAGE_FLIGHT_PLAN},
    {5, AST_MESSAGE_FLIGHT_PLAN}, {6, AST_MESSAGE_FLIGHT_PLAN}, {7, AST_MESSAGE_STATUS},
};

// STAT has four bits here, and tells emergencies from 6 to 10; SPI and ground as far as it has three elsewhere.
constexpr uint32_t kStatusAbove5 = UINT32_MAX << 6;
constexpr Subfield kAircraft011[] = {
    elements(8, read_registers<1>),
    {3, kAddress},
    {1}, // not defined
    {3, read<3, flag(Spi, 4, 4, 1U << 4 | 1U << 5).not_known_by(kStatusAbove5),
                flag(OnGround, 4, 4, 1U << 1 | 1U << 3).not_known_by(1U << 4 | 1U << 5 | kStatusAbove5),
                flag(Emergency, 4, 4, 1U << 6 | 1U << 7 | 1U << 8 | 1U << 9 | 1U << 10).not_known_by(UINT32_MAX << 11)>},
};
constexpr Subfield kPlan011[] = {{2}, {7, read_ascii_callsign<7, 2>}};

constexpr Row k011[] = {
    {0, read_type<kTypes011, 1, 8>},
    {10, kSource},
    {41, kGlobe32<1U << 31>},
    {42, kPlaneMetres},
    {60, kCodeAlone},
    {90, read<2, kLevel16>},
    {92, kGeometric},
    {93, kBarometric},
    {140, kTime},
    {161, kTrackNumber15},
    {170, read<1, flag_if_set(OnGround, 2), flag(Simulated, 9), flag(Ended, 10), flag(Emergency, 14), flag(Spi, 18),
                  flag(Coasted, 19)>},
    {202, kQuarterVelocity<0>},
    {215, kVerticalRate},
    {245, kSixBitBehindSource},
    {380, read_compound<kAircraft011>},
    {390, read_compound<kPlan011>},
};

// ---- 015: independent non-cooperative surveillance ----

constexpr Kind kTypes015[] = {
    {1, AST_MESSAGE_PLOT}, {2, AST_MESSAGE_TRACK}, {3, AST_MESSAGE_PLOT}, {4, AST_MESSAGE_TRACK},
    {5, AST_MESSAGE_TRACK},
};

constexpr Subfield kPosition015[] = {{8, kGlobe32<1U << 31>}};
constexpr Subfield kHeight015[] = {{3, read<3, signed_number(Altitude, 1, 24, metres_high({1, 100}))>}};
constexpr Subfield kVelocity015[] = {{5, read_velocity<1, 20, kKnotsNumerator, 100 * kKnotsDenominator, 0>}};
constexpr Subfield kVertical015[] = {{3, read<3, signed_number(VerticalRate, 1, 24, metres_per_s_up({1, 100}))>}};
constexpr Subfield kRange015[] = {{3, read<3, signed_number(Range, 1, 24, metres({1, 10}))>}};
constexpr Subfield kAzimuth015[] = {{2, read<2, number(Azimuth, 1, 16, kTurn16)>}};

constexpr Row k015[] = {
    {0, read_all<read_type<kTypes015, 1, 7>, read<1, flag(Ended, 1, 7, 1U << 5)>>},
    {10, kSource},
    {20, read<1, flag(Simulated, 3, 2, 1U << 2 | 1U << 3)>},
    {145, kTime},
    {161, kTrackNumber16},
    {170, read<1, flag(Ended, 3), flag(Coasted, 5)>},
    {600, read_compound<kPosition015>},
    {601, read_compound<kHeight015>},
    {602, read_compound<kVelocity015>},
    {604, read_compound<kVertical015>},
    {625, read_compound<kRange015>},
    {627, read_compound<kAzimuth015>},
};

// ---- 016: its configuration ----

constexpr Row k016[] = {
    {10, kSource},
    {140, kTime},
};

// ---- 017: coordination of Mode S radars ----

constexpr Kind kTypes017[] = {{10, AST_MESSAGE_TRACK}};

// Every other message is coordination.
constexpr Row k017[] = {
    {0, read_type<kTypes017, 1, 8, AST_MESSAGE_COORDINATION>},
    {10, kSource},
    {45, kGlobe24<0>},
    {50, read<2, number(Fl, 3, 14, {1, 4}).when_clear(1, 2)>}, // not signed
    {70, kMode3A},
    {140, kTime},
    {200, kPolarVelocity},
    {220, kAddress},
    {240, read<1, flag(Coasted, 1)>},
};

// ---- 018: Mode S data link ----

constexpr Row k018[] = {
    {2, kTime},
    {5, kAddress},
    {12, read<1, flag(OnGround, 1)>},
    {14, kPolar256},
    {15, kPlane128},
    {31, kSixBit},
    {32, kMode3A},
    {33, kModeC},
    {34, read<2, number(Groundspeed, 1, 16, nm_per_s(1U << 14))>},
    {35, read<2, number(Track, 1, 16, kTurn16)>}, // of the tracker, though called a heading
    {36, kSource},
};

// ---- 019: status of multilateration ----

constexpr Kind kTypes019[] = {{1, AST_MESSAGE_UPDATE_CYCLE}, {2, AST_MESSAGE_STATUS}, {3, AST_MESSAGE_STATUS}};

constexpr Row k019[] = {
    {0, read_type<kTypes019, 1, 8>},
    {10, kSource},
    {140, kTime},
};

// ---- 020: multilateration ----

constexpr Row k020[] = {
    {10, kSource},
    {20, read<1, flag(Spi, 10), flag(OnGround, 12), flag(Simulated, 14), flag(Test, 15)>},
    {41, kGlobe32<1U << 25>},
    {42, kPlaneHalfMetres},
    {70, kMode3A},
    {90, kModeC},
    {105, kGeometric},
    {140, kTime},
    {161, kTrackNumber12},
    {170, read<1, flag(Ended, 2), flag(Coasted, 3)>},
    {202, kQuarterVelocity<0>},
    {220, kAddress},
    {230, kFlightStatus},
    {245, kSixBitBehindSource},
    {250, read_registers<1>},
};

// ---- 021: ADS-B ----

// A geometric height with this value is greater than the field can say.
constexpr uint32_t kGreater = 0x7FFF;
constexpr Read kHeight021 = read<2, signed_number(Altitude, 1, 16, {25, 4}).unless(kGreater)>;
constexpr Read kSelected021 = read<2, signed_number(SelectedAltitude, 4, 13, {25, 1})>;
constexpr Read kFinalSelected021 = read<2, signed_number(SelectedAltitude, 4, 13, {25, 1}).as_choice(1)>;
constexpr Read kAirspeed021 =
    read<2, number(IndicatedAirspeed, 2, 15, nm_per_s(1U << 14)).when_clear(1), number(Mach, 2, 15, {1, 1000}).when_set(1)>;
constexpr Read kMagneticHeading021 = read<2, number(MagneticHeading, 1, 16, kTurn16)>;
constexpr Read kRoll021 = read<2, signed_number(Roll, 1, 16, {1, 100})>;

// ME, PS and SS; of SS, 1 is an alert by an emergency code.
constexpr Read kStatus021 =
    read<1, flag(Emergency, 3), flag(Emergency, 4, 3, kPriorities).not_known_by(1U << 7),
            flag(Emergency, 7, 2, 1U << 1), flag(Spi, 7, 2, 1U << 3)>;

// Editions 0.23 and 0.26, and what mixes them with later ones.
constexpr Row k021Before1[] = {
    {10, kSource},
    {30, kTime},
    {70, kMode3A},
    {80, kAddress},
    {130, kGlobe24<0>},
    {140, kHeight021},
    {145, read<2, kLevel16>},
    {146, kSelected021},
    {148, kFinalSelected021},
    {150, kAirspeed021},
    {151, read<2, number(TrueAirspeed, 1, 16, {1, 1})>},
    {152, kMagneticHeading021},
    {155, kVerticalRate},
    {157, read<2, signed_number(VerticalRate, 1, 16, {25, 4}).as_choice(1)>},
    {160, read<4, signed_number(Groundspeed, 1, 16, nm_per_s(1U << 14)), number(Track, 17, 16, kTurn16)>},
    {170, kSixBit},
    {200, kStatus021},
    {230, kRoll021},
    {902, kGlobe32<1U << 25>},
    {903, read<2, flag(OnGround, 2), flag(Simulated, 3), flag(Test, 4), flag(Spi, 7)>},
    {908, read<1, flag(Emergency, 1, 8, kPriorities & ~(1U << 6)).not_known_by(UINT32_MAX << 6)>},
};

// Surface ground vector: HTS valid, HTT ground track, HRD magnetic.
constexpr Field kSurfaceAngle = number(Track, 17, 7, {45, 16});
constexpr Field surface_angle(Answer answer) {
    Field field = kSurfaceAngle.as_choice(1);
    field.answer = answer;
    return field;
}
constexpr Subfield kMilitary021[] = {{1}, {4}, {2}, {1}, {1}, {2}};
constexpr Subfield kExpansion021[] = {
    {2}, {2}, {1}, {1},
    chained(read<2, number(Groundspeed, 5, 11, {1, 8}).as_choice(1), surface_angle(Track).when_set(2, 3).when_clear(4),
                 surface_angle(TrueHeading).when_set(2).when_clear(3, 4),
                 surface_angle(MagneticHeading).when_set(2, 4).when_clear(3)>, 2),
    chained(read<1, flag(Emergency, 10, 3, kPriorities | 1U << 7).when_set(9)>),
    {2, read<2, number(TrueHeading, 1, 16, kTurn16)>},
    compound<kMilitary021>,
};

template <unsigned choice>
constexpr Read kTime021 = read<3, number(Time, 1, 24, {1, 1U << 7}).as_choice(choice)>;

constexpr Row k021[] = {
    {10, kSource},
    {40, read<1, flag(OnGround, 10), flag(Simulated, 11), flag(Test, 12)>},
    {70, kCodeAlone},
    {71, kTime021<0>},
    {72, kTime021<3>},
    {73, kTime021<1>},
    {74, refine_time<1>},
    {75, kTime021<4>},
    {76, refine_time<4>},
    {77, kTime021<2>},
    {80, kAddress},
    {130, kGlobe24<1>},
    {131, kGlobe32<1U << 30>},
    {140, kHeight021},
    {145, read<2, kLevel16>},
    {146, kSelected021},
    {148, kFinalSelected021},
    {150, kAirspeed021},
    {151, read<2, number(TrueAirspeed, 2, 15, {1, 1}).when_clear(1)>},
    {152, kMagneticHeading021},
    {155, read<2, signed_number(VerticalRate, 2, 15, {25, 4}).when_clear(1)>},
    {157, read<2, signed_number(VerticalRate, 2, 15, {25, 4}).when_clear(1).as_choice(1)>},
    {160, read<4, number(Groundspeed, 2, 15, nm_per_s(1U << 14)).when_clear(1), number(Track, 17, 16, kTurn16)>},
    {161, kTrackNumber12},
    {170, kSixBit},
    {200, kStatus021},
    {230, kRoll021},
    {250, read_registers<2>},
    {271, read<1, flag_if_set(Spi, 7)>},
    {907, read<1, flag_if_set(Spi, 7)>},
    {AST_ITEM_REF, read_expansion<kExpansion021>},
};

// ---- 023: ADS-B ground stations; 025: CNS/ATM ground systems ----

constexpr Kind kTypes023[] = {{1, AST_MESSAGE_STATUS}, {2, AST_MESSAGE_STATUS}, {3, AST_MESSAGE_STATISTICS}};
constexpr Kind kTypes025[] = {
    {1, AST_MESSAGE_STATUS}, {2, AST_MESSAGE_STATUS}, {3, AST_MESSAGE_STATISTICS},
};

constexpr Row k023[] = {
    {0, read_type<kTypes023, 1, 8>},
    {10, kSource},
    {70, kTime},
};

constexpr Row k025[] = {
    {0, read_type<kTypes025, 1, 7>},
    {10, kSource},
    {70, kTime},
};

// ---- 032: miniplans ----

constexpr Row k032[] = {
    {10, kSource},
    {20, kTime},
    {40, kTrackNumber16},
    {60, kCodeAlone},
    {400, read_ascii_callsign<7, 0>},
};

// ---- 034: monoradar service messages ----

constexpr Kind kTypes034[] = {
    {1, AST_MESSAGE_NORTH_MARKER}, {2, AST_MESSAGE_SECTOR_CROSSING}, {3, AST_MESSAGE_FILTERING},
    {4, AST_MESSAGE_INTERFERENCE}, {5, AST_MESSAGE_INTERFERENCE}, {6, AST_MESSAGE_INTERFERENCE},
    {7, AST_MESSAGE_INTERFERENCE},
};

constexpr Row k034[] = {
    {0, read_type<kTypes034, 1, 8>},
    {10, kSource},
    {30, kTime},
};

// ---- 048: monoradar plots and tracks ----

constexpr Subfield kMode5In048[] = {{1}, {4}, {6, kGlobe24<1>}, {2, kMode5Height<2>}, {2}, {1}, {1}};
constexpr Subfield kNewMode5In048[] = {{1}, {4}, {6, kGlobe24<0>}, {2, kMode5Height<1>}, {2}, {1}, {1}, {1}};
constexpr Subfield kPlotCharacteristics048[] = {{1}, {2}, {2}, {2}};
constexpr Subfield kTrackCharacteristics048[] = {
    {3}, elements(2), {1}, {22}, elements(1), {2}, {6}, {4}, elements(7), {1}, {1},
};
constexpr Subfield kCommon048[] = {{2}, elements(3), {1}, {4}};
constexpr Subfield kGeneric048[] = {{2}, {2}, {2}, {2}, {4}};
constexpr Subfield kExpansion048[] = {
    compound<kMode5In048>, compound<kNewMode5In048>, chained(), compound<kPlotCharacteristics048>,
    {3, read<3, number(Range, 1, 24, {1, 256})>}, // sent beside I048/040, which ends at 256 NM
    compound<kTrackCharacteristics048>, compound<kCommon048>, compound<kGeneric048>,
};

constexpr Row k048[] = {
    {10, kSource},
    {20, kRadarDescriptor},
    {40, read<4, number(Range, 1, 16, {1, 256}).as_choice(1), number(Azimuth, 17, 16, kTurn16)>},
    {42, kPlane128},
    {70, kMode3A},
    {90, kModeC},
    {110, kRadarHeight},
    {140, kTime},
    {161, kTrackNumber12},
    {170, kRadarTrackStatus},
    {200, kPolarVelocity},
    {220, kAddress},
    {230, kFlightStatus},
    {240, kSixBit},
    {250, read_registers<1>},
    {AST_ITEM_REF, read_expansion<kExpansion048>},
};

// ---- 062: system tracks ----

constexpr Subfield kMode5In062[] = {{1}, {4}, {6, kGlobe24<2>}, {2, kMode5Height<2>}};

constexpr Subfield kMeasured062[] = {
    {2},
    {4, kPolar256},
    {2, read<2, signed_number(Altitude, 1, 16, {25, 1}).as_choice(3)>},
    {2, read<2, kLevel14.as_choice(2)>},
    {2, read<2, kCode.as_choice(1), kValidated.as_choice(1), kGarbled.as_choice(1)>},
    {1, read<1, flag(Simulated, 4), flag(Test, 6)>},
};

constexpr Subfield kAircraft062[] = {
    {3, kAddress},
    {6, read_six_bit_callsign<0, 1>},
    {2, kMagneticHeading021},
    {2, read<2, number(IndicatedAirspeed, 2, 15, nm_per_s(1U << 14)).when_clear(1).as_choice(1),
                number(Mach, 2, 15, {1, 1000}).when_set(1).as_choice(1)>},
    {2, read<2, number(TrueAirspeed, 1, 16, {1, 1})>},
    {2, kSelected021},
    {2, kFinalSelected021},
    chained(),
    elements(15),
    {2, kFlightStatus},
    {2, read<2, flag_if_set(OnGround, 7), flag(Emergency, 14, 3, kPriorities).not_known_by(1U << 7)>},
    {7},
    {2, read<2, signed_number(VerticalRate, 1, 16, {25, 4}).as_choice(1)>},
    {2, read<2, signed_number(VerticalRate, 1, 16, {25, 4}).as_choice(2)>},
    {2, kRoll021},
    {2},
    {2, read<2, number(Track, 1, 16, kTurn16).as_choice(1)>},
    {2, read<2, signed_number(Groundspeed, 1, 16, nm_per_s(1U << 14)).as_choice(1)>},
    {1},
    {8},
    {1},
    {6, kGlobe24<1>},
    {2, read<2, signed_number(Altitude, 1, 16, {25, 4}).as_choice(1)>},
    {1},
    elements(8, read_registers<3>),
    {2, read<2, number(IndicatedAirspeed, 1, 16, {1, 1})>},
    {2, read<2, number(Mach, 1, 16, {1, 125})>},
};

constexpr Subfield kPlan062[] = {{2}, {7, read_ascii_callsign<7, 4>}};

// Priority status of ADS-B since version 3, behind a bit that says whether there is one.
constexpr Subfield kVersion3In062[] = {{1, read<1, flag(Emergency, 2, 3, kPriorities | 1U << 7).when_set(1)>}};
constexpr Subfield kExpansion062[] = {elements(5), elements(3), {4}, chained(), compound<kVersion3In062>};

constexpr Row k062[] = {
    {10, kSource},
    {40, kTrackNumber16},
    {60, read<2, kCode, kValidated, kGarbled, mark(SquawkChanged, 3)>},
    {70, kTime},
    {80, read<1, flag(Spi, 2), flag(Simulated, 9), flag(Ended, 10), flag(Emergency, 20), flag(Coasted, 25),
                 flag(Emergency, 35, 3, kPriorities).not_known_by(1U << 7), flag_if_set(OnGround, 44)>},
    {100, kPlaneHalfMetres},
    {105, kGlobe32<1U << 25>},
    {110, read_compound<kMode5In062>},
    {130, kGeometric},
    {135, kBarometric},
    {136, read<2, kLevel16>},
    {185, kQuarterVelocity<0>},
    {220, kVerticalRate},
    {245, kSixBitBehindSource},
    {340, read_compound<kMeasured062>},
    {380, read_compound<kAircraft062>},
    {390, read_compound<kPlan062>},
    {AST_ITEM_REF, read_expansion<kExpansion062>},
};

// ---- 063, 065: status of sensors and systems ----

constexpr Row k063[] = {
    {10, kSource},
    {30, kTime},
};

constexpr Kind kTypes065[] = {{1, AST_MESSAGE_STATUS}, {2, AST_MESSAGE_UPDATE_CYCLE}, {3, AST_MESSAGE_STATUS}};

constexpr Row k065[] = {
    {0, read_type<kTypes065, 1, 8>},
    {10, kSource},
    {30, kTime},
};

// ---- 150: flight plans ----

constexpr Kind kTypes150[] = {{251, AST_MESSAGE_ALERT}};

constexpr Row k150[] = {
    {30, read_type<kTypes150, 1, 8, AST_MESSAGE_FLIGHT_PLAN>},
    {50, read_ascii_callsign<7, 0>},
    {60, read_ascii_squawk},
    {210, kTrackNumber16},
};

// ---- 205: radio direction finders ----

constexpr Row k205[] = {
    {0, read<1, flag(Ended, 1, 8, 1U << 4)>},
    {10, kSource},
    {30, kTime},
    {50, kGlobe32<1U << 25>},
    {60, kPlaneHalfMetres},
    {70, read<2, number(Azimuth, 1, 16, {1, 100})>},
    {80, read<2, number(Azimuth, 1, 16, {1, 100}).as_choice(1)>},
    {160, kTrackNumber16},
};

// ---- 240: video; 247: versions ----

constexpr Row k240[] = {
    {10, kSource},
    {140, kTime},
};

constexpr Row k247[] = {
    {10, kSource},
    {140, kTime},
};

// clang-format on

// ---- All of them ----

template <const auto &rows>
constexpr auto kPlaces = [] {
    std::array<uint8_t, rows[std::size(rows) - 1].item + 1U> places{};
    uint8_t place = 0;
    for (const Row &row : rows) {
        schema::must(place == 0 || row.item > rows[place - 1].item);
        places[row.item] = ++place;
    }
    return places;
}();

template <const auto &rows>
constexpr auto kReads = [] {
    std::array<Read, 1 + std::size(rows)> reads{[](Answering &, const uint8_t *, uint64_t) {}};
    for (size_t i = 0; i < std::size(rows); ++i) reads[1 + i] = rows[i].read;
    return reads;
}();

template <const auto &rows>
constexpr AnswerTable table(uint32_t type, uint32_t frame = 0) {
    return {type, frame, static_cast<uint32_t>(kPlaces<rows>.size()), kPlaces<rows>.data(), kReads<rows>.data()};
}

struct Listed {
    uint32_t category;
    AnswerTable answers;
};

constexpr Listed kTables[] = {
    {1, table<k001>(kPlotOrTrack, AST_FRAME_RADAR)},
    {2, table<k002>(0)},
    {4, table<k004>(AST_MESSAGE_ALERT)},
    {7, table<k007>(kPlotOrTrack, AST_FRAME_RADAR)},
    {8, table<k008>(AST_MESSAGE_WEATHER)},
    {9, table<k009>(AST_MESSAGE_WEATHER)},
    {10, table<k010>(kPlotOrTrack, AST_FRAME_TANGENTIAL)},
    {11, table<k011>(AST_MESSAGE_TRACK, AST_FRAME_SYSTEM)},
    {15, table<k015>(0)},
    {16, table<k016>(AST_MESSAGE_CONFIGURATION)},
    {17, table<k017>(AST_MESSAGE_COORDINATION)},
    {18, table<k018>(AST_MESSAGE_DATA_LINK, AST_FRAME_RADAR)},
    {19, table<k019>(AST_MESSAGE_STATUS)},
    {20, table<k020>(kPlotOrTrack, AST_FRAME_TANGENTIAL)},
    {21, table<k021>(AST_MESSAGE_REPORT)},
    {23, table<k023>(AST_MESSAGE_STATUS)},
    {25, table<k025>(AST_MESSAGE_STATUS)},
    {32, table<k032>(AST_MESSAGE_FLIGHT_PLAN)},
    {34, table<k034>(0)},
    {48, table<k048>(kPlotOrTrack, AST_FRAME_RADAR)},
    {62, table<k062>(AST_MESSAGE_TRACK, AST_FRAME_SYSTEM)},
    {63, table<k063>(AST_MESSAGE_STATUS)},
    {65, table<k065>(AST_MESSAGE_STATUS)},
    {150, table<k150>(AST_MESSAGE_FLIGHT_PLAN)},
    {205, table<k205>(AST_MESSAGE_DIRECTION, AST_FRAME_SYSTEM)},
    {240, table<k240>(AST_MESSAGE_VIDEO)},
    {247, table<k247>(AST_MESSAGE_CONFIGURATION)},
};

constexpr AnswerTable kTable021Before1 = table<k021Before1>(AST_MESSAGE_REPORT);

constexpr uint32_t kCategories = 256;

// The place of a category in the list, counted from 1.
constexpr auto kTablePlaces = [] {
    std::array<uint8_t, kCategories> places{};
    uint8_t place = 0;
    for (const Listed &listed : kTables) places[listed.category] = ++place;
    return places;
}();

constexpr uint32_t kAdsB = 21;
constexpr uint32_t kTimeBefore1 = 30; // which later editions do not have

} // namespace

const AnswerTable *find_answers(uint32_t category, const ast_uap_t &uap) {
    const uint8_t place = category < kCategories ? kTablePlaces[category] : uint8_t{0};
    if (place == 0) return nullptr;
    if (category == kAdsB && schema::find_edition(category, uap)->find(kTimeBefore1)) return &kTable021Before1;
    return &kTables[place - 1].answers;
}

// ---- Subfields ----

uint64_t size_of(const Subfield &subfield, const uint8_t *data, uint64_t left) {
    uint64_t octets = subfield.octets;
    switch (subfield.shape) {
    case Subfield::Shape::Fixed:
        break;
    case Subfield::Shape::Chained:
        while (octets <= left && has_fx(data[octets - 1])) ++octets;
        break;
    case Subfield::Shape::Elements:
        octets = left == 0 ? 1 : 1 + octets * data[0];
        break;
    case Subfield::Shape::Compound:
        return size_of(subfield.parts, subfield.count, Presence::Chained, data, left);
    }
    return octets <= left ? octets : kTooLong;
}

namespace {

// The octets of the presence bits; kTooLong when there are fewer.
uint64_t presence_octets(Presence presence, const uint8_t *data, uint64_t left) {
    uint64_t octets = 1;
    if (presence == Presence::Chained)
        while (octets <= left && has_fx(data[octets - 1])) ++octets;
    return octets <= left ? octets : kTooLong;
}

// Visits the places of the subfields that so many octets announce, as long as the visitor wants to go on.
template <typename Visit>
bool each_announced(Presence presence, const uint8_t *data, uint64_t octets, Visit visit) {
    const bool is_chained = presence == Presence::Chained;
    for (size_t first = 0; octets != 0; --octets, first += is_chained ? 7 : 8)
        for (uint32_t left = is_chained ? *data++ & ~uint32_t{kFx} : *data++; left != 0;) {
            const auto place = static_cast<unsigned>(std::countl_zero(left << 24)); // of the octet
            left &= ~(0x80U >> place);
            if (!visit(first + place)) return false;
        }
    return true;
}

} // namespace

uint64_t size_of(const Subfield *list, size_t count, Presence presence, const uint8_t *data, uint64_t left) {
    const uint64_t octets = presence_octets(presence, data, left);
    if (octets == kTooLong) return kTooLong;
    uint64_t size = octets;
    const bool is_whole = each_announced(presence, data, octets, [&](size_t place) {
        const uint64_t more = place < count ? size_of(list[place], data + size, left - size) : kTooLong;
        if (more == kTooLong) return false;
        size += more;
        return true;
    });
    return is_whole ? size : kTooLong;
}

void read_subfields(Answering &answering, const Subfield *list, size_t count, Presence presence, const uint8_t *data,
                    uint64_t size) {
    const uint64_t octets = presence_octets(presence, data, size);
    if (octets == kTooLong) return;
    uint64_t offset = octets;
    each_announced(presence, data, octets, [&](size_t place) {
        if (place >= count) return false;
        const Subfield &subfield = list[place];
        const uint64_t left = size - offset;
        const bool is_fixed = subfield.shape == Subfield::Shape::Fixed; // as most are
        const uint64_t more = is_fixed ? subfield.octets : size_of(subfield, data + offset, left);
        if (more > left) return false;
        if (subfield.read) subfield.read(answering, data + offset, more);
        offset += more;
        return true;
    });
}

} // namespace ast::reader
