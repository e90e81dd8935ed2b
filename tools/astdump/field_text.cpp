#include "field_text.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "text.hpp"

namespace astdump {

namespace {

// Quantities are shown as in the JSON of a record: with as many decimals as tell each step from the next, exactly where
// two more decimals make it exact.
int shown_decimals(const ast_field_t &field) {
    uint64_t power = 1;
    int decimals = 0;
    const auto is_exact = [&](uint64_t times) { return field.numerator * power * times % field.denominator == 0; };
    const auto more = [&] {
        power *= 10;
        ++decimals;
    };
    while (field.numerator * power < 2 * field.denominator && !is_exact(1)) more();
    if (is_exact(100))
        while (!is_exact(1)) more();
    return decimals;
}

// Halves are rounded away from zero.
void put_number(TextBuffer &out, double number, int decimals) {
    const double power = std::pow(10, decimals);
    number = std::round(number * power) / power;
    char digits[64];
    const auto [end, error] = std::to_chars(digits, std::end(digits), number, std::chars_format::fixed, decimals);
    std::string_view text(digits, error == std::errc() ? static_cast<size_t>(end - digits) : 0);
    if (decimals != 0) {
        text = text.substr(0, text.find_last_not_of('0') + 1);
        if (text.ends_with('.')) text.remove_suffix(1);
    }
    out.put(text == "-0" ? "0" : text);
}

constexpr struct {
    std::string_view character;
    std::string_view plain;
} kPlain[] = {
    {"°", "deg"}, {"²", "2"}, {"µ", "u"}, {"≤", "<="}, {"–", "-"}, {"’", "'"}, {"“", "\""}, {"”", "\""},
};

} // namespace

void put_value(TextBuffer &out, const ast_field_value_t &value) {
    const ast_field_t &field = *value.field;
    if (value.has_number && field.numerator != 0) return put_number(out, value.number, shown_decimals(field));
    if (value.has_number) return put_number(out, value.number, 0);
    if (field.kind == AST_FIELD_CODE) return out.number(value.raw);
    const std::string_view text = value.text;
    put_printable(out, text.substr(0, text.find_last_not_of(' ') + 1));
}

void put_plain(TextBuffer &out, std::string_view text) {
    while (!text.empty()) {
        const auto *const found =
            std::ranges::find_if(kPlain, [&](const auto &each) { return text.starts_with(each.character); });
        const bool is_known = found != std::end(kPlain);
        const std::string_view piece = text.substr(0, is_known ? found->character.size() : 1);
        put_printable(out, is_known ? found->plain : piece);
        text.remove_prefix(piece.size());
    }
}

} // namespace astdump
