#include "show/list_values.hpp"

#include <iterator>
#include <string_view>

#include "ask/quantities.hpp"
#include "base/printable.hpp"
#include "show/list_layout.hpp"

namespace ast::recording::astdump {

namespace {

using Write = void(CellWriter &out, const ListedRecord &record);

bool has(const ListedRecord &record, uint64_t answers) { return (record.answers->present & answers) != 0; }

void write_time(CellWriter &out, const ListedRecord &record) { out.clock(record.answers->time_of_day_s); }

void write_source(CellWriter &out, const ListedRecord &record) { out.source(record.answers->sac, record.answers->sic); }

void write_category(CellWriter &out, const ListedRecord &record) { out.digits(record.record->category, 3); }
void write_octets(CellWriter &out, const ListedRecord &record) { out.digits(record.record->size, 1); }

// "North" of "north marker".
void write_type(CellWriter &out, const ListedRecord &record) {
    const std::string_view name = short_type(ast_message_to_str(record.answers->type));
    if (name.empty()) return;
    out.put(static_cast<char>(name.front() - 'a' + 'A'));
    out.put(name.substr(1));
}

void write_track_number(CellWriter &out, const ListedRecord &record) { out.digits(record.answers->track_number, 1); }

void write_squawk(CellWriter &out, const ListedRecord &record) {
    const ast_answers_t &answers = *record.answers;
    out.digits<8>(answers.squawk, 4);
    if (has(record, AST_ANSWER_SQUAWK_VALIDATED) && !answers.squawk_validated) out.put('V');
    if (answers.squawk_garbled) out.put('G');
    if (answers.squawk_smoothed) out.put('L');
}

void write_callsign(CellWriter &out, const ListedRecord &record) { out.put(record.answers->callsign); }
void write_address(CellWriter &out, const ListedRecord &record) { out.digits<16>(record.answers->icao24, 6); }

// Writes what the record is asked for by a keyword, and returns whether there is anything.
bool write_keyword(CellWriter &out, const ListedRecord &record, uint32_t keyword) {
    char text[kListValueRoom];
    const auto size = static_cast<size_t>(
        ast_datarecord_write_keyword(text, sizeof text, record.record, keyword, AST_POSITION_DEGREES));
    out.put({text, size});
    return size != 0;
}

// "-00100" has its five digits, too.
void write_feet(CellWriter &out, double feet) { out.decimal<0>(feet, feet < 0 ? 6 : 5); }

// A level that is garbled or not validated is shown where there is no better height.
void write_height(CellWriter &out, const ListedRecord &record) {
    constexpr double kFeetPerLevel = 100;
    if (has(record, AST_ANSWER_FL))
        write_feet(out, record.answers->fl * kFeetPerLevel);
    else if (has(record, AST_ANSWER_ALTITUDE))
        write_feet(out, record.answers->altitude_ft);
    else if (record.keywords.level && write_keyword(out, record, AST_KEYWORD_FLIGHTLEVEL))
        out.put('?');
}

void write_selected_altitude(CellWriter &out, const ListedRecord &record) {
    write_feet(out, record.answers->selected_altitude_ft);
}

void write_cartesian(CellWriter &out, const ListedRecord &record) {
    if (!has(record, AST_ANSWER_X) || !has(record, AST_ANSWER_Y)) return;
    out.put("X:");
    out.decimal<4>(record.answers->x_nm, 9, true);
    out.put(" Y:");
    out.decimal<4>(record.answers->y_nm, 9, true);
}

void write_polar(CellWriter &out, const ListedRecord &record) {
    if (!has(record, AST_ANSWER_RANGE) || !has(record, AST_ANSWER_AZIMUTH)) return write_cartesian(out, record);
    out.put("R:");
    out.decimal<4>(record.answers->range_nm, 8);
    out.put(" T:");
    out.decimal<2>(record.answers->azimuth_deg, 6);
}

// What there is to say of a position that is worked out.
constexpr struct {
    uint32_t located;
    char mark;
} kMarks[] = {{AST_LOCATED_ON_GROUND, 'G'}, {AST_LOCATED_BY_ESTIMATE, 'E'}};

void write_position(CellWriter &out, const ListedRecord &record) {
    if (!has(record, AST_ANSWER_LATITUDE)) return write_polar(out, record);
    const ast_answers_t &answers = *record.answers;
    out.decimal<6>(answers.latitude_deg, 9);
    out.put(", ");
    out.decimal<6>(answers.longitude_deg, 10);
    if ((answers.located & (AST_LOCATED_ON_GROUND | AST_LOCATED_BY_ESTIMATE)) == 0) return;
    out.put(' ');
    for (const auto &each : kMarks)
        if ((answers.located & each.located) != 0) out.put(each.mark);
}

void write_speed(CellWriter &out, const ListedRecord &record) { out.decimal<2>(record.answers->groundspeed_kt, 4); }

void write_heading(CellWriter &out, const ListedRecord &record) {
    const bool has_magnetic = has(record, AST_ANSWER_MAGNETIC_HEADING);
    if (has_magnetic) {
        out.put("M:");
        out.decimal<2>(record.answers->magnetic_heading_deg, 6);
    }
    if (!has(record, AST_ANSWER_TRACK)) return;
    out.put(has_magnetic ? " T:" : "T:");
    out.decimal<2>(record.answers->track_deg, 6);
}

void write_vertical_rate(CellWriter &out, const ListedRecord &record) {
    out.decimal<2>(record.answers->vertical_rate_ftmin, 8, true);
}

void write_velocity(CellWriter &out, const ListedRecord &record) {
    if (record.keywords.velocity) write_keyword(out, record, AST_KEYWORD_CARTESIANVEL);
}

void write_file(CellWriter &out, const ListedRecord &record) {
    if (record.file) out.put(std::string_view(readable(*record.file)).substr(0, kListValueRoom));
}

// What the values of a column are, and of which answers: there is none where a record has none of these.
struct Source {
    Write *write;
    uint64_t answers;
};

constexpr uint64_t kAnyRecord = 0;

// In the order of the columns.
constexpr Source kSources[] = {
    {write_time, AST_ANSWER_TIME},
    {write_source, AST_ANSWER_SAC},
    {write_category, kAnyRecord},
    {write_octets, kAnyRecord},
    {write_type, AST_ANSWER_TYPE},
    {write_track_number, AST_ANSWER_TRACK_NUMBER},
    {write_squawk, AST_ANSWER_SQUAWK},
    {write_callsign, AST_ANSWER_CALLSIGN},
    {write_address, AST_ANSWER_ICAO24},
    {write_height, kAnyRecord},
    {write_selected_altitude, AST_ANSWER_SELECTED_ALTITUDE},
    {write_position, AST_ANSWER_LATITUDE | AST_ANSWER_RANGE | AST_ANSWER_X},
    {write_speed, AST_ANSWER_GROUNDSPEED},
    {write_heading, AST_ANSWER_MAGNETIC_HEADING | AST_ANSWER_TRACK},
    {write_vertical_rate, AST_ANSWER_VERTICAL_RATE},
    {write_velocity, AST_ANSWER_GROUNDSPEED},
    {write_file, kAnyRecord},
};
static_assert(std::size(kSources) == kListColumns);

} // namespace

ListedKeywords listed_keywords_of(uint32_t category) {
    const ast_datarecord_func_t functions = ast_datarecord_get_func(category);
    return {.level = functions.get_flightlevel != nullptr, .velocity = functions.get_cartesianvel != nullptr};
}

size_t write_list_value(char *text, const ListedRecord &record, size_t column) {
    const Source &source = kSources[column];
    if (source.answers != kAnyRecord && !has(record, source.answers)) return 0;
    CellWriter out(text);
    source.write(out, record);
    return out.size();
}

} // namespace ast::recording::astdump
