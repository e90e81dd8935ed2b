#include "ask/field_values.hpp"

#include "ask/quantities.hpp"

namespace ast::recording {

std::string Range::text() const {
    constexpr unsigned kDecimals = 6;
    char text[2 * kQuantityRoom];
    CellWriter writer(text);
    writer.shortest(least, kDecimals);
    writer.put(" to ");
    writer.shortest(most, kDecimals);
    return {text, writer.size()};
}

std::optional<Range> range_of(const ast_field_t &field) {
    constexpr uint32_t kMostBits = 63;
    if (field.bits == 0 || field.bits > kMostBits || notation_of(field) == Notation::text) return std::nullopt;
    const bool is_signed = field.kind == AST_FIELD_SIGNED;
    const double step =
        field.numerator == 0 ? 1 : static_cast<double>(field.numerator) / static_cast<double>(field.denominator);
    const auto count = static_cast<double>(uint64_t{1} << (field.bits - (is_signed ? 1 : 0)));
    return Range{(is_signed ? -count * step : 0) + field.offset, (count - 1) * step + field.offset};
}

std::string with_unit(std::string description, std::string_view unit) {
    if (!unit.empty()) description.append(", in ").append(unit);
    return description;
}

std::string texts_of(const FieldPath &path) {
    constexpr size_t kMostCharacters = 300;
    std::string texts;
    for (const ast_field_t &field : path.fields()) {
        each_code_text(field, [&](uint64_t, std::string_view text) {
            if (texts.size() < kMostCharacters && texts.find(text) == std::string::npos)
                texts.append(texts.empty() ? ", which has " : ", ").append(text);
            else if (texts.size() >= kMostCharacters && !texts.ends_with("..."))
                texts += ", ...";
        });
    }
    return texts;
}

std::string description_of(const FieldPath &path) {
    const ast_field_t &field = path.fields().front();
    switch (notation_of(field)) {
    case Notation::octal:
        return "octal digits";
    case Notation::hexadecimal:
        return "hexadecimal digits";
    case Notation::text:
        return kWord;
    default:
        return with_unit("a number", field.unit) + texts_of(path);
    }
}

} // namespace ast::recording
