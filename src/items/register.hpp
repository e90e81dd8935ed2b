// One Mode S register inside a larger view.
#pragma once

#include <algorithm>

#include "view/view_writer.hpp"

namespace ast {

constexpr uint16_t kRegisterOctets = 7;
constexpr uint32_t kAcasRegister = 0x30;

// Its fields alone. One that has no view of them is reported.
void show_register(ViewWriter &view, const ast_bds_t *bds);

// Its number and title, its bits, and its fields.
inline void write_register(ViewWriter &view, const ast_bds_t &bds) {
    view.title(ast_bds_type_to_str(bds.bds), " - ", ast_bds_get_name(bds.bds));
    view.bit_table(bds.data, bds.size);
    view.paragraph("");
    if (!view.is_full()) show_register(view, &bds);
}

// A list of registers, then each of them.
inline void write_registers(ViewWriter &view, const ast_bds_t *registers, uint64_t count) {
    view.title("BDS List");
    {
        DetailTable table(view, "BDS", "Name");
        for (uint64_t i = 0; i < count; ++i)
            table.row(ast_bds_type_to_str(registers[i].bds), ast_bds_get_name(registers[i].bds));
    }
    for (uint64_t i = 0; i < count; ++i) write_register(view, registers[i]);
}

// The registers behind REP, as far as there is room for them. Each element is the seven octets of a register and one
// octet with its number.
constexpr uint64_t kRegisterElementOctets = kRegisterOctets + 1;

template <size_t N>
uint64_t held_registers(const ast_bds_t (&)[N], uint64_t count) {
    return std::min<uint64_t>(count, N);
}

inline ast_bds_t register_at(const uint8_t *elements, uint64_t place) {
    const uint8_t *const element = elements + place * kRegisterElementOctets;
    return ast_bds_decode(element, kRegisterOctets, element[kRegisterOctets]);
}

template <size_t N>
void read_registers(ast_bds_t (&registers)[N], uint64_t count, const uint8_t *elements) {
    for (uint64_t i = 0; i < held_registers(registers, count); ++i) registers[i] = register_at(elements, i);
}

// Whether an item of REP and elements, which is readable, has as many as it says, and any.
inline bool holds_registers(const ast_dataitem_t &item) {
    return item.size != 0 && item.data[0] != 0 && item.size == 1 + kRegisterElementOctets * item.data[0];
}

} // namespace ast
