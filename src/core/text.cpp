#include "core/text.hpp"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "core/copy.hpp"
#include "core/number.hpp"

namespace ast {

namespace {

// One conversion of a format, such as %03.2f.
struct Conversion {
    bool left = false;
    bool zeros = false;
    char plus = '\0'; // stands before what is not negative
    uint64_t width = 0;
    bool has_precision = false;
    uint64_t precision = 0;
    unsigned longs = 0;
    bool is_size = false;
    char kind = '\0';
};

uint64_t parse_count(const char *&format) {
    uint64_t count = 0;
    for (; *format >= '0' && *format <= '9'; ++format)
        count = std::min<uint64_t>(count * 10 + static_cast<uint64_t>(*format - '0'), INT_MAX);
    return count;
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

// Most numbers are small: parts of a time, addresses, degrees. Three digits each, and room for four to be read at once.
constexpr size_t kSmallNumbers = 1000;
constexpr auto kThreeDigits = [] {
    std::array<char, 3 * kSmallNumbers + 1> digits{};
    for (size_t i = 0; i < kSmallNumbers; ++i)
        for (size_t place = 3, rest = i; place-- > 0; rest /= 10)
            digits[3 * i + place] = static_cast<char>('0' + rest % 10);
    return digits;
}();

// Digits and other characters that append_digits() and append_decimal() fill up to.
constexpr size_t kLeastDigits = 16;

// A number within these is put together before it is appended, at once.
constexpr size_t kUsualZeros = 8;
constexpr size_t kUsualDigits = 24;

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
    if (zeros <= kUsualZeros && digits.size() <= kUsualDigits && padding == 0) {
        char number[1 + kUsualZeros + kUsualDigits];
        char *end = std::copy(sign.begin(), sign.end(), number);
        end = std::fill_n(end, zeros, '0');
        end = std::copy(digits.begin(), digits.end(), end);
        return out.append({number, static_cast<size_t>(end - number)});
    }
    if (!to.left) append_repeated(out, ' ', padding);
    out.append(sign);
    append_repeated(out, '0', zeros);
    out.append(digits);
    if (to.left) append_repeated(out, ' ', padding);
}

std::string_view sign_of(bool is_negative, const Conversion &to) {
    if (is_negative) return "-";
    return {&to.plus, to.plus == '\0' ? 0U : 1U};
}

void append_integer(TextWriter &out, const Conversion &to, std::string_view sign, uint64_t magnitude, unsigned base) {
    char digits[kNumberChars];
    // A precision of 0 leaves the digits of 0 out.
    const bool is_shown = magnitude != 0 || !to.has_precision || to.precision != 0;
    const size_t count = is_shown ? write_digits(digits, magnitude, base, to.kind == 'X') : 0;
    const uint64_t zeros = to.precision > count ? to.precision - count : 0;
    append_number(out, to, sign, zeros, {digits, count}, to.zeros && !to.has_precision);
}

void append_double(TextWriter &out, const Conversion &to, double value) {
    constexpr uint64_t kUsualDecimals = 6;
    char digits[kNumberChars];
    const size_t count = write_decimals(digits, std::fabs(value), to.has_precision ? to.precision : kUsualDecimals);
    append_number(out, to, sign_of(std::signbit(value), to), 0, {digits, count}, to.zeros && std::isfinite(value));
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
        append_integer(out, to, "", arguments.next_unsigned(to), 10);
        break;
    case 'o':
        append_integer(out, to, "", arguments.next_unsigned(to), 8);
        break;
    case 'x':
    case 'X':
        append_integer(out, to, "", arguments.next_unsigned(to), 16);
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

void TextWriter::append_digits(uint32_t number, unsigned least_digits, unsigned base) {
    if (base == 10 && number < kSmallNumbers && least_digits <= 3 && room_ > 3) {
        const unsigned count = std::max(number < 10 ? 1U : number < 100 ? 2U : 3U, least_digits);
        std::memcpy(cursor_, &kThreeDigits[3 * number + 3 - count], 4);
        advance(count);
        *cursor_ = '\0';
        return;
    }
    char digits[kLeastDigits + kIntegerChars];
    char *const end = std::end(digits);
    char *begin = write_digits_before(end, number, base, true);
    char *const wanted = end - std::min<size_t>(least_digits, kLeastDigits);
    while (begin > wanted) *--begin = '0';
    append({begin, static_cast<size_t>(end - begin)});
}

void TextWriter::append_decimal(double value, unsigned decimals, unsigned width, bool plus) {
    const bool is_negative = std::signbit(value);
    const bool has_sign = is_negative || plus;
    char number[1 + kLeastDigits + 2 * kIntegerChars];
    char *const end = std::end(number);
    char *begin = write_decimals_before(end, std::fabs(value), decimals);
    if (!begin) {
        const Conversion to = {
            .zeros = true, .plus = plus ? '+' : '\0', .width = width, .has_precision = true, .precision = decimals};
        return append_double(*this, to, value);
    }
    const size_t least = std::min<size_t>(width, kLeastDigits);
    while (static_cast<size_t>(end - begin) + has_sign < least) *--begin = '0';
    if (has_sign) *--begin = is_negative ? '-' : '+';
    append({begin, static_cast<size_t>(end - begin)});
}

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
    while (*format != '\0') {
        const char *const plain = format;
        while (*format != '%' && *format != '\0') ++format;
        append({plain, static_cast<size_t>(format - plain)});
        if (*format == '\0') break;
        append_conversion(*this, parse(++format), arguments);
    }
    va_end(arguments.list);
}

void TextWriter::print_foreign(const char *format, va_list arguments) {
    if (!room_) return;
    const size_t window = std::min<size_t>(room_ + 1, INT_MAX);
    const int wanted = std::vsnprintf(cursor_, window, format, arguments);
    if (wanted > 0) advance(std::min(static_cast<size_t>(wanted), window - 1));
}

void append_received(TextWriter &out, std::string_view text) {
    constexpr char kFirstPrintable = ' ';
    constexpr char kLastPrintable = '~';
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
            out.append(character < kFirstPrintable || character > kLastPrintable ? " "
                                                                                 : std::string_view(&character, 1));
        }
    }
}

} // namespace ast
