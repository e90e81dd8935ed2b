// Coded fields as text.

#include <iterator>

#include "core/text.hpp"

namespace {

using namespace ast;

// A value and its texts, short and long.
struct StyledText {
    const char *brief;
    const char *full;
};

const char *in_style(const StyledText &text, uint32_t style) {
    return style == AST_STYLE_LONG ? text.full : text.brief;
}

constexpr StyledText kUnknownEmitter = {"UNKNOWN_EMITTER", "Reserved / Unknown emitter category"};

constexpr StyledText kEmitterCategories[] = {
    {"NO_INFO", "No ADS-B Emitter Category Information"},
    {"LIGHT_AIRCRAFT", "Light aircraft (0 - 15500 lbs)"},
    {"SMALL_AIRCRAFT", "Small aircraft (15500 - 75000 lbs)"},
    {"MEDIUM_AIRCRAFT", "Medium aircraft (75000 - 300000 lbs)"},
    kUnknownEmitter,
    {"HEAVY_AIRCRAFT", "Heavy aircraft (300000+ lbs)"},
    {"HIGH_MANOEUVRABLE_AIRCRAFT", "Highly manoeuvrable and high speed"},
    kUnknownEmitter,
    kUnknownEmitter,
    kUnknownEmitter,
    {"ROTOCRAFT", "Rotocraft"},
    {"GLIDER", "Glider / Sailplane"},
    {"LIGHTER_THAN_AIR", "Lighter-than-air"},
    {"UAV", "Unmanned Aerial Vehicle"},
    {"SPACE_VEHICLE", "Space / Transatmospheric Vehicle"},
    {"ULTRALIGHT", "Ultralight / Handglider / Paraglider"},
    {"PARACHUTIST", "Parachutist / Skydriver"},
    kUnknownEmitter,
    kUnknownEmitter,
    kUnknownEmitter,
    {"SURF_EMG_VEHICLE", "Surface emergency vehicle"},
    {"SURF_SVC_VEHICLE", "Surface service vehicle"},
    {"FIXED_OBSTRUCTION", "Fixed ground or tethered obstruction"},
    {"CLUSTER_OBSTACLE", "Cluster obstacle"},
    {"LINE_OBSTACLE", "Line obstacle"},
};
constexpr uint32_t kUndefinedEmitter = 25;

constexpr const char *kCommCapabilities[] = {
    "NO_COMM", "COMM-A COMM-B", "COMM-A COMM-B UPLINK_ELM", "COMM-A COMM-B UPLINK_ELM DOWNLINK_ELM", "LEVEL_5",
};
constexpr uint32_t kUndefinedCommCapability = 7;

// Also the status of multiple navigation aids and of differential correction.
constexpr const char *kAcasStatuses[] = {"UNKNOWN", "NOT_OPERATIONAL", "OPERATIONAL", "INVALID"};
constexpr uint32_t kUndefinedAcasStatus = 8;

constexpr const char *kAltitudeTypes[] = {"BAROMETRIC_ALTITUDE", "GEOMETRIC_ALTITUDE"};

constexpr const char *kGeometricAltitudeSources[] = {
    "NO_SOURCE", "GNSS", "3D_RADAR", "TRIANGULATION", "COVERAGE", "SPEED_LOOKUP_TABLE", "DEFAULT", "MULTILATERATION",
};

constexpr StyledText kUndefinedSelectedAltitude = {"UNDEFINED", "Undefined"};

constexpr StyledText kSelectedAltitudeSources[] = {
    {"UNKNOWN", "Unknown"},
    {"AC_ALTITUDE", "Aircraft Altitude"},
    {"FCU_MCP_SELECTED", "FCU/MCP Selected Altitude"},
    {"FMS_SELECTED", "FMS Selected Altitude"},
};

constexpr const char *kEmergencies[] = {
    "NO_EMG", "GENERAL", "MEDICAL", "MINI_FUEL", "NO_COMM", "UNLAWFUL", "DOWNED",
};
constexpr uint32_t kEmergencyCodes = 8; // the last one is a code without a text
constexpr uint32_t kUndefinedEmergency = 8;

constexpr char kNoInterrogation[] = "NO_INTERROGATION";
constexpr const char *kIffStatuses[] = {kNoInterrogation, "FRIEND", "UNKNOWN", "NO_REPLY"};

constexpr const char *kFlightStatuses[] = {"AIR", "GND", "AIR_ALR", "GND_ALR", "ALR_SPI", "SPI"};
constexpr uint32_t kUndefinedFlightStatus = 8;

constexpr char kUndefined[] = "UNDEFINED";

// A raw value that is below the count of what is defined, or what stands for the others.
uint32_t defined_or(uint32_t raw, uint64_t count, uint32_t fallback) { return raw < count ? raw : fallback; }

} // namespace

uint32_t ast_emitter_category_from_int(uint32_t raw) {
    const bool is_defined =
        raw < std::size(kEmitterCategories) && kEmitterCategories[raw].brief != kUnknownEmitter.brief;
    return is_defined ? raw : kUndefinedEmitter;
}

const char *ast_emitter_category_to_str(uint32_t value, uint32_t style) {
    if (style != AST_STYLE_SHORT && style != AST_STYLE_LONG) return kUnknownEmitter.brief;
    return in_style(value < std::size(kEmitterCategories) ? kEmitterCategories[value] : kUnknownEmitter, style);
}

uint32_t ast_transponder_comm_cap_from_int(uint32_t raw) {
    return defined_or(raw, std::size(kCommCapabilities), kUndefinedCommCapability);
}

const char *ast_transponder_comm_cap_to_str(uint32_t value) { return text_of(kCommCapabilities, value, kUndefined); }

uint32_t ast_acas_status_from_int(uint32_t raw) {
    return defined_or(raw, std::size(kAcasStatuses), kUndefinedAcasStatus);
}

const char *ast_acas_status_to_str(uint32_t value) { return text_of(kAcasStatuses, value, kUndefined); }

uint32_t ast_multi_navids_status_from_int(uint32_t raw) { return ast_acas_status_from_int(raw); }

const char *ast_multi_navids_status_to_str(uint32_t value) { return ast_acas_status_to_str(value); }

uint32_t ast_diff_correction_status_from_int(uint32_t raw) { return ast_acas_status_from_int(raw); }

const char *ast_diff_correction_status_to_str(uint32_t value) { return ast_acas_status_to_str(value); }

const char *ast_altitude_type_to_str(uint32_t value) { return text_of(kAltitudeTypes, value, kUndefined); }

uint32_t ast_geometric_altitude_source_from_int(uint32_t raw) {
    return defined_or(raw, std::size(kGeometricAltitudeSources), 0);
}

const char *ast_geometric_altitude_source_to_str(uint32_t value) {
    return text_of(kGeometricAltitudeSources, value, kUndefined);
}

uint32_t ast_selected_altitude_source_from_int(uint32_t raw) {
    return defined_or(raw, std::size(kSelectedAltitudeSources), 0);
}

const char *ast_selected_altitude_source_to_str(uint32_t value, uint32_t style) {
    const bool is_defined = value < std::size(kSelectedAltitudeSources);
    if (style != AST_STYLE_SHORT && style != AST_STYLE_LONG) return kUndefinedSelectedAltitude.brief;
    return in_style(is_defined ? kSelectedAltitudeSources[value] : kUndefinedSelectedAltitude, style);
}

uint32_t ast_emergency_status_from_int(uint32_t raw) { return defined_or(raw, kEmergencyCodes, kUndefinedEmergency); }

const char *ast_emergency_status_to_str(uint32_t value) { return text_of(kEmergencies, value, kUndefined); }

uint32_t ast_iff_status_from_int(uint32_t raw) { return defined_or(raw, std::size(kIffStatuses), 0); }

const char *ast_iff_status_to_str(uint32_t value) { return text_of(kIffStatuses, value, kNoInterrogation); }

uint32_t ast_radar_flight_status_from_int(uint32_t raw) {
    return defined_or(raw, std::size(kFlightStatuses), kUndefinedFlightStatus);
}

const char *ast_radar_flight_status_to_str(uint32_t value) { return text_of(kFlightStatuses, value, kUndefined); }

const char *ast_category_to_str(uint32_t category) {
    thread_local char text[10];
    TextWriter(text, sizeof text).print("I%03u", category);
    return text;
}
