// The texts of codes, and characters.
#pragma once

#include <cstring>

#include "core/profile_name.hpp"
#include "schema/field.hpp"
#include "schema/slice.hpp"

namespace ast::schema {

// The text of a code in "text of 0|text of 1|97:text of 97", or an empty one.
inline std::string_view text_of_code(const char *texts, uint64_t code) {
    const char *at = texts ? texts : "";
    for (uint64_t next = 0; *at != '\0'; ++next) {
        uint64_t number = 0;
        const char *text = at;
        for (; *text >= '0' && *text <= '9'; ++text) number = number * 10 + static_cast<uint64_t>(*text - '0');
        const bool is_numbered = text != at && *text == ':';
        if (is_numbered) next = number;
        text = is_numbered ? text + 1 : at;
        const char *const bar = std::strchr(text, '|');
        const char *const end = bar ? bar : text + std::strlen(text);
        if (next == code) return {text, static_cast<size_t>(end - text)};
        at = *end == '\0' ? end : end + 1;
    }
    return {};
}

constexpr char kUndefinedCharacter = '?';
constexpr unsigned kIcaoBits = 6;

// Of eight characters, the upper bits of those below a limit, or of that kind, and maybe of some behind them.
constexpr uint64_t kEachOctet = 0x0101010101010101;
constexpr uint64_t any_below(uint64_t eight, uint8_t limit) { return (eight - kEachOctet * limit) & ~eight; }
constexpr uint64_t any_of(uint64_t eight, char character) {
    return any_below(eight ^ kEachOctet * static_cast<uint8_t>(character), 1);
}

// Whether eight characters stand for themselves: none is a control character, a quote, a backslash or beyond ASCII.
constexpr bool are_plain(uint64_t eight) {
    const uint64_t others = any_below(eight, ' ') | any_of(eight, '"') | any_of(eight, '\\') | eight;
    return (others & kEachOctet << 7) == 0;
}

constexpr bool is_printable(uint8_t character) { return character >= ' ' && character <= '~'; }

// The characters of the 64 codes of six bits: letters from 1 on, a blank at 32, digits from 48 on.
inline constexpr char kIcaoCharacters[] = "?ABCDEFGHIJKLMNOPQRSTUVWXYZ????? ???????????????0123456789??????";

// The character at a place, from 0, of an identification in six bits each.
constexpr char icao_character(const Field &field, uint64_t raw, unsigned place) {
    const unsigned characters = field.bits / kIcaoBits;
    return kIcaoCharacters[raw >> (kIcaoBits * (characters - 1 - place)) & 0x3F];
}

constexpr unsigned kHexBits = 4;
constexpr unsigned kOctalBits = 3;

// Raw bits are shown as a number below this, else as octets.
constexpr unsigned kMinOctetsBits = 24;
constexpr bool is_shown_as_octets(const Field &field) {
    return (field.kind == Kind::Raw || field.kind == Kind::Either) && field.bits >= kMinOctetsBits;
}

// The hexadecimal digits of so many bits.
constexpr unsigned hex_digits(const Field &field) { return (field.bits + kHexBits - 1U) / kHexBits; }

constexpr char kHexDigits[] = "0123456789ABCDEF";

// The reference of an item within its category as documents write it, "I010" or "REF", whatever its type's number is.
// Profiles may announce a type that no edition describes more than once: the second one is "I951_2".
inline std::string_view reference_of(ast_dataitem_type_t type, bool is_second, char (&buffer)[8]) {
    const std::string_view reference = ast_dataitem_type_to_str(type);
    const std::string_view item = slice(reference, reference.find('/') + 1, 3);
    const bool is_number = !item.empty() && item[0] >= '0' && item[0] <= '9';
    size_t length = 0;
    if (is_number) buffer[length++] = 'I';
    for (const char c : item) buffer[length++] = c;
    if (is_second) buffer[length++] = '_', buffer[length++] = '2';
    return {buffer, length};
}

// The name of an exported profile; null for another one.
inline const char *profile_name(const ast_uap_t &uap) {
    if (const char *const name = exported_profile_name(uap)) return name;
    if (uap.get_dataitem == AST_UAP_PUBLISHED.get_dataitem) return "published";
    return uap.get_dataitem == AST_UAP_PUBLISHED_OTHER.get_dataitem ? "published-other" : nullptr;
}

} // namespace ast::schema
