// Numbers and codes as ASTERIX items carry them.

#include <cmath>
#include <cstring>

#include "core/bits.hpp"
#include "core/text.hpp"

namespace {

using namespace ast;

constexpr double kMinutesPerDegree = 60;
constexpr double kSecondsPerMinute = 60;
constexpr double kSecondsPerDegree = 3600;

// An angle in whole degrees and minutes, and the seconds left as they are asked for.
struct Sexagesimal {
    int degrees;
    int minutes;
    double seconds; // of the minute
};

// Larger than any angle, small enough for an int; keeps the texts of absurd numbers defined.
constexpr double kLargestAngle = 1e6;

Sexagesimal split(double angle) {
    const double magnitude = std::isfinite(angle) ? std::fmin(std::fabs(angle), kLargestAngle) : 0;
    const double degrees = std::floor(magnitude);
    const double fraction = magnitude - degrees;
    const double minutes = std::floor(fraction * kMinutesPerDegree);
    const double seconds = (fraction - minutes / kMinutesPerDegree) * kSecondsPerDegree;
    return {static_cast<int>(degrees), static_cast<int>(minutes), seconds};
}

// Seconds and their decimals. The decimals are rounded without a carry, so 100 of 100 can appear; this is how the texts
// are known.
struct Decimals {
    int seconds;
    int fraction;
};

Decimals decimals(double angle, const Sexagesimal &parts, double per_second) {
    const double magnitude = std::isfinite(angle) ? std::fmin(std::fabs(angle), kLargestAngle) : 0;
    const double seconds = std::floor(parts.seconds);
    const double rest =
        magnitude * kSecondsPerDegree - parts.degrees * kSecondsPerDegree - parts.minutes * kSecondsPerMinute - seconds;
    return {static_cast<int>(seconds), static_cast<int>(std::round(rest * per_second))};
}

// Zero belongs to the south and the west.
char north_or_south(double latitude) { return latitude > 0 ? 'N' : 'S'; }
char east_or_west(double longitude) { return longitude > 0 ? 'E' : 'W'; }

const char *print_decimal_seconds(char *text, uint64_t capacity, const char *format, double latitude, double longitude,
                                  double per_second) {
    const Sexagesimal lat = split(latitude);
    const Sexagesimal lon = split(longitude);
    const Decimals lat_s = decimals(latitude, lat, per_second);
    const Decimals lon_s = decimals(longitude, lon, per_second);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    TextWriter(text, capacity)
        .print(format, lat.degrees, lat.minutes, lat_s.seconds, lat_s.fraction, north_or_south(latitude), lon.degrees,
               lon.minutes, lon_s.seconds, lon_s.fraction, east_or_west(longitude));
#pragma GCC diagnostic pop
    return text;
}

void append_angle(TextWriter &out, const Sexagesimal &angle, unsigned degree_digits, char direction) {
    out.append_digits(static_cast<uint32_t>(angle.degrees), degree_digits);
    out.append_digits(static_cast<uint32_t>(angle.minutes), 2);
    out.append_digits(static_cast<uint32_t>(std::round(angle.seconds)), 2);
    out.append({&direction, 1});
}

// Big-endian; of more than four octets the low 32 bits stay.
uint32_t assemble(const uint8_t *octets, uint32_t count, uint8_t first_mask) {
    uint32_t value = octets[0] & first_mask;
    for (uint32_t i = 1; i < count; ++i) value = value << 8 | octets[i];
    return value;
}

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

} // namespace

char ast_icao_to_ansi(uint8_t code) {
    const uint8_t c = code & 0x3F;
    if (c >= 1 && c <= 26) return static_cast<char>('A' + c - 1);
    if ((c >= '0' && c <= '9') || c == ' ') return static_cast<char>(c);
    return 0;
}

int32_t ast_ansi_to_icao(int32_t character) {
    const int32_t c = character & 0xFF;
    const int32_t above = character & ~0xFF;
    if (c >= 'A' && c <= 'Z') return above | (c - 'A' + 1);
    if (c >= 'a' && c <= 'z') return above | (c - 'a' + 1);
    if ((c >= '0' && c <= '9') || c == ' ') return above | c;
    return above;
}

int32_t ast_twos_complement_to_int(const uint8_t *octets, uint32_t count) {
    return ast_twos_complement_to_int_ex(octets, count, 0);
}

int32_t ast_twos_complement_to_int_ex(const uint8_t *octets, uint32_t count, uint32_t skip) {
    if (!octets || count == 0 || skip > 7) return 0;
    const uint32_t raw = assemble(octets, count, static_cast<uint8_t>(0xFF >> skip));
    const uint64_t width = uint64_t{count} * 8 - skip;
    return width < 32 ? twos_complement(raw, static_cast<unsigned>(width)) : static_cast<int32_t>(raw);
}

uint32_t ast_hex_to_int(char digit) {
    if (is_digit(digit)) return static_cast<uint32_t>(digit - '0');
    if (digit >= 'A' && digit <= 'F') return static_cast<uint32_t>(digit - 'A') + 10;
    if (digit >= 'a' && digit <= 'f') return static_cast<uint32_t>(digit - 'a') + 10;
    return UINT32_MAX;
}

const char *ast_hex_to_bin(uint8_t octet) {
    thread_local char text[BinaryOctet::kChars + 1];
    set_text(text, sizeof text, BinaryOctet(octet));
    return text;
}

int32_t ast_atoi_oct(const char *text) {
    if (!text) return 0;
    text += std::strspn(text, " \t\n\v\f\r");
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+') ++text;
    uint32_t value = 0;
    for (; is_digit(*text); ++text) value = value * 8 + static_cast<uint32_t>(*text - '0');
    return static_cast<int32_t>(negative ? 0 - value : value);
}

int32_t ast_memset(void *destination, uint64_t, int32_t value, uint64_t count) {
    if (destination) std::memset(destination, value, static_cast<size_t>(count));
    return 0;
}

const char *ast_latlong_to_str(double latitude, double longitude) {
    thread_local char text[20];
    TextWriter out(text, sizeof text);
    append_angle(out, split(latitude), 2, north_or_south(latitude));
    append_angle(out, split(longitude), 3, east_or_west(longitude));
    return text;
}

const char *ast_latlong_to_str_high(double latitude, double longitude) {
    thread_local char text[30];
    return print_decimal_seconds(text, sizeof text, "%02d%02d%02d.%02d%c%03d%02d%02d.%02d%c", latitude, longitude, 1e2);
}

const char *ast_latlong_to_str_very_high(double latitude, double longitude) {
    thread_local char text[30];
    return print_decimal_seconds(text, sizeof text, "%02d%02d%02d.%06d%c%03d%02d%02d.%06d%c", latitude, longitude, 1e6);
}
