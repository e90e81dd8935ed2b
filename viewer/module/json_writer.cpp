#include "module/json_writer.hpp"

#include <cmath>
#include <cstdio>

namespace ast::viewer {

void JsonWriter::text(std::string_view text) {
    constexpr uint8_t kFirstPrintable = 0x20;
    constexpr char kDigits[] = "0123456789abcdef";
    separate();
    out_.put('"');
    for (const char c : text) {
        const auto octet = static_cast<uint8_t>(c);
        if (octet < kFirstPrintable) {
            out_.put("\\u00");
            out_.put(kDigits[octet >> 4]);
            out_.put(kDigits[octet & 0xF]);
            continue;
        }
        if (c == '"' || c == '\\') out_.put('\\');
        out_.put(c);
    }
    out_.put('"');
}

void JsonWriter::hex(recording::Octets octets) {
    separate();
    out_.put('"');
    out_.hex_digits(octets);
    out_.put('"');
}

// JSON has no other numbers.
void JsonWriter::number(double number) {
    char text[32];
    if (!std::isfinite(number)) return word("null");
    std::snprintf(text, sizeof text, "%.10g", number);
    word(text);
}

} // namespace ast::viewer
