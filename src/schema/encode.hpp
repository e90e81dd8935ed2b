// Values from JSON as bits.
#pragma once

#include "schema/json.hpp"
#include "schema/number.hpp"
#include "schema/texts.hpp"

namespace ast::schema {

// Bits into a buffer, most significant first. Counts on behind its end, where nothing is written.
class BitWriter {
public:
    BitWriter(uint8_t *buffer, uint64_t length) : buffer_(buffer), length_(buffer ? length : 0) {}

    void put(uint64_t value, unsigned bits) {
        while (bits != 0) {
            const auto used = static_cast<unsigned>(position_ % 8);
            const unsigned now = bits < 8 - used ? bits : 8 - used;
            bits -= now;
            if (position_ / 8 < length_) {
                uint8_t &octet = buffer_[position_ / 8];
                if (used == 0) octet = 0;
                octet = static_cast<uint8_t>(octet | (value >> bits & ((1U << now) - 1)) << (8 - used - now));
            }
            position_ += now;
        }
    }
    // An octet that was put before.
    void set(uint64_t place, uint64_t value) {
        if (place < length_) buffer_[place] = static_cast<uint8_t>(value);
    }
    uint64_t octets() const { return position_ / 8; }
    bool has_room_for(uint64_t octets) const { return this->octets() <= length_ && length_ - this->octets() >= octets; }
    const uint8_t *here() const { return buffer_ + octets(); }
    void rewind(uint64_t octets) { position_ = octets * 8; }

private:
    uint8_t *buffer_;
    uint64_t length_;
    uint64_t position_ = 0;
};

// How many octets a string of hexadecimal digits is; false for anything else.
inline bool hex_octets(uint64_t &octets, Slice value) {
    if (!is_string(value)) return false;
    const Slice digits = between_quotes(value);
    for (const char c : digits)
        if (ast_hex_to_int(c) > 0x0F) return false;
    octets = digits.size() / 2;
    return digits.size() % 2 == 0;
}
constexpr char kNoHexDigits[] = "is no string of pairs of hexadecimal digits";

inline void put_hex_octets(BitWriter &out, Slice value) {
    for (const char c : between_quotes(value)) out.put(ast_hex_to_int(c), kHexBits);
}

// The value of a code, which {"value":5,"text":"..."} tells, too.
inline Slice plain_value(const Field &field, Slice value) {
    return field.kind == Kind::Code && is_object(value) ? JsonObject(value).find("\"value\"") : value;
}

// The raw number of a field that is one, from its value; what is wrong otherwise, else null.
const char *read_leaf(uint64_t &raw, const Field &field, Slice value);

// The number of a register, from an object with "bds".
const char *read_register_number(uint32_t &number, Slice object);

// The profile of a name; false for a name that no profile has.
bool find_profile(ast_uap_t &uap, Slice name);

} // namespace ast::schema
