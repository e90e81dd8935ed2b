#include "show/field_text.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>

#include "base/printable.hpp"

namespace ast::recording::astdump {

namespace {

constexpr struct {
    std::string_view character;
    std::string_view plain;
} kPlain[] = {
    {"°", "deg"}, {"²", "2"}, {"µ", "u"}, {"≤", "<="}, {"–", "-"}, {"’", "'"}, {"“", "\""}, {"”", "\""},
};

// Of a step: how many decimals are shown, and what a raw number is multiplied with and divided by to count the last
// one.
struct Scale {
    uint64_t numerator = 0;
    uint64_t denominator = 0;
    unsigned decimals = 0;
    uint64_t one = 1; // in units of the last decimal
    uint64_t factor = 1;
    uint64_t divisor = 1;
};

constexpr unsigned kDecimalsBeyond = 2; // those that tell steps apart

Scale scale_of(uint64_t numerator, uint64_t denominator) {
    Scale scale{.numerator = numerator, .denominator = denominator};
    const auto is_exact = [&] { return numerator * scale.one % denominator == 0; };
    const auto more = [&] {
        scale.one *= 10;
        ++scale.decimals;
    };
    while (numerator * scale.one < denominator) more();
    for (unsigned left = kDecimalsBeyond; left != 0 && !is_exact(); --left) more();
    const uint64_t common = std::gcd(numerator * scale.one, denominator);
    scale.factor = numerator * scale.one / common;
    scale.divisor = denominator / common;
    return scale;
}

// A recording has few steps, and finding the decimals takes long.
const Scale &known_scale(const ast_field_t &field) {
    thread_local std::array<Scale, 64> known;
    Scale &scale = known[static_cast<size_t>(field.numerator * 31 + field.denominator % 61) % known.size()];
    if (scale.numerator != field.numerator || scale.denominator != field.denominator)
        scale = scale_of(field.numerator, field.denominator);
    return scale;
}

void put_decimals(TextBuffer &out, uint64_t fraction, unsigned decimals) {
    if (fraction == 0) return;
    for (; fraction % 10 == 0; --decimals) fraction /= 10;
    out.put('.');
    out.number(fraction, decimals, '0');
}

} // namespace

void put_quantity(TextBuffer &out, const ast_field_value_t &value) {
    static constexpr Scale kWhole;
    const ast_field_t &field = *value.field;
    const Scale &scale = field.numerator != 0 ? known_scale(field) : kWhole;
    const bool is_negative = field.kind == AST_FIELD_SIGNED && (value.raw >> (field.bits - 1) & 1) != 0;
    const uint64_t steps = is_negative ? (uint64_t{1} << field.bits) - value.raw : value.raw;
    const auto size = static_cast<int64_t>((steps * scale.factor + scale.divisor / 2) / scale.divisor);
    const int64_t sum = (is_negative ? -size : size) + field.offset * static_cast<int64_t>(scale.one);
    const auto shown = static_cast<uint64_t>(sum < 0 ? -sum : sum);
    if (sum < 0) out.put('-');
    if (scale.decimals == 0) return out.number(shown);
    out.number(shown / scale.one);
    put_decimals(out, shown % scale.one, scale.decimals);
}

void put_value(TextBuffer &out, const ast_field_value_t &value) {
    const ast_field_t &field = *value.field;
    if (value.has_number) return put_quantity(out, value);
    if (field.kind == AST_FIELD_CODE) return out.number(value.raw);
    const std::string_view text = value.text;
    put_printable(out, text.substr(0, text.find_last_not_of(' ') + 1));
}

void put_option_path(TextBuffer &out, std::string_view path) {
    constexpr size_t kCategory = std::string_view("I048/").size();
    path.remove_prefix(std::min(kCategory, path.size()));
    if (!path.empty() && path[0] >= '0' && path[0] <= '9') out.put('I');
    out.put(path);
}

// Most texts are ASCII throughout.
void put_plain(TextBuffer &out, std::string_view text) {
    while (!text.empty()) {
        const auto *const ascii_end = std::ranges::find_if(text, [](char c) { return (c & 0x80) != 0; });
        const std::string_view ascii = text.substr(0, static_cast<size_t>(ascii_end - text.begin()));
        put_printable(out, ascii);
        text.remove_prefix(ascii.size());
        if (text.empty()) return;
        const auto *const found =
            std::ranges::find_if(kPlain, [&](const auto &each) { return text.starts_with(each.character); });
        const bool is_known = found != std::end(kPlain);
        const std::string_view piece = text.substr(0, is_known ? found->character.size() : 1);
        put_printable(out, is_known ? found->plain : piece);
        text.remove_prefix(piece.size());
    }
}

} // namespace ast::recording::astdump
