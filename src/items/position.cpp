// Where and how fast: positions, heights, velocities and rates.

#include <cmath>
#include <iterator>

#include "core/bits.hpp"
#include "items/value.hpp"
#include "view/position.hpp"

using namespace ast;

namespace {

constexpr double kHalfCircleDeg = 180;
constexpr double kFullCircleDeg = 360;
constexpr double kMaxLatitudeDeg = 90;
constexpr double kMaxLongitudeDeg = 180;

bool is_on_earth(const ast_value_pair_t &position) {
    return std::fabs(position.value_1) <= kMaxLatitudeDeg && std::fabs(position.value_2) <= kMaxLongitudeDeg;
}

// Degrees as an encoder of positions writes them: cut off to whole units, and negative ones one lower.
uint32_t raw_angle(double degrees, double units_per_half_circle) {
    const uint32_t units = to_raw(degrees / kHalfCircleDeg * units_per_half_circle);
    return one_below_when_negative(static_cast<int32_t>(units));
}

void write_position_summary(TextWriter &out, const ast_value_pair_t &position) {
    if (position.valid) out.print("WGS84:%s", ast_latlong_to_str(position.value_1, position.value_2));
}

// A pair of fields of one scale.
ast_value_pair_t scaled_pair(int32_t raw_1, int32_t raw_2, double lsb) {
    return {.valid = true, .raw_1 = raw_1, .raw_2 = raw_2, .value_1 = raw_1 * lsb, .value_2 = raw_2 * lsb};
}

int32_t read_i16(const uint8_t *octets) { return twos_complement(read_u16(octets), 16); }
int32_t read_i24(const uint8_t *octets) { return twos_complement(read_u24(octets), 24); }
int32_t read_i32(const uint8_t *octets) { return static_cast<int32_t>(read_u32(octets)); }

} // namespace

// ---- WGS-84 position, six octets ----

namespace {

constexpr double kLowUnits = 1 << 23; // per half circle

} // namespace

ast_value_pair_t ast_dataitem_position_wgs84_low_decode(const ast_dataitem_t *item) {
    if (!holds(item, 6)) return {};
    return scaled_pair(read_i24(item->data), read_i24(item->data + 3), kHalfCircleDeg / kLowUnits);
}

void ast_dataitem_position_wgs84_low_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                            const ast_dataitem_src_t *source) {
    const auto *const position = open_encode<ast_value_pair_t>(result, buffer, length, source, 6);
    if (!position || !is_on_earth(*position)) return;
    write_u24(buffer, raw_angle(position->value_1, kLowUnits));
    write_u24(buffer + 3, raw_angle(position->value_2, kLowUnits));
    written(result);
}

void ast_dataitem_position_wgs84_low_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    write_position_summary(out, ast_dataitem_position_wgs84_low_decode(item));
}

void ast_dataitem_position_wgs84_low_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    constexpr char kOctets[] = "Octet[1-6]";
    HtmlWriter html(text, capacity);
    const auto position = ast_dataitem_position_wgs84_low_decode(item);
    if (!position.valid) return;
    DetailTable table(html, "Octet", "Item", "Value");
    write_position_texts(table, kOctets, position.value_1, position.value_2);
    table.row(kOctets, kWgs84Item, Cell<512>("%010.6f, %011.6f", position.value_1, position.value_2));
    table.row(kOctets, kWgs84Item, Cell<512>("%d, %d", position.raw_1, position.raw_2));
    write_map_links(table, kOctets, position.value_1, position.value_2);
}

// ---- WGS-84 position, eight octets ----

namespace {

constexpr double kHighUnits = 1 << 25; // per half circle, where an item has no units of its own

// The items that carry finer units.
struct Wgs84Units {
    ast_dataitem_type_t type;
    double per_half_circle;
};

constexpr Wgs84Units kFineUnits[] = {
    {10041, UINT32_C(1) << 31},
    {16400, UINT32_C(1) << 31},
    {19600, 1 << 30},
    {21131, 1 << 30},
};

double wgs84_units(ast_dataitem_type_t type) {
    for (const Wgs84Units &units : kFineUnits)
        if (units.type == type) return units.per_half_circle;
    return kHighUnits;
}

// The one item whose western longitudes an option turns to the east.
constexpr ast_dataitem_type_t kInvertibleLongitude = 62105;

int32_t to_the_east(int32_t longitude) { return longitude == INT32_MIN ? INT32_MAX : std::abs(longitude); }

} // namespace

ast_value_pair_t ast_dataitem_position_wgs84_decode(const ast_dataitem_t *item) {
    if (!holds(item, 8)) return {};
    int32_t longitude = read_i32(item->data + 4);
    if (item->type == kInvertibleLongitude && ast_library_test_option(AST_OPTION_INVERT_062_LONGITUDE))
        longitude = to_the_east(longitude);
    return scaled_pair(read_i32(item->data), longitude, kHalfCircleDeg / wgs84_units(item->type));
}

// Writes the coarse units whatever the item is, so an item of finer units reads as another position; senders of those
// fill the octets by other means.
void ast_dataitem_position_wgs84_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                        const ast_dataitem_src_t *source) {
    const auto *const position = open_encode<ast_value_pair_t>(result, buffer, length, source, 8);
    if (!position || !is_on_earth(*position)) return;
    write_u32(buffer, raw_angle(position->value_1, kHighUnits));
    write_u32(buffer + 4, raw_angle(position->value_2, kHighUnits));
    written(result);
}

void ast_dataitem_position_wgs84_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    write_position_summary(out, ast_dataitem_position_wgs84_decode(item));
}

void ast_dataitem_position_wgs84_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    constexpr char kOctets[] = "Octet[1-8]";
    HtmlWriter html(text, capacity);
    const auto position = ast_dataitem_position_wgs84_decode(item);
    if (!position.valid) return;
    DetailTable table(html, "Octet", "Item", "Value");
    write_position_texts(table, kOctets, position.value_1, position.value_2);
    table.row(kOctets, kWgs84Item, Cell<512>("%012.8f, %013.8f", position.value_1, position.value_2));
    // This row alone is labelled as if the item had six octets; viewers know it so.
    table.row("Octet[1-6]", kWgs84Item, Cell<512>("%d, %d", position.raw_1, position.raw_2));
    write_map_links(table, kOctets, position.value_1, position.value_2);
}

// ---- Cartesian position and velocity ----

ast_value_pair_t ast_dataitem_position_cartesian_decode(const ast_dataitem_t *item) {
    constexpr double kLsbM = 0.5;
    if (!holds(item, 6)) return {};
    return scaled_pair(read_i24(item->data), read_i24(item->data + 3), kLsbM);
}

void ast_dataitem_position_cartesian_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto position = ast_dataitem_position_cartesian_decode(item);
    if (position.valid) out.print("X:%.1f Y:%.1f LSB:M", position.value_1, position.value_2);
}

ast_value_pair_t ast_dataitem_velocity_cartesian_decode(const ast_dataitem_t *item) {
    constexpr double kLsbMPerS = 0.25;
    if (!holds(item, 4)) return {};
    return scaled_pair(read_i16(item->data), read_i16(item->data + 2), kLsbMPerS);
}

void ast_dataitem_velocity_cartesian_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto velocity = ast_dataitem_velocity_cartesian_decode(item);
    if (velocity.valid) out.print("VX:%.2f VY:%.2f LSB:M/S", velocity.value_1, velocity.value_2);
}

// ---- Polar velocity ----

namespace {

constexpr double kSpeedUnitsPerNmPerS = 1 << 14;
constexpr double kSpeedLsbKt = 3600 / kSpeedUnitsPerNmPerS;
constexpr double kSpeedLsbMPerS = 1852 / kSpeedUnitsPerNmPerS;
constexpr double kSpeedLsbKmPerH = 6667.2 / kSpeedUnitsPerNmPerS;
constexpr double kHeadingUnits = 1 << 16; // per full circle

} // namespace

ast_value_pair_t ast_dataitem_velocity_polar_decode(const ast_dataitem_t *item) {
    ast_value_pair_t velocity{};
    if (!holds(item, 4)) return velocity;
    velocity.raw_1 = static_cast<int32_t>(read_u16(item->data));
    velocity.raw_2 = static_cast<int32_t>(read_u16(item->data + 2));
    velocity.value_1 = velocity.raw_1 * kSpeedLsbKt;
    velocity.value_2 = velocity.raw_2 * kFullCircleDeg / kHeadingUnits;
    velocity.valid = true;
    return velocity;
}

// The raw values are stored back even into a record that is not valid.
void ast_dataitem_velocity_polar_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                        const ast_dataitem_src_t *source) {
    auto *const record = source ? static_cast<ast_value_pair_t *>(source->value) : nullptr;
    if (record && (record->value_1 > 0 || record->value_2 > 0)) {
        record->raw_1 = static_cast<int32_t>(to_raw(std::round(record->value_1 / kSpeedLsbKt)));
        record->raw_2 = static_cast<int32_t>(to_raw(std::round(record->value_2 / kFullCircleDeg * kHeadingUnits)));
    }
    const auto *const velocity = open_encode<ast_value_pair_t>(result, buffer, length, source, 4);
    if (!velocity) return;
    write_u16(buffer, static_cast<uint32_t>(velocity->raw_1));
    write_u16(buffer + 2, static_cast<uint32_t>(velocity->raw_2));
    written(result);
}

void ast_dataitem_velocity_polar_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto velocity = ast_dataitem_velocity_polar_decode(item);
    if (velocity.valid) out.print("SPD:%.2f HDG:%.2f", velocity.value_1, velocity.value_2);
}

void ast_dataitem_velocity_polar_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto velocity = ast_dataitem_velocity_polar_decode(item);
    if (!velocity.valid) return;
    DetailTable table(html, "Octet", "Item", "Value");
    table.row("Octet[1-2]", "GROUND_SPEED LSB:NM/S", Cell<20>("%.6f", velocity.raw_1 / kSpeedUnitsPerNmPerS));
    table.row("Octet[1-2]", "GROUND_SPEED LSB:M/S", Cell<20>("%.2f", velocity.raw_1 * kSpeedLsbMPerS));
    table.row("Octet[1-2]", "GROUND_SPEED LSB:KNOT", Cell<20>("%.2f", velocity.value_1));
    table.row("Octet[1-2]", "GROUND_SPEED LSB:KM/H", Cell<20>("%.2f", velocity.raw_1 * kSpeedLsbKmPerH));
    table.row("Octet[3-4]", "HEADING LSB:DEG", Cell<20>("%.2f", velocity.value_2));
}

// ---- Height and vertical rate ----

namespace {

constexpr double kVerticalLsbFt = 6.25;
constexpr double kVerticalLsbM = 1.905;

// A vertical quantity as sent, in feet and in metres, under its three labels.
void write_vertical_rows(HtmlWriter &html, int32_t raw, const char *const (&labels)[3]) {
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0-15]", labels[0], Cell<10>("%d", raw));
    table.row("Bit[0-15]", labels[1], Cell<10>("%.2f", raw * kVerticalLsbFt));
    table.row("Bit[0-15]", labels[2], Cell<10>("%.2f", raw * kVerticalLsbM));
}

} // namespace

ast_scaled_value_t ast_dataitem_height_decode(const ast_dataitem_t *item) {
    ast_scaled_value_t height{};
    if (!holds(item, 2)) return height;
    height.raw = read_i16(item->data);
    height.value = height.raw * kVerticalLsbFt;
    height.valid = true;
    return height;
}

void ast_dataitem_height_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto height = ast_dataitem_height_decode(item);
    if (height.valid) out.print("H:%.2f LSB:FT", height.value);
}

void ast_dataitem_height_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto height = ast_dataitem_height_decode(item);
    if (height.valid) write_vertical_rows(html, height.raw, {"HEIGHT LSB=6.25FT", "HEIGHT LSB=FT", "HEIGHT LSB=M"});
}

ast_scaled_value_t ast_dataitem_vertical_rate_decode(const ast_dataitem_t *item) {
    ast_scaled_value_t rate{};
    if (!holds(item, 2)) return rate;
    rate.flag = bit(item->data[0], 8);
    rate.raw = twos_complement(read_u16(item->data), 15);
    rate.value = rate.raw * kVerticalLsbFt;
    rate.valid = true;
    return rate;
}

void ast_dataitem_vertical_rate_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                       const ast_dataitem_src_t *source) {
    const auto *const rate = open_encode<ast_scaled_value_t>(result, buffer, length, source, 2);
    if (!rate) return;
    // A value that is no number counts as one that is not 0, and is written as 0.
    write_u16(buffer, rate->value != 0 ? to_raw(rate->value / kVerticalLsbFt) : static_cast<uint32_t>(rate->raw));
    buffer[0] = static_cast<uint8_t>(placed(rate->flag, 8) | placed(buffer[0], 7, 1));
    written(result);
}

void ast_dataitem_vertical_rate_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto rate = ast_dataitem_vertical_rate_decode(item);
    if (rate.valid) out.print("VR:%.2fFT/M", rate.value);
}

void ast_dataitem_vertical_rate_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto rate = ast_dataitem_vertical_rate_decode(item);
    if (rate.valid)
        write_vertical_rows(html, rate.raw,
                            {"VERTICAL_RATE LSB=6.25FT/M", "VERTICAL_RATE LSB=FT/M", "VERTICAL_RATE LSB=METER/M"});
}
