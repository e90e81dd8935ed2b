// When: times of day, and the antenna's turn as radars report it.

#include "core/bits.hpp"
#include "items/items.hpp"
#include "items/units.hpp"

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

struct TimeOfDay : SharedLayout<ast_time_of_day_t, items::time_of_day.size> {
    static void read(Value &time, const uint8_t *octets) {
        time.raw = read_u24(octets);
        const uint32_t seconds = time.raw / kTimeUnitsPerSecond;
        time.hour = seconds / kSecondsPerHour;
        time.minute = seconds % kSecondsPerHour / kSecondsPerMinute;
        time.second = seconds % kSecondsPerMinute;
        time.millisecond =
            static_cast<uint32_t>(time.raw % kTimeUnitsPerSecond * kMillisecondsPerSecond / kTimeUnitsPerSecond);
    }

    static void summarize(TextWriter &out, const Value &time) {
        out.append("TOD:");
        append_time(out, time.hour, time.minute, time.second, time.millisecond);
    }

    static void show(ViewWriter &view, const Value &time) {
        DetailTable table(view, "Name", "Value");
        table.row("TIME LSB=1/128S", Cell<10>("%u", time.raw));
        table.row("TIME LSB=1S", Cell<10>("%u", time.raw / kTimeUnitsPerSecond));
        table.row("HOUR", Cell<10>("%2u", time.hour));
        table.row("MINUTE", Cell<10>("%2u", time.minute));
        table.row("SECOND", Cell<10>("%2u", time.second));
        table.row("MILLISECOND", Cell<10>("%3u", time.millisecond));
    }

    // Bits above the 24 of the field are dropped.
    static bool write(uint8_t *octets, const Value &time) {
        write_u24(octets, time.raw ? time.raw : raw_time(time));
        return true;
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(TimeOfDay, ast_dataitem_time_of_day)

// ---- High-precision time of day ----

namespace {

struct TimeOfDayHigh : SharedLayout<ast_time_of_day_high_t, items::time_of_day_high.size> {
    static void read(Value &time, const uint8_t *octets) {
        constexpr double kLsbS = 1.0 / (1 << 30);
        static constexpr int32_t kFullSeconds[] = {0, 1, -1, 0}; // by the code in bits 8-7
        time.fsi = kFullSeconds[bits(octets[0], 8, 7)];
        time.raw = field(octets, 3, 32);
        time.seconds = time.raw * kLsbS;
    }

    static void summarize(TextWriter &out, const Value &time) { out.print("FSI:%d TOMR:%.6f", time.fsi, time.seconds); }

    static void show(ViewWriter &view, const Value &time) {
        DetailTable table(view, "Name", "Value");
        table.row("FSI", Cell<20>("%d", time.fsi));
        table.row("TIME LSB=2^-30S", Cell<20>("%u", time.raw));
        table.row("TIME LSB=S", Cell<20>("%f", time.seconds));
    }
};

} // namespace

AST_DEFINE_ITEM(TimeOfDayHigh, ast_dataitem_time_of_day_high)

// ---- Sector number ----

namespace {

constexpr double kSectors = 256;

struct SectorNumber : SharedLayout<ast_scaled_value_t, items::sector_number.size> {
    static void read(Value &sector, const uint8_t *octets) {
        sector.raw = octets[0];
        sector.value = sector.raw * kFullCircleDeg / kSectors;
    }

    static void summarize(TextWriter &out, const Value &sector) {
        out.print("SECTOR:%03dDEG", static_cast<int>(std::round(sector.value)));
    }

    static void show(ViewWriter &view, const Value &sector) {
        constexpr double kDegPerSectorOf32 = 11.25;
        constexpr double kDegPerSectorOf16 = 22.5;
        DetailTable table(view, "Name", "Value");
        table.row("ANTENNA AZIMUTH LSB~=1.41DEG", Cell<10>("%u", static_cast<unsigned>(sector.raw)));
        table.row("ANTENNA AZIMUTH LSB=1DEG", Cell<10>("%.4f", sector.value));
        table.row("SECTOR NUMBER LSB=1/32", Cell<10>("%.2d", static_cast<int>(sector.value / kDegPerSectorOf32)));
        table.row("SECTOR NUMBER LSB=1/16", Cell<10>("%.2d", static_cast<int>(sector.value / kDegPerSectorOf16)));
    }

    static bool write(uint8_t *octets, Value &sector) {
        if (sector.value >= 0 && sector.value < kFullCircleDeg)
            sector.raw = rounded_units(sector.value / kFullCircleDeg * kSectors);
        octets[0] = static_cast<uint8_t>(sector.raw);
        return fits(sector.raw, 8);
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(SectorNumber, ast_dataitem_sector_number)

// ---- Antenna rotation period ----

namespace {

constexpr double kRotationUnitsPerSecond = 128; // LSB 1/128 s

struct AntennaRotationPeriod : SharedLayout<ast_scaled_value_t, items::antenna_rotation_period.size> {
    static void read(Value &period, const uint8_t *octets) {
        period.raw = static_cast<int32_t>(read_u16(octets));
        period.value = period.raw / kRotationUnitsPerSecond;
    }

    static void summarize(TextWriter &out, const Value &period) { out.print("ROT:%.2f", period.value); }

    static void show(ViewWriter &view, const Value &period) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0-15]", "ROTATION_PERIOD LSB=1/128s", Cell<16>("%u", static_cast<unsigned>(period.raw)));
        table.row("Bit[0-15]", "ROTATION_PERIOD LSB=S", Cell<16>("%.3f", period.value));
    }

    static bool write(uint8_t *octets, const Value &period) {
        const int32_t raw = period.value != 0 ? rounded_units(period.value * kRotationUnitsPerSecond) : period.raw;
        write_u16(octets, static_cast<uint32_t>(raw));
        return fits(raw, 16);
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(AntennaRotationPeriod, ast_dataitem_antenna_rotation_period)
