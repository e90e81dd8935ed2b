// The functions that write items as JSON: what the compiler makes of the pieces that their rows come to.
#pragma once

#include <bit>
#include <type_traits>
#include <utility>

#include "core/bits.hpp"
#include "core/copy.hpp"
#include "schema/compile.hpp"
#include "schema/walk.hpp"

namespace ast::schema {

// ---- Pieces of text ----

// Inlined wherever the text is a constant, so that it is copied by a few moves.
[[gnu::always_inline]] inline char *put(char *out, std::string_view text) {
    std::memcpy(out, text.data(), text.size());
    return out + text.size();
}

// The symbols of codes of a few bits.
template <unsigned Bits>
struct Symbols {
    static constexpr size_t kCodes = size_t{1} << Bits;
    static constexpr const char *kSymbols = Bits == kIcaoBits ? kIcaoCharacters : kHexDigits;

    // Those of two codes.
    using Pair = std::array<char, 2>;
    static constexpr auto kPairs = [] {
        std::array<Pair, kCodes * kCodes> pairs{};
        for (size_t i = 0; i < pairs.size(); ++i) pairs[i] = {kSymbols[i / kCodes], kSymbols[i % kCodes]};
        return pairs;
    }();

    // Those of a number.
    [[gnu::always_inline]] static char *put(char *out, uint64_t value, unsigned count) {
        unsigned left = count * Bits;
        if (count % 2 != 0) *out++ = kSymbols[value >> (left -= Bits) & (kCodes - 1)];
        for (; left != 0; out += sizeof(Pair))
            std::memcpy(out, &kPairs[static_cast<size_t>(value >> (left -= 2 * Bits)) % kPairs.size()], sizeof(Pair));
        return out;
    }
};

inline char *put_hex(char *out, uint64_t value, unsigned digits) {
    *out = '"';
    out = Symbols<kHexBits>::put(out + 1, value, digits);
    *out = '"';
    return out + 1;
}

inline char *put_octets(char *out, const uint8_t *data, uint64_t count) {
    for (uint64_t i = 0; i < count; ++i) out = Symbols<kHexBits>::put(out, data[i], 2);
    return out;
}

// The first one lowest.
inline uint64_t load_eight(const void *characters) {
    uint64_t eight = 0;
    std::memcpy(&eight, characters, sizeof eight);
    if constexpr (std::endian::native == std::endian::big) eight = __builtin_bswap64(eight);
    return eight;
}

// Without the blanks at the end.
template <unsigned Characters>
char *put_icao(char *out, uint64_t raw, bool &is_lossy, unsigned characters = Characters) {
    char *end = Symbols<kIcaoBits>::put(out, raw, characters);
    if constexpr (Characters == 8) {
        const uint64_t eight = load_eight(out);
        is_lossy |= (any_of(eight, kUndefinedCharacter) & kEachOctet << 7) != 0;
        return out + (std::bit_width(eight ^ kEachOctet * ' ') + 7) / 8;
    }
    for (const char *at = out; at != end; ++at) is_lossy |= *at == kUndefinedCharacter;
    while (end != out && end[-1] == ' ') --end;
    return end;
}

// A number of a field that is no code with a text.
[[gnu::noinline]] inline char *put_raw(char *out, const Field &field, uint64_t raw, bool &is_lossy) {
    switch (field.kind) {
    case Kind::Code:
        return put_number(out, raw);
    case Kind::Octal:
        return put(Symbols<kOctalBits>::put(put(out, "\""), raw, field.bits / kOctalBits), "\"");
    case Kind::Icao:
        return put(put_icao<0>(put(out, "\""), raw, is_lossy, field.bits / kIcaoBits), "\"");
    case Kind::Raw:
    case Kind::Either:
        return is_shown_as_octets(field) ? put_hex(out, raw, hex_digits(field)) : put_number(out, raw);
    default:
        return put_value(out, field, raw);
    }
}

// The number of a code with its text.
inline char *put_code(char *out, uint64_t code, std::string_view text) {
    if (text.empty()) return put_number(out, code);
    out = put(put_number(put(out, "{\"value\":"), code), ",\"text\":\"");
    return put(copy_text(out, text.data(), text.size()), "\"}");
}

// ---- Fields ----

struct Writing {
    const Context &context;
    bool texts;
    size_t texts_place = texts; // in Writer
    bool is_lossy = false;      // what was written does not give the octets back
    bool gives_up = false;      // it is for others to write
};

inline std::string_view text_of(const uint8_t *texts, size_t place, const Field &field, uint64_t code) {
    if (place == kLookedFor) return field.kind == Kind::Code ? text_of_code(field.meaning, code) : Slice();
    const uint8_t *const lengths = texts + place + 1;
    if (code >= lengths[-1]) return {};
    const char *text = field.meaning;
    for (uint64_t i = 0; i < code; ++i) text += lengths[i] + 1;
    return {text, lengths[code]};
}

inline char *put_quoted(char *out, const uint8_t *data, size_t count) {
    return put(put_octets(put(out, "\""), data, count), "\"");
}

// Octets as characters; behind them others may be read.
[[gnu::noinline]] inline char *put_characters(Writing &writing, char *out, const uint8_t *octets, size_t count) {
    constexpr size_t kAtOnce = sizeof(uint64_t);
    constexpr char kDelete = '\x7F';
    while (count != 0 && octets[count - 1] == ' ') --count;
    *out++ = '"';
    const uint8_t *const end = octets + count;
    while (octets != end) {
        const auto left = static_cast<size_t>(end - octets);
        const uint64_t others = left < kAtOnce ? ~uint64_t{0} << 8 * left : 0;
        const uint64_t eight = (load_eight(octets) & ~others) | (kEachOctet * ' ' & others);
        if (are_plain(eight) && (any_of(eight, kDelete) & kEachOctet << 7) == 0) [[likely]] {
            std::memcpy(out, octets, kAtOnce);
            const size_t now = left < kAtOnce ? left : kAtOnce;
            octets += now;
            out += now;
            continue;
        }
        const char character = is_printable(*octets) ? static_cast<char>(*octets) : kUndefinedCharacter;
        writing.is_lossy |= !is_printable(*octets++);
        *out = '\\';
        out += character == '"' || character == '\\';
        *out++ = character;
    }
    *out++ = '"';
    return out;
}

// Of the number that stands behind it, if none is given.
[[gnu::noinline]] inline char *put_register(Writing &writing, char *out, const uint8_t *at, uint32_t number) {
    if (number == 0) number = at[kRegisterBits / 8];
    out = put(Symbols<kHexBits>::put(put(out, "{\"bds\":\""), number, 2), "\"");
    const Found found = find_register_writer(number);
    out = found.writer ? found.writer->write(writing, {out, at}, at + kRegisterBits / 8).out
                       : put_quoted(put(out, ",\"octets\":"), at, kRegisterBits / 8);
    return put(out, "}");
}

// Bits as a number, which octets hold that are read at once.
template <size_t kBit, size_t kBits>
[[gnu::always_inline]] inline uint64_t number_at(const uint8_t *at) {
    constexpr size_t kOctets = read_octets(octets_of_bits(kBit, kBits));
    static_assert(kOctets <= 8);
    at += kBit / 8;
    uint64_t word = 0;
    if constexpr (kOctets == 1) word = *at;
    if constexpr (kOctets == 2) word = read_u16(at);
    if constexpr (kOctets == 4) word = read_u32(at);
    if constexpr (kOctets == 8) word = read_u64(at);
    return word >> (8 * kOctets - kBit % 8 - kBits) & ((uint64_t{1} << kBits) - 1);
}

// ---- Pieces ----

[[gnu::always_inline]] inline char *copy_blocks(char *out, const char *text, size_t chars) {
    std::memcpy(out, text, kBlock);
    for (size_t i = kBlock; i < chars; i += kBlock) std::memcpy(out + i, text + i, kBlock);
    return out + chars;
}

// Digits with their texts.
[[gnu::noinline]] inline char *put_with_texts(char *out, std::string_view text, const Digit *digit, size_t digits,
                                              const uint8_t *at, const Field *rows, const uint8_t *texts) {
    const uint64_t word = read_u64(at);
    size_t from = 0;
    for (const Digit *const end = digit + digits; digit != end; ++digit) {
        const uint64_t code = word >> digit->shift & digit->mask;
        out = copy_blocks(out, text.data() + from, digit->place - from);
        out = put_code(out, code, text_of(texts, digit->texts, rows[digit->row], code));
        from = digit->place + 1U;
    }
    return copy_blocks(out, text.data() + from, text.size() - from);
}

// The functions of items or registers.
template <const auto &kItems, bool kAreRegisters>
class Written {
    static constexpr auto kCompiled = compiled<kItems, kAreRegisters>();
    static constexpr auto kText = kCompiled.text;
    static constexpr auto kDigits = kCompiled.digits;
    static constexpr auto kTexts = kCompiled.texts;

public:
    static constexpr auto writers() {
        return []<size_t... kNodes>(std::index_sequence<kNodes...>) { return std::array{writer<kNodes>()...}; }
        (std::make_index_sequence<std::size(kItems)>());
    }

private:
    template <size_t kNode>
    static constexpr Writer writer() {
        const Node &node = kCompiled.nodes[kNode];
        return {node.shape == Shape::Random ? give_up : write<kNode>,
                narrow<uint16_t>(node.room),
                {narrow<uint16_t>(node.density), narrow<uint16_t>(node.density_with_texts)},
                {narrow<uint8_t>(node.along), narrow<uint8_t>(node.along_with_texts)}};
    }
    template <size_t kNode>
    static Cursor write(Writing &writing, Cursor cursor, const uint8_t *end) {
        return node<kNode>(writing, cursor, end) ? cursor : Cursor{nullptr, nullptr};
    }

    static Cursor give_up(Writing &writing, Cursor, const uint8_t *) {
        writing.gives_up = true;
        return {nullptr, nullptr};
    }

    // ---- Nodes: false where the octets end too early, or announce what no edition knows ----

    static bool has(const Cursor &cursor, const uint8_t *end, size_t octets) {
        return static_cast<size_t>(end - cursor.at) >= octets;
    }

    template <size_t kNode>
    [[gnu::always_inline]] static bool node(Writing &writing, Cursor &cursor, const uint8_t *end) {
        constexpr Shape kShape = kCompiled.nodes[kNode].shape;
        if constexpr (kShape == Shape::Fixed) return fixed<kNode>(writing, cursor, end);
        if constexpr (kShape == Shape::Extended) return extended<kNode>(writing, cursor, end);
        if constexpr (kShape == Shape::Compound) return compound<kNode>(writing, cursor, end);
        if constexpr (kShape == Shape::Repetitive) return repetitive<kNode>(writing, cursor, end);
        if constexpr (kShape == Shape::Chained) return chained<kNode>(writing, cursor, end);
        if constexpr (kShape == Shape::Explicit) return explicit_length<kNode>(writing, cursor, end);
        return false;
    }

    template <size_t kNode>
    [[gnu::always_inline]] static bool fixed(Writing &writing, Cursor &cursor, const uint8_t *end) {
        constexpr Node kThis = kCompiled.nodes[kNode];
        if (!has(cursor, end, kThis.octets)) [[unlikely]]
            return false;
        cursor.out = pieces<kThis.first, kThis.first + kThis.count>(writing, cursor.out, cursor.at);
        cursor.at += kThis.octets;
        return true;
    }

    // The key of a node of nodes. The comma in front of the first of them becomes its bracket.
    template <size_t kNode>
    [[gnu::always_inline]] static char *open(Cursor &cursor) {
        constexpr Node kThis = kCompiled.nodes[kNode];
        std::memcpy(cursor.out, kText.data() + kThis.text, kThis.chars);
        return cursor.out += kThis.chars;
    }
    template <bool kMayBeEmpty = true>
    [[gnu::always_inline]] static void close(char *bracket, char opening, char closing, Cursor &cursor) {
        *bracket = opening;
        if (kMayBeEmpty) cursor.out += cursor.out == bracket;
        *cursor.out++ = closing;
    }

    template <size_t kNode>
    [[gnu::always_inline]] static bool extended(Writing &writing, Cursor &cursor, const uint8_t *end) {
        constexpr Node kThis = kCompiled.nodes[kNode];
        char *const bracket = open<kNode>(cursor);
        if (!parts<kThis.first, kThis.first + kThis.count>(writing, cursor, end)) return false;
        constexpr bool kMayBeEmpty = kCompiled.pieces[kCompiled.nodes[kThis.first].first].chars == 0;
        close<kMayBeEmpty>(bracket, '{', '}', cursor);
        return true;
    }
    template <size_t kFrom, size_t kTo>
    [[gnu::always_inline]] static bool parts(Writing &writing, Cursor &cursor, const uint8_t *end) {
        constexpr Node kPart = kCompiled.nodes[kFrom];
        if (!fixed<kFrom>(writing, cursor, end)) [[unlikely]]
            return false;
        if (!kPart.has_fx || !has_fx(cursor.at[-1])) {
            writing.is_lossy |= kPart.is_silent;
            return true;
        }
        if constexpr (kFrom + 1 != kTo) return parts<kFrom + 1, kTo>(writing, cursor, end);
        writing.is_lossy = true;
        bool goes_on = true;
        while (goes_on && cursor.at != end) goes_on = has_fx(*cursor.at++); // parts that no edition knows
        return true;
    }

    template <size_t kNode>
    [[gnu::always_inline]] static bool compound(Writing &writing, Cursor &cursor, const uint8_t *end) {
        constexpr Node kThis = kCompiled.nodes[kNode];
        const uint8_t *const presence = cursor.at;
        if (!skip_presence<kThis.octets>(writing, cursor, end)) return false;
        const uint8_t *const behind = cursor.at;
        char *const bracket = open<kNode>(cursor);
        if (!subfields<kNode, 0>(presence, behind, writing, cursor, end)) return false;
        close(bracket, '{', '}', cursor);
        return true;
    }
    // Past the presence bits: so many octets, or those chained by FX.
    template <size_t kOctets>
    [[gnu::always_inline]] static bool skip_presence(Writing &writing, Cursor &cursor, const uint8_t *end) {
        const uint8_t *const first = cursor.at;
        if constexpr (kOctets != 0) {
            cursor.at += has(cursor, end, kOctets) ? kOctets : 0;
        } else {
            while (cursor.at != end && has_fx(*cursor.at)) ++cursor.at;
            if (cursor.at == end) return false;
            if (cursor.at != first && *cursor.at == 0) writing.is_lossy = true; // the last octet announces nothing
            ++cursor.at;
        }
        return cursor.at != first;
    }
    // Those that an octet and the ones behind it announce.
    template <size_t kNode, size_t kSlot>
    [[gnu::always_inline]] static bool subfields(const uint8_t *presence, const uint8_t *behind, Writing &writing,
                                                 Cursor &cursor, const uint8_t *end) {
        constexpr size_t kSlots = kCompiled.nodes[kNode].octets == 0 ? 7 : 8;
        constexpr unsigned kAll = 0x100 - (1U << (8 - kSlots));
        if (presence == behind) return true;
        if constexpr (kSlot < kCompiled.nodes[kNode].count) {
            return subfields_in<kNode, kSlot>(*presence, std::make_index_sequence<kSlots>(), writing, cursor, end) &&
                   subfields<kNode, kSlot + kSlots>(presence + 1, behind, writing, cursor, end);
        } else {
            while (presence != behind && (*presence & kAll) == 0) ++presence;
            return presence == behind;
        }
    }
    template <size_t kNode, size_t kSlot, size_t... kPlaces>
    [[gnu::always_inline]] static bool subfields_in(unsigned presence, std::index_sequence<kPlaces...>,
                                                    Writing &writing, Cursor &cursor, const uint8_t *end) {
        return ((!(presence & 0x80U >> kPlaces) || subfield<kNode, kSlot + kPlaces>(writing, cursor, end)) && ...);
    }
    template <size_t kNode, size_t kSlot>
    [[gnu::always_inline]] static bool subfield(Writing &writing, Cursor &cursor, const uint8_t *end) {
        constexpr Node kThis = kCompiled.nodes[kNode];
        if constexpr (kSlot < kThis.count) return node<kThis.first + kSlot>(writing, cursor, end);
        return false;
    }

    template <size_t kNode>
    [[gnu::always_inline]] static bool repetitive(Writing &writing, Cursor &cursor, const uint8_t *end) {
        constexpr Node kElement = kCompiled.nodes[kCompiled.nodes[kNode].first];
        if (!has(cursor, end, 1)) return false;
        const size_t octets = *cursor.at++ * kElement.octets;
        if (!has(cursor, end, octets)) return false;
        end = cursor.at + octets;
        char *const bracket = open<kNode>(cursor);
        for (; cursor.at != end; cursor.at += kElement.octets)
            cursor.out = pieces<kElement.first, kElement.first + kElement.count>(writing, cursor.out, cursor.at);
        close(bracket, '[', ']', cursor);
        return true;
    }

    template <size_t kNode>
    [[gnu::always_inline]] static bool chained(Writing &writing, Cursor &cursor, const uint8_t *end) {
        char *const bracket = open<kNode>(cursor);
        do
            if (!fixed<kCompiled.nodes[kNode].first>(writing, cursor, end)) { // a chain that is cut
                writing.is_lossy = true;
                break;
            }
        while (has_fx(cursor.at[-1]));
        close(bracket, '[', ']', cursor);
        return true;
    }

    // The octets behind a length as what is said of them, where they are exactly that; else as they are.
    template <size_t kNode>
    [[gnu::always_inline]] static bool explicit_length(Writing &writing, Cursor &cursor, const uint8_t *end) {
        constexpr Node kThis = kCompiled.nodes[kNode];
        if (!has(cursor, end, 1) || *cursor.at == 0 || !has(cursor, end, *cursor.at)) return false;
        end = cursor.at + *cursor.at;
        ++cursor.at;
        if constexpr (kThis.count != 0) {
            const bool was_lossy = writing.is_lossy;
            Cursor content = cursor;
            if (node<kThis.first>(writing, content, end) && content.at == end) {
                cursor = content;
                return true;
            }
            writing.is_lossy = was_lossy;
        }
        open<kNode>(cursor);
        cursor.out = put_quoted(cursor.out, cursor.at, static_cast<size_t>(end - cursor.at));
        cursor.at = end;
        return true;
    }

    // ---- Pieces ----

    template <size_t kFrom, size_t kTo>
    [[gnu::always_inline]] static char *pieces(Writing &writing, char *out, const uint8_t *at) {
        if constexpr (kFrom != kTo) {
            constexpr Piece kPiece = kCompiled.pieces[kFrom];
            constexpr size_t kBehind = kFrom + 1 + kPiece.count;
            if constexpr (kPiece.op == Op::Case) {
                constexpr size_t kSkip = kBehind - 1;
                constexpr size_t kEnd = kBehind + kCompiled.pieces[kSkip].count;
                out = is_case<kFrom>(writing, at) ? pieces<kFrom + 1, kSkip>(writing, out, at)
                                                  : pieces<kBehind, kEnd>(writing, out, at);
                return pieces<kEnd, kTo>(writing, out, at);
            } else {
                if constexpr (kPiece.op == Op::Plain || kPiece.op == Op::Value)
                    out = value<kFrom>(writing, text<kFrom>(writing, out, at), at);
                else if constexpr (kPiece.op == Op::Spare)
                    spare<kFrom>(writing, at);
                else if (is_there<kFrom>(writing, at))
                    out = pieces<kFrom + 1, kBehind>(writing, out, at);
                return pieces<kBehind, kTo>(writing, out, at);
            }
        }
        return out;
    }

    template <size_t kPlace>
    [[gnu::always_inline]] static bool is_case(const Writing &writing, const uint8_t *at) {
        constexpr Piece kPiece = kCompiled.pieces[kPlace];
        const bool is_type =
            kPiece.message_type == kAnyMessageType || kPiece.message_type == writing.context.message_type;
        return is_type && number_at<kPiece.bit, kPiece.bits>(at) == kPiece.selector;
    }
    template <size_t kPlace>
    [[gnu::always_inline]] static void spare(Writing &writing, const uint8_t *at) {
        constexpr Piece kPiece = kCompiled.pieces[kPlace];
        if (number_at<kPiece.bit, kPiece.bits>(at) != 0) [[unlikely]]
            writing.is_lossy = true;
    }
    // By a status, or a number. A member without a status is to be 0.
    template <size_t kPlace>
    [[gnu::always_inline]] static bool is_there(Writing &writing, const uint8_t *at) {
        constexpr Piece kPiece = kCompiled.pieces[kPlace];
        const uint64_t number = number_at<kPiece.bit, kPiece.bits>(at);
        if (kPiece.op == Op::UnlessZero) return number != 0;
        if (number >> (kPiece.bits - 1) != 0) return true;
        if (number != 0) writing.is_lossy = true;
        return false;
    }

    template <size_t kPlace>
    [[gnu::always_inline]] static char *text(const Writing &writing, char *out, const uint8_t *at) {
        constexpr Piece kPiece = kCompiled.pieces[kPlace];
        if constexpr (kPiece.digits != 0) {
            at += kPiece.digits_octet;
            if (writing.texts) [[unlikely]]
                return put_with_texts(out, {kText.data() + kPiece.text, kPiece.chars}, kDigits.data() + kPiece.digit,
                                      kPiece.digits, at, kPiece.item, kTexts.data());
            std::memcpy(out, kText.data() + kPiece.text, kPiece.chars);
            digits<kPiece.digit>(out, at, std::make_index_sequence<kPiece.digits>());
        } else {
            std::memcpy(out, kText.data() + kPiece.text, kPiece.chars);
        }
        return out + kPiece.chars;
    }
    template <size_t kFirst, size_t... kPlaces>
    [[gnu::always_inline]] static void digits(char *text, const uint8_t *at, std::index_sequence<kPlaces...>) {
        (digit<kFirst + kPlaces>(text, at), ...);
    }
    template <size_t kPlace>
    [[gnu::always_inline]] static void digit(char *text, const uint8_t *at) {
        constexpr Digit kDigit = kCompiled.digits[kPlace];
        const int value = at[7 - kDigit.shift / 8] >> kDigit.shift % 8 & kDigit.mask;
        text[kDigit.place] = static_cast<char>(text[kDigit.place] + value);
    }

    template <size_t kPlace>
    [[gnu::always_inline]] static char *value(Writing &writing, char *out, const uint8_t *at) {
        constexpr Piece kPiece = kCompiled.pieces[kPlace];
        if constexpr (kPiece.op == Op::Plain)
            return out;
        else {
            constexpr Field kField = *kPiece.field;
            if constexpr (kField.kind == Kind::Ascii)
                return put_characters(writing, out, at + kPiece.bit / 8, kField.bits / 8);
            else if constexpr (kField.kind == Kind::Register)
                return put_register(writing, out, at + kPiece.bit / 8, kField.denominator);
            else if constexpr (kField.bits > kMaxNumberBits)
                return put_quoted(out, at + kPiece.bit / 8, kField.bits / 8);
            else {
                const uint64_t raw = number_at<kPiece.bit, kPiece.bits>(at);
                if constexpr (kField.kind == Kind::Code)
                    if (writing.texts) [[unlikely]]
                        return put_code(out, raw, text_of(kTexts.data(), kPiece.texts, *kPiece.field, raw));
                return number<kPlace>(writing, out, raw);
            }
        }
    }
    template <size_t kPlace>
    [[gnu::always_inline]] static char *number(Writing &writing, char *out, uint64_t raw) {
        constexpr Piece kPiece = kCompiled.pieces[kPlace];
        constexpr Field kField = *kPiece.field;
        if constexpr (kField.kind == Kind::Icao) {
            return put(put_icao<kField.bits / kIcaoBits>(put(out, "\""), raw, writing.is_lossy), "\"");
        } else if constexpr (kField.kind == Kind::Octal) {
            return put(Symbols<kOctalBits>::put(put(out, "\""), raw, kField.bits / kOctalBits), "\"");
        } else if constexpr (is_shown_as_octets(kField)) {
            return put(Symbols<kHexBits>::put(put(out, "\""), raw, hex_digits(kField)), "\"");
        } else if constexpr (kField.kind == Kind::Code || kField.kind == Kind::Raw || kField.kind == Kind::Either) {
            return put_number(out, raw);
        } else {
            constexpr uint64_t kLargest = kField.is_quantity() ? in_decimals(kField, uint64_t{1} << kField.bits) : 1;
            using Number = std::conditional_t<(kLargest < UINT32_MAX) && kField.offset == 0, uint32_t, uint64_t>;
            return put_value_by(
                out, kField, raw, [](char *to, uint64_t value) __attribute__((always_inline)) {
                    return put_quantity<kField.decimals>(to, static_cast<Number>(value));
                });
        }
    }
};

template <const auto &kItems, bool kAreRegisters = false>
inline constexpr auto kWritersOf = Written<kItems, kAreRegisters>::writers();

} // namespace ast::schema
