// What is said of a field, and of a value that stands in it.
#pragma once

#include "core/text.hpp"
#include "schema/number.hpp"
#include "schema/texts.hpp"

namespace ast::schema {

constexpr const char *or_empty(const char *text) { return text ? text : ""; }

inline uint32_t public_kind(Kind kind) {
    if (kind == Kind::UnsignedOrNone) return AST_FIELD_UNSIGNED;
    if (kind == Kind::Status) return AST_FIELD_RAW;
    return static_cast<uint32_t>(kind);
}

inline ast_field_t description_of(const Field &field, const char *path) {
    const bool has_step = field.is_quantity();
    return {.path = path,
            .title = or_empty(field.title),
            .kind = public_kind(field.kind),
            .bits = field.bits,
            .unit = has_step ? or_empty(field.meaning) : "",
            .numerator = has_step ? field.numerator : 0,
            .denominator = has_step ? field.denominator : 0,
            .offset = field.offset,
            .texts = field.kind == Kind::Code ? or_empty(field.meaning) : ""};
}

// Makes values, whose texts last until the next one.
class ValueMaker {
public:
    ast_field_value_t number(const Field &field, uint64_t raw) {
        write_text(field, raw);
        if (field.kind == Kind::Code) write_text_of_code(field, raw);
        return of(field, raw);
    }
    // The same, but for the text of a code, which takes a search.
    ast_field_value_t bare_number(const Field &field, uint64_t raw) {
        write_text(field, raw);
        return of(field, raw);
    }
    ast_field_value_t octets(const Field &field, const uint8_t *data, uint64_t count) {
        if (field.kind == Kind::Ascii)
            write_characters(data, count);
        else
            write_hex(data, count);
        uint64_t raw = 0;
        for (uint64_t i = 0; count <= sizeof raw && i < count; ++i) raw = raw << 8 | data[i];
        return {.raw = raw, .text = text_};
    }
    // Of a register, by its number.
    ast_field_value_t register_number(uint32_t number, uint64_t raw) {
        TextWriter out(text_, sizeof text_);
        digits(out, number, 2, kHexBits);
        return {.raw = raw, .text = text_};
    }

private:
    ast_field_value_t of(const Field &field, uint64_t raw) const {
        const bool is_number = !is_shown_as_octets(field) && field.kind != Kind::Octal && field.kind != Kind::Icao;
        return {.raw = raw, .has_number = is_number, .number = is_number ? number_of(field, raw) : 0, .text = text_};
    }
    void write_text_of_code(const Field &field, uint64_t raw) {
        TextWriter(text_, sizeof text_).append(text_of_code(field.meaning, raw));
    }
    void write_text(const Field &field, uint64_t raw) {
        text_[0] = '\0';
        if (field.kind == Kind::Unsigned || field.kind == Kind::Signed || field.kind == Kind::Code) return; // no text
        TextWriter out(text_, sizeof text_);
        if (field.kind == Kind::Icao) {
            for (unsigned i = 0; i < field.bits / kIcaoBits; ++i) character(out, icao_character(field, raw, i));
        } else if (field.kind == Kind::Octal) {
            digits(out, raw, field.bits / kOctalBits, kOctalBits);
        } else if (is_shown_as_octets(field)) {
            digits(out, raw, hex_digits(field), kHexBits);
        }
        if (field.kind == Kind::Icao) trim(out.length());
    }
    void write_characters(const uint8_t *data, uint64_t count) {
        TextWriter out(text_, sizeof text_);
        for (uint64_t i = 0; i < count; ++i)
            character(out, is_printable(data[i]) ? static_cast<char>(data[i]) : kUndefinedCharacter);
        trim(out.length());
    }
    void write_hex(const uint8_t *data, uint64_t count) {
        TextWriter out(text_, sizeof text_);
        for (uint64_t i = 0; i < count && !out.is_full(); ++i) digits(out, data[i], 2, kHexBits);
    }
    static void character(TextWriter &out, char c) { out.append({&c, 1}); }
    static void digits(TextWriter &out, uint64_t value, unsigned count, unsigned bits) {
        char text[kMaxNumberBits / kOctalBits + 1];
        for (unsigned i = 0; i < count; ++i)
            text[i] = kHexDigits[value >> (bits * (count - 1 - i)) & ((1U << bits) - 1)];
        out.append({text, count});
    }
    void trim(uint64_t length) {
        while (length != 0 && text_[length - 1] == ' ') text_[--length] = '\0';
    }

    char text_[256];
};

} // namespace ast::schema
