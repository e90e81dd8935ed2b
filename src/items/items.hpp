// The handlers of item layouts that several categories share. A category's row of such an item is its number, its title
// and one of these.
#pragma once

#include "items/frame.hpp"
#include "items/layouts.hpp"

namespace ast {

// To which country an aircraft address is allocated, as far as the application has a lookup for that.
void write_country_of(ViewWriter &view, uint32_t address, const ast_dataitem_t *item);

// What the application's lookups know of a source.
void write_source(ViewWriter &view, uint32_t sac, uint32_t sic);

// Each is defined beside its layout.
// clang-format off
template <> void show_pieces<ast_dataitem_data_source_identifier_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_sector_number_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_time_of_day_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_time_of_day_high_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_position_wgs84_low_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_position_wgs84_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_mode_3a_code_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_mode_3a_confidence_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_mode_c_code_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_mode_c_confidence_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_height_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_vertical_rate_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_antenna_rotation_period_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_velocity_polar_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_target_address_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_aircraft_id_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_target_id_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_modes_mb_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
template <> void show_pieces<ast_dataitem_subfields_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item);
// clang-format on

} // namespace ast

namespace ast::items {

// The same item with another summary, or with its encoder left out.
constexpr Handlers with_summary(Handlers handlers, SummaryView *summary) {
    handlers.get_summary = summary;
    return handlers;
}

constexpr Handlers without_encoder(Handlers handlers) {
    handlers.encode = nullptr;
    return handlers;
}

// clang-format off
#define AST_SUMMARY(layout) ast_dataitem_##layout##_get_summary
#define AST_DETAIL(layout) kDetailViews<ast_dataitem_##layout##_get_detail_html>
#define AST_ENCODE(layout) ast_dataitem_##layout##_encode
#define AST_VIEWS(layout) AST_SUMMARY(layout), AST_DETAIL(layout)

// Each category has a summary of its own for its message types.
inline constexpr Handlers message_type             = {fixed<1>, nullptr, show_nothing, AST_ENCODE(message_type)};
inline constexpr Handlers data_source_identifier   = {fixed<2>, AST_VIEWS(data_source_identifier), AST_ENCODE(data_source_identifier)};
inline constexpr Handlers service_id               = {fixed<1>, AST_SUMMARY(service_id), show_nothing, AST_ENCODE(service_id)};
inline constexpr Handlers sector_number            = {fixed<1>, AST_VIEWS(sector_number), AST_ENCODE(sector_number)};
inline constexpr Handlers time_of_day              = {fixed<3>, AST_VIEWS(time_of_day), AST_ENCODE(time_of_day)};
inline constexpr Handlers time_of_day_high         = {fixed<4>, AST_VIEWS(time_of_day_high)};
inline constexpr Handlers position_wgs84_low       = {fixed<6>, AST_VIEWS(position_wgs84_low), AST_ENCODE(position_wgs84_low)};
inline constexpr Handlers position_wgs84           = {fixed<8>, AST_VIEWS(position_wgs84), AST_ENCODE(position_wgs84)};
inline constexpr Handlers position_cartesian       = {fixed<6>, AST_SUMMARY(position_cartesian), show_nothing};
inline constexpr Handlers velocity_cartesian       = {fixed<4>, AST_SUMMARY(velocity_cartesian), show_nothing};
inline constexpr Handlers mode_3a_code             = {fixed<2>, AST_VIEWS(mode_3a_code), AST_ENCODE(mode_3a_code)};
inline constexpr Handlers mode_3a_confidence       = {fixed<2>, AST_VIEWS(mode_3a_confidence), AST_ENCODE(mode_3a_confidence)};
inline constexpr Handlers mode_c_code              = {fixed<2>, AST_VIEWS(mode_c_code), AST_ENCODE(mode_c_code)};
inline constexpr Handlers mode_c_confidence        = {fixed<4>, AST_VIEWS(mode_c_confidence), AST_ENCODE(mode_c_confidence)};
inline constexpr Handlers height                   = {fixed<2>, AST_VIEWS(height)};
inline constexpr Handlers vertical_rate            = {fixed<2>, AST_VIEWS(vertical_rate), AST_ENCODE(vertical_rate)};
inline constexpr Handlers antenna_rotation_period  = {fixed<2>, AST_VIEWS(antenna_rotation_period), AST_ENCODE(antenna_rotation_period)};
inline constexpr Handlers track_number             = {fixed<2>, AST_SUMMARY(track_number), show_nothing, AST_ENCODE(track_number)};
inline constexpr Handlers velocity_polar           = {fixed<4>, AST_VIEWS(velocity_polar), AST_ENCODE(velocity_polar)};
inline constexpr Handlers target_address           = {fixed<3>, AST_VIEWS(target_address), AST_ENCODE(target_address)};
inline constexpr Handlers aircraft_id              = {fixed<6>, AST_VIEWS(aircraft_id), AST_ENCODE(aircraft_id)};
inline constexpr Handlers target_id                = {fixed<7>, AST_VIEWS(target_id)};
inline constexpr Handlers signal_amplitude         = {fixed<1>, AST_SUMMARY(signal_amplitude), show_nothing, AST_ENCODE(signal_amplitude)};
inline constexpr Handlers modes_mb                 = {repetitive<8>, AST_VIEWS(modes_mb)};
inline constexpr Handlers reserved_expansion_field = {explicit_length, AST_SUMMARY(reserved_expansion_field), show_nothing};
inline constexpr Handlers special_purpose_field    = {explicit_length, AST_SUMMARY(special_purpose_field), show_nothing};
inline constexpr Handlers random_field_sequencing  = {disputed(explicit_length), AST_SUMMARY(random_field_sequencing), show_nothing};
// clang-format on

// Octets of a size of their own, shown as bits.
constexpr Handlers binary_data(const SizeRule &size, const DetailViews &detail = show_nothing) {
    return {size, AST_SUMMARY(binary_data), detail};
}

// The row of a compound item, shown through its subfields.
constexpr ItemRow compound(const char *name, const Compound &compound) {
    return {item_number(compound.type), name, {sized_by_subfields(compound.get_size), AST_VIEWS(subfields)}, &compound};
}

// The same for a compound item that another source defines.
constexpr ItemRow compound(uint16_t number, const char *name, SizeFunction *get_size, const Compound &compound) {
    return {number, name, {sized_by_subfields(get_size), AST_VIEWS(subfields)}, &compound};
}

} // namespace ast::items
