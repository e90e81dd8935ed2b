// Accessors over shared layouts: the first item of a type, decoded and given the shape of the common quantity.
#pragma once

#include "items/frame.hpp"
#include "query/find.hpp"

namespace ast {

// What an accessor of headings starts from.
constexpr ast_heading_t kNoHeading = {
    .valid = false, .magnetic = {.valid = false, .value = -1}, .track = {.valid = false, .value = -1}};

// The value of the first item of its own type.
template <typename Own>
typename Own::Value first(const ast_datarecord_t *record) {
    return decode<Own>(first_item(record, Own::kType));
}

inline ast_sac_sic_t sacsic_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    const auto source = ast_dataitem_data_source_identifier_decode(first_item(record, type));
    return source.valid ? source : ast_sac_sic_t{.valid = false, .sac = UINT32_MAX, .sic = UINT32_MAX};
}

inline ast_time_of_day_t timeofday_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    return ast_dataitem_time_of_day_decode(first_item(record, type));
}

inline ast_uint_value_t tracknum_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    const auto number = ast_dataitem_track_number_decode(first_item(record, type));
    return number.valid ? number : ast_uint_value_t{.valid = false, .value = UINT32_MAX};
}

inline ast_squawk_t whole_squawk_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    const auto code = ast_dataitem_mode_3a_code_decode(first_item(record, type));
    if (!code.valid) return {.valid = false, .code = UINT32_MAX};
    return {.valid = true,
            .code = code.code,
            .not_validated = code.not_validated,
            .garbled = code.garbled,
            .smoothed = code.smoothed};
}

// The same without the not-validated flag, which is each category's to fill in.
inline ast_squawk_t squawk_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    ast_squawk_t squawk = whole_squawk_of(record, type);
    squawk.not_validated = false;
    return squawk;
}

// A Mode C code, in feet.
inline ast_quantity_t level_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    constexpr double kModeCLsbFt = 25;
    const auto mode_c = ast_dataitem_mode_c_code_decode(first_item(record, type));
    return {.valid = mode_c.valid, .value = mode_c.flight_level * kModeCLsbFt};
}

// A height, in feet.
inline ast_quantity_t height_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    const auto height = ast_dataitem_height_decode(first_item(record, type));
    return {.valid = height.valid, .value = height.value};
}

// One quantity, or another one where that is not valid.
inline ast_quantity_t first_valid(const ast_quantity_t &one, const ast_quantity_t &other) {
    return one.valid ? one : other;
}

inline ast_coordinate_t coordinate_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    const auto position = ast_dataitem_position_wgs84_decode(first_item(record, type));
    return {.valid = position.valid, .latitude_deg = position.value_1, .longitude_deg = position.value_2};
}

// The message type of a category whose records are all of one.
inline ast_uint_value_t msgtype_of(const ast_datarecord_t *record, uint32_t type) {
    if (!record || !record->valid) return {};
    return {.valid = true, .value = type};
}

inline ast_aircraft_id_t callsign_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    return ast_dataitem_aircraft_id_decode(first_item(record, type));
}

inline ast_icao_address_t icaoaddr_of(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    const auto target = ast_dataitem_target_address_decode(first_item(record, type));
    if (!target.valid) return {.valid = false, .address = UINT32_MAX};
    return {.valid = true, .address = target.address};
}

} // namespace ast
