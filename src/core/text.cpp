#include "core/text.hpp"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "core/copy.hpp"
#include "core/digits.hpp"
#include "core/number.hpp"

namespace ast {

namespace {

// One conversion of a format, such as %03.2f.
struct Conversion {
    char kind = '\0';
    bool left = false;
    bool zeros = false;
    char plus = '\0'; // stands before what is not negative
    bool is_size = false;
    bool has_precision = false;
    uint32_t width = 0;
    uint32_t precision = 0;
    uint32_t longs = 0;
};

uint32_t parse_count(const char *&format) {
    uint64_t count = 0;
    for (; *format >= '0' && *format <= '9'; ++format)
        count = std::min<uint64_t>(count * 10 + static_cast<uint64_t>(*format - '0'), INT_MAX);
    return static_cast<uint32_t>(count);
}

bool parse_flag(char character, Conversion &to) {
    switch (character) {
    case '-':
        return to.left = true;
    case '0':
        return to.zeros = true;
    case '+':
        to.plus = '+';
        return true;
    case ' ':
        if (to.plus == '\0') to.plus = ' ';
        return true;
    default:
        return false;
    }
}

// Parses what stands behind a percent sign, and leaves the format behind it.
Conversion parse(const char *&format) {
    Conversion to;
    while (parse_flag(*format, to)) ++format;
    to.width = parse_count(format);
    if (*format == '.') {
        ++format;
        to.has_precision = true;
        to.precision = parse_count(format);
    }
    for (; *format == 'l'; ++format) ++to.longs;
    if (*format == 'z') {
        ++format;
        to.is_size = true;
    }
    to.kind = *format;
    if (*format != '\0') ++format;
    return to;
}

// A text that may end without a terminator where its precision does.
std::string_view text_argument(const char *text, const Conversion &to) {
    if (!text) return "(null)";
    return to.has_precision ? std::string_view(text, strnlen(text, static_cast<size_t>(to.precision)))
                            : std::string_view(text);
}

void append_repeated(TextWriter &out, char character, uint64_t count) {
    char block[32];
    std::fill(std::begin(block), std::end(block), character);
    while (count != 0) {
        const auto now = static_cast<size_t>(std::min<uint64_t>(count, sizeof block));
        out.append({block, now});
        count -= now;
        // What does not fit is cut, and need not be written to be cut.
        if (count > 0 && out.is_full()) return;
    }
}

// Digits and other characters that a number which is written at once fills up to; others are put together from pieces.
constexpr uint32_t kLeastDigits = 16;
static_assert(1 + kIntegerChars <= TextWriter::kPieceChars && 1 + kLeastDigits <= TextWriter::kPieceChars);

bool is_usual(const Conversion &to) { return !to.left && to.width <= (to.zeros ? kLeastDigits : 0); }

// A sign of one character at most and digits, in at least the width of the conversion; `zeros` of them stand before the
// digits in any case.
void append_number(TextWriter &out, const Conversion &to, std::string_view sign, uint64_t zeros,
                   std::string_view digits, bool pads_with_zeros) {
    const uint64_t length = sign.size() + zeros + digits.size();
    uint64_t padding = to.width > length ? to.width - length : 0;
    if (pads_with_zeros && !to.left) {
        zeros += padding;
        padding = 0;
    }
    if (!to.left) append_repeated(out, ' ', padding);
    out.append(sign);
    append_repeated(out, '0', zeros);
    out.append(digits);
    if (to.left) append_repeated(out, ' ', padding);
}

// None is '\0'.
char sign_of(bool is_negative, const Conversion &to) { return is_negative ? '-' : to.plus; }

std::string_view as_text(const char &sign) { return {&sign, sign == '\0' ? 0U : 1U}; }

// Writes a sign and, by write(digits, least), no fewer digits than the width leaves.
template <typename Write>
void append_usual(TextWriter &out, const Conversion &to, char sign, Write write) {
    out.append_piece([&](char *text) {
        const size_t signs = sign == '\0' ? 0 : 1;
        *text = sign;
        return signs + write(text + signs, to.width - std::min<size_t>(to.width, signs));
    });
}

void append_integer(TextWriter &out, const Conversion &to, char sign, uint64_t magnitude, unsigned base) {
    const bool is_upper_case = to.kind == 'X';
    const bool has_least = to.precision - 1 < kLeastDigits; // a precision of 0 leaves the digits of 0 out
    if (is_usual(to) && (!to.has_precision || (has_least && to.width == 0)))
        return append_usual(out, to, sign, [&](char *digits, size_t least) {
            return write_digits(digits, magnitude, base, is_upper_case, to.has_precision ? to.precision : least);
        });
    char digits[kNumberChars];
    const bool is_shown = magnitude != 0 || !to.has_precision || to.precision != 0;
    const size_t count = is_shown ? write_digits(digits, magnitude, base, is_upper_case) : 0;
    const uint64_t zeros = to.precision > count ? to.precision - count : 0;
    append_number(out, to, as_text(sign), zeros, {digits, count}, to.zeros && !to.has_precision);
}

void append_double(TextWriter &out, const Conversion &to, double value) {
    constexpr uint32_t kUsualDecimals = 6;
    const uint32_t decimals = to.has_precision ? to.precision : kUsualDecimals;
    const char sign = sign_of(std::signbit(value), to);
    if (Decimal decimal; is_usual(to) && as_decimal(std::fabs(value), decimals, decimal))
        return append_usual(out, to, sign, [&](char *digits, size_t least) {
            const size_t count = std::max(decimal.size(), least);
            decimal.write(digits, digits + count);
            return count;
        });
    char digits[kNumberChars];
    const size_t count = write_decimals(digits, std::fabs(value), decimals);
    append_number(out, to, as_text(sign), 0, {digits, count}, to.zeros && std::isfinite(value));
}

void append_padded(TextWriter &out, const Conversion &to, std::string_view piece) {
    if (to.width <= piece.size()) return out.append(piece);
    const uint64_t padding = to.width > piece.size() ? to.width - piece.size() : 0;
    if (!to.left) append_repeated(out, ' ', padding);
    out.append(piece);
    if (to.left) append_repeated(out, ' ', padding);
}

// A va_list in a place of its own, so that functions can take arguments from it.
struct Arguments {
    va_list list;
    int64_t next_signed(const Conversion &to) {
        if (to.is_size) return static_cast<int64_t>(va_arg(list, size_t));
        if (to.longs >= 2) return va_arg(list, long long);
        return to.longs == 1 ? va_arg(list, long) : va_arg(list, int);
    }
    uint64_t next_unsigned(const Conversion &to) {
        if (to.is_size) return va_arg(list, size_t);
        if (to.longs >= 2) return va_arg(list, unsigned long long);
        return to.longs == 1 ? va_arg(list, unsigned long) : va_arg(list, unsigned);
    }
};

void append_conversion(TextWriter &out, const Conversion &to, Arguments &arguments) {
    switch (to.kind) {
    case 's':
        append_padded(out, to, text_argument(va_arg(arguments.list, const char *), to));
        break;
    case 'c': {
        const auto character = static_cast<char>(va_arg(arguments.list, int));
        append_padded(out, to, {&character, 1});
        break;
    }
    case 'd':
    case 'i': {
        const int64_t value = arguments.next_signed(to);
        const auto bits = static_cast<uint64_t>(value);
        append_integer(out, to, sign_of(value < 0, to), value < 0 ? 0 - bits : bits, 10);
        break;
    }
    case 'u':
        append_integer(out, to, '\0', arguments.next_unsigned(to), 10);
        break;
    case 'o':
        append_integer(out, to, '\0', arguments.next_unsigned(to), 8);
        break;
    case 'x':
    case 'X':
        append_integer(out, to, '\0', arguments.next_unsigned(to), 16);
        break;
    case 'f':
        append_double(out, to, va_arg(arguments.list, double));
        break;
    default:
        out.append({&to.kind, 1});
    }
}

} // namespace

void TextWriter::append_any(std::string_view piece) {
    const size_t count = std::min(piece.size(), room_);
    if (count == 0) return;
    copy_text(cursor_, piece.data(), count);
    advance(count);
    *cursor_ = '\0';
}

void TextWriter::append_any_digits(uint32_t number, unsigned least_digits, unsigned base) {
    append_piece(
        [&](char *text) { return write_digits(text, number, base, true, std::min(least_digits, kLeastDigits)); });
}

template <unsigned Decimals>
void TextWriter::append_decimal(double value, unsigned width, bool plus) {
    width = std::min(width, kLeastDigits);
    Decimal decimal;
    if (room_ < kPieceChars || !as_decimal(std::fabs(value), Decimals, decimal)) [[unlikely]] {
        const char sign = plus ? '+' : '\0';
        return append_double(
            *this, {.zeros = true, .plus = sign, .has_precision = true, .width = width, .precision = Decimals}, value);
    }
    const bool is_negative = std::signbit(value);
    const size_t signs = is_negative || plus ? 1 : 0;
    *cursor_ = is_negative ? '-' : '+';
    const size_t count = std::max<size_t>(signs + decimal.size(), width);
    decimal.write(cursor_ + signs, cursor_ + count);
    advance(count);
    *cursor_ = '\0';
}

template void TextWriter::append_decimal<1>(double value, unsigned width, bool plus);
template void TextWriter::append_decimal<2>(double value, unsigned width, bool plus);
template void TextWriter::append_decimal<3>(double value, unsigned width, bool plus);
template void TextWriter::append_decimal<4>(double value, unsigned width, bool plus);
template void TextWriter::append_decimal<6>(double value, unsigned width, bool plus);

void TextWriter::print(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    print_list(format, arguments);
    va_end(arguments);
}

void TextWriter::print_list(const char *format, va_list list) {
    if (!room_) return;
    Arguments arguments;
    va_copy(arguments.list, list);
    while (true) {
        format = append_plain(format);
        if (*format != '%' || is_full()) break;
        append_conversion(*this, parse(++format), arguments);
    }
    va_end(arguments.list);
}

const char *TextWriter::append_plain(const char *format) {
    char *to = cursor_;
    const char *const end = cursor_ + room_;
    while (*format != '%' && *format != '\0' && to != end) *to++ = *format++;
    advance(static_cast<size_t>(to - cursor_));
    *cursor_ = '\0';
    return format;
}

void TextWriter::print_foreign(const char *format, va_list arguments) {
    if (!room_) return;
    const size_t window = std::min<size_t>(room_ + 1, INT_MAX);
    const int wanted = std::vsnprintf(cursor_, window, format, arguments);
    if (wanted > 0) advance(std::min(static_cast<size_t>(wanted), window - 1));
}

void append_time(TextWriter &out, uint32_t hour, uint32_t minute, uint32_t second, uint32_t millisecond) {
    constexpr char kTime[] = "00:00:00.000";
    if (hour < 100 && minute < 100 && second < 100 && millisecond < 1000) [[likely]]
        return out.append_piece([&](char *text) {
            std::memcpy(text, kTime, sizeof kTime - 1);
            fill_digits(text, text + 2, hour);
            fill_digits(text + 3, text + 5, minute);
            fill_digits(text + 6, text + 8, second);
            fill_digits(text + 9, text + 12, millisecond);
            return sizeof kTime - 1;
        });
    out.append_digits(hour, 2);
    out.append(":");
    out.append_digits(minute, 2);
    out.append(":");
    out.append_digits(second, 2);
    out.append(".");
    out.append_digits(millisecond, 3);
}

void append_received(TextWriter &out, std::string_view text) {
    for (const char &character : text) {
        switch (character) {
        case '&':
            out.append("&amp;");
            break;
        case '<':
            out.append("&lt;");
            break;
        case '>':
            out.append("&gt;");
            break;
        case '"':
            out.append("&quot;");
            break;
        default:
            out.append(is_printable(character) ? std::string_view(&character, 1) : " ");
        }
    }
}

} // namespace ast
