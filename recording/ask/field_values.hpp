// How the values of published fields are written, and which there can be.
#pragma once

#include <ast.h>
#include <optional>
#include <string>
#include <string_view>

#include "ask/comparison.hpp"
#include "ask/field_path.hpp"

namespace ast::recording {

constexpr const char *kWord = "a word, to be compared by = and !=";

// How values of a field are compared.
inline Notation notation_of(const ast_field_t &field) {
    switch (field.kind) {
    case AST_FIELD_OCTAL:
        return Notation::octal;
    case AST_FIELD_RAW:
        return field.bits >= kOctetsBits ? Notation::hexadecimal : Notation::decimal;
    case AST_FIELD_ASCII:
    case AST_FIELD_ICAO:
    case AST_FIELD_EXPLICIT:
        return Notation::text;
    default:
        return Notation::decimal;
    }
}

// A field of so many seconds takes a time of day, and a code its text.
inline bool takes_clock(const ast_field_t &field) { return std::string_view(field.unit) == "s"; }
inline bool takes_text(const ast_field_t &field) { return field.kind == AST_FIELD_CODE; }

constexpr size_t kCodeTextRoom = 256;

inline std::string_view code_text(const ast_field_t &field, uint64_t code, char (&text)[kCodeTextRoom]) {
    ast_field_get_text(text, sizeof text, &field, code);
    return text;
}

template <typename Take>
void each_code_text(const ast_field_t &field, Take take) {
    if (!takes_text(field)) return;
    const uint64_t count = uint64_t{1} << std::min<uint32_t>(field.bits, 8);
    char text[kCodeTextRoom];
    for (uint64_t code = 0; code < count; ++code)
        if (const std::string_view found = code_text(field, code, text); !found.empty()) take(code, found);
}

// "0 to 255".
struct Range {
    double least;
    double most;

    bool has(double number) const { return number >= least && number <= most; }
    std::string text() const;
};

// What can be sent; nothing where numbers are not limited by bits.
std::optional<Range> range_of(const ast_field_t &field);

// A description, with the unit where there is one.
std::string with_unit(std::string description, std::string_view unit);

// ", which has No detection, Single PSR detection, ..."
std::string texts_of(const FieldPath &path);

// How the values of fields are described that may be compared: "octal digits", "a number, in NM".
std::string description_of(const FieldPath &path);

} // namespace ast::recording
