#include "show/field_text.hpp"

#include <algorithm>
#include <iterator>

#include "base/printable.hpp"
#include "show/quantity.hpp"

namespace ast::recording::astdump {

namespace {

constexpr struct {
    std::string_view character;
    std::string_view plain;
} kPlain[] = {
    {"°", "deg"}, {"²", "2"}, {"µ", "u"}, {"≤", "<="}, {"–", "-"}, {"’", "'"}, {"“", "\""}, {"”", "\""},
};

} // namespace

void put_value(TextBuffer &out, const ast_field_value_t &value) {
    const ast_field_t &field = *value.field;
    if (value.has_number) return put_quantity(out, value);
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

} // namespace ast::recording::astdump
