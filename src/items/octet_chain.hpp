// Octets chained by FX that each carry seven bits of a meaning of their own, or of the sender's own.
#pragma once

#include "core/bits.hpp"
#include "items/frame.hpp"
#include "items/units.hpp"

namespace ast {

// The seven bits of an octet in a chain.
constexpr uint32_t chained_bits(uint8_t octet) { return bits(octet, 8, 2); }

// Reads as many octets of an item as an array holds, and returns how many.
template <typename Number, size_t N>
uint32_t read_chain(Number (&numbers)[N], const ast_dataitem_t &item) {
    uint32_t count = 0;
    for (Number &number : numbers) {
        if (count == item.size) break;
        number = static_cast<Number>(chained_bits(item.data[count++]));
    }
    return count;
}

// Writes the first `count` numbers of an array and returns how many octets they are; 0 refuses them.
template <typename Number, size_t N>
uint64_t write_chain(uint8_t *octets, const Number (&numbers)[N], uint64_t count) {
    if (count > N) return 0;
    for (uint64_t i = 0; i < count; ++i) {
        if (!fits(numbers[i], 7)) return 0;
        octets[i] = static_cast<uint8_t>(placed(numbers[i], 8, 2) | placed(i + 1 < count, 1));
    }
    return count;
}

// Octets whose bits mean what each radar defines, shown as bits.
template <ast_dataitem_type_t Type, uint16_t MaximumOctets>
struct OctetChain : Item<Type, ast_octet_chain_t, extended<MaximumOctets>> {
    using Value = ast_octet_chain_t;

    static void read(Value &chain, const ast_dataitem_t &item) { chain.count = read_chain(chain.values, item); }

    static void summarize(TextWriter &out, const Value &, const ast_dataitem_t &item) {
        out.append_with(
            [&](char *text, uint64_t capacity) { ast_dataitem_binary_data_get_summary(text, capacity, &item); });
    }

    static void show(ViewWriter &view, const Value &, const ast_dataitem_t &item) {
        DetailTable table(view, "Octet", "Item", "Value");
        for (uint64_t i = 0; i < item.size; ++i) {
            const BinaryOctet octet(item.data[i]);
            std::string_view bits_above_fx = octet;
            bits_above_fx.remove_suffix(1);
            table.row(Cell<16>("Octet[%llu]", static_cast<unsigned long long>(i + 1)), "APPLICATION_DEPENDENT",
                      bits_above_fx);
        }
    }

    static uint64_t write(uint8_t *octets, const Value &chain) {
        return write_chain(octets, chain.values, chain.count);
    }
};

} // namespace ast
