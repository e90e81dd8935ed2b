#include "write/anonymizer.hpp"

#include <algorithm>
#include <iterator>

#include "ask/published_reading.hpp"
#include "base/letters.hpp"

namespace ast::recording {

namespace {

constexpr uint32_t kAddressBits = 24;
constexpr unsigned kCharacterBits = 6;
constexpr unsigned kOctetBits = 8;

// Characters that name something else, though they are of the kind of callsigns.
constexpr std::string_view kOtherNames[] = {
    "Area Name",
    "Service Designator",
};

// Where callsigns are among other characters of eight bits.
constexpr std::string_view kCallsigns[] = {"Callsign", "Aircraft Identifier"};

// Codes of Mode 1 with fewer bits than four octal digits take.
constexpr std::string_view kMode1[] = {"MODE1", "TCODE1"};

bool contains(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

std::string_view last_step(std::string_view path) {
    std::string_view step = path.substr(path.rfind('/') + 1);
    return step.substr(0, step.find('['));
}

uint32_t raw_code(std::string_view digits) {
    uint32_t code = 0;
    for (const char c : digits) code = code << 3 | static_cast<uint32_t>(c - '0');
    return code;
}

// Letters and digits in either coding; all else counts as a blank and stays.
char character_at(uint64_t raw, unsigned from_end, unsigned bits) {
    const auto code = static_cast<uint8_t>(raw >> from_end * bits & ((uint64_t{1} << bits) - 1));
    if (bits == kOctetBits) return static_cast<char>(code);
    const char character = ast_icao_to_ansi(code);
    return character == '\0' ? ' ' : character;
}

// The same pseudonym in either coding, and whatever the blanks behind it.
uint64_t callsign_bits(const Pseudonyms &pseudonyms, uint64_t raw, unsigned field_bits, unsigned bits) {
    std::string text;
    for (unsigned i = field_bits / bits; i-- > 0;) text += character_at(raw, i, bits);
    const size_t size = text.find_last_not_of(' ') + 1;
    const std::string other = pseudonyms.callsign(std::string_view(text).substr(0, size));
    for (size_t i = 0; i < size; ++i) {
        if (!is_letter(text[i]) && !is_digit(text[i])) continue;
        const auto from_end = static_cast<unsigned>(text.size() - 1 - i) * bits;
        const auto code =
            bits == kOctetBits ? static_cast<uint64_t>(other[i]) : static_cast<uint64_t>(ast_ansi_to_icao(other[i]));
        raw = (raw & ~(((uint64_t{1} << bits) - 1) << from_end)) | code << from_end;
    }
    return raw;
}

// Four octal digits in characters.
uint64_t characters_of_code(const Pseudonyms &pseudonyms, uint64_t raw) {
    constexpr unsigned kDigits = 4;
    std::string digits;
    for (unsigned i = kDigits; i-- > 0;) digits += character_at(raw, i, kOctetBits);
    if (digits.find_first_not_of("01234567") != std::string::npos) return raw;
    const uint32_t code = pseudonyms.code(raw_code(digits));
    uint64_t result = 0;
    for (unsigned i = kDigits; i-- > 0;) result = result << kOctetBits | ('0' + (code >> i * 3 & 7));
    return result;
}

} // namespace

Identity identity_of(const ast_field_t &field, std::string_view path) {
    const std::string_view title = field.title;
    const auto titled = [&](std::string_view part) { return contains(title, part); };
    const std::string_view name = last_step(path);
    switch (field.kind) {
    case AST_FIELD_OCTAL:
        return Identity::code;
    case AST_FIELD_ICAO:
        return std::ranges::count(kOtherNames, title) == 0 ? Identity::callsign : Identity::none;
    case AST_FIELD_ASCII:
        if (titled("Mode 3A")) return Identity::code_in_characters;
        return std::ranges::any_of(kCallsigns, titled) ? Identity::callsign : Identity::none;
    case AST_FIELD_RAW:
    case AST_FIELD_UNSIGNED:
        if (field.kind == AST_FIELD_RAW && field.bits == kAddressBits) return Identity::address;
        return field.bits > 1 && std::ranges::count(kMode1, name) != 0 ? Identity::short_code : Identity::none;
    default:
        return Identity::none;
    }
}

bool Anonymizer::change(void *context, const ast_field_value_t *value, uint64_t *raw) {
    const Pseudonyms &pseudonyms = static_cast<const Anonymizer *>(context)->pseudonyms_;
    const ast_field_t &field = *value->field;
    const bool is_icao = field.kind == AST_FIELD_ICAO;
    switch (identity_of(field, field.path)) {
    case Identity::none:
        return false;
    case Identity::address:
        *raw = pseudonyms.address(static_cast<uint32_t>(*raw));
        return true;
    case Identity::code:
        *raw = pseudonyms.code(static_cast<uint32_t>(*raw));
        return true;
    case Identity::short_code:
        *raw = pseudonyms.short_code(static_cast<uint32_t>(*raw), field.bits);
        return true;
    case Identity::code_in_characters:
        *raw = characters_of_code(pseudonyms, *raw);
        return true;
    case Identity::callsign:
        *raw = callsign_bits(pseudonyms, *raw, field.bits, is_icao ? kCharacterBits : kOctetBits);
        return true;
    }
    return false;
}

uint64_t Anonymizer::write(const ast_dataitem_t &item, const ast_uap_t &uap, uint32_t message_type,
                           uint8_t *octets) const {
    return ast_dataitem_change_values(octets, &item, uap, message_type, change, const_cast<Anonymizer *>(this));
}

uint64_t Anonymizer::write(const ast_datarecord_t &record, uint8_t *octets) const {
    uint64_t written = 0;
    for (uint64_t i = 0; i < record.item_count; ++i) {
        const ast_dataitem_t &item = record.items[i];
        written += write(item, record.uap, message_type_of(record), octets + (item.data - record.data));
    }
    return written;
}

} // namespace ast::recording
