// Positions as one radar gives them: range and azimuth as measured, x and y as calculated.
#pragma once

#include "core/bits.hpp"
#include "items/frame.hpp"
#include "items/units.hpp"

namespace ast {

// Range and azimuth in 16 bits each. The range is a member of the value record, of so many units each.
template <ast_dataitem_type_t Type, typename ItemValue, double ItemValue::*Rho, unsigned RhoUnits>
struct PolarPosition : Item<Type, ItemValue, fixed<4>> {
    static constexpr double kRhoUnits = RhoUnits;
    static constexpr double kThetaUnits = 65536; // per full circle

    static void read(ItemValue &position, const uint8_t *octets) {
        position.rho_raw = read_u16(octets);
        position.theta_raw = read_u16(octets + 2);
        position.*Rho = position.rho_raw / kRhoUnits;
        position.theta_deg = position.theta_raw * kFullCircleDeg / kThetaUnits;
    }

    static void summarize(TextWriter &out, const ItemValue &position) {
        append_pair<1>(out, "RHO:", position.*Rho, " THETA:", position.theta_deg);
    }

    static void show_as(ViewWriter &view, const ItemValue &position, const char *rho_item, const char *theta_octets) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Octet[1-2]", rho_item, Cell<20>("%.2f", position.*Rho));
        table.row(theta_octets, "THETA LSB:DEG", Cell<20>("%.2f", position.theta_deg));
    }

    // The low 16 bits of each are written, so that a full circle is 0.
    static bool write(uint8_t *octets, ItemValue &position) {
        if (position.*Rho > 0 || position.theta_deg > 0) {
            position.rho_raw = low_bits(std::round(position.*Rho * kRhoUnits));
            position.theta_raw = low_bits(std::round(position.theta_deg / kFullCircleDeg * kThetaUnits));
        }
        write_u16(octets, position.rho_raw);
        write_u16(octets + 2, position.theta_raw);
        return true;
    }

    // Writes the values unless both are 0, the raw ones otherwise; refuses what the fields do not hold. An azimuth that
    // rounds to a full circle is 0.
    static bool write_fitting(uint8_t *octets, ItemValue &position) {
        int64_t rho = position.rho_raw;
        int64_t theta = position.theta_raw;
        if (position.*Rho != 0 || position.theta_deg != 0) {
            rho = rounded_units(position.*Rho * kRhoUnits);
            const double theta_units = std::round(position.theta_deg / kFullCircleDeg * kThetaUnits);
            const bool is_full_circle = theta_units == kThetaUnits && position.theta_deg <= kFullCircleDeg;
            theta = is_full_circle ? 0 : whole_units(theta_units);
        }
        if (!fits(rho, 16) || !fits(theta, 16)) return false;
        position.rho_raw = static_cast<uint32_t>(rho);
        position.theta_raw = static_cast<uint32_t>(theta);
        write_u16(octets, position.rho_raw);
        write_u16(octets + 2, position.theta_raw);
        return true;
    }
};

// One of the two axes of a calculated position, as sent and in its two units.
inline void write_axis_rows(DetailTable &table, const char *octets, char axis, int32_t raw, unsigned units_per_nm) {
    const double nm = raw / static_cast<double>(units_per_nm);
    table.row(octets, Cell<16>("%c LSB:1/%uNM", axis, units_per_nm), Cell<20>("%d", raw));
    table.row(octets, Cell<16>("%c LSB:NM", axis), Cell<20>("%.2f", nm));
    table.row(octets, Cell<16>("%c LSB:M", axis), Cell<20>("%.2f", nm * kMetresPerNm));
}

} // namespace ast
