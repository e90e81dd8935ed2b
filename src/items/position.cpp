// Where and how fast: positions, heights, velocities and rates.

#include "view/position.hpp"
#include "core/bits.hpp"
#include "items/items.hpp"
#include "items/units.hpp"
#include "items/vertical.hpp"

using namespace ast;

namespace {

constexpr double kMaxLatitudeDeg = 90;
constexpr double kMaxLongitudeDeg = 180;

bool is_on_earth(const ast_value_pair_t &position) {
    return std::fabs(position.value_1) <= kMaxLatitudeDeg && std::fabs(position.value_2) <= kMaxLongitudeDeg;
}

// Degrees as an encoder of positions writes them: cut off to whole units, and negative ones one lower.
uint32_t raw_angle(double degrees, double units_per_half_circle) {
    return one_below_when_negative(whole_units(degrees / kHalfCircleDeg * units_per_half_circle));
}

// What the positions of six and of eight octets have in common.
template <SizeRule Rule>
struct Wgs84 : SharedLayout<ast_value_pair_t, Rule> {
    static void summarize(TextWriter &out, const ast_value_pair_t &position) {
        out.append("WGS84:");
        out.append(ast_latlong_to_str(position.value_1, position.value_2)); // which cuts absurd ones
    }
};

} // namespace

// ---- WGS-84 position, six octets ----

namespace {

struct Wgs84Low : Wgs84<items::position_wgs84_low.size> {
    static void read(Value &position, const uint8_t *octets) {
        position = scaled_pair(read_i24(octets), read_i24(octets + 3), kLowPositionLsbDeg);
    }

    static void show(ViewWriter &view, const Value &position) {
        DetailTable table(view, "Octet", "Item", "Value");
        write_position_low(table, "Octet[1-6]", position);
    }

    static bool write(uint8_t *octets, const Value &position) {
        if (!is_on_earth(position)) return false;
        write_u24(octets, raw_angle(position.value_1, kLowPositionUnits));
        write_u24(octets + 3, raw_angle(position.value_2, kLowPositionUnits));
        return true;
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(Wgs84Low, ast_dataitem_position_wgs84_low)

// ---- WGS-84 position, eight octets ----

namespace {

// What is particular to an item: its units per half circle, and the option that turns its western longitudes east.
struct Wgs84Variant {
    ast_dataitem_type_t type;
    double units;
    uint32_t eastward_option = 0;
};

constexpr Wgs84Variant kUsualWgs84 = {AST_DATAITEM_NONE, 1 << 25};
constexpr Wgs84Variant kWgs84Variants[] = {
    {10041, UINT32_C(1) << 31},
    {16400, UINT32_C(1) << 31},
    {19600, 1 << 30},
    {21131, 1 << 30},
    {62105, 1 << 25, AST_OPTION_INVERT_062_LONGITUDE},
};

const Wgs84Variant &wgs84_variant(ast_dataitem_type_t type) {
    for (const Wgs84Variant &variant : kWgs84Variants)
        if (variant.type == type) return variant;
    return kUsualWgs84;
}

int32_t to_the_east(int32_t longitude) { return longitude == INT32_MIN ? INT32_MAX : std::abs(longitude); }

struct Wgs84High : Wgs84<items::position_wgs84.size> {
    static void read(Value &position, const ast_dataitem_t &item) {
        const Wgs84Variant &variant = wgs84_variant(item.type);
        int32_t longitude = read_i32(item.data + 4);
        if (variant.eastward_option && ast_library_test_option(variant.eastward_option))
            longitude = to_the_east(longitude);
        position = scaled_pair(read_i32(item.data), longitude, kHalfCircleDeg / variant.units);
    }

    static void show(ViewWriter &view, const Value &position) {
        constexpr char kOctets[] = "Octet[1-8]";
        DetailTable table(view, "Octet", "Item", "Value");
        write_position_texts(table, kOctets, position.value_1, position.value_2);
        table.row(kOctets, kWgs84Item, Cell<512>("%012.8f, %013.8f", position.value_1, position.value_2));
        // This row alone is labelled as if the item had six octets; viewers know it so.
        table.row("Octet[1-6]", kWgs84Item, Cell<512>("%d, %d", position.raw_1, position.raw_2));
        write_map_links(table, kOctets, position.value_1, position.value_2);
    }

    // Writes the coarse units whatever the item is, so an item of finer units reads as another position; senders of
    // those fill the octets by other means.
    static bool write(uint8_t *octets, const Value &position) {
        if (!is_on_earth(position)) return false;
        write_u32(octets, raw_angle(position.value_1, kUsualWgs84.units));
        write_u32(octets + 4, raw_angle(position.value_2, kUsualWgs84.units));
        return true;
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(Wgs84High, ast_dataitem_position_wgs84)

// ---- Cartesian position and velocity ----

namespace {

struct CartesianPosition : SharedLayout<ast_value_pair_t, items::position_cartesian.size> {
    static void read(Value &position, const uint8_t *octets) {
        constexpr double kLsbM = 0.5;
        position = scaled_pair(read_i24(octets), read_i24(octets + 3), kLsbM);
    }
    static void summarize(TextWriter &out, const Value &position) {
        append_pair<1>(out, "X:", position.value_1, " Y:", position.value_2);
        out.append(" LSB:M");
    }
};

struct CartesianVelocity : SharedLayout<ast_value_pair_t, items::velocity_cartesian.size> {
    static void read(Value &velocity, const uint8_t *octets) {
        constexpr double kLsbMPerS = 0.25;
        velocity = scaled_pair(read_i16(octets), read_i16(octets + 2), kLsbMPerS);
    }
    static void summarize(TextWriter &out, const Value &velocity) {
        append_pair<2>(out, "VX:", velocity.value_1, " VY:", velocity.value_2);
        out.append(" LSB:M/S");
    }
};

} // namespace

AST_DEFINE_SUMMARIZED_ITEM(CartesianPosition, ast_dataitem_position_cartesian)
AST_DEFINE_SUMMARIZED_ITEM(CartesianVelocity, ast_dataitem_velocity_cartesian)

// ---- Polar velocity ----

namespace {

constexpr double kSpeedLsbMPerS = kMetresPerNm / kSpeedUnitsPerNmPerS;
constexpr double kSpeedLsbKmPerH = 6667.2 / kSpeedUnitsPerNmPerS;
constexpr int32_t kHeadingUnits = 1 << 16; // per full circle

struct PolarVelocity : SharedLayout<ast_value_pair_t, items::velocity_polar.size> {
    static void read(Value &velocity, const uint8_t *octets) {
        velocity.raw_1 = static_cast<int32_t>(read_u16(octets));
        velocity.raw_2 = static_cast<int32_t>(read_u16(octets + 2));
        velocity.value_1 = velocity.raw_1 * kFineSpeedLsbKt;
        velocity.value_2 = velocity.raw_2 * kFullCircleDeg / kHeadingUnits;
    }

    static void summarize(TextWriter &out, const Value &velocity) {
        append_pair<2>(out, "SPD:", velocity.value_1, " HDG:", velocity.value_2);
    }

    static void show(ViewWriter &view, const Value &velocity) {
        DetailTable table(view, "Octet", "Item", "Value");
        table.row("Octet[1-2]", "GROUND_SPEED LSB:NM/S", Cell<20>("%.6f", velocity.raw_1 / kSpeedUnitsPerNmPerS));
        table.row("Octet[1-2]", "GROUND_SPEED LSB:M/S", Cell<20>("%.2f", velocity.raw_1 * kSpeedLsbMPerS));
        table.row("Octet[1-2]", "GROUND_SPEED LSB:KNOT", Cell<20>("%.2f", velocity.value_1));
        table.row("Octet[1-2]", "GROUND_SPEED LSB:KM/H", Cell<20>("%.2f", velocity.raw_1 * kSpeedLsbKmPerH));
        table.row("Octet[3-4]", "HEADING LSB:DEG", Cell<20>("%.2f", velocity.value_2));
    }

    // The raw values are stored back even into a record that is not valid.
    static void prepare(Value &velocity) {
        if (!(velocity.value_1 > 0 || velocity.value_2 > 0)) return;
        velocity.raw_1 = rounded_units(velocity.value_1 / kFineSpeedLsbKt);
        velocity.raw_2 = rounded_units(velocity.value_2 / kFullCircleDeg * kHeadingUnits);
    }

    static bool write(uint8_t *octets, const Value &velocity) {
        write_u16(octets, static_cast<uint32_t>(velocity.raw_1));
        // A heading just below the full circle is nearest to 0.
        const bool is_north = velocity.raw_2 == kHeadingUnits && velocity.value_2 < kFullCircleDeg;
        const int32_t heading_raw = is_north ? 0 : velocity.raw_2;
        write_u16(octets + 2, static_cast<uint32_t>(heading_raw));
        return fits(velocity.raw_1, 16) && fits(heading_raw, 16);
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(PolarVelocity, ast_dataitem_velocity_polar)

// ---- Height and vertical rate ----

namespace {

struct Height : SharedLayout<ast_scaled_value_t, items::height.size> {
    static void read(Value &height, const uint8_t *octets) {
        height.raw = read_i16(octets);
        height.value = height.raw * kVerticalLsbFt;
    }
    static void summarize(TextWriter &out, const Value &height) { out.print("H:%.2f LSB:FT", height.value); }
    static void show(ViewWriter &view, const Value &height) {
        write_vertical_rows<10>(view, height.raw, {"HEIGHT LSB=6.25FT", "HEIGHT LSB=FT", "HEIGHT LSB=M"});
    }
};

struct VerticalRate : SharedLayout<ast_scaled_value_t, items::vertical_rate.size> {
    static constexpr unsigned kBits = 15;

    static void read(Value &rate, const uint8_t *octets) {
        rate.flag = bit(octets[0], 8);
        rate.raw = twos_complement(read_u16(octets), kBits);
        rate.value = rate.raw * kVerticalLsbFt;
    }

    static void summarize(TextWriter &out, const Value &rate) { out.print("VR:%.2fFT/M", rate.value); }

    static void show(ViewWriter &view, const Value &rate) {
        write_vertical_rows<10>(view, rate.raw,
                                {"VERTICAL_RATE LSB=6.25FT/M", "VERTICAL_RATE LSB=FT/M", "VERTICAL_RATE LSB=METER/M"});
    }

    // A value that is no number counts as one that is not 0, and is written as 0.
    static bool write(uint8_t *octets, const Value &rate) {
        int32_t raw = rate.value != 0 ? whole_units(rate.value / kVerticalLsbFt) : rate.raw;
        if (std::isnan(rate.value)) raw = 0;
        write_u16(octets, static_cast<uint32_t>(raw));
        octets[0] = static_cast<uint8_t>(placed(rate.flag, 8) | placed(octets[0], 7, 1));
        return fits_signed(raw, kBits);
    }
};

} // namespace

AST_DEFINE_ITEM(Height, ast_dataitem_height)
AST_DEFINE_ENCODED_ITEM(VerticalRate, ast_dataitem_vertical_rate)
