// From rows to programs, at compile time.
#pragma once

#include "schema/edition.hpp"
#include "schema/number.hpp"
#include "schema/texts.hpp"
#include "schema/utf8.hpp"

namespace ast::schema {

// Characters that a register comes to at most.
constexpr unsigned kRegisterRoom = 1024;
constexpr unsigned kRegisterRoomWithTexts = 2560;

// Of the same bits.
constexpr size_t kMaxReadings = 32;

struct ProgramSize {
    size_t nodes = 0;
    size_t pieces = 0;
    size_t digits = 0;
    size_t text = 0;
    size_t texts = 0;
};

template <typename T>
class Sink {
public:
    constexpr explicit Sink(T *to) : to_(to) {}
    constexpr void put(const T &value) {
        set(size_, value);
        reserve(1);
    }
    constexpr void set(size_t place, const T &value) {
        if (to_) to_[place] = value;
    }
    template <typename Change>
    constexpr void change(size_t place, Change change) {
        if (to_) change(to_[place]);
    }
    constexpr size_t reserve(size_t count) {
        const size_t first = size_;
        size_ += count;
        most_ = size_ > most_ ? size_ : most_;
        return first;
    }
    constexpr void cut(size_t size) { size_ = size; }
    constexpr size_t size() const { return size_; }
    constexpr size_t most() const { return most_; } // ever

private:
    T *to_; // null while it only counts
    size_t size_ = 0;
    size_t most_ = 0;
};

template <std::unsigned_integral To>
constexpr To narrow(size_t value) {
    must(value <= static_cast<To>(-1));
    return static_cast<To>(value);
}

// Whether a character stands in JSON as it is; beyond ASCII, the first octet of one.
constexpr bool is_plain(const char *at) {
    const auto first = static_cast<uint8_t>(*at);
    return first < 0x80 ? first >= ' ' && first != '"' && first != '\\' : utf8_octets(at) != 0;
}

// Puts together the program of items, or only counts what it takes.
class Compiler {
public:
    constexpr Compiler(Node *nodes, Piece *pieces, Digit *digits, char *text, uint8_t *texts)
        : nodes_(nodes), pieces_(pieces), digits_(digits), text_(text), texts_(texts) {}

    constexpr void reserve(size_t items) { nodes_.reserve(items); }
    constexpr void item(size_t slot, const Field *field) {
        item_ = field;
        node(slot, field);
    }
    // The members of a register, which stand behind its number.
    constexpr void mode_s_register(size_t slot, const Field *field) {
        item_ = field;
        members(slot, field);
        must(room_ <= kRegisterRoom && room_with_texts_ <= kRegisterRoomWithTexts);
    }
    constexpr ProgramSize finish() {
        for (size_t i = 0; i < kBlock; ++i) text_.put('\0'); // which copies of the last text may read
        must(text_.size() <= UINT16_MAX && nodes_.size() <= UINT16_MAX && pieces_.size() <= UINT16_MAX);
        return {nodes_.most(), pieces_.most(), digits_.most(), text_.most(), texts_.most()};
    }

private:
    // ---- Nodes ----

    constexpr void node(size_t slot, const Field *field) {
        switch (field->kind) {
        case Kind::Extended:
            return parent(slot, field, Shape::Extended);
        case Kind::Compound:
            return parent(slot, field, Shape::Compound);
        case Kind::Repetitive:
            return parent(slot, field, Shape::Repetitive);
        case Kind::Chained:
            return parent(slot, field, Shape::Chained);
        case Kind::Explicit:
            return parent(slot, field, Shape::Explicit);
        case Kind::Random:
            return nodes_.set(slot, {.shape = Shape::Random});
        case Kind::None:
            return nodes_.set(slot, {.shape = Shape::None});
        default:
            return fixed(slot, field);
        }
    }

    constexpr void parent(size_t slot, const Field *field, Shape shape) {
        const size_t opening = text_.size();
        text_.put(',');
        for (size_t i = 0; i < field->key_chars; ++i) text_.put(field->key[i]);
        size_t count = 0;
        for (const Field *child = field + 1; child != behind(field); child = behind(child)) ++count;
        const size_t first = nodes_.reserve(count);
        nodes_.set(slot, {.shape = shape,
                          .count = narrow<uint8_t>(count),
                          .chars = narrow<uint8_t>(text_.size() - opening),
                          .octets = shape == Shape::Compound ? narrow<uint16_t>(field->denominator) : uint16_t{0},
                          .first = narrow<uint16_t>(first),
                          .text = narrow<uint16_t>(opening)});
        size_t next = first;
        for (const Field *child = field + 1; child != behind(field); child = behind(child), ++next)
            if (shape == Shape::Extended)
                part(next, child, child != field + 1);
            else
                node(next, child);
    }

    constexpr void part(size_t slot, const Field *field, bool is_later) {
        members(slot, field);
        bool is_silent = is_later;
        for (const Field *member = field + 1; member != behind(field); member = behind(member))
            is_silent = is_silent && !member->is_named();
        nodes_.change(slot, [&](Node &node) {
            node.has_fx = fx_bits(*field) != 0;
            node.is_silent = is_silent;
        });
    }

    // Pieces alone: a field, or a group as an object whether or not it has a name.
    constexpr void fixed(size_t slot, const Field *field) {
        begin();
        if (field->kind == Kind::Group)
            object(field);
        else
            member(field);
        end(slot, field);
    }
    constexpr void members(size_t slot, const Field *field) {
        begin();
        members(field);
        end(slot, field);
    }

    constexpr void begin() {
        first_piece_ = pieces_.size();
        pending_text_ = text_.size();
        pending_digit_ = digits_.size();
        bit_ = 0;
        is_first_ = false;
        selector_ = {};
        closing_ = 0;
        room_ = room_with_texts_ = kMaxClosing;
    }
    constexpr void end(size_t slot, const Field *field) {
        const size_t pending = text_.size() - pending_text_;
        const size_t closing = pending == closing_ && pending <= kMaxClosing ? pending : 0;
        text_.cut(text_.size() - closing);
        flush();
        must(bit_ <= 8 * kMaxFixedOctets);
        nodes_.set(slot, {.shape = Shape::Fixed,
                          .count = narrow<uint8_t>(pieces_.size() - first_piece_),
                          .closing = static_cast<uint8_t>(closing),
                          .octets = static_cast<uint16_t>((bit_ + 7) / 8),
                          .first = narrow<uint16_t>(first_piece_),
                          .room = narrow<uint16_t>(room_),
                          .room_with_texts = narrow<uint16_t>(room_with_texts_)});
        must(bit_ == field->bits);
    }

    // ---- Pieces ----

    // Text that waits for what stands behind it.
    constexpr void put(char c) {
        text_.put(c);
        closing_ = c == '}' ? closing_ + 1 : 0;
        ++room_;
        ++room_with_texts_;
    }
    constexpr void key(const Field *field) {
        constexpr size_t kMostPending = 200;
        if (text_.size() - pending_text_ > kMostPending) flush();
        if (!is_first_) put(',');
        is_first_ = false;
        for (size_t i = 0; i < field->key_chars; ++i) put(field->key[i]);
    }
    constexpr void flush() {
        if (text_.size() != pending_text_) emit({.op = Op::Plain});
    }
    constexpr size_t emit(Piece piece) {
        piece.text = narrow<uint16_t>(pending_text_);
        piece.digit = narrow<uint16_t>(pending_digit_);
        piece.chars = narrow<uint8_t>(text_.size() - pending_text_);
        piece.digits = narrow<uint8_t>(digits_.size() - pending_digit_);
        pending_text_ = text_.size();
        pending_digit_ = digits_.size();
        closing_ = 0;
        pieces_.put(piece);
        return pieces_.size() - 1;
    }
    // What waits is left waiting.
    constexpr size_t emit_without_text(Piece piece) {
        pieces_.put(piece);
        return pieces_.size() - 1;
    }

    // A piece that takes so many bits from here on.
    constexpr Piece piece_of(Op op, unsigned bits) const {
        const unsigned number = bits <= kMaxNumberBits ? bits : 1;
        return {.op = op,
                .octet = narrow<uint8_t>(bit_ / 8),
                .left = static_cast<uint8_t>(bit_ % 8),
                .right = static_cast<uint8_t>(64 - number)};
    }
    constexpr uint16_t row_of(const Field *field) const { return narrow<uint16_t>(static_cast<size_t>(field - item_)); }
    // The pieces from one on are passed over where that one says so.
    constexpr void close_branch(size_t branch) {
        const auto count = narrow<uint8_t>(pieces_.size() - branch - 1);
        pieces_.change(branch, [&](Piece &piece) { piece.count = count; });
    }

    // ---- Fields ----

    constexpr void object(const Field *field) {
        key(field);
        put('{');
        is_first_ = true;
        members(field);
        put('}');
        is_first_ = false;
    }

    constexpr void members(const Field *parent) {
        const Field *const end = behind(parent);
        for (const Field *field = parent + 1; field != end; field = behind(field))
            if (field->kind != Kind::Status)
                member(field);
            else
                field = behind(field), optional(field);
    }

    constexpr void member(const Field *field) {
        switch (field->kind) {
        case Kind::Spare:
            emit_without_text(piece_of(Op::Spare, field->bits));
            break;
        case Kind::Group:
            return field->is_named() ? object(field) : members(field);
        case Kind::Either:
            return either(field);
        case Kind::UnsignedOrNone:
            number_or_none(field);
            break;
        default:
            value(field);
        }
        bit_ += field->bits;
    }

    // What may be missing stands behind something, so that it brings its comma along.
    constexpr void optional(const Field *field) {
        must(!is_first_ && field->bits < kMaxNumberBits);
        flush();
        Piece status = piece_of(Op::Unless, 1U + field->bits);
        status.shift = static_cast<uint8_t>(field->bits);
        const size_t branch = emit(status);
        ++bit_;
        member(field);
        flush();
        close_branch(branch);
        selector_ = {};
    }
    constexpr void number_or_none(const Field *field) {
        must(!is_first_);
        flush();
        const size_t branch = emit(piece_of(Op::UnlessZero, field->bits));
        value(field);
        close_branch(branch);
        selector_ = {};
    }

    constexpr void either(const Field *field) {
        must(!is_first_ && selector_.op == Op::Case);
        flush();
        const Piece selector = selector_;
        const size_t bit = bit_;
        size_t skips[kMaxReadings] = {};
        size_t count = 0;
        for (const Field *when = field + 1; when != behind(field); when = behind(when)) {
            must(count < std::size(skips));
            const size_t branch = emit(case_of(selector, *when));
            member(when + 1);
            flush();
            skips[count++] = emit({.op = Op::Skip});
            close_branch(branch);
            bit_ = bit;
        }
        value(field);
        bit_ += field->bits;
        for (size_t i = 0; i < count; ++i) close_branch(skips[i]);
        selector_ = {};
    }
    static constexpr Piece case_of(Piece selector, const Field &when) {
        const bool is_any = when.message_type() == kAnyMessageType;
        selector.factor = when.selector();
        selector.message_type = is_any ? kAnyMessage : narrow<uint16_t>(when.message_type());
        return selector;
    }

    constexpr void value(const Field *field) {
        key(field);
        selector_ = holds_octets(*field) ? Piece{} : piece_of(Op::Case, field->bits);
        if (is_digit(*field)) return digit(field);
        Piece piece = piece_of(op_of(*field), field->bits);
        piece.row = row_of(field);
        size_t room = kNumberRoom;
        switch (piece.op) {
        case Op::Code:
            piece.factor = texts_of(*field);
            break;
        case Op::Octal:
            piece.count = static_cast<uint8_t>(field->bits / kOctalBits);
            break;
        case Op::Hex:
            piece.count = static_cast<uint8_t>(hex_digits(*field));
            break;
        case Op::Icao:
            piece.count = static_cast<uint8_t>(field->bits / kIcaoBits);
            break;
        case Op::Characters:
        case Op::Octets:
            piece.factor = field->bits / 8U;
            room = 2 + 2U * piece.factor;
            break;
        case Op::Register:
            piece.factor = field->denominator;
            room = kRegisterRoom;
            room_with_texts_ += kRegisterRoomWithTexts - kRegisterRoom;
            break;
        default:
            scale(piece, *field);
        }
        room_ += room;
        room_with_texts_ += room;
        emit(piece);
    }

    // Whether a field is one digit that stands in one octet.
    constexpr bool is_digit(const Field &field) const {
        const bool is_whole = field.kind == Kind::Code || (field.kind == Kind::Raw && !field.is_quantity()) ||
                              (field.kind == Kind::Unsigned && !field.is_quantity());
        return is_whole && field.bits <= 3 && bit_ % 8 + field.bits <= 8;
    }
    constexpr void digit(const Field *field) {
        digits_.put({.place = narrow<uint8_t>(text_.size() - pending_text_),
                     .octet = narrow<uint8_t>(bit_ / 8),
                     .shift = static_cast<uint8_t>(8 - bit_ % 8 - field->bits),
                     .mask = static_cast<uint8_t>((1U << field->bits) - 1),
                     .row = row_of(field),
                     .texts = field->kind == Kind::Code ? texts_of(*field) : kLookedFor});
        put('0');
    }

    static constexpr Op op_of(const Field &field) {
        switch (field.kind) {
        case Kind::Code:
            return Op::Code;
        case Kind::Octal:
            return Op::Octal;
        case Kind::Icao:
            return Op::Icao;
        case Kind::Ascii:
            return Op::Characters;
        case Kind::Register:
            return Op::Register;
        case Kind::Raw:
        case Kind::Either:
            if (field.bits > kMaxNumberBits) return Op::Octets;
            return is_shown_as_octets(field) ? Op::Hex : Op::Number;
        case Kind::Unsigned:
        case Kind::Signed:
            return op_of_number(field);
        default:
            must(field.kind == Kind::UnsignedOrNone);
            return Op::Other;
        }
    }

    // Twice the factor is shifted by one less than the shift. What is exact takes the zeros that make threes of its
    // decimals along.
    static constexpr bool is_exact(const Field &field) { return field.shift == 0; }
    static constexpr uint64_t factor_of(const Field &field) {
        const uint64_t factor = field.is_quantity() ? field.factor : 1;
        return is_exact(field) ? 2 * factor * kPowersOfTen[zeros_lacking(field.decimals)] : factor;
    }
    static constexpr Op op_of_number(const Field &field) {
        const unsigned threes = (field.decimals + 2U) / 3;
        const bool is_signed = field.kind == Kind::Signed;
        const uint64_t factor = factor_of(field);
        if (!field.is_quantity() && !is_signed) return Op::Number;
        if (field.offset != 0 || threes > 2 || factor > UINT32_MAX) return Op::Other;
        const uint64_t zeros = is_exact(field) ? 1 : kPowersOfTen[zeros_lacking(field.decimals)];
        const uint64_t largest = ((uint64_t{1} << field.bits) * factor >> (is_exact(field) ? 1 : field.shift)) + 1;
        if (threes == 1 && largest > UINT32_MAX / zeros) return Op::Other;
        must(largest < INT64_MAX / zeros);
        if (is_signed) return static_cast<Op>(static_cast<unsigned>(Op::Signed) + threes);
        return threes == 0 && factor == 2 ? Op::Number : static_cast<Op>(static_cast<unsigned>(Op::Whole) + threes);
    }
    static constexpr void scale(Piece &piece, const Field &field) {
        if (piece.op < Op::Whole || piece.op > Op::SignedMillionths) return;
        piece.factor = static_cast<uint32_t>(factor_of(field));
        piece.shift = is_exact(field) ? uint8_t{0} : static_cast<uint8_t>(field.shift - 1);
        piece.count = is_exact(field) ? uint8_t{0} : static_cast<uint8_t>(zeros_lacking(field.decimals));
    }

    // ---- Texts of codes ----

    // Their lengths. Those that are numbered, or too long for that, are looked for.
    constexpr uint16_t texts_of(const Field &field) {
        const size_t first = texts_.reserve(1);
        size_t longest = 0;
        bool is_listed = field.meaning != nullptr;
        for (const char *at = field.meaning; at && *at; ++at) {
            const char *const text = at;
            bool is_number = true;
            for (; *at != '|' && *at; ++at) {
                must((*at & 0xC0) == 0x80 || is_plain(at)); // so that they are copied
                if (*at == ':' && is_number && at != text) is_listed = false;
                is_number = is_number && *at >= '0' && *at <= '9';
            }
            const auto length = static_cast<size_t>(at - text);
            longest = length > longest ? length : longest;
            texts_.put(static_cast<uint8_t>(length));
            if (*at == '\0') break;
        }
        const size_t count = texts_.size() - first - 1;
        texts_.set(first, static_cast<uint8_t>(count));
        room_with_texts_ += sizeof "{\"value\":,\"text\":\"\"}" + longest;
        if (is_listed && longest <= UINT8_MAX && count <= UINT8_MAX) return narrow<uint16_t>(first);
        texts_.cut(first);
        return kLookedFor;
    }

    Sink<Node> nodes_;
    Sink<Piece> pieces_;
    Sink<Digit> digits_;
    Sink<char> text_;
    Sink<uint8_t> texts_;
    const Field *item_ = nullptr;
    size_t first_piece_ = 0;
    size_t pending_text_ = 0;
    size_t pending_digit_ = 0;
    size_t bit_ = 0;
    bool is_first_ = false; // of an object
    Piece selector_;        // the last number, as a Case reads it; a Plain where there is none for sure
    size_t closing_ = 0;    // brackets at the end of the text that waits
    size_t room_ = 0;
    size_t room_with_texts_ = 0;
};

template <ProgramSize kSize>
struct Compiled {
    std::array<Node, kSize.nodes> nodes{};
    std::array<Piece, kSize.pieces> pieces{};
    std::array<Digit, kSize.digits + 1> digits{};
    std::array<char, kSize.text> text{};
    std::array<uint8_t, kSize.texts + 1> texts{};

    constexpr Program program() const {
        return {nodes.data(), pieces.data(), digits.data(), text.data(), texts.data()};
    }
};

// Of items, or of Mode S registers.
template <typename Items>
constexpr ProgramSize compile(Compiler compiler, const Items &items, bool are_registers) {
    compiler.reserve(std::size(items));
    for (size_t i = 0; i < std::size(items); ++i)
        if (are_registers)
            compiler.mode_s_register(i, items[i].field);
        else
            compiler.item(i, items[i].field);
    return compiler.finish();
}

template <const auto &kItems, bool kAreRegisters>
consteval auto compiled() {
    constexpr ProgramSize size = compile(Compiler(nullptr, nullptr, nullptr, nullptr, nullptr), kItems, kAreRegisters);
    Compiled<size> to;
    compile(Compiler(to.nodes.data(), to.pieces.data(), to.digits.data(), to.text.data(), to.texts.data()), kItems,
            kAreRegisters);
    return to;
}

template <const auto &kItems, bool kAreRegisters = false>
inline constexpr auto kCompiled = compiled<kItems, kAreRegisters>();

} // namespace ast::schema
