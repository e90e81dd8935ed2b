// Identities: eight characters of six bits each, as aircraft send their callsign or registration.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "ast.h"
#include "core/bits.hpp"
#include "core/text.hpp"

namespace ast {

constexpr unsigned kIdentityChars = 8;
constexpr unsigned kIdentityCharBits = 6;
constexpr uint64_t kIdentityOctets = kIdentityChars * kIdentityCharBits / 8;

// A code without a character ends the text there, but the characters behind it are kept.
inline void read_identity(char (&text)[kIdentityChars + 1], const uint8_t *octets) {
    uint64_t packed = uint64_t{read_u16(octets)} << 32 | read_u32(octets + 2);
    for (unsigned i = kIdentityChars; i-- > 0; packed >>= kIdentityCharBits)
        text[i] = ast_icao_to_ansi(static_cast<uint8_t>(packed & 0x3F));
    text[kIdentityChars] = '\0';
}

// Beyond the end of the text, or its eight characters, come blanks.
inline void write_identity(uint8_t *octets, const char (&text)[kIdentityChars + 1]) {
    const std::string_view name(text, strnlen(text, kIdentityChars));
    uint64_t packed = 0;
    for (unsigned i = 0; i < kIdentityChars; ++i) {
        const char character = i < name.size() ? name[i] : ' ';
        packed = packed << kIdentityCharBits | (static_cast<uint32_t>(ast_ansi_to_icao(character)) & 0x3F);
    }
    write_u16(octets, static_cast<uint32_t>(packed >> 32));
    write_u32(octets + 2, static_cast<uint32_t>(packed));
}

// Calls row(place, "CHAR_n", character) for each of the eight places; the character of a code that has none is empty.
template <typename Row>
void write_identity_rows(const char (&text)[kIdentityChars + 1], Row row) {
    for (unsigned i = 0; i < kIdentityChars; ++i)
        row(i, Cell<7>("CHAR_%u", i + 1), std::string_view(&text[i], text[i] ? 1 : 0));
}

} // namespace ast
