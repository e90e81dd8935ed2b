// Single values from JSON.

#include "schema/encode.hpp"

namespace ast::schema {

namespace {

const char *read_digits(uint64_t &raw, Slice value, unsigned digits, unsigned bits_of_digit, const char *fault) {
    if (!is_string(value) || between_quotes(value).size() != digits) return fault;
    raw = 0;
    for (const char c : between_quotes(value)) {
        const uint32_t digit = ast_hex_to_int(c);
        if (digit >> bits_of_digit) return fault;
        raw = raw << bits_of_digit | digit;
    }
    return nullptr;
}

const char *read_octal(uint64_t &raw, const Field &field, Slice value) {
    return read_digits(raw, value, field.bits / kOctalBits, kOctalBits, "is no string of as many octal digits");
}

const char *read_hex(uint64_t &raw, const Field &field, Slice value) {
    static constexpr char kFault[] = "is no string of as many hexadecimal digits";
    const char *const fault = read_digits(raw, value, hex_digits(field), kHexBits, kFault);
    return !fault && raw >> field.bits ? kFault : fault;
}

const char *read_icao(uint64_t &raw, const Field &field, Slice value) {
    constexpr uint64_t kBlank = 32;
    if (!is_string(value)) return "is no string";
    JsonChars characters(value);
    raw = 0;
    for (unsigned i = 0; i < field.bits / kIcaoBits; ++i) {
        const char character = characters.is_at_end() ? ' ' : characters.next();
        const auto code = static_cast<uint64_t>(ast_ansi_to_icao(character));
        if (code == 0) return "has a character that is no letter, digit or blank";
        raw = raw << kIcaoBits | (character == ' ' ? kBlank : code);
    }
    return characters.is_at_end() ? nullptr : "is too long";
}

} // namespace

const char *read_leaf(uint64_t &raw, const Field &field, Slice value) {
    if (field.kind == Kind::Octal) return read_octal(raw, field, value);
    if (field.kind == Kind::Icao) return read_icao(raw, field, value);
    if (is_shown_as_octets(field)) return read_hex(raw, field, value);
    const Slice number = plain_value(field, value);
    return is_number(number) ? read_value(raw, field, number) : "is no number";
}

const char *read_register_number(uint32_t &number, Slice object) {
    static constexpr Field kNumber = row(Kind::Raw, "bds", "", 8);
    static constexpr char kFault[] = "has no \"bds\" of two hexadecimal digits";
    uint64_t raw = 0;
    if (!is_object(object)) return "is no object";
    const Slice value = JsonObject(object).find("\"bds\"");
    if (const char *const fault = read_digits(raw, value, hex_digits(kNumber), kHexBits, kFault)) return fault;
    number = static_cast<uint32_t>(raw);
    return nullptr;
}

bool find_profile(ast_uap_t &uap, Slice name) {
    for (const ast_uap_t *each : {&AST_UAP_PUBLISHED, &AST_UAP_PUBLISHED_OTHER})
        if (name == profile_name(*each)) {
            uap = *each;
            return true;
        }
    for (uint64_t i = 0; i < ast_uap_get_number(); ++i)
        if (const ast_uap_info_t info = ast_uap_get_info(i); name == info.name) {
            uap = *info.uap;
            return true;
        }
    return false;
}

} // namespace ast::schema
