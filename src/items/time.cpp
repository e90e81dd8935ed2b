// When: times of day, and the antenna's turn as radars report it.

#include <cmath>

#include "core/bits.hpp"
#include "items/value.hpp"
#include "view/html.hpp"

using namespace ast;

// ---- Time of day ----

namespace {

constexpr uint32_t kTimeUnitsPerSecond = 128; // LSB 1/128 s
constexpr uint32_t kSecondsPerMinute = 60;
constexpr uint32_t kSecondsPerHour = 3600;
constexpr uint64_t kMillisecondsPerSecond = 1000;

uint32_t raw_time(const ast_time_of_day_t &time) {
    const uint64_t seconds =
        uint64_t{time.hour} * kSecondsPerHour + uint64_t{time.minute} * kSecondsPerMinute + time.second;
    const uint64_t milliseconds = seconds * kMillisecondsPerSecond + time.millisecond;
    return static_cast<uint32_t>(milliseconds * kTimeUnitsPerSecond / kMillisecondsPerSecond);
}

} // namespace

ast_time_of_day_t ast_dataitem_time_of_day_decode(const ast_dataitem_t *item) {
    ast_time_of_day_t time{};
    if (!holds(item, 3)) return time;
    time.raw = read_u24(item->data);
    const uint32_t seconds = time.raw / kTimeUnitsPerSecond;
    time.hour = seconds / kSecondsPerHour;
    time.minute = seconds % kSecondsPerHour / kSecondsPerMinute;
    time.second = seconds % kSecondsPerMinute;
    time.millisecond =
        static_cast<uint32_t>(time.raw % kTimeUnitsPerSecond * kMillisecondsPerSecond / kTimeUnitsPerSecond);
    time.valid = true;
    return time;
}

void ast_dataitem_time_of_day_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                     const ast_dataitem_src_t *source) {
    const auto *const time = open_encode<ast_time_of_day_t>(result, buffer, length, source, 3);
    if (!time) return;
    write_u24(buffer, time->raw ? time->raw : raw_time(*time));
    written(result);
}

void ast_dataitem_time_of_day_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto time = ast_dataitem_time_of_day_decode(item);
    if (time.valid) out.print("TOD:%02u:%02u:%02u.%03u", time.hour, time.minute, time.second, time.millisecond);
}

void ast_dataitem_time_of_day_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto time = ast_dataitem_time_of_day_decode(item);
    if (!time.valid) return;
    DetailTable table(html, "Name", "Value");
    table.row("TIME LSB=1/128S", Cell<10>("%u", time.raw));
    table.row("TIME LSB=1S", Cell<10>("%u", time.raw / kTimeUnitsPerSecond));
    table.row("HOUR", Cell<10>("%2u", time.hour));
    table.row("MINUTE", Cell<10>("%2u", time.minute));
    table.row("SECOND", Cell<10>("%2u", time.second));
    table.row("MILLISECOND", Cell<10>("%3u", time.millisecond));
}

// ---- High-precision time of day ----

ast_time_of_day_high_t ast_dataitem_time_of_day_high_decode(const ast_dataitem_t *item) {
    constexpr double kLsbS = 1.0 / (1 << 30);
    static constexpr int32_t kFullSeconds[] = {0, 1, -1, 0}; // by the code in bits 8-7
    ast_time_of_day_high_t time{};
    if (!holds(item, 4)) return time;
    time.fsi = kFullSeconds[bits(item->data[0], 8, 7)];
    time.raw = field(item->data, 3, 32);
    time.seconds = time.raw * kLsbS;
    time.valid = true;
    return time;
}

void ast_dataitem_time_of_day_high_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto time = ast_dataitem_time_of_day_high_decode(item);
    if (time.valid) out.print("FSI:%d TOMR:%.6f", time.fsi, time.seconds);
}

void ast_dataitem_time_of_day_high_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto time = ast_dataitem_time_of_day_high_decode(item);
    if (!time.valid) return;
    DetailTable table(html, "Name", "Value");
    table.row("FSI", Cell<20>("%d", time.fsi));
    table.row("TIME LSB=2^-30S", Cell<20>("%u", time.raw));
    table.row("TIME LSB=S", Cell<20>("%f", time.seconds));
}

// ---- Sector number ----

namespace {

constexpr double kFullCircleDeg = 360;
constexpr double kSectors = 256;

} // namespace

ast_scaled_value_t ast_dataitem_sector_number_decode(const ast_dataitem_t *item) {
    ast_scaled_value_t sector{};
    if (!holds(item, 1)) return sector;
    sector.raw = item->data[0];
    sector.value = sector.raw * kFullCircleDeg / kSectors;
    sector.valid = true;
    return sector;
}

void ast_dataitem_sector_number_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                       const ast_dataitem_src_t *source) {
    constexpr int32_t kMaxSector = 255;
    auto *const sector = open_encode<ast_scaled_value_t>(result, buffer, length, source, 1);
    if (!sector) return;
    if (sector->value >= 0 && sector->value < kFullCircleDeg)
        sector->raw = static_cast<int32_t>(std::round(sector->value / kFullCircleDeg * kSectors));
    if (sector->raw < 0 || sector->raw > kMaxSector) return;
    buffer[0] = static_cast<uint8_t>(sector->raw);
    written(result);
}

void ast_dataitem_sector_number_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto sector = ast_dataitem_sector_number_decode(item);
    if (sector.valid) out.print("SECTOR:%03dDEG", static_cast<int>(std::round(sector.value)));
}

void ast_dataitem_sector_number_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    constexpr double kDegPerSectorOf32 = 11.25;
    constexpr double kDegPerSectorOf16 = 22.5;
    HtmlWriter html(text, capacity);
    const auto sector = ast_dataitem_sector_number_decode(item);
    if (!sector.valid) return;
    DetailTable table(html, "Name", "Value");
    table.row("ANTENNA AZIMUTH LSB~=1.41DEG", Cell<10>("%u", static_cast<unsigned>(sector.raw)));
    table.row("ANTENNA AZIMUTH LSB=1DEG", Cell<10>("%.4f", sector.value));
    table.row("SECTOR NUMBER LSB=1/32", Cell<10>("%.2d", static_cast<int>(sector.value / kDegPerSectorOf32)));
    table.row("SECTOR NUMBER LSB=1/16", Cell<10>("%.2d", static_cast<int>(sector.value / kDegPerSectorOf16)));
}

// ---- Antenna rotation period ----

namespace {

constexpr double kRotationUnitsPerSecond = 128; // LSB 1/128 s

} // namespace

ast_scaled_value_t ast_dataitem_antenna_rotation_period_decode(const ast_dataitem_t *item) {
    ast_scaled_value_t period{};
    if (!holds(item, 2)) return period;
    period.raw = static_cast<int32_t>(read_u16(item->data));
    period.value = period.raw / kRotationUnitsPerSecond;
    period.valid = true;
    return period;
}

void ast_dataitem_antenna_rotation_period_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                 const ast_dataitem_src_t *source) {
    const auto *const period = open_encode<ast_scaled_value_t>(result, buffer, length, source, 2);
    if (!period) return;
    write_u16(buffer, period->value != 0 ? to_raw(std::round(period->value * kRotationUnitsPerSecond))
                                         : static_cast<uint32_t>(period->raw));
    written(result);
}

void ast_dataitem_antenna_rotation_period_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto period = ast_dataitem_antenna_rotation_period_decode(item);
    if (period.valid) out.print("ROT:%.2f", period.value);
}

void ast_dataitem_antenna_rotation_period_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto period = ast_dataitem_antenna_rotation_period_decode(item);
    if (!period.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0-15]", "ROTATION_PERIOD LSB=1/128s", Cell<16>("%u", static_cast<unsigned>(period.raw)));
    table.row("Bit[0-15]", "ROTATION_PERIOD LSB=S", Cell<16>("%.3f", period.value));
}
