// Bounded text: one writer over a caller's buffer that keeps its own cursor, so that appending never rescans what is
// written. It always terminates, cuts silently, and takes a null buffer or capacity 0 without harm.
#pragma once

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "ast.h"

#if defined(__MINGW32__)
#define AST_MEMBER_PRINTF(format_index, first) __attribute__((format(gnu_printf, format_index, first)))
#else
#define AST_MEMBER_PRINTF(format_index, first) __attribute__((format(printf, format_index, first)))
#endif

namespace ast {

// Most numbers are small: parts of a time, addresses, degrees. Three digits each, and room for four to be read at once.
constexpr size_t kSmallNumbers = 1000;
inline constexpr auto kThreeDigits = [] {
    std::array<char, 3 * kSmallNumbers + 1> digits{};
    for (size_t i = 0; i < kSmallNumbers; ++i)
        for (size_t place = 3, rest = i; place-- > 0; rest /= 10)
            digits[3 * i + place] = static_cast<char>('0' + rest % 10);
    return digits;
}();

class TextWriter {
public:
    TextWriter(char *text, uint64_t capacity)
        : cursor_(capacity ? text : nullptr),
          room_(cursor_ ? static_cast<size_t>(capacity < SIZE_MAX ? capacity : SIZE_MAX) - 1 : 0) {
        if (cursor_) *cursor_ = '\0';
    }
    TextWriter(const TextWriter &) = delete;
    TextWriter &operator=(const TextWriter &) = delete;

    void append(std::string_view piece) { append_any(piece); }

    // Literals need no call. The compiler knows their length here, but no more once it stands in a std::string_view.
    [[gnu::always_inline]] void append(const char *text) {
        const size_t size = __builtin_strlen(text);
        if (!__builtin_constant_p(size) || size == 0 || size > room_) return append_any({text, size});
        std::memcpy(cursor_, text, size);
        advance(size);
        *cursor_ = '\0';
    }

    // Numbers as print() has them, without a format to be read: what "%.4u", "%.4o" or "%.4X" makes of one, by base,
    // and what "%+08.3f" does, with or without the plus. At most 16 digits are asked for.
    [[gnu::always_inline]] void append_digits(uint32_t number, unsigned least_digits, unsigned base = 10) {
        if (base != 10 || number >= kSmallNumbers || least_digits > 3 || room_ <= 3)
            return append_any_digits(number, least_digits, base);
        const unsigned count = std::max(number < 10 ? 1U : number < 100 ? 2U : 3U, least_digits);
        std::memcpy(cursor_, &kThreeDigits[3 * number + 3 - count], 4);
        advance(count);
        *cursor_ = '\0';
    }
    template <unsigned Decimals> // 1 to 4, or 6
    void append_decimal(double value, unsigned width = 0, bool plus = false);

    // Lets `write` write a piece of up to so many characters at the text that it is given, and return how many it is.
    static constexpr size_t kPieceChars = 24;
    template <typename Write>
    void append_piece(Write write) {
        if (room_ >= kPieceChars) [[likely]] {
            advance(write(cursor_));
            *cursor_ = '\0';
        } else {
            char piece[kPieceChars];
            append_any({piece, write(piece)});
        }
    }

    // Formats as printf does in the C locale, whatever the host's locale is. Understands the conversions c d f i o s u
    // x X and %, the flags - + 0 and blank, widths, precisions, and the lengths l, ll and z.
    void print(const char *format, ...) AST_MEMBER_PRINTF(2, 3);
    void print_list(const char *format, va_list arguments) AST_MEMBER_PRINTF(2, 0);

    // Formats a caller's own format, with all that the C library knows and in the host's locale.
    void print_foreign(const char *format, va_list arguments) AST_MEMBER_PRINTF(2, 0);

    // Lets `write` fill the rest of the buffer, given as (text, capacity), with a terminated text. Only that piece is
    // measured.
    template <typename Write>
    void append_with(Write write) {
        if (!room_) return;
        write(cursor_, room_ + 1);
        advance(std::string_view(cursor_).size());
    }

    // Lets `write` put a piece of at most so many characters at the text that it is given, and return where it ends;
    // false, and nothing done, where there is less room.
    template <typename Write>
    bool append_at_once(size_t most, Write write) {
        if (room_ < most) return false;
        advance(static_cast<size_t>(write(cursor_) - cursor_));
        *cursor_ = '\0';
        return true;
    }

    // Characters written so far, the terminator not counted.
    size_t length() const { return length_; }
    bool is_full() const { return room_ == 0; }

private:
    void append_any(std::string_view piece);
    void append_any_digits(uint32_t number, unsigned least_digits, unsigned base);

    // The plain text of a format up to where it stops: at a conversion, at the end or for want of room.
    const char *append_plain(const char *format);

    void advance(size_t count) {
        cursor_ += count;
        room_ -= count;
        length_ += count;
    }

    char *cursor_;
    size_t room_; // characters that still fit, the terminator not counted
    size_t length_ = 0;
};

// Two numbers behind their labels, "X:1.5 Y:-0.5".
template <unsigned Decimals>
[[gnu::always_inline]] inline void append_pair(TextWriter &out, const char *label_1, double value_1,
                                               const char *label_2, double value_2) {
    out.append(label_1);
    out.append_decimal<Decimals>(value_1);
    out.append(label_2);
    out.append_decimal<Decimals>(value_2);
}

// "07:08:09.012".
void append_time(TextWriter &out, uint32_t hour, uint32_t minute, uint32_t second, uint32_t millisecond);

// A small text of its own, formatted once. The capacity includes the terminator: a Cell<20> holds 19 characters.
template <uint64_t Capacity>
class Cell {
public:
    explicit Cell(const char *format, ...) AST_MEMBER_PRINTF(2, 3) {
        va_list arguments;
        va_start(arguments, format);
        TextWriter out(text_, Capacity);
        out.print_list(format, arguments);
        va_end(arguments);
        length_ = out.length();
    }
    operator std::string_view() const { return {text_, length_}; }

private:
    char text_[Capacity];
    size_t length_;
};

// The eight binary digits of an octet, most significant first.
class BinaryOctet {
public:
    static constexpr size_t kChars = 8;
    explicit BinaryOctet(uint8_t octet) {
        for (size_t i = 0; i < kChars; ++i) text_[i] = (octet << i & 0x80) != 0 ? '1' : '0';
    }
    operator std::string_view() const { return {text_, kChars}; }

private:
    char text_[kChars];
};

// The text of a code from a list in the order of the codes, or the fallback for a code beyond it.
template <uint64_t N>
constexpr const char *text_of(const char *const (&texts)[N], uint64_t code, const char *fallback) {
    return code < N ? texts[code] : fallback;
}

// A text that stands only when a flag is set.
constexpr const char *shown_if(bool flag, const char *text) { return flag ? text : ""; }

constexpr const char *yes_or_no(bool flag) { return flag ? "YES" : "NO"; }

constexpr bool is_printable(char character) { return character >= ' ' && character <= '~'; }

// A text that came in from outside, fit to be shown: what cannot be printed as blanks, and what HTML gives a meaning
// escaped.
void append_received(TextWriter &out, std::string_view text);

// Replaces the text in a buffer by another one.
inline void set_text(char *text, uint64_t capacity, std::string_view content) {
    TextWriter(text, capacity).append(content);
}

} // namespace ast
