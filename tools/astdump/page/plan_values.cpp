#include "page/plan_values.hpp"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/printable.hpp"

namespace ast::recording::astdump {

namespace {

constexpr double kMetresPerNm = 1852.0;
constexpr double kFeetPerMetre = 1 / 0.3048;

using Take = void (*)(PlanValues &values, const ast_field_value_t &value, std::string_view name);

bool is_unit(const ast_field_value_t &value, std::string_view unit) { return value.field->unit == unit; }

double nautical_miles(const ast_field_value_t &value) {
    return is_unit(value, "m") ? value.number / kMetresPerNm : value.number;
}

// What is met first counts.
template <typename Value>
void keep(std::optional<Value> &place, Value value) {
    if (!place) place = value;
}

void take_source(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    const auto octet = static_cast<uint32_t>(value.raw);
    if (name == "SAC") keep(values.source, octet << 8);
    if (name == "SIC" && values.source) values.source = *values.source | octet;
}

void take_time(PlanValues &values, const ast_field_value_t &value, std::string_view) {
    keep(values.time_s, value.number);
}

void take_position_time(PlanValues &values, const ast_field_value_t &value, std::string_view) {
    keep(values.position_time_s, value.number);
}

void take_truncated_time(PlanValues &values, const ast_field_value_t &value, std::string_view) {
    keep(values.truncated_time_s, value.number);
}

void take_pair(PlanPair &pair, const ast_field_value_t &value, std::string_view name, std::string_view first,
               std::string_view second) {
    if (!value.has_number) return;
    if (name.starts_with(first)) keep(pair.first, nautical_miles(value));
    if (name.starts_with(second)) keep(pair.second, nautical_miles(value));
}

void take_wgs84(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    take_pair(values.wgs84, value, name, "LAT", "LON");
}

void take_station(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    take_pair(values.station, value, name, "LAT", "LON");
}

void take_polar(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    take_pair(values.polar, value, name, "RHO", "TH");
}

void take_range(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    if (name == "R") keep(values.polar.first, nautical_miles(value));
}

void take_azimuth(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    if (name == "AZ") keep(values.polar.second, value.number);
}

void take_cartesian(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    take_pair(values.cartesian, value, name, "X", "Y");
}

void take_level(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    if (is_unit(value, "FL")) keep(values.level, value.number);
    if (is_unit(value, "ft")) keep(values.height, value.number / 100);
    if (is_unit(value, "m") && name == "GH") keep(values.height, value.number * kFeetPerMetre / 100);
}

void take_code(PlanValues &values, const ast_field_value_t &value, std::string_view) {
    if (value.field->kind == AST_FIELD_OCTAL) keep(values.code, static_cast<uint32_t>(value.raw));
}

void take_address(PlanValues &values, const ast_field_value_t &value, std::string_view) {
    keep(values.address, static_cast<uint32_t>(value.raw));
}

void take_track(PlanValues &values, const ast_field_value_t &value, std::string_view) {
    if (value.field->kind != AST_FIELD_SPARE && value.field->bits > 8)
        keep(values.track, static_cast<uint32_t>(value.raw));
}

// What the aircraft says stands behind what is said of it.
void take_callsign(PlanValues &values, const ast_field_value_t &value, std::string_view) {
    const bool is_text = value.field->kind == AST_FIELD_ICAO || value.field->kind == AST_FIELD_ASCII;
    if (!is_text) return;
    std::string text = printable(value.text);
    while (!text.empty() && text.back() == ' ') text.pop_back();
    const bool is_known = std::ranges::any_of(text, [](char c) { return c != '?' && c != '.' && c != ' '; });
    if (is_known) values.callsign = text;
}

// Address and identification among what an aircraft says of itself.
void take_aircraft(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    if (name == "ADR") take_address(values, value, name);
    if (name == "ID") take_callsign(values, value, name);
}

void take_flight_plan(PlanValues &values, const ast_field_value_t &value, std::string_view name) {
    if (name == "CS" && values.callsign.empty()) take_callsign(values, value, name);
}

struct Row {
    ast_dataitem_type_t type;
    Take take;
};

// Ascending. What most categories have under the same number stands in kUsual.
constexpr Row kRows[] = {
    {1141, take_truncated_time}, {2030, take_time},           {4020, take_time},      {4030, take_track},
    {8090, take_time},           {9070, take_time},           {11245, take_callsign}, {11380, take_aircraft},
    {15145, take_time},          {15600, take_wgs84},         {15601, take_level},    {15625, take_range},
    {15627, take_azimuth},       {16400, take_station},       {17045, take_wgs84},    {17050, take_level},
    {17070, take_code},          {17220, take_address},       {18002, take_time},     {18005, take_address},
    {18014, take_polar},         {18015, take_cartesian},     {18032, take_code},     {18033, take_level},
    {18036, take_source},        {19600, take_station},       {21030, take_time},     {21070, take_code},
    {21071, take_position_time}, {21073, take_position_time}, {21077, take_time},     {21080, take_address},
    {21130, take_wgs84},         {21131, take_wgs84},         {21140, take_level},    {21145, take_level},
    {21161, take_track},         {21170, take_callsign},      {23070, take_time},     {25070, take_time},
    {25600, take_station},       {32020, take_time},          {32040, take_track},    {32060, take_code},
    {34030, take_time},          {34120, take_station},       {62040, take_track},    {62060, take_code},
    {62070, take_time},          {62100, take_cartesian},     {62105, take_wgs84},    {62130, take_level},
    {62135, take_level},         {62136, take_level},         {62245, take_callsign}, {62380, take_aircraft},
    {62390, take_flight_plan},   {63030, take_time},          {65030, take_time},     {205030, take_time},
    {205050, take_wgs84},        {205060, take_cartesian},    {205160, take_track},
};
static_assert(std::ranges::is_sorted(kRows, {}, &Row::type));

constexpr Row kUsual[] = {
    {10, take_source}, {40, take_polar},    {41, take_wgs84},     {42, take_cartesian},
    {60, take_code},   {70, take_code},     {90, take_level},     {91, take_level},
    {93, take_level},  {105, take_level},   {110, take_level},    {140, take_time},
    {161, take_track}, {220, take_address}, {240, take_callsign}, {245, take_callsign},
};
static_assert(std::ranges::is_sorted(kUsual, {}, &Row::type));

// Reports of targets, whose items are numbered alike.
constexpr bool is_usual(uint32_t category, uint32_t item) {
    constexpr uint32_t kTargets[] = {1, 7, 10, 11, 20, 48};
    return item == 10 || item == 140 || std::ranges::count(kTargets, category) != 0;
}

Take find_take(ast_dataitem_type_t type) {
    if (const auto *const row = std::ranges::lower_bound(kRows, type, {}, &Row::type);
        row != std::end(kRows) && row->type == type)
        return row->take;
    const uint32_t category = type / 1000;
    const uint32_t item = type % 1000;
    if (!is_usual(category, item)) return nullptr;
    const auto *const row = std::ranges::find(kUsual, item, &Row::type);
    return row == std::end(kUsual) ? nullptr : row->take;
}

struct Visit {
    PlanValues &values;
    Take take;
};

void visit_value(void *context, const ast_field_value_t *value) {
    const auto &visit = *static_cast<Visit *>(context);
    const std::string_view path = value->field->path;
    visit.take(visit.values, *value, path.substr(path.rfind('/') + 1));
}

} // namespace

PlanValues plan_values(const ast_datarecord_t &record) {
    PlanValues values;
    for (uint64_t i = 0; i < record.item_count; ++i) {
        const ast_dataitem_t &item = record.items[i];
        const Take take = find_take(item.type);
        if (!take) continue;
        Visit visit{values, take};
        ast_dataitem_walk(&item, record.uap, 0, visit_value, &visit);
    }
    if (!values.time_s) values.time_s = values.position_time_s;
    if (!values.level) values.level = values.height;
    return values;
}

} // namespace ast::recording::astdump
