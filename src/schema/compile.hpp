// From rows to nodes and pieces, at compile time.
#pragma once

#include <algorithm>

#include "schema/edition.hpp"
#include "schema/number.hpp"
#include "schema/texts.hpp"
#include "schema/utf8.hpp"

namespace ast::schema {

// Characters that a register comes to at most.
constexpr unsigned kRegisterRoom = 1024;
constexpr unsigned kRegisterRoomWithTexts = 2560;

// Texts between digits are copied in blocks of so many characters, the last one beyond their end.
constexpr size_t kBlock = 32;

// Of the same bits.
constexpr size_t kMaxReadings = 32;

struct CompiledSize {
    size_t nodes = 0;
    size_t pieces = 0;
    size_t digits = 0;
    size_t text = 0;
    size_t texts = 0;
};

template <typename T>
class Sink {
public:
    constexpr Sink() = default;
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
    T *to_ = nullptr; // null while it only counts
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

// Puts together nodes and pieces of items, or only counts what they take.
class Compiler {
public:
    constexpr Compiler() = default;
    constexpr Compiler(Node *nodes, Piece *pieces, Digit *digits, char *text, uint8_t *texts)
        : nodes_(nodes), pieces_(pieces), digits_(digits), text_(text), texts_(texts) {}

    constexpr void reserve(size_t items) { nodes_.reserve(items); }
    constexpr void item(size_t slot, const Field *field) {
        item_ = field;
        node_room_ = 0;
        density_ = density_with_texts_ = kMostCharsOfOctet;
        along_ = along_with_texts_ = 0;
        node(slot, field);
        nodes_.change(slot, [&](Node &node) {
            node.room = node_room_;
            node.density = density_;
            node.density_with_texts = density_with_texts_;
            node.along = along_;
            node.along_with_texts = along_with_texts_;
        });
    }
    // The members of a register, which stand behind its number.
    constexpr void mode_s_register(size_t slot, const Field *field) {
        item_ = field;
        members(slot, field);
        must(room_ <= kRegisterRoom && room_with_texts_ <= kRegisterRoomWithTexts);
    }
    constexpr CompiledSize finish() {
        for (size_t i = 0; i < kBlock; ++i) text_.put('\0'); // which copies of the last text may read
        return {nodes_.most(), pieces_.most(), digits_.most(), text_.most(), texts_.most()};
    }

private:
    // Octets in hexadecimal digits.
    static constexpr size_t kMostCharsOfOctet = 2;

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
                          .octets = shape == Shape::Compound ? field->denominator : 0,
                          .first = first,
                          .count = count,
                          .text = opening,
                          .chars = text_.size() - opening});
        constexpr size_t kBrackets = 2; // or quotes
        node_room_ += text_.size() - opening + kBrackets;
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
        bit_ = 0;
        read_ = read_with_texts_ = 0;
        is_first_ = false;
        selector_ = nullptr;
        waiting_text_ = text_.size();
        waiting_digit_ = digits_.size();
        room_ = room_with_texts_ = 0;
    }
    constexpr void end(size_t slot, const Field *field) {
        flush();
        must(bit_ == field->bits);
        const size_t octets = (bit_ + 7) / 8;
        nodes_.set(
            slot,
            {.shape = Shape::Fixed, .octets = octets, .first = first_piece_, .count = pieces_.size() - first_piece_});
        density_ = std::max(density_, room_ / octets + 1);
        density_with_texts_ = std::max(density_with_texts_, room_with_texts_ / octets + 1);
        along_ = std::max(along_, std::max(read_, octets) - octets);
        along_with_texts_ = std::max(along_, std::max(along_with_texts_, std::max(read_with_texts_, octets) - octets));
    }
    // Says which octets are read at once for bits.
    constexpr void reads(size_t bit, size_t bits) {
        read_ = std::max(read_, bit / 8 + read_octets(octets_of_bits(bit, bits)));
    }

    // ---- Pieces ----

    // Text that waits for what stands behind it.
    constexpr void put(char c) {
        text_.put(c);
        ++room_;
        ++room_with_texts_;
    }
    constexpr void key(const Field *field) {
        if (!is_first_) put(',');
        is_first_ = false;
        for (size_t i = 0; i < field->key_chars; ++i) put(field->key[i]);
    }
    // A piece takes along what waits.
    constexpr void emit(Piece piece) {
        piece.text = waiting_text_;
        piece.chars = text_.size() - waiting_text_;
        piece.digit = waiting_digit_;
        piece.digits = digits_.size() - waiting_digit_;
        piece.digits_octet = digits_octet_;
        piece.item = item_;
        pieces_.put(piece);
        waiting_text_ = text_.size();
        waiting_digit_ = digits_.size();
    }
    constexpr void flush() {
        if (text_.size() != waiting_text_) emit({.op = Op::Plain});
    }
    // What waits is written before, unless nothing is written here in any case.
    constexpr size_t emit_branch(Piece piece) {
        flush();
        pieces_.put(piece);
        return pieces_.size() - 1;
    }
    // The pieces from one on are written or not as that one says.
    constexpr void close_branch(size_t branch) {
        flush();
        const size_t count = pieces_.size() - branch - 1;
        pieces_.change(branch, [&](Piece &piece) { piece.count = count; });
    }
    constexpr uint16_t row_of(const Field *field) const { return narrow<uint16_t>(static_cast<size_t>(field - item_)); }

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
            reads(bit_, field->bits);
            pieces_.put({.op = Op::Spare, .bit = bit_, .bits = field->bits});
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
        reads(bit_, 1U + field->bits);
        const size_t branch = emit_branch({.op = Op::IfSet, .bit = bit_, .bits = 1U + field->bits});
        ++bit_;
        member(field);
        close_branch(branch);
        selector_ = nullptr;
    }
    constexpr void number_or_none(const Field *field) {
        must(!is_first_);
        const size_t branch = emit_branch({.op = Op::UnlessZero, .bit = bit_, .bits = field->bits});
        value(field);
        close_branch(branch);
        selector_ = nullptr;
    }

    constexpr void either(const Field *field) {
        must(!is_first_ && selector_ != nullptr);
        const Piece is_one = {.op = Op::Case, .bit = selector_bit_, .bits = selector_->bits};
        const size_t bit = bit_;
        size_t skips[kMaxReadings] = {};
        size_t count = 0;
        for (const Field *when = field + 1; when != behind(field); when = behind(when)) {
            must(count < std::size(skips));
            Piece is_this = is_one;
            is_this.selector = when->selector();
            is_this.message_type = when->message_type();
            const size_t branch = emit_branch(is_this);
            member(when + 1);
            skips[count++] = emit_branch({.op = Op::Skip});
            close_branch(branch);
            bit_ = bit;
        }
        value(field);
        bit_ += field->bits;
        for (size_t i = 0; i < count; ++i) close_branch(skips[i]);
        selector_ = nullptr;
    }

    constexpr void value(const Field *field) {
        key(field);
        selector_ = holds_octets(*field) ? nullptr : field;
        selector_bit_ = bit_;
        if (is_digit(*field)) return digit(field);
        constexpr size_t kAtOnce = 8; // characters, and octets of a register
        if (field->kind == Kind::Ascii || field->kind == Kind::Register)
            read_ = std::max(read_, (bit_ + field->bits) / 8 - 1 + kAtOnce);
        else if (field->bits <= kMaxNumberBits)
            reads(bit_, field->bits);
        size_t room = kNumberRoom;
        if (field->kind == Kind::Ascii || field->bits > 64) room = 2 + field->bits / 4U;
        if (field->kind == Kind::Register) {
            room = kRegisterRoom;
            room_with_texts_ += kRegisterRoomWithTexts - kRegisterRoom;
        }
        room_ += room;
        room_with_texts_ += room;
        const size_t texts = field->kind == Kind::Code ? texts_of(*field) : kLookedFor;
        emit({.op = Op::Value, .bit = bit_, .bits = field->bits, .field = field, .texts = texts});
    }

    // Whether a field is one digit that stands in one octet.
    constexpr bool is_digit(const Field &field) const {
        const bool is_whole = field.kind == Kind::Code || (field.kind == Kind::Raw && !field.is_quantity()) ||
                              (field.kind == Kind::Unsigned && !field.is_quantity());
        return is_whole && field.bits <= 3 && bit_ % 8 + field.bits <= 8;
    }
    constexpr void digit(const Field *field) {
        constexpr size_t kDigitsBits = 64;
        constexpr size_t kMostChars = UINT8_MAX;
        const bool is_any = waiting_digit_ != digits_.size();
        const size_t place = text_.size() - waiting_text_;
        if ((is_any && bit_ + field->bits > 8 * digits_octet_ + kDigitsBits) || place > kMostChars)
            return late_digit(field);
        if (!is_any) digits_octet_ = bit_ / 8;
        read_with_texts_ = std::max(read_with_texts_, digits_octet_ + kDigitsBits / 8);
        digits_.put({.place = static_cast<uint8_t>(place),
                     .shift = static_cast<uint8_t>(8 * digits_octet_ + kDigitsBits - bit_ - field->bits),
                     .mask = static_cast<uint8_t>((1U << field->bits) - 1),
                     .row = row_of(field),
                     .texts = field->kind == Kind::Code ? texts_of(*field) : kLookedFor});
        put('0');
    }
    // One that those before are too far from.
    constexpr void late_digit(const Field *field) {
        flush();
        digit(field);
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
    size_t waiting_text_ = 0;
    size_t waiting_digit_ = 0;
    size_t digits_octet_ = 0; // from which on those that wait are taken
    size_t bit_ = 0;
    bool is_first_ = false;           // of an object
    const Field *selector_ = nullptr; // the last number; null where there is none for sure
    size_t selector_bit_ = 0;
    size_t room_ = 0; // that the pieces of a node take at most
    size_t room_with_texts_ = 0;
    size_t node_room_ = 0; // that the rest of an item takes
    size_t density_ = 0;   // the most that a node of it takes by octets
    size_t density_with_texts_ = 0;
    size_t read_ = 0; // octets of a node, and those read along
    size_t read_with_texts_ = 0;
    size_t along_ = 0; // the most that are read along with a node
    size_t along_with_texts_ = 0;
};

template <CompiledSize kSize>
struct Compiled {
    std::array<Node, kSize.nodes> nodes{};
    std::array<Piece, kSize.pieces> pieces{};
    std::array<Digit, kSize.digits + 1> digits{};
    std::array<char, kSize.text> text{};
    std::array<uint8_t, kSize.texts + 1> texts{}; // of a code: how many texts it has, and how long each of them is
};

// Of items, or of Mode S registers.
template <typename Items>
constexpr CompiledSize compile(Compiler compiler, const Items &items, bool are_registers) {
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
    constexpr CompiledSize size = compile(Compiler(), kItems, kAreRegisters);
    Compiled<size> to;
    compile(Compiler(to.nodes.data(), to.pieces.data(), to.digits.data(), to.text.data(), to.texts.data()), kItems,
            kAreRegisters);
    return to;
}

} // namespace ast::schema
