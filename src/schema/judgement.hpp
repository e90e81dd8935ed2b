// Which values cannot be, and how an item is looked through for them without walking all of its fields.
#pragma once

#include <algorithm>

#include "core/bits.hpp"
#include "core/limits.hpp"
#include "schema/texts.hpp"

namespace ast::schema {

// The lowest and the highest number, in steps of a field, that may be.
struct Limits {
    static constexpr int64_t kAny = int64_t{1} << 62; // beyond any number of a field

    int64_t lowest = -kAny;
    int64_t highest = kAny;

    constexpr bool allow(int64_t number) const { return number >= lowest && number <= highest; }
    constexpr bool allow_all() const { return lowest == -kAny && highest == kAny; }
};

// What lies within these, in the unit of a field.
constexpr Limits within(const Field &field, double lowest, double highest) {
    const auto steps = [&](double value) {
        return (static_cast<int64_t>(value) - field.offset) * int64_t{field.denominator};
    };
    const int64_t step = field.numerator;
    const auto floor = [&](int64_t value) { return value / step - (value % step < 0 ? 1 : 0); };
    return {-floor(-steps(lowest)), floor(steps(highest))};
}

// Of times of day, latitudes and levels; others have none.
constexpr Limits limits_of(const Field &field) {
    constexpr unsigned kTimeOfDayBits = 24;
    const std::string_view unit = field.meaning && field.is_quantity() ? field.meaning : "";
    if (unit == "s" && field.bits == kTimeOfDayBits) {
        constexpr auto kDay = static_cast<int64_t>(kDayS);
        const int64_t midnight = within(field, 0, kDayS).highest;
        const bool is_midnight_a_step = midnight * field.numerator == kDay * field.denominator;
        return {-Limits::kAny, midnight - (is_midnight_a_step ? 1 : 0)};
    }
    if (unit == "°" && field.name() == "LAT") return within(field, -kMaxLatitudeDeg, kMaxLatitudeDeg);
    if (unit == "FL") return within(field, kLowestLevelFl, kHighestLevelFl);
    return {};
}

// A raw number as steps, with its sign.
constexpr int64_t steps_of(unsigned bits, bool is_signed, uint64_t raw) {
    const bool is_negative = is_signed && (raw >> (bits - 1) & 1) != 0;
    return static_cast<int64_t>(raw) - (is_negative ? int64_t{1} << bits : 0);
}

// How many characters of an identification are none.
inline uint32_t undefined_characters(unsigned bits, uint64_t raw) {
    uint32_t count = 0;
    for (; bits != 0; bits -= kIcaoBits, raw >>= kIcaoBits) count += kIcaoCharacters[raw & 0x3F] == kUndefinedCharacter;
    return count;
}

struct Judgement {
    enum class By : uint8_t {
        Size,       // nothing in it is judged, but it has to be there
        Chain,      // the same of so many octets chained by FX
        Number,     // one number has limits
        Characters, // of an identification, alone in the item
        Walk,       // field by field
    };
    By by = By::Walk;
    uint8_t octets = 0; // that it takes, or that may be chained
    uint8_t bit = 0;    // of the number
    uint8_t bits = 0;
    bool is_signed = false;
    int32_t lowest = 0;
    int32_t highest = 0;
};

constexpr bool is_judged(const Field &field) {
    return field.kind == Kind::Icao || field.kind == Kind::Ascii || field.kind == Kind::Register ||
           !limits_of(field).allow_all();
}

constexpr bool is_any_judged(const Field *first, const Field *end) {
    return std::any_of(first, end, [](const Field &field) { return is_judged(field); });
}

// Of a field at a bit of an item of fixed size.
constexpr Judgement judgement_of_number(const Field &field, unsigned bit, unsigned octets) {
    const Limits limits = limits_of(field);
    const auto bounded = [](int64_t value) {
        return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
    };
    const bool is_simple = field.kind <= Kind::Octal && field.bits < 32;
    if (!is_simple && !(field.kind == Kind::Signed && field.bits == 32)) return {};
    return {Judgement::By::Number,      static_cast<uint8_t>(octets),
            static_cast<uint8_t>(bit),  static_cast<uint8_t>(field.bits),
            field.kind == Kind::Signed, bounded(limits.lowest),
            bounded(limits.highest)};
}

// Of an item whose members are all there.
constexpr Judgement judgement_of_group(const Field &group) {
    const auto octets = static_cast<uint8_t>(group.bits / 8);
    const Field *const end = behind(&group);
    if (!is_any_judged(&group + 1, end)) return {Judgement::By::Size, octets};
    Judgement found{Judgement::By::Size, octets};
    unsigned bit = 0;
    for (const Field *member = &group + 1; member != end; member = behind(member)) {
        if (is_any_judged(member, behind(member))) {
            const bool is_alone = found.by == Judgement::By::Size && member->rows == 0;
            if (!is_alone || member[-1].kind == Kind::Status) return {};
            found = judgement_of_number(*member, bit, octets);
            if (found.by == Judgement::By::Walk) return {};
        }
        bit += member->bits;
    }
    return found;
}

constexpr Judgement judgement_of_chain(const Field &chain) {
    uint8_t octets = 0;
    for (const Field *part = &chain + 1; part != behind(&chain); part = behind(part), ++octets)
        if (part->bits != 7) return {};
    const bool is_judged = is_any_judged(&chain + 1, behind(&chain));
    return is_judged ? Judgement{} : Judgement{Judgement::By::Chain, octets};
}

constexpr Judgement judgement_of(const Field &item) {
    const bool is_long = item.bits / 8 > UINT8_MAX;
    if (is_long) return {};
    if (item.kind == Kind::Group) return judgement_of_group(item);
    if (item.kind == Kind::Extended) return judgement_of_chain(item);
    const auto octets = static_cast<uint8_t>(item.bits / 8);
    if (item.kind == Kind::Icao) return {Judgement::By::Characters, octets, 0, static_cast<uint8_t>(item.bits)};
    if (item.kind > Kind::Octal || item.bits == 0 || item.bits > kMaxNumberBits) return {};
    return is_judged(item) ? judgement_of_number(item, 0, octets) : Judgement{Judgement::By::Size, octets};
}

// By the places of items.
template <const auto &kItems>
inline constexpr auto kJudgementsOf = [] {
    std::array<Judgement, std::size(kItems)> judgements{};
    std::transform(std::begin(kItems), std::end(kItems), judgements.begin(),
                   [](const auto &item) { return judgement_of(*item.field); });
    return judgements;
}();

// How much of an item cannot be, the whole of it where its octets end too early; not of one that is walked.
inline uint32_t flaws_by(const Judgement &judgement, const uint8_t *data, uint64_t size) {
    if (judgement.by == Judgement::By::Chain) {
        for (uint64_t i = 0; i < judgement.octets; ++i) {
            if (i == size) return 1;
            if (!has_fx(data[i])) return 0;
        }
        return 0;
    }
    if (size < judgement.octets) return 1;
    if (judgement.by == Judgement::By::Size) return 0;
    uint64_t octets = 0;
    for (uint64_t i = judgement.bit / 8U; i < (judgement.bit + judgement.bits + 7U) / 8; ++i)
        octets = octets << 8 | data[i];
    const unsigned behind = (0U - judgement.bit - judgement.bits) % 8;
    const uint64_t raw = octets >> behind & ((uint64_t{1} << judgement.bits) - 1);
    if (judgement.by == Judgement::By::Characters) return undefined_characters(judgement.bits, raw);
    const int64_t steps = steps_of(judgement.bits, judgement.is_signed, raw);
    return Limits{judgement.lowest, judgement.highest}.allow(steps) ? 0 : 1;
}

} // namespace ast::schema
