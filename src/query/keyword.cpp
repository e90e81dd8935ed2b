// Keywords: the common quantities by number, as titles, as text, and as filters.

#include <cstdlib>
#include <iterator>

#include "core/number.hpp"
#include "core/text.hpp"
#include "query/word.hpp"

using namespace ast;

namespace {

using Show = void (*)(TextWriter &out, const ast_datarecord_t *record, uint32_t position_format);
using Contains = bool (*)(const ast_datarecord_t *record);
using Matches = bool (*)(const ast_datarecord_t *record, const char *pattern, bool case_sensitive);

constexpr const char *kMessageTypes[] = {
    "",
    "North",
    "Sector",
    "Plot",
    "Track",
    "ADS-B",
    "Mlat",
    "Video",
    "Surface",
    "Measurement Plot",
    "Measurement Track",
    "Sensor Centric Plot",
    "Sensor Centric Track",
    "Track End",
};

const char *skip_blanks(const char *text) {
    while (*text == ' ') ++text;
    return text;
}

// Letters of ASCII alone, whatever the host's locale is.
char fold(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

// ---- How each keyword's value is shown; nothing for a value that is not valid ----

void show_sacsic(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto source = ast_datarecord_get_sacsic(record);
    if (!source.valid) return;
    out.append_digits(source.sac, 3);
    out.append("/");
    out.append_digits(source.sic, 3);
}

void show_timeofday(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto time = ast_datarecord_get_timeofday(record);
    if (time.valid) append_time(out, time.hour, time.minute, time.second, time.millisecond);
}

void show_msgtype(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    out.append(text_of(kMessageTypes, ast_datarecord_get_msgtype(record), ""));
}

void show_tracknum(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto number = ast_datarecord_get_tracknum(record);
    if (number.valid) out.append_digits(number.value, 1);
}

void show_squawk(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto squawk = ast_datarecord_get_squawk(record);
    if (!squawk.valid) return;
    out.append_digits(squawk.code, 4, 8);
    if (squawk.not_validated) out.append("V");
    if (squawk.garbled) out.append("G");
    if (squawk.smoothed) out.append("L");
}

void show_feet(TextWriter &out, const ast_quantity_t &altitude) {
    if (!altitude.valid) return;
    const auto feet = static_cast<int64_t>(static_cast<int>(altitude.value));
    if (feet < 0) out.append("-");
    out.append_digits(static_cast<uint32_t>(std::abs(feet)), 5);
}

void show_flightlevel(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    show_feet(out, ast_datarecord_get_flightlevel(record));
}

void show_selaltitude(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    show_feet(out, ast_datarecord_get_selaltitude(record));
}

void show_callsign(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto callsign = ast_datarecord_get_callsign(record);
    if (callsign.valid) out.append(callsign.text);
}

void show_icaoaddr(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto aircraft = ast_datarecord_get_icaoaddr(record);
    if (aircraft.valid) out.append_digits(aircraft.address, 6, 16);
}

void show_wgs84coord(TextWriter &out, const ast_datarecord_t *record, uint32_t position_format) {
    const auto position = ast_datarecord_get_wgs84coord(record);
    if (!position.valid) return;
    const double latitude = position.latitude_deg;
    const double longitude = position.longitude_deg;
    switch (position_format) {
    case AST_POSITION_DMS_HIGH:
        out.append(ast_latlong_to_str_high(latitude, longitude));
        break;
    case AST_POSITION_DMS_VERY_HIGH:
        out.append(ast_latlong_to_str_very_high(latitude, longitude));
        break;
    case AST_POSITION_DEGREES:
        out.append_decimal<6>(latitude, 9);
        out.append(", ");
        out.append_decimal<6>(longitude, 10);
        break;
    default:
        out.append(ast_latlong_to_str(latitude, longitude));
    }
}

void show_polarcoord(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto position = ast_datarecord_get_polarcoord(record);
    if (!position.valid) return;
    out.append("R:");
    out.append_decimal<4>(position.rho_nm, 8);
    out.append(" T:");
    out.append_decimal<2>(position.theta_deg, 6);
}

void show_speed(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto speed = ast_datarecord_get_speed(record);
    if (speed.valid) out.append_decimal<2>(speed.value, 4);
}

void show_heading(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto heading = ast_datarecord_get_heading(record);
    if (!heading.valid) return;
    if (heading.magnetic.valid) {
        out.append("M:");
        out.append_decimal<2>(heading.magnetic.value, 6);
    }
    if (heading.magnetic.valid && heading.track.valid) out.append(" ");
    if (heading.track.valid) {
        out.append("T:");
        out.append_decimal<2>(heading.track.value, 6);
    }
}

void show_cartesianvel(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto velocity = ast_datarecord_get_cartesianvel(record);
    if (!velocity.valid) return;
    out.append("VX:");
    out.append_decimal<2>(velocity.vx_m_s, 7, true);
    out.append(" VY:");
    out.append_decimal<2>(velocity.vy_m_s, 7, true);
}

void show_vrate(TextWriter &out, const ast_datarecord_t *record, uint32_t) {
    const auto rate = ast_datarecord_get_vrate(record);
    if (rate.valid) out.append_decimal<2>(rate.value, 8, true);
}

// ---- Which keywords a record can be asked for ----

bool contains_tracknum(const ast_datarecord_t *record) { return ast_datarecord_get_tracknum(record).valid; }
bool contains_squawk(const ast_datarecord_t *record) { return ast_datarecord_get_squawk(record).valid; }
bool contains_flightlevel(const ast_datarecord_t *record) { return ast_datarecord_get_flightlevel(record).valid; }
bool contains_callsign(const ast_datarecord_t *record) { return ast_datarecord_get_callsign(record).valid; }
bool contains_icaoaddr(const ast_datarecord_t *record) { return ast_datarecord_get_icaoaddr(record).valid; }

// ---- Which keywords a record can be filtered by, and how a pattern is read ----

constexpr uint64_t kSacStep = 1000; // a data source reads as SAC × 1000 + SIC
constexpr double kFeetPerLevel = 100;

bool is_number(const char *pattern, int base, uint64_t value) {
    return std::strtol(pattern, nullptr, base) == static_cast<long>(value);
}

bool matches_sacsic(const ast_datarecord_t *record, const char *pattern, bool) {
    const auto source = ast_datarecord_get_sacsic(record);
    return source.valid && is_number(pattern, 10, source.sac * kSacStep + source.sic);
}

bool matches_tracknum(const ast_datarecord_t *record, const char *pattern, bool) {
    const auto number = ast_datarecord_get_tracknum(record);
    return number.valid && is_number(pattern, 10, number.value);
}

bool matches_squawk(const ast_datarecord_t *record, const char *pattern, bool) {
    const auto squawk = ast_datarecord_get_squawk(record);
    return squawk.valid && static_cast<uint32_t>(ast_atoi_oct(pattern)) == squawk.code;
}

bool matches_flightlevel(const ast_datarecord_t *record, const char *pattern, bool) {
    const auto level = ast_datarecord_get_flightlevel(record);
    const double wanted_ft = parse_decimal(pattern) * kFeetPerLevel;
    return level.valid && wanted_ft >= level.value && wanted_ft <= level.value; // equal to the last bit
}

bool matches_callsign(const ast_datarecord_t *record, const char *pattern, bool case_sensitive) {
    const auto callsign = ast_datarecord_get_callsign(record);
    return callsign.valid && ast_keyword_match(callsign.text, pattern, case_sensitive);
}

bool matches_icaoaddr(const ast_datarecord_t *record, const char *pattern, bool) {
    const auto aircraft = ast_datarecord_get_icaoaddr(record);
    return aircraft.valid && is_number(pattern, 16, aircraft.address);
}

// ---- All keywords, in the order of their numbers ----

struct Keyword {
    const char *name;
    const char *description;
    Show show;
    Contains contains = nullptr;
    Matches matches = nullptr;
};

constexpr Keyword kKeywords[] = {
    {"SAC/SIC", "SAC/SIC", show_sacsic, nullptr, matches_sacsic},
    {"Timestamp Tx", "Timestamp, definition and time zone depends on sensor configuration", show_timeofday},
    {"Type", "Message Type", show_msgtype},
    {"Track Number", "Track Number", show_tracknum, contains_tracknum, matches_tracknum},
    {"Mode 3/A", "Mode 3/A", show_squawk, contains_squawk, matches_squawk},
    {"Flight Level", "Flight level in foot", show_flightlevel, contains_flightlevel, matches_flightlevel},
    {"Selected Altitude", "Selected Altitude in foot", show_selaltitude},
    {"Callsign", "Callsign", show_callsign, contains_callsign, matches_callsign},
    {"ICAO Address", "ICAO Address", show_icaoaddr, contains_icaoaddr, matches_icaoaddr},
    {"WGS84 Coordinates", "WGS-84 coordinate in degree, minute and second", show_wgs84coord},
    {"Polar Coordinates", "Rho in NM, theta in degree", show_polarcoord},
    {"Speed", "Ground speed in Knot", show_speed},
    {"Heading", "Heading in degree", show_heading},
    {"Cartesian Velocity", "Cartesian or horizontal velocity in meters/second", show_cartesianvel},
    {"Vertical Rate", "Vertical rate in feet/min", show_vrate},
};
static_assert(std::size(kKeywords) == AST_KEYWORDS);

const Keyword *find_keyword(uint32_t keyword) { return keyword < std::size(kKeywords) ? &kKeywords[keyword] : nullptr; }

} // namespace

void ast_keyword_name(char *text, uint64_t capacity, uint32_t keyword) {
    const Keyword *const found = find_keyword(keyword);
    set_text(text, capacity, found ? found->name : "");
}

void ast_keyword_description(char *text, uint64_t capacity, uint32_t keyword) {
    const Keyword *const found = find_keyword(keyword);
    set_text(text, capacity, found ? found->description : "");
}

bool ast_keyword_match(const char *text, const char *pattern, bool case_sensitive) {
    if (!text || !pattern) return false;
    text = skip_blanks(text);
    pattern = skip_blanks(pattern);
    for (; !ends_word(*text); ++text, ++pattern)
        if (case_sensitive ? *text != *pattern : fold(*text) != fold(*pattern)) return false;
    return ends_word(*pattern);
}

bool ast_datarecord_contain_keyword(const ast_datarecord_t *record, uint32_t keyword) {
    const Keyword *const found = find_keyword(keyword);
    return found && found->contains && found->contains(record);
}

bool ast_datarecord_match_keyword(const ast_datarecord_t *record, uint32_t keyword, const char *pattern,
                                  bool case_sensitive) {
    const Keyword *const found = find_keyword(keyword);
    return pattern && found && found->matches && found->matches(record, pattern, case_sensitive);
}

uint64_t ast_datarecord_write_keyword(char *text, uint64_t capacity, const ast_datarecord_t *record, uint32_t keyword,
                                      uint32_t position_format) {
    TextWriter out(text, capacity);
    if (const Keyword *const found = find_keyword(keyword)) found->show(out, record, position_format);
    return out.length();
}

void ast_datarecord_get_keyword(char *text, uint64_t capacity, const ast_datarecord_t *record, uint32_t keyword,
                                uint32_t position_format) {
    ast_datarecord_write_keyword(text, capacity, record, keyword, position_format);
}
