// The size of a target and where its nose points: length, orientation and width, one octet each in a chain.
#pragma once

#include "core/bits.hpp"
#include "items/frame.hpp"
#include "items/octet_chain.hpp"
#include "items/units.hpp"

namespace ast {

template <ast_dataitem_type_t Type, typename ItemValue>
struct TargetSize : Item<Type, ItemValue, extended<3>> {
    static constexpr double kOrientationUnits = 128; // per full circle

    static void read(ItemValue &size, const ast_dataitem_t &item) {
        size.length_m = chained_bits(item.data[0]);
        size.orientation_present = item.size >= 2;
        size.width_present = item.size >= 3;
        if (size.orientation_present) {
            size.orientation_raw = chained_bits(item.data[1]);
            size.orientation_deg = size.orientation_raw * kFullCircleDeg / kOrientationUnits;
        }
        if (size.width_present) size.width_m = chained_bits(item.data[2]);
    }

    static void summarize(TextWriter &out, const ItemValue &size) {
        out.print("L:%u", size.length_m);
        if (size.orientation_present) out.print(" O:%.2f", size.orientation_deg);
        if (size.width_present) out.print(" W:%u", size.width_m);
    }

    static void show(ViewWriter &view, const ItemValue &size) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0-7]", "LENGTH LSB:M", Cell<20>("%u", size.length_m));
        if (size.orientation_present) {
            table.row("Bit[9-15]", "ORIENTATION LSB:360/128 DEG", Cell<20>("%u", size.orientation_raw));
            table.row("Bit[9-15]", "ORIENTATION LSB:DEG", Cell<20>("%.2f", size.orientation_deg));
        }
        if (size.width_present) table.row("Bit[17-23]", "WIDTH LSB:M", Cell<20>("%u", size.width_m));
    }

    // The degrees are rounded and stored back unless they are 0. A width brings the octet of the orientation with it.
    static uint64_t write(uint8_t *octets, ItemValue &size) {
        if (size.orientation_deg > 0)
            size.orientation_raw =
                low_bits(std::round(size.orientation_deg / kFullCircleDeg * kOrientationUnits)) % 128;
        const uint32_t numbers[] = {size.length_m, size.orientation_raw, size.width_m};
        return write_chain(octets, numbers, size.width_present ? 3 : size.orientation_present ? 2 : 1);
    }
};

} // namespace ast
