#include "base/printable.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace ast::recording {

namespace {

bool is_foreign(char c) { return c < ' ' || c > '~'; }

// Eight at a time: one that is below a blank borrows, one above a tilde carries or has its highest bit set already, and
// what that does to its neighbours matters no more.
bool any_foreign(std::string_view text) {
    constexpr uint64_t kOnes = 0x0101010101010101;
    constexpr uint64_t kHighest = 0x80 * kOnes;
    const auto is_any = [](const char *characters) {
        uint64_t eight;
        std::memcpy(&eight, characters, sizeof eight);
        return (((eight - ' ' * kOnes) | (eight + kOnes) | eight) & kHighest) != 0;
    };
    if (text.size() < sizeof(uint64_t)) return std::ranges::any_of(text, is_foreign);
    const char *const last = text.data() + text.size() - sizeof(uint64_t);
    for (const char *at = text.data(); at < last; at += sizeof(uint64_t))
        if (is_any(at)) return true;
    return is_any(last);
}

} // namespace

void make_printable(std::span<char> text) {
    if (any_foreign({text.data(), text.size()})) std::ranges::replace_if(text, is_foreign, '.');
}

std::string printable(std::string_view text) {
    std::string result(text);
    make_printable(result);
    return result;
}

void put_printable(TextBuffer &out, std::string_view text) {
    if (!any_foreign(text)) return out.put(text);
    out.put(printable(text));
}

namespace {

struct CharacterRange {
    char32_t first;
    char32_t last;
};

// Control characters, and those that no one sees but that move or turn round what stands beside them.
constexpr CharacterRange kUnreadable[] = {
    {0, 0x1F},        {0x7F, 0x9F},     {0xAD, 0xAD},     {0x61C, 0x61C},   {0x200B, 0x200F},
    {0x2028, 0x202E}, {0x2060, 0x206F}, {0xD800, 0xDFFF}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB},
};

struct Character {
    size_t octets; // 0 when there is none
    char32_t code;
};

// The character of UTF-8 that a text, which is not empty, begins with, in its shortest form.
Character first_character(std::string_view text) {
    constexpr struct {
        uint8_t mask;
        uint8_t lead;
        char32_t least;
        char32_t most;
    } kForms[] = {
        {0x80, 0x00, 0, 0x7F}, {0xE0, 0xC0, 0x80, 0x7FF}, {0xF0, 0xE0, 0x800, 0xFFFF}, {0xF8, 0xF0, 0x10000, 0x10FFFF}};
    const auto lead = static_cast<uint8_t>(text[0]);
    for (size_t more = 0; more < std::size(kForms); ++more) {
        const auto &form = kForms[more];
        if ((lead & form.mask) != form.lead) continue;
        if (text.size() <= more) return {};
        char32_t code = lead & static_cast<uint8_t>(~form.mask);
        for (const char c : text.substr(1, more)) {
            if ((c & 0xC0) != 0x80) return {};
            code = code << 6 | static_cast<char32_t>(c & 0x3F);
        }
        if (code < form.least || code > form.most) return {};
        return {more + 1, code};
    }
    return {};
}

bool is_readable(char32_t code) {
    return std::ranges::none_of(kUnreadable,
                                [&](const CharacterRange &range) { return range.first <= code && code <= range.last; });
}

} // namespace

std::string readable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const Character character = first_character(text);
        const bool shown = character.octets != 0 && is_readable(character.code);
        const size_t octets = std::max<size_t>(character.octets, 1);
        result.append(shown ? text.substr(0, octets) : ".");
        text.remove_prefix(octets);
    }
    return result;
}

bool is_text(std::span<const uint8_t> octets) {
    constexpr size_t kFewest = 6; // of fewer, a block may consist
    constexpr size_t kAsciiShare = 8;
    size_t others = 0;
    for (const uint8_t octet : octets) {
        const bool is_white = octet == ' ' || (octet >= '\t' && octet <= '\r');
        if (octet >= 0x80)
            ++others;
        else if (!is_white && (octet < ' ' || octet == 0x7F))
            return false;
    }
    return octets.size() >= kFewest && others <= octets.size() / kAsciiShare;
}

} // namespace ast::recording
