// The common quantities of a record: its category's accessor answers, or a fallback does.

#include "codec/category.hpp"
#include "query/word.hpp"

using namespace ast;

namespace {

constexpr uint32_t kUnknown = UINT32_MAX;
constexpr ast_quantity_t kNoAngle = {.valid = false, .value = -1};

// The answer of the record's category in one slot of its accessors, or the fallback.
template <typename Result>
Result ask(const ast_datarecord_t *record, Result (*ast_datarecord_func_t::*slot)(const ast_datarecord_t *),
           Result fallback = {}) {
    if (!record || !record->valid) return fallback;
    const auto accessor = find_category(record->category).accessors.*slot;
    return accessor ? accessor(record) : fallback;
}

} // namespace

ast_datarecord_func_t ast_datarecord_get_func(uint32_t category) { return find_category(category).accessors; }

ast_sac_sic_t ast_datarecord_get_sacsic(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_sacsic, {.valid = false, .sac = kUnknown, .sic = kUnknown});
}

ast_time_of_day_t ast_datarecord_get_timeofday(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_timeofday);
}

uint32_t ast_datarecord_get_msgtype(const ast_datarecord_t *record) {
    const ast_uint_value_t type = ask(record, &ast_datarecord_func_t::get_msgtype);
    return type.valid ? type.value : 0;
}

ast_uint_value_t ast_datarecord_get_tracknum(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_tracknum, {.valid = false, .value = kUnknown});
}

ast_squawk_t ast_datarecord_get_squawk(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_squawk, {.valid = false, .code = kUnknown});
}

ast_aircraft_id_t ast_datarecord_get_callsign(const ast_datarecord_t *record) {
    ast_aircraft_id_t callsign = ask(record, &ast_datarecord_func_t::get_callsign);
    for (char &character : callsign.text) {
        if (!ends_word(character)) continue;
        character = '\0';
        break;
    }
    return callsign;
}

ast_icao_address_t ast_datarecord_get_icaoaddr(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_icaoaddr, {.valid = false, .address = kUnknown});
}

ast_coordinate_t ast_datarecord_get_wgs84coord(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_coordinate);
}

ast_quantity_t ast_datarecord_get_flightlevel(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_flightlevel);
}

ast_quantity_t ast_datarecord_get_selaltitude(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_selaltitude);
}

ast_polar_coordinate_t ast_datarecord_get_polarcoord(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_polarcoord);
}

ast_heading_t ast_datarecord_get_heading(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_heading, {.valid = false, .magnetic = kNoAngle, .track = kNoAngle});
}

ast_quantity_t ast_datarecord_get_speed(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_speed);
}

ast_cartesian_velocity_t ast_datarecord_get_cartesianvel(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_cartesianvel);
}

ast_quantity_t ast_datarecord_get_vrate(const ast_datarecord_t *record) {
    return ask(record, &ast_datarecord_func_t::get_vrate);
}
