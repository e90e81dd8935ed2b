#include "text.hpp"

#include <algorithm>
#include <asio/ip/address_v6.hpp>
#include <cstring>
#include <ctime>
#include <iterator>

namespace astdump {

std::string counted(uint64_t count, const char *noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

void put_counted(TextBuffer &out, uint64_t count, std::string_view noun) {
    out.number(count);
    out.put(' ');
    out.put(noun);
    if (count != 1) out.put('s');
}

void put_time(TextBuffer &out, const Time &time) {
    const std::time_t seconds = time.seconds;
    // Datagrams come in their order: most share their second with the one before.
    thread_local std::time_t last_seconds = -1;
    thread_local std::string last;
    if (seconds != last_seconds) {
        std::tm utc{};
        gmtime_r(&seconds, &utc);
        char text[32];
        last.assign(text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &utc));
        last_seconds = seconds;
    }
    out.put(last);
    out.put('.');
    if (time.nanoseconds % 1000 == 0)
        out.number(time.nanoseconds / 1000, 6, '0');
    else
        out.number(time.nanoseconds, 9, '0');
}

namespace {

void put_ipv4(TextBuffer &out, const Address &address) {
    for (size_t i = 0; i < 4; ++i) {
        if (i != 0) out.put('.');
        out.number(address.octets[i]);
    }
}

void put_ipv6(TextBuffer &out, const Address &address) {
    out.put('[');
    out.put(asio::ip::make_address_v6(address.octets, address.scope).to_string());
    out.put(']');
}

} // namespace

void put_endpoint(TextBuffer &out, const Endpoint &endpoint) {
    if (endpoint.address.is_ipv6)
        put_ipv6(out, endpoint.address);
    else
        put_ipv4(out, endpoint.address);
    out.put(':');
    out.number(endpoint.port);
}

void put_route(TextBuffer &out, const Endpoints &endpoints) {
    put_endpoint(out, endpoints.source);
    out.put(" > ");
    put_endpoint(out, endpoints.destination);
}

std::string route_text(const Endpoints &endpoints) {
    TextBuffer text;
    put_route(text, endpoints);
    return std::string(text.text());
}

std::string cut(std::string text, size_t width) {
    if (text.size() > width) text.replace(width - 3, std::string::npos, "...");
    return text;
}

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

} // namespace astdump
