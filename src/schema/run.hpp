// Running the programs of items: their JSON, written where there is room for sure.
#pragma once

#include <bit>

#include "schema/number.hpp"
#include "schema/texts.hpp"
#include "schema/walk.hpp"

namespace ast::schema {

// ---- Pieces of text ----

// Inlined wherever the text is a constant, so that it is copied by a few moves.
[[gnu::always_inline]] inline char *put(char *out, std::string_view text) {
    std::memcpy(out, text.data(), text.size());
    return out + text.size();
}

inline char *put_octal(char *out, uint64_t value, unsigned digits) {
    *out++ = '"';
    for (unsigned i = digits; i != 0; --i) *out++ = digit(value >> (kOctalBits * (i - 1)) & 7);
    *out++ = '"';
    return out;
}

inline char *put_hex_digits(char *out, uint64_t value, unsigned digits) {
    for (unsigned i = digits; i != 0; --i) *out++ = kHexDigits[value >> (kHexBits * (i - 1)) & 0x0F];
    return out;
}

inline char *put_hex(char *out, uint64_t value, unsigned digits) {
    *out++ = '"';
    out = put_hex_digits(out, value, digits);
    *out++ = '"';
    return out;
}

inline char *put_octets(char *out, const uint8_t *data, uint64_t count) {
    for (uint64_t i = 0; i < count; ++i) {
        *out++ = kHexDigits[data[i] >> 4];
        *out++ = kHexDigits[data[i] & 0x0F];
    }
    return out;
}

// Without the blanks at the end.
inline char *put_icao(char *out, unsigned characters, uint64_t raw, bool &is_lossy) {
    *out++ = '"';
    char *end = out;
    bool is_any_undefined = false;
    for (unsigned left = characters * kIcaoBits; left != 0; left -= kIcaoBits) {
        const char character = kIcaoCharacters[raw >> (left - kIcaoBits) & 0x3F];
        *out++ = character;
        is_any_undefined |= character == kUndefinedCharacter;
        if (character != ' ') end = out;
    }
    is_lossy |= is_any_undefined;
    *end++ = '"';
    return end;
}

// The number of a code with its text.
inline char *put_code(char *out, uint64_t code, std::string_view text) {
    if (text.empty()) return put_number(out, code);
    out = put(put_number(put(out, "{\"value\":"), code), ",\"text\":\"");
    std::memcpy(out, text.data(), text.size());
    return put(out + text.size(), "\"}");
}

// ---- Programs ----

// Octets behind a number that may be read along with its last one.
constexpr size_t kReadAlong = sizeof(uint64_t) - 1;

// Characters that may be written behind a limit: brackets and keys between two pieces, and the rest of a block.
constexpr size_t kBeyondLimit = 128;

template <bool kTexts>
class Runner {
public:
    // Writes up to kBeyondLimit characters in front of the end.
    Runner(char *end, const Context &context) : limit_(end - kBeyondLimit), context_(context) {}

    // Writes an item, with a comma in front. False when its octets end too early, or it is given up.
    [[gnu::always_inline]] bool item(char *&out, const Found &found, const ast_dataitem_t &item) {
        is_lossy_ = false;
        at_ = item.data;
        end_ = at_ + item.size;
        readable_ = end_ + item.following;
        program_ = found.program;
        rows_ = found.field;
        out_ = out;
        if (!(found.node->shape == Shape::Fixed ? fixed<true>(*found.node) : node(*found.node))) return false;
        out = out_;
        return true;
    }
    // Whether what was written does not give the octets back.
    bool is_lossy() const { return is_lossy_ || at_ != end_; }
    // Whether there may be too little room, or no program.
    bool gives_up() const { return gives_up_; }

private:
    bool give_up() {
        gives_up_ = true;
        return false;
    }

    bool has(uint64_t octets) const { return static_cast<uint64_t>(end_ - at_) >= octets; }

    // ---- Nodes ----

    bool node(const Node &node) {
        switch (node.shape) {
        case Shape::Fixed:
            return fixed(node);
        case Shape::Extended:
            return extended(node);
        case Shape::Compound:
            return compound(node);
        case Shape::Repetitive:
            return repetitive(node);
        case Shape::Chained:
            return chained(node);
        case Shape::Explicit:
            return explicit_length(node);
        case Shape::Random:
            return give_up();
        default:
            return false;
        }
    }

    // Inlined where most come by.
    template <bool kInline = false>
    [[gnu::always_inline]] bool fixed(const Node &node) {
        if (!has(node.octets)) return false;
        if (limit_ - out_ < (kTexts ? node.room_with_texts : node.room)) return give_up();
        const bool may_read_along = static_cast<size_t>(readable_ - at_) >= node.octets + kReadAlong;
        const uint8_t *const at = may_read_along ? at_ : copied(node.octets);
        out_ = kInline ? run_inline(*program_, node, rows_, out_, at) : run(*program_, node, rows_, out_, at);
        at_ += node.octets;
        return true;
    }
    // The next octets where others may be read along.
    [[gnu::noinline]] const uint8_t *copied(size_t octets) {
        std::memcpy(copy_, at_, octets);
        std::memset(copy_ + octets, 0, kReadAlong);
        return copy_;
    }

    // The key of a node of nodes. The comma in front of the first of them becomes its bracket.
    bool open(const Node &node, char *&bracket) {
        if (out_ > limit_) return give_up();
        std::memcpy(out_, program_->text + node.text, kBlock);
        bracket = out_ += node.chars;
        return true;
    }
    void close(char *bracket, char opening, char closing) {
        *bracket = opening;
        out_ += out_ == bracket;
        *out_++ = closing;
    }

    bool extended(const Node &node) {
        char *bracket = nullptr;
        if (!open(node, bracket)) return false;
        bool goes_on = true;
        const Node *part = program_->nodes + node.first;
        for (const Node *const end = part + node.count; part != end && goes_on; ++part) {
            if (!fixed(*part)) return false;
            goes_on = part->has_fx && (at_[-1] & 1);
            is_lossy_ |= !goes_on && part->is_silent;
        }
        is_lossy_ |= goes_on;
        while (goes_on && at_ != end_) goes_on = *at_++ & 1; // parts that no edition knows
        close(bracket, '{', '}');
        return true;
    }

    bool compound(const Node &node) {
        const uint8_t *presence = at_;
        if (!skip_presence(node.octets)) return false;
        char *bracket = nullptr;
        if (!open(node, bracket)) return false;
        const bool has_fx = node.octets == 0;
        unsigned slot = 0;
        for (const uint8_t *const end = at_; presence != end; ++presence, slot += has_fx ? 7 : 8)
            if (!subfields(node, slot, has_fx ? *presence & 0xFEU : *presence)) return false;
        close(bracket, '{', '}');
        return true;
    }
    // Those that an octet announces.
    bool subfields(const Node &node, unsigned first, unsigned presence) {
        const Node *const all = program_->nodes + node.first;
        while (presence != 0) {
            const auto place = static_cast<unsigned>(std::countl_zero(static_cast<uint8_t>(presence)));
            const unsigned slot = first + place;
            presence &= 0x7FU >> place;
            if (slot >= node.count) return false;
            const Node &subfield = all[slot];
            if (!(subfield.shape == Shape::Fixed ? fixed<true>(subfield) : this->node(subfield))) return false;
        }
        return true;
    }
    // Past the presence bits: so many octets, or those chained by FX.
    bool skip_presence(unsigned octets) {
        const uint8_t *const first = at_;
        if (octets == 0) do
                if (!has(1)) return false;
            while (*at_++ & 1);
        else if (!has(octets))
            return false;
        else
            at_ += octets;
        is_lossy_ |= octets == 0 && at_ - first > 1 && at_[-1] == 0; // the last octet announces nothing
        return true;
    }

    bool repetitive(const Node &node) {
        const Node &element = program_->nodes[node.first];
        if (!has(1)) return false;
        unsigned left = *at_++;
        if (!has(left * element.octets)) return false;
        char *bracket = nullptr;
        if (!open(node, bracket)) return false;
        for (; left != 0; --left)
            if (!fixed(element)) return false;
        close(bracket, '[', ']');
        return true;
    }

    bool chained(const Node &node) {
        const Node &element = program_->nodes[node.first];
        char *bracket = nullptr;
        if (!open(node, bracket)) return false;
        do {
            if (!has(element.octets)) { // a chain that is cut
                is_lossy_ = true;
                break;
            }
            if (!fixed(element)) return false;
        } while (at_[-1] & 1);
        close(bracket, '[', ']');
        return true;
    }

    // The octets behind a length as what is said of them, where they are exactly that; else as they are.
    bool explicit_length(const Node &node) {
        if (!has(1) || *at_ == 0 || !has(*at_)) return false;
        const uint8_t *const end = at_ + *at_;
        const uint8_t *const content = ++at_;
        if (node.count != 0 && fills(program_->nodes[node.first], end)) return true;
        if (gives_up_) return false;
        at_ = end;
        const auto count = end - content;
        char *value = nullptr;
        if (!open(node, value)) return false;
        if (limit_ - out_ < 2 * count) return give_up();
        out_ = put_quoted(out_, content, static_cast<size_t>(count));
        return true;
    }
    bool fills(const Node &content, const uint8_t *end) {
        char *const out = out_;
        const bool was_lossy = is_lossy_;
        const uint8_t *const outer_end = end_;
        end_ = end;
        const bool is_whole = node(content) && at_ == end;
        end_ = outer_end;
        if (is_whole) return true;
        out_ = out;
        is_lossy_ = was_lossy;
        return false;
    }

    // ---- Pieces ----

    static uint64_t load(const uint8_t *octets) {
        uint64_t word = 0;
        std::memcpy(&word, octets, sizeof word);
        return __builtin_bswap64(word);
    }

    static char *copy(char *out, const char *text, size_t chars) {
        std::memcpy(out, text, kBlock);
        for (size_t i = kBlock; i < chars; i += kBlock) std::memcpy(out + i, text + i, kBlock);
        return out + chars;
    }

    [[gnu::always_inline]] static uint64_t raw_of(const Piece &piece, const uint8_t *at) {
        return load(at + piece.octet) << piece.left >> piece.right;
    }

    // The text of a piece, with its digits.
    [[gnu::always_inline]] static char *put_text(char *out, const Program &program, const Piece &piece,
                                                 const Field *rows, const uint8_t *at) {
        if constexpr (kTexts)
            if (piece.digits != 0) return put_with_texts(out, program, piece, rows, at);
        char *const behind = copy(out, program.text + piece.text, piece.chars);
        if (piece.digits != 0) put_digits(out, program.digits + piece.digit, piece.digits, at);
        return behind;
    }
    [[gnu::always_inline]] static void put_digits(char *text, const Digit *digit, unsigned count, const uint8_t *at) {
        for (const Digit *const end = digit + count; digit != end; ++digit) {
            const int value = at[digit->octet] >> digit->shift & digit->mask;
            text[digit->place] = static_cast<char>(text[digit->place] + value);
        }
    }
    // The same with the texts of the digits.
    [[gnu::noinline]] static char *put_with_texts(char *out, const Program &program, const Piece &piece,
                                                  const Field *rows, const uint8_t *at) {
        const char *const text = program.text + piece.text;
        const Digit *digit = program.digits + piece.digit;
        size_t from = 0;
        for (const Digit *const end = digit + piece.digits; digit != end; ++digit) {
            out = copy(out, text + from, digit->place - from);
            const unsigned code = at[digit->octet] >> digit->shift & digit->mask;
            out = put_code(out, code, text_of(program, rows[digit->row], digit->texts, code));
            from = digit->place + 1U;
        }
        return copy(out, text + from, piece.chars - from);
    }

    static std::string_view text_of(const Program &program, const Field &field, uint32_t texts, uint64_t code) {
        if (texts == kLookedFor) return field.kind == Kind::Code ? text_of_code(field.meaning, code) : Slice();
        const uint8_t *const lengths = program.texts + texts + 1;
        if (code >= lengths[-1]) return {};
        const char *text = field.meaning;
        for (uint64_t i = 0; i < code; ++i) text += lengths[i] + 1;
        return {text, lengths[code]};
    }

    // In units of the last decimal written.
    static uint64_t scaled(const Piece &piece, uint64_t size) {
        return (((size * piece.factor >> piece.shift) + 1) >> 1) * kPowersOfTen[piece.count];
    }
    static uint64_t scaled(char *&out, const Piece &piece, uint64_t word) {
        const int64_t value = static_cast<int64_t>(word << piece.left) >> piece.right;
        *out = '-';
        out += value < 0;
        return scaled(piece, static_cast<uint64_t>(value < 0 ? -value : value));
    }

    // Pieces one behind the other.
    [[gnu::always_inline]] char *run_inline(const Program &program, const Node &node, const Field *rows, char *out,
                                            const uint8_t *at) {
        const Piece *piece = program.pieces + node.first;
        const Piece *const end = piece + node.count;
        do switch (piece->op) {
            case Op::Plain:
                out = put_text(out, program, *piece, rows, at);
                break;
            case Op::Number:
                out = put_text(out, program, *piece, rows, at);
                out = put_number(out, raw_of(*piece, at));
                break;
            case Op::Whole:
                out = put_text(out, program, *piece, rows, at);
                out = put_number(out, scaled(*piece, raw_of(*piece, at)));
                break;
            case Op::Thousandths:
                out = put_text(out, program, *piece, rows, at);
                out = put_quantity<1>(out, static_cast<uint32_t>(scaled(*piece, raw_of(*piece, at))));
                break;
            case Op::Millionths:
                out = put_text(out, program, *piece, rows, at);
                out = put_quantity<2>(out, scaled(*piece, raw_of(*piece, at)));
                break;
            case Op::Signed:
            case Op::SignedThousandths:
            case Op::SignedMillionths: {
                out = put_text(out, program, *piece, rows, at);
                const uint64_t size = scaled(out, *piece, load(at + piece->octet));
                if (piece->op == Op::SignedThousandths)
                    out = put_quantity<1>(out, static_cast<uint32_t>(size));
                else
                    out = piece->op == Op::Signed ? put_number(out, size) : put_quantity<2>(out, size);
                break;
            }
            case Op::Spare:
                is_lossy_ |= raw_of(*piece, at) != 0;
                break;
            case Op::Unless: { // a status that is clear, or one that is set and its member
                const uint64_t both = raw_of(*piece, at);
                if (both >> piece->shift != 0) break;
                is_lossy_ |= both != 0;
                piece += piece->count;
                break;
            }
            case Op::UnlessZero:
                piece += raw_of(*piece, at) == 0 ? piece->count : 0;
                break;
            case Op::Case:
                piece += is_case(*piece, raw_of(*piece, at)) ? 0 : piece->count;
                break;
            case Op::Skip:
                piece += piece->count;
                break;
            default:
                out = put_text(out, program, *piece, rows, at);
                out = put_other(out, program, *piece, rows, raw_of(*piece, at), at);
            }
        while (++piece != end);
        std::memcpy(out, "}}}}", kMaxClosing);
        return out + node.closing;
    }
    [[gnu::noinline]] char *run(const Program &program, const Node &node, const Field *rows, char *out,
                                const uint8_t *at) {
        return run_inline(program, node, rows, out, at);
    }

    // What is no plain number.
    [[gnu::noinline]] char *put_other(char *out, const Program &program, const Piece &piece, const Field *rows,
                                      uint64_t raw, const uint8_t *at) {
        switch (piece.op) {
        case Op::Code:
            return kTexts ? put_code(out, raw, text_of(program, rows[piece.row], piece.factor, raw))
                          : put_number(out, raw);
        case Op::Octal:
            return put_octal(out, raw, piece.count);
        case Op::Hex:
            return put_hex(out, raw, piece.count);
        case Op::Icao:
            return put_icao(out, piece.count, raw, is_lossy_);
        case Op::Characters:
            return put_characters(out, at + piece.octet, piece.factor);
        case Op::Octets:
            return put_quoted(out, at + piece.octet, piece.factor);
        case Op::Register:
            return put_register(out, piece, at + piece.octet);
        default:
            return put_value(out, rows[piece.row], raw);
        }
    }

    bool is_case(const Piece &piece, uint64_t raw) const {
        const bool is_type = piece.message_type == kAnyMessage || piece.message_type == context_.message_type;
        return is_type && raw == piece.factor;
    }

    static char *put_quoted(char *out, const uint8_t *data, size_t count) {
        *out = '"';
        out = put_octets(out + 1, data, count);
        *out = '"';
        return out + 1;
    }

    char *put_characters(char *out, const uint8_t *data, unsigned count) {
        while (count != 0 && data[count - 1] == ' ') --count;
        *out++ = '"';
        for (unsigned i = 0; i < count; ++i) {
            const char character = is_printable(data[i]) ? static_cast<char>(data[i]) : kUndefinedCharacter;
            is_lossy_ |= !is_printable(data[i]);
            *out = '\\';
            out += character == '"' || character == '\\';
            *out++ = character;
        }
        *out++ = '"';
        return out;
    }

    char *put_register(char *out, const Piece &piece, const uint8_t *at) {
        const uint32_t number = piece.factor ? piece.factor : at[kRegisterBits / 8];
        out = put_hex(put(out, "{\"bds\":"), number, 2);
        if (const Found found = find_register_program(number); found.field) {
            out = run(*found.program, *found.node, found.field, out, at);
        } else {
            out = put_quoted(put(out, ",\"octets\":"), at, kRegisterBits / 8);
        }
        *out++ = '}';
        return out;
    }

    char *const limit_;
    const Context &context_;
    const Program *program_ = nullptr;
    const Field *rows_ = nullptr; // of the item
    char *out_ = nullptr;
    const uint8_t *at_ = nullptr;
    const uint8_t *end_ = nullptr;
    const uint8_t *readable_ = nullptr; // the end of what may be read
    bool is_lossy_ = false;
    bool gives_up_ = false;
    uint8_t copy_[kMaxFixedOctets + kReadAlong];
};

} // namespace ast::schema
