// Walking the octets of an item field by field.
#pragma once

#include <type_traits>

#include "core/bits.hpp"
#include "schema/edition.hpp"

namespace ast::schema {

// Octets as bits, most significant first.
class BitReader {
public:
    // The octets to read, and how many behind them may be read too, though they mean nothing here.
    BitReader(const uint8_t *data, uint64_t size, uint64_t following)
        : data_(data), bits_(size * 8), readable_(size + following) {}

    // The next bits as a number; at most kMaxNumberBits, and 0 for those behind the end.
    uint64_t take(unsigned bits) {
        const uint64_t value = word() << (position_ % 8) >> (64 - bits);
        position_ += bits;
        return value;
    }
    void skip(uint64_t bits) { position_ += bits; }
    bool has(uint64_t bits) const { return bits_ - position_ >= bits; }
    uint64_t bits_left() const { return bits_ - position_; }
    uint64_t octets_read() const { return position_ / 8; }
    const uint8_t *here() const { return data_ + position_ / 8; }
    // The octet that holds the bit in front of this place, and how many bits stand behind that in it.
    const uint8_t *octet_before() const { return data_ + (position_ - 1) / 8; }
    unsigned bits_behind() const { return static_cast<unsigned>((8 - position_ % 8) % 8); }
    // From here to so many octets on.
    BitReader next(uint64_t octets) const { return {here(), octets, 0}; }

private:
    uint64_t word() const {
        const uint64_t first = position_ / 8;
        uint64_t value = 0;
        if (first + sizeof value <= readable_) [[likely]]
            return read_u64(data_ + first);
        for (uint64_t i = first; i < first + sizeof value; ++i) value = value << 8 | (i < readable_ ? data_[i] : 0U);
        return value;
    }

    const uint8_t *data_;
    uint64_t bits_;
    uint64_t readable_;
    uint64_t position_ = 0;
};

// What reading an item depends on beside its octets.
struct Context {
    ast_uap_t uap{};
    uint32_t category = 0;
    uint32_t message_type = 0; // of the record
};

// A visitor for whom nothing counts but that the octets can be walked: what is of fixed size is passed over.
struct Nobody {
    void open(const Field &) {}
    void close(const Field &) {}
    void element() {}
    void open_register(const Field &, uint32_t, uint64_t) {}
    void value(const Field &, uint64_t) {}
    void octets(const Field &, const uint8_t *, uint64_t) {}
};

// An object that stands in a list and has no name.
inline constexpr Field kObject = row(Kind::Group, "", "", 0);
// The octets of a register whose fields are not known.
inline constexpr Field kRegisterOctets = row(Kind::Raw, "octets", "", 56);

constexpr unsigned kRegisterBits = 56;
constexpr unsigned kRegisterNumberBits = 8;

constexpr bool is_list(const Field &field) {
    return field.kind == Kind::Repetitive || field.kind == Kind::Chained || field.kind == Kind::Random;
}

// The reading of an Either by the field before; null where none is for its value.
inline const Field *reading_of(const Field *either, uint64_t selector, uint32_t message_type) {
    for (const Field *when = either + 1; when != behind(either); when = behind(when))
        if (when->selector() == selector &&
            (when->message_type() == kAnyMessageType || when->message_type() == message_type))
            return when + 1;
    return nullptr;
}

// Whether a member of an object has no name, so that its own members are those of the object.
constexpr bool is_transparent(const Field &field) { return field.kind == Kind::Group && !field.is_named(); }

// Whether a field, or all of a group, is read as one number.
constexpr bool is_number(const Field &field) { return field.bits <= kMaxNumberBits && !holds_octets(field); }

// Tells a visitor what stands in the octets: value(field, raw) for what fits a number, octets(field, data, count) for
// what does not, open(field) and close(field) around what holds others, element() before each one of a list, and
// open_register(field, number, raw) for a register. False when the octets end before the fields do.
template <typename Visitor>
class Walk {
public:
    Walk(BitReader bits, Visitor &visitor, const Context &context)
        : bits_(bits), visitor_(visitor), context_(context) {}

    bool field(const Field *field) {
        if (field->kind <= Kind::Octal && field->bits <= kMaxNumberBits) { // the simplest, without much ado
            if (!bits_.has(field->bits)) return false;
            number(field, bits_.take(field->bits));
            return true;
        }
        return composite(field);
    }

    // Whether what was visited does not give the octets back: spare bits are set, a chain goes on, octets are left.
    bool is_lossy() const { return loses_ || bits_.bits_left() != 0; }
    const BitReader &bits() const { return bits_; }

private:
    static constexpr bool kPassesOver = std::is_same_v<Visitor, Nobody>;
    // A visitor for whom the places count is told where a number ends, by ends_at(bits), before it gets that.
    static constexpr bool kTellsPlaces = requires(Visitor visitor, BitReader bits) { visitor.ends_at(bits); };

    bool composite(const Field *field) {
        switch (field->kind) {
        case Kind::Group:
            if (!bits_.has(field->bits)) return false;
            if constexpr (kPassesOver) return bits_.skip(field->bits), true;
            visitor_.open(*field); // also where it has no name: it stands in a list
            members(field);
            visitor_.close(*field);
            return true;
        case Kind::Extended:
            return extended(field);
        case Kind::Compound:
            return compound(field);
        case Kind::Repetitive:
            return repetitive(field);
        case Kind::Chained:
            return chained(field);
        case Kind::Explicit:
            return explicit_length(field);
        case Kind::Random:
            return random(field);
        case Kind::None:
            return false;
        default:
            if (!bits_.has(field->bits)) return false;
            leaf(field);
            return true;
        }
    }

    // The members of a group whose octets are there.
    void members(const Field *parent) {
        if constexpr (kPassesOver) return bits_.skip(parent->bits);
        if (is_number(*parent) && !kTellsPlaces) return members_of(parent, bits_.take(parent->bits));
        for (const Field *member = parent + 1; member != behind(parent); member = behind(member))
            if (member->kind != Kind::Status)
                leaf(member);
            else if (!bits_.take(1))
                member = behind(member), lose(bits_.take(member->bits) != 0); // which means nothing
    }

    // The same where all of them are one number.
    void members_of(const Field *parent, uint64_t raw) {
        uint64_t word = raw << (64 - parent->bits);
        const auto take = [&word](unsigned bits) {
            const uint64_t value = word >> (64 - bits);
            word <<= bits;
            return value;
        };
        const Field *const end = behind(parent);
        for (const Field *member = parent + 1; member != end;) {
            const uint64_t value = take(member->bits);
            if (member->kind <= Kind::Octal) [[likely]] { // which has no rows of its own
                number(member++, value);
                continue;
            }
            if (member->kind == Kind::Spare)
                lose(value != 0);
            else if (member->kind != Kind::Status)
                bits_of(member, value);
            else if (!value)
                member = behind(member), lose(take(member->bits) != 0); // which means nothing
            member = behind(member);
        }
    }

    void leaf(const Field *field) {
        if constexpr (kTellsPlaces) // of each member of a reading
            if (field->kind == Kind::Either)
                if (const Field *const reading = reading_of(field, last_, context_.message_type)) return leaf(reading);
        if (is_number(*field) && !(kTellsPlaces && field->kind == Kind::Group))
            return bits_of(field, bits_.take(field->bits));
        if (field->kind == Kind::Register) return mode_s_register(field);
        if (field->kind == Kind::Group) return group(field, [&] { members(field); });
        visitor_.octets(*field, bits_.here(), field->bits / 8);
        bits_.skip(field->bits);
    }

    // What is read as one number, be it one or several.
    void bits_of(const Field *field, uint64_t raw) {
        switch (field->kind) {
        case Kind::Spare:
            return lose(raw != 0);
        case Kind::UnsignedOrNone:
            if (raw == 0) return;
            if constexpr (kTellsPlaces) visitor_.ends_at(bits_);
            return visitor_.value(*field, raw);
        case Kind::Group:
            return group(field, [&] { members_of(field, raw); });
        case Kind::Either: {
            const Field *const reading = reading_of(field, last_, context_.message_type);
            return reading ? bits_of(reading, raw) : number(field, raw);
        }
        default:
            return number(field, raw);
        }
    }

    void number(const Field *field, uint64_t raw) {
        last_ = raw;
        if constexpr (kTellsPlaces) visitor_.ends_at(bits_);
        visitor_.value(*field, raw);
    }

    // An object, but for a group without a name, whose members are those of what it stands in.
    template <typename Members>
    void group(const Field *field, Members members) {
        if (is_transparent(*field)) return members();
        visitor_.open(*field);
        members();
        visitor_.close(*field);
    }

    void mode_s_register(const Field *field) {
        const uint32_t number = field->denominator ? field->denominator : bits_.here()[kRegisterBits / 8];
        visitor_.open_register(*field, number, BitReader(bits_).take(field->bits));
        if (const Field *const found = find_register(number))
            members(found);
        else
            this->number(&kRegisterOctets, bits_.take(kRegisterBits));
        visitor_.close(kObject);
        if (!field->denominator) bits_.skip(kRegisterNumberBits);
    }

    bool extended(const Field *field) {
        visitor_.open(*field);
        const Field *const end = behind(field);
        bool goes_on = true;
        for (const Field *part = field + 1; part != end && goes_on; part = behind(part)) {
            if (!bits_.has(part->bits + fx_bits(*part))) return false;
            members(part);
            goes_on = fx_bits(*part) != 0 && bits_.take(1) != 0;
            lose(!goes_on && part != field + 1 && is_silent(part));
        }
        lose(goes_on);
        while (goes_on && bits_.has(8)) goes_on = bits_.take(8) & 1; // parts that no edition knows
        visitor_.close(*field);
        return true;
    }

    // Whether no member of a part says that the part is there.
    static bool is_silent(const Field *part) {
        for (const Field *member = part + 1; member != behind(part); member = behind(member))
            if (member->is_named()) return false;
        return true;
    }

    bool compound(const Field *field) {
        BitReader presence = bits_;
        const bool has_fx = field->denominator == 0;
        if (!skip_presence(field->denominator)) return false;
        visitor_.open(*field);
        const unsigned step = has_fx ? 7 : 8;
        uint64_t octet = 0; // of the presence bits; the next one is bit 8
        bool goes_on = true;
        const Field *subfield = field + 1;
        const Field *const end = behind(field);
        for (unsigned octets = has_fx ? UINT32_MAX : field->denominator; goes_on && octets != 0; --octets) {
            octet = presence.take(8);
            if (has_fx) goes_on = octet & 1;
            for (unsigned i = 0; i < step; ++i, octet <<= 1) {
                const bool is_present = octet & 0x80;
                if (is_present && (subfield == end || !this->field(subfield))) return false;
                if (subfield != end) subfield = behind(subfield);
            }
        }
        visitor_.close(*field);
        return true;
    }

    // Past the presence bits: so many octets, or those chained by FX.
    bool skip_presence(unsigned octets) {
        if (octets != 0) {
            if (!bits_.has(8U * octets)) return false;
            bits_.skip(8U * octets);
            return true;
        }
        uint64_t octet = 0;
        uint64_t count = 0;
        do {
            if (!bits_.has(8)) return false;
            octet = bits_.take(8);
            ++count;
        } while (octet & 1);
        lose(count > 1 && octet == 0); // the last octet announces nothing
        return true;
    }

    bool repetitive(const Field *list) {
        if (!bits_.has(8)) return false;
        uint64_t left = bits_.take(8);
        if (!bits_.has(left * list[1].bits)) return false;
        if constexpr (kPassesOver) return bits_.skip(left * list[1].bits), true;
        visitor_.open(*list);
        for (; left != 0; --left) {
            visitor_.element();
            field(list + 1);
        }
        visitor_.close(*list);
        return true;
    }

    bool chained(const Field *list) {
        visitor_.open(*list);
        do {
            if (!bits_.has(list[1].bits + 1U)) { // a chain that is cut
                lose(true);
                break;
            }
            visitor_.element();
            field(list + 1);
        } while (bits_.take(1));
        visitor_.close(*list);
        return true;
    }

    // The octets behind a length as what is said of them, where they are exactly that; else as they are.
    bool explicit_length(const Field *field) {
        if (!bits_.has(8)) return false;
        const uint64_t length = bits_.take(8);
        if (length == 0 || !bits_.has((length - 1) * 8)) return false;
        const BitReader content = bits_.next(length - 1);
        bits_.skip((length - 1) * 8);
        if (field->rows != 0 && fills(content, field + 1)) {
            Walk inner(content, visitor_, context_);
            inner.field(field + 1);
            lose(inner.is_lossy());
            return true;
        }
        visitor_.octets(*field, content.here(), length - 1);
        return true;
    }

    bool fills(const BitReader &content, const Field *field) const {
        Nobody nobody;
        Walk<Nobody> trial(content, nobody, context_);
        return trial.field(field) && trial.bits().bits_left() == 0;
    }

    // FRNs and their items, or, where they are not exactly that, octets behind a length.
    bool random(const Field *field) {
        Nobody nobody;
        Walk<Nobody> trial(bits_, nobody, context_);
        if (trial.fields_by_frn(field) && trial.bits().bits_left() == 0) return fields_by_frn(field);
        return explicit_length(field);
    }

public:
    // A count, and as many times an FRN and the item that it announces.
    bool fields_by_frn(const Field *list) {
        if (!bits_.has(8)) return false;
        visitor_.open(*list);
        for (uint64_t left = bits_.take(8); left != 0; --left) {
            if (!bits_.has(8) || !context_.uap.get_dataitem) return false;
            const auto frn = static_cast<uint32_t>(bits_.take(8));
            const Field *const item = find_item(context_.uap.get_dataitem(context_.category, frn), context_.uap);
            if (!item || item->kind == Kind::Random) return false;
            visitor_.element();
            visitor_.open(kObject);
            if (!field(item)) return false;
            visitor_.close(kObject);
        }
        visitor_.close(*list);
        return true;
    }

private:
    void lose(bool loses) { loses_ = loses_ || loses; }

    BitReader bits_;
    Visitor &visitor_;
    const Context &context_;
    uint64_t last_ = 0; // number read, which may tell how to read the next one
    bool loses_ = false;
};

} // namespace ast::schema
