// The common quantities of records: one set of names, with their units, for all that shows, chooses or exports them.
#pragma once

#include <ast.h>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/cell_writer.hpp"

namespace ast::recording {

// How a quantity is written.
enum class QuantityForm : uint8_t {
    decimal,     // a number with decimals
    whole,       // a number without
    octal,       // text of four digits
    hexadecimal, // text of six digits
    characters,  // text
    word,        // text, the name of a kind of message
    flag,        // a number, 0 or 1
    clock,       // a time of day, "12:00:01.500"
    moment,      // a date with its time, "2024-05-06T12:00:01.500000Z"
};

struct Quantity {
    using Member = std::variant<std::monostate, double ast_answers_t::*, uint32_t ast_answers_t::*,
                                bool ast_answers_t::*, int64_t ast_answers_t::*>;

    std::string_view name;
    std::string_view title;
    uint64_t answer; // AST_ANSWER_...
    QuantityForm form;
    Member member; // none for the characters of a callsign
    unsigned decimals = 0;
    std::string_view unit{};

    bool is_in(const ast_answers_t &answers) const { return (answers.present & answer) != 0; }
    bool is_text() const { return form >= QuantityForm::octal && form <= QuantityForm::word; }

    // Digits and characters that may be digits are texts, whatever they look like: "0420", "3E1234".
    bool is_quoted() const { return is_text() && form != QuantityForm::word; }

    // In its unit, times in seconds; nothing but 0 for characters.
    double number(const ast_answers_t &answers) const;

    // The same as it is shown, without what its text leaves out, and the step of that; 0 for what has no decimals.
    double shown_number(const ast_answers_t &answers) const;
    double step() const;

    // Writes its text, which takes less than kQuantityRoom.
    void write(CellWriter &out, const ast_answers_t &answers) const;
};

constexpr size_t kQuantityRoom = 48;

// In the order of AST_ANSWER_....
inline constexpr Quantity kQuantities[] = {
    {"timestamp", "Date and time of the report", AST_ANSWER_TIMESTAMP, QuantityForm::moment,
     &ast_answers_t::timestamp_ns},
    {"time", "Time of day", AST_ANSWER_TIME, QuantityForm::clock, &ast_answers_t::time_of_day_s},
    {"category", "Category", AST_ANSWER_CATEGORY, QuantityForm::whole, &ast_answers_t::category},
    {"sac", "System area code of the source", AST_ANSWER_SAC, QuantityForm::whole, &ast_answers_t::sac},
    {"sic", "System identification code of the source", AST_ANSWER_SIC, QuantityForm::whole, &ast_answers_t::sic},
    {"type", "Kind of message", AST_ANSWER_TYPE, QuantityForm::word, &ast_answers_t::type},
    {"track_number", "Track number", AST_ANSWER_TRACK_NUMBER, QuantityForm::whole, &ast_answers_t::track_number},
    {"squawk", "Mode 3/A code", AST_ANSWER_SQUAWK, QuantityForm::octal, &ast_answers_t::squawk},
    {"callsign", "Aircraft identification", AST_ANSWER_CALLSIGN, QuantityForm::characters, {}},
    {"icao24", "24-bit aircraft address", AST_ANSWER_ICAO24, QuantityForm::hexadecimal, &ast_answers_t::icao24},
    {"fl", "Flight level", AST_ANSWER_FL, QuantityForm::decimal, &ast_answers_t::fl, 2, "FL"},
    {"altitude_ft", "Geometric altitude", AST_ANSWER_ALTITUDE, QuantityForm::decimal, &ast_answers_t::altitude_ft, 2,
     "ft"},
    {"selected_altitude_ft", "Altitude that the crew has selected", AST_ANSWER_SELECTED_ALTITUDE, QuantityForm::decimal,
     &ast_answers_t::selected_altitude_ft, 2, "ft"},
    {"latitude", "Latitude, WGS-84", AST_ANSWER_LATITUDE, QuantityForm::decimal, &ast_answers_t::latitude_deg, 7,
     "deg"},
    {"longitude", "Longitude, WGS-84", AST_ANSWER_LONGITUDE, QuantityForm::decimal, &ast_answers_t::longitude_deg, 7,
     "deg"},
    {"range_nm", "Slant range as measured", AST_ANSWER_RANGE, QuantityForm::decimal, &ast_answers_t::range_nm, 5, "NM"},
    {"azimuth_deg", "Azimuth as measured", AST_ANSWER_AZIMUTH, QuantityForm::decimal, &ast_answers_t::azimuth_deg, 4,
     "deg"},
    {"x_nm", "To the east in the plane of the sensor or system", AST_ANSWER_X, QuantityForm::decimal,
     &ast_answers_t::x_nm, 5, "NM"},
    {"y_nm", "To the north in the plane of the sensor or system", AST_ANSWER_Y, QuantityForm::decimal,
     &ast_answers_t::y_nm, 5, "NM"},
    {"groundspeed_kt", "Ground speed", AST_ANSWER_GROUNDSPEED, QuantityForm::decimal, &ast_answers_t::groundspeed_kt, 2,
     "kt"},
    {"track_deg", "Direction of movement", AST_ANSWER_TRACK, QuantityForm::decimal, &ast_answers_t::track_deg, 3,
     "deg"},
    {"magnetic_heading_deg", "Magnetic heading", AST_ANSWER_MAGNETIC_HEADING, QuantityForm::decimal,
     &ast_answers_t::magnetic_heading_deg, 3, "deg"},
    {"true_heading_deg", "True heading", AST_ANSWER_TRUE_HEADING, QuantityForm::decimal,
     &ast_answers_t::true_heading_deg, 3, "deg"},
    {"vertical_rate_ftmin", "Rate of climb, negative in descent", AST_ANSWER_VERTICAL_RATE, QuantityForm::decimal,
     &ast_answers_t::vertical_rate_ftmin, 2, "ft/min"},
    {"spi", "Special position identification", AST_ANSWER_SPI, QuantityForm::flag, &ast_answers_t::spi},
    {"emergency", "Emergency", AST_ANSWER_EMERGENCY, QuantityForm::flag, &ast_answers_t::emergency},
    {"on_ground", "On the ground", AST_ANSWER_ON_GROUND, QuantityForm::flag, &ast_answers_t::on_ground},
    {"simulated", "Simulated target", AST_ANSWER_SIMULATED, QuantityForm::flag, &ast_answers_t::simulated},
};

// "2024-05-06T12:00:01.500000Z", of nanoseconds since 1970, to the microsecond, so that all have the same form.
void write_moment(CellWriter &out, int64_t time_ns);

// A kind of message without what goes without saying in a column of types: "north" of "north marker".
std::string_view short_type(std::string_view type);

// Null for an unknown name.
const Quantity *find_quantity(std::string_view name);

// What is known by one name: a quantity, or what an older name stands for.
struct QuantityName {
    std::string_view name;
    std::vector<const Quantity *> quantities; // one, or those that belong together
    bool asks(uint64_t answers) const;        // for any of these
};

// Without quantities for an unknown name. A quantity is also known without its unit, "altitude", where no other is
// called so.
QuantityName find_quantities(std::string_view name);

// All names, those that stand for other ones last.
std::vector<std::string_view> known_names();

} // namespace ast::recording
