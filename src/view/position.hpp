// The rows in which every detail view shows a WGS-84 position.
#pragma once

#include "view/view_writer.hpp"

namespace ast {

constexpr char kWgs84Item[] = "WGS84_COORDINATES";

// The position in degrees, minutes and seconds, in three precisions.
inline void write_position_texts(DetailTable &table, std::string_view octets, double latitude, double longitude) {
    for (const auto to_text : {ast_latlong_to_str, ast_latlong_to_str_high, ast_latlong_to_str_very_high})
        table.row(octets, kWgs84Item, to_text(latitude, longitude));
}

// A link to the position on each map service.
inline void write_map_links(DetailTable &table, std::string_view octets, double latitude, double longitude) {
    for (uint32_t service = AST_MAP_GOOGLE; service <= AST_MAP_BAIDU; ++service)
        table.map_link_row(service, latitude, longitude, octets, kWgs84Item);
}

// A position of three octets for each angle, with all that is shown of it.
inline void write_position_low(DetailTable &table, std::string_view octets, const ast_value_pair_t &position) {
    const double latitude = position.value_1;
    const double longitude = position.value_2;
    write_position_texts(table, octets, latitude, longitude);
    table.row(octets, kWgs84Item, Cell<512>("%010.6f, %011.6f", latitude, longitude));
    table.row(octets, kWgs84Item, Cell<512>("%d, %d", position.raw_1, position.raw_2));
    write_map_links(table, octets, latitude, longitude);
}

} // namespace ast
