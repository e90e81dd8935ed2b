// What the octets of an item mean, as the category documents say it: rows of fields, each with its bits, its kind, its
// step and unit, or the texts of its codes. A table of them reads like the document; the compiler checks that the bits
// of a table add up.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "ast.h"

namespace ast::schema {

// The kinds that a caller meets have the numbers of AST_FIELD_...; the rest is the inside of a table.
enum class Kind : uint8_t {
    Raw = AST_FIELD_RAW,
    Code = AST_FIELD_CODE,
    Unsigned = AST_FIELD_UNSIGNED,
    Signed = AST_FIELD_SIGNED,
    Octal = AST_FIELD_OCTAL,
    Ascii = AST_FIELD_ASCII,
    Icao = AST_FIELD_ICAO,
    Register = AST_FIELD_REGISTER,
    Explicit = AST_FIELD_EXPLICIT,
    Spare = AST_FIELD_SPARE,
    Group = AST_FIELD_GROUP,
    Extended = AST_FIELD_EXTENDED,
    Compound = AST_FIELD_COMPOUND,
    Repetitive = AST_FIELD_REPETITIVE,
    Chained = AST_FIELD_CHAINED,
    Either = AST_FIELD_EITHER,
    Random = AST_FIELD_RANDOM,
    UnsignedOrNone, // 0 says that there is nothing
    Status,         // one bit: whether the member behind it means anything
    Part,           // of an extended item: its bits and FX
    None,           // a subfield that no edition defines
    When,           // one reading of an Either
};

// The fraction of a unit that one step of a field is worth.
struct Step {
    uint64_t numerator = 1;
    uint64_t denominator = 1;
};

struct alignas(64) Field { // one line of the cache
    char key[22] = {};     // "NAME": as JSON wants it
    int16_t offset = 0;    // added to a quantity, in its unit
    const char *title = nullptr;
    const char *meaning = nullptr; // the unit of a quantity; of codes 0, 1, 2 … the texts between bars, "97:" sets the
                                   // code of the next one
    uint32_t numerator = 0;   // of the step, in lowest terms; 0 for what is no quantity
    uint32_t denominator = 0; // of a register that is known by its place: its number
    uint64_t factor = 0;      // one step in units of the last decimal shown, times 2^shift
    uint16_t rows = 0;        // how many rows behind this one belong to it
    uint16_t bits = 0;        // of a field or group of fixed size
    Kind kind = Kind::Spare;
    uint8_t key_chars = 0;
    uint8_t decimals = 0;
    uint8_t shift = 0;

    constexpr bool is_named() const { return key_chars != 0; }
    constexpr std::string_view name() const { return {key + 1, key_chars < 3U ? 0U : key_chars - 3U}; }
    constexpr bool is_quantity() const { return factor != 0; }
    // Of a When: the message type of the record and the value of the field before that it is for.
    constexpr uint32_t message_type() const { return numerator; }
    constexpr uint32_t selector() const { return denominator; }
};
static_assert(sizeof(Field) == 64);

constexpr const Field *behind(const Field *field) { return field + 1 + field->rows; }
constexpr Field *behind(Field *field) { return field + 1 + field->rows; }

template <size_t N>
using Rows = std::array<Field, N>;

// ---- The words that tables are written in ----

// What a table may not say. Reaching it ends the constant evaluation, so that the compiler stops at the row.
inline void layout_is_wrong() {}

constexpr void must(bool holds) {
    if (!holds) layout_is_wrong();
}

using Text = const char *;

constexpr Text or_none(Text text) { return text && *text ? text : nullptr; }

constexpr void set_key(Field &field, std::string_view name, std::string_view suffix = {}) {
    must(name.size() + suffix.size() + 3 <= sizeof field.key);
    if (name.empty()) return;
    char *end = field.key;
    *end++ = '"';
    for (const char c : name) *end++ = c;
    for (const char c : suffix) *end++ = c;
    *end++ = '"';
    *end++ = ':';
    field.key_chars = static_cast<uint8_t>(end - field.key);
}

constexpr Field row(Kind kind, std::string_view name, Text title, unsigned bits) {
    Field field{.title = or_none(title), .bits = static_cast<uint16_t>(bits), .kind = kind};
    set_key(field, name);
    return field;
}

constexpr uint64_t greatest_common_divisor(uint64_t a, uint64_t b) {
    return b == 0 ? a : greatest_common_divisor(b, a % b);
}

constexpr unsigned kMaxDecimals = 12;

// Shown with two decimals more than tell its steps apart, or exactly where fewer are enough.
constexpr Field scaled(Field field, Step step, Text unit) {
    constexpr unsigned kDecimalsBeyond = 2;
    const uint64_t divisor = greatest_common_divisor(step.numerator, step.denominator);
    step = {step.numerator / divisor, step.denominator / divisor};
    must(step.numerator <= UINT32_MAX && step.denominator <= UINT32_MAX && step.numerator != 0);
    uint64_t power = 1;
    const auto is_exact = [&] { return step.numerator * power % step.denominator == 0; };
    const auto more = [&] { power *= 10, ++field.decimals; };
    while (step.numerator * power < step.denominator) more();
    for (unsigned left = kDecimalsBeyond; left != 0 && !is_exact(); --left) more();
    must(field.decimals <= kMaxDecimals);
    field.numerator = static_cast<uint32_t>(step.numerator);
    field.denominator = static_cast<uint32_t>(step.denominator);
    field.factor = step.numerator * power;
    const uint64_t common = greatest_common_divisor(field.factor, step.denominator);
    field.factor /= common;
    for (uint64_t rest = step.denominator / common; rest != 1; rest /= 2) {
        must(rest % 2 == 0);
        ++field.shift;
    }
    must(field.factor <= INT32_MAX); // so that the product with any raw number fits
    field.meaning = or_none(unit);
    return field;
}

// What is longer is no number but octets, which start where an octet does.
constexpr unsigned kMaxNumberBits = 56;

consteval Rows<1> spare(unsigned bits) {
    must(bits <= kMaxNumberBits);
    return {row(Kind::Spare, "", "", bits)};
}
consteval Rows<1> raw(Text name, Text title, unsigned bits) {
    must(bits <= kMaxNumberBits || bits % 8 == 0);
    return {row(Kind::Raw, name, title, bits)};
}
consteval Rows<1> octal(Text name, Text title, unsigned bits) {
    must(bits % 3 == 0 && bits <= 24);
    return {row(Kind::Octal, name, title, bits)};
}
consteval Rows<1> ascii(Text name, Text title, unsigned bits) {
    must(bits % 8 == 0);
    return {row(Kind::Ascii, name, title, bits)};
}
consteval Rows<1> icao(Text name, Text title, unsigned bits) {
    must(bits % 6 == 0 && bits <= kMaxNumberBits);
    return {row(Kind::Icao, name, title, bits)};
}
consteval Rows<1> integer(Text name, Text title, unsigned bits) {
    must(bits <= 32);
    return {row(Kind::Unsigned, name, title, bits)};
}
consteval Rows<1> signed_integer(Text name, Text title, unsigned bits) {
    must(bits <= 32);
    return {row(Kind::Signed, name, title, bits)};
}

consteval Rows<1> code(Text name, Text title, unsigned bits, Text texts) {
    must(bits <= 32);
    Field field = row(Kind::Code, name, title, bits);
    field.meaning = or_none(texts);
    return {field};
}
consteval Rows<1> quantity(Text name, Text title, unsigned bits, Step step, Text unit, int16_t offset = 0) {
    must(bits <= 32);
    Field field = scaled(row(Kind::Unsigned, name, title, bits), step, unit);
    field.offset = offset;
    return {field};
}
consteval Rows<1> signed_quantity(Text name, Text title, unsigned bits, Step step, Text unit) {
    must(bits <= 32);
    return {scaled(row(Kind::Signed, name, title, bits), step, unit)};
}
// A quantity from 1 on: 1 stands for zero, and 0 says that there is none.
consteval Rows<1> quantity_or_none(Text name, Text title, unsigned bits, Step step, Text unit) {
    Field field = scaled(row(Kind::UnsignedOrNone, name, title, bits), step, unit);
    must(field.denominator == 1);
    field.offset = static_cast<int16_t>(-static_cast<int32_t>(field.numerator));
    return {field};
}

// A Mode S register with its number behind it, 64 bits, or one whose number its place tells, 56 bits.
consteval Rows<1> bds(Text name, Text title, unsigned bits, unsigned number = 0) {
    must(number == 0 ? bits == 64 : bits == 56);
    Field field = row(Kind::Register, name, title, bits);
    field.denominator = number;
    return {field};
}
// A bit that tells whether the member behind it means anything.
consteval Rows<1> status() { return {row(Kind::Status, "", "", 1)}; }
consteval Rows<1> none() { return {row(Kind::None, "", "", 0)}; }
consteval Rows<1> random_field_sequencing() { return {row(Kind::Random, "RFS", "Random Field Sequencing", 0)}; }

// The second of a name in one object is NAME_2.
constexpr void tell_apart(const Field *first, const Field *end, Field *member) {
    if (!member->is_named()) return;
    for (const Field *other = first; other != end; other = behind(other)) {
        if (other->name() != member->name()) continue;
        const Field copy = *member; // whose name is not overwritten while it is read
        set_key(*member, copy.name(), "_2");
    }
}

// Whether a field, or one in a group, is read as octets and not as a number. A group keeps that in place of its shift.
constexpr bool holds_octets(const Field &field) {
    if (field.kind == Kind::Group || field.kind == Kind::Part) return field.shift != 0;
    return field.kind == Kind::Ascii || field.kind == Kind::Register;
}

// A row and the rows that belong to it. The bits of a group or part are those of its members.
template <size_t... N>
constexpr auto node(Kind kind, Text name, Text title, const Rows<N> &...members) {
    Rows<1 + (N + ...)> rows{row(kind, name, title, 0)};
    const bool adds_up = kind == Kind::Group || kind == Kind::Part;
    rows[0].rows = static_cast<uint16_t>((N + ...));
    size_t next = 1;
    const auto take = [&](const auto &member) {
        const size_t first = next;
        if (adds_up) {
            must(member[0].bits != 0);
            must(rows[0].bits % 8 == 0 || (member[0].bits <= kMaxNumberBits && member[0].kind != Kind::Ascii));
            rows[0].bits = static_cast<uint16_t>(rows[0].bits + member[0].bits);
        }
        for (const Field &field : member) rows[next++] = field;
        rows[0].shift |= holds_octets(member[0]);
        tell_apart(&rows[1], &rows[first], &rows[first]);
    };
    (take(members), ...);
    return rows;
}

template <size_t... N>
consteval auto group(Text name, Text title, const Rows<N> &...members) {
    return node(Kind::Group, name, title, members...);
}
// Seven bits, or 15, or 23, and FX behind them.
template <size_t... N>
consteval auto part(const Rows<N> &...members) {
    const auto rows = node(Kind::Part, "", "", members...);
    must(rows[0].bits % 8 == 7);
    return rows;
}
// Whole octets, and no FX behind them: only the last part of an item is like that.
template <size_t... N>
consteval auto last_part(const Rows<N> &...members) {
    const auto rows = node(Kind::Part, "", "", members...);
    must(rows[0].bits % 8 == 0);
    return rows;
}
constexpr unsigned fx_bits(const Field &part) { return part.bits % 8 == 0 ? 0 : 1; }
template <size_t... N>
consteval auto extended(Text name, Text title, const Rows<N> &...parts) {
    must(((parts[0].kind == Kind::Part) && ...));
    auto rows = node(Kind::Extended, name, title, parts...);
    Field *const end = rows.data() + rows.size();
    bool has_fx = true;
    for (Field *part = &rows[1]; part != end; part = behind(part)) {
        must(has_fx);
        has_fx = fx_bits(*part) != 0;
        for (Field *member = part + 1; member != behind(part); member = behind(member))
            for (Field *other = &rows[1]; other != part; other = behind(other)) // one object holds those of all parts
                tell_apart(other + 1, behind(other), member);
    }
    return rows;
}
// A subfield is of whole octets.
template <size_t... N>
consteval auto compound(Text name, Text title, const Rows<N> &...subfields) {
    must(((subfields[0].bits % 8 == 0) && ...));
    return node(Kind::Compound, name, title, subfields...);
}
// A compound item whose presence bits fill that many octets, without FX.
template <size_t... N>
consteval auto compound_of(unsigned presence_octets, Text name, Text title, const Rows<N> &...subfields) {
    must(((subfields[0].bits % 8 == 0) && ...) && sizeof...(N) <= 8U * presence_octets);
    auto rows = node(Kind::Compound, name, title, subfields...);
    rows[0].denominator = presence_octets;
    return rows;
}
template <size_t N>
consteval auto repetitive(Text name, Text title, const Rows<N> &element) {
    must(element[0].bits != 0 && element[0].bits % 8 == 0);
    return node(Kind::Repetitive, name, title, element);
}
// Elements of seven bits, and FX behind each.
template <size_t N>
consteval auto chained(Text name, Text title, const Rows<N> &element) {
    must(element[0].bits % 8 == 7);
    return node(Kind::Chained, name, title, element);
}
// A length that counts itself, and octets of which no more is said; or what is said of them.
consteval Rows<1> explicit_length(Text name, Text title) { return {row(Kind::Explicit, name, title, 0)}; }
template <size_t N>
consteval auto explicit_length(Text name, Text title, const Rows<N> &content) {
    must(content[0].name() == std::string_view(name)); // which stands in its place
    return node(Kind::Explicit, name, title, content);
}

// The reading for one value of the field before, and for one message type of the record where that counts, too.
constexpr uint32_t kAnyMessageType = UINT32_MAX;
struct Selected {
    uint32_t message_type;
    uint32_t selector;
};
template <size_t N>
consteval auto when(Selected selected, const Rows<N> &reading) {
    auto rows = node(Kind::When, "", "", reading);
    rows[0].bits = reading[0].bits;
    rows[0].numerator = selected.message_type;
    rows[0].denominator = selected.selector;
    return rows;
}
template <size_t N>
consteval auto when(uint32_t selector, const Rows<N> &reading) {
    return when(Selected{kAnyMessageType, selector}, reading);
}
// One of several readings of the same bits; where none is for the value, the bits as a number.
template <size_t... N>
consteval auto either(Text name, Text title, unsigned bits, const Rows<N> &...readings) {
    must(((readings[0].kind == Kind::When && readings[0].bits == bits) && ...));
    auto rows = node(Kind::Either, name, title, readings...);
    rows[0].bits = static_cast<uint16_t>(bits);
    return rows;
}

} // namespace ast::schema
