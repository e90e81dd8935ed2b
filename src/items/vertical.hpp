// Heights and rates in steps of 6.25 ft.
#pragma once

#include "view/view_writer.hpp"

namespace ast {

constexpr double kVerticalLsbFt = 6.25;
constexpr double kVerticalLsbM = 1.905;

// A vertical quantity as sent, in feet and in metres, under its three labels.
template <uint64_t CellCapacity>
void write_vertical_rows(ViewWriter &view, int32_t raw, const char *const (&labels)[3]) {
    DetailTable table(view, "Bit", "Item", "Value");
    table.row("Bit[0-15]", labels[0], Cell<CellCapacity>("%d", raw));
    table.row("Bit[0-15]", labels[1], Cell<CellCapacity>("%.2f", raw * kVerticalLsbFt));
    table.row("Bit[0-15]", labels[2], Cell<CellCapacity>("%.2f", raw * kVerticalLsbM));
}

} // namespace ast
