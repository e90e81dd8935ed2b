// The fifteen accessors of records that hold every item that one of them might be taken from, and others of the same
// layout beside it.

#include <cstdarg>
#include <cstdio>
#include <string>

#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

// What is valid of all that the accessors answer, in their order.
class Answers {
public:
    explicit Answers(const ast_datarecord_t *record) {
        const auto source = ast_datarecord_get_sacsic(record);
        add(source.valid, "source %u/%u", source.sac, source.sic);
        const auto time = ast_datarecord_get_timeofday(record);
        add(time.valid, "time %u:%u:%u.%u", time.hour, time.minute, time.second, time.millisecond);
        const uint32_t type = ast_datarecord_get_msgtype(record);
        add(type != 0, "type %u", type);
        const auto number = ast_datarecord_get_tracknum(record);
        add(number.valid, "number %u", number.value);
        const auto code = ast_datarecord_get_squawk(record);
        add(code.valid, "code %o%s%s%s", code.code, code.not_validated ? " V" : "", code.garbled ? " G" : "",
            code.smoothed ? " L" : "");
        const auto callsign = ast_datarecord_get_callsign(record);
        add(callsign.valid, "callsign %s", callsign.text);
        const auto address = ast_datarecord_get_icaoaddr(record);
        add(address.valid, "address %X", address.address);
        const auto position = ast_datarecord_get_wgs84coord(record);
        add(position.valid, "at %g %g", position.latitude_deg, position.longitude_deg);
        add("level", ast_datarecord_get_flightlevel(record));
        add("selected", ast_datarecord_get_selaltitude(record));
        const auto polar = ast_datarecord_get_polarcoord(record);
        add(polar.valid, "polar %g %g", polar.rho_nm, polar.theta_deg);
        const auto heading = ast_datarecord_get_heading(record);
        EXPECT_EQ(heading.valid, heading.magnetic.valid || heading.track.valid);
        add("heading", heading.magnetic);
        add("track", heading.track);
        add("speed", ast_datarecord_get_speed(record));
        const auto velocity = ast_datarecord_get_cartesianvel(record);
        add(velocity.valid, "velocity %g %g", velocity.vx_m_s, velocity.vy_m_s);
        add("rate", ast_datarecord_get_vrate(record));
    }

    const std::string &text() const { return text_; }

private:
    void add(bool is_valid, const char *format, ...) __attribute__((format(printf, 3, 4))) {
        if (!is_valid) return;
        char answer[100];
        va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(answer, sizeof answer, format, arguments);
        va_end(arguments);
        text_ += (text_.empty() ? "" : ", ") + std::string(answer);
    }

    void add(const char *name, const ast_quantity_t &quantity) { add(quantity.valid, "%s %g", name, quantity.value); }

    std::string text_;
};

void expect_answers(uint32_t category, std::initializer_list<Content> items, const char *answers) {
    EXPECT_EQ(Answers(Record(category, items)).text(), answers) << category;
}

constexpr char kOtherTime[] = "00 00 80"; // one that no accessor is to give

TEST(Accessors, AnswerFromTheirItemAmongOthersOfItsLayout) {
    LogCapture log;
    // clang-format off
    expect_answers(1, {{1010, "19 0C"}, {1020, "80"}, {1161, "F1 23"}, {1040, "00 40 40 00"}, {1042, "00 01 00 02"},
                       {1200, "04 00 20 00"}, {1070, "8F C0"}, {1090, "01 90"}, {1141, "01 02"}, {1131, "05"},
                       {1050, "00 01"}},
                   "source 25/12, type 4, number 61731, code 7700 V, level 10000, polar 0.5 90");
    expect_answers(2, {{2010, "19 0C"}, {2000, "02"}, {2020, "40"}, {2030, "58 78 40"}, {2041, "02 80"}},
                   "source 25/12, time 12:34:56.500, type 2");
    expect_answers(2, {{2000, "01"}}, "type 1");
    expect_answers(2, {{2000, "08"}}, "");
    expect_answers(10, {{10010, "19 0C"}, {10000, "02"}, {10020, "20"}, {10140, "58 78 40"},
                        {10041, "20 00 00 00 C0 00 00 00"}, {10040, "07 3C 40 00"}, {10042, "00 05 00 06"},
                        {10200, "04 00 20 00"}, {10202, "00 04 FF FC"}, {10161, "01 23"}, {10060, "4F C0"},
                        {10220, "3C 65 AC"}, {10245, "40 2C C3 71 CB 3D 20"}, {10090, "00 C8"}, {10091, "00 10"}},
                   "source 25/12, time 12:34:56.500, type 8, number 291, code 7700 G, at 45 -90, level 5000, "
                   "polar 1 90, track 45, speed 225, velocity 1 -1");
    expect_answers(15, {{15010, "19 0C"}, {15000, "02"}, {15145, "58 78 40"}, {15161, "F1 23"},
                        {15600, "80 20 00 00 00 C0 00 00 00"}, {15601, "C0 00 27 10 00 00 05"},
                        {15602, "80 FF F9 C0 00 64"}, {15604, "C0 FF FF 9C 00 05"}, {15625, "80 00 00 0F"},
                        {15626, "80 00 00 0A"}, {15627, "80 40 00"}},
                   "source 25/12, time 12:34:56.500, type 9, number 61731, at 45 -90, level 328.084, velocity -1 1, "
                   "rate -196.85");
    expect_answers(20, {{20010, "19 0C"}, {20020, "40"}, {20140, "58 78 40"}, {20041, "00 80 00 00 FF 80 00 00"},
                        {20042, "00 00 04 00 00 08"}, {20161, "01 23"}, {20070, "2F C0"}, {20202, "00 04 FF FC"},
                        {20090, "01 90"}, {20220, "3C 65 AC"}, {20245, "40 2C C3 71 CB 3D 20"}, {20110, "00 10"},
                        {20105, "00 20"}, {20055, "01"}, {20050, "00 01"}},
                   "source 25/12, time 12:34:56.500, type 6, number 291, code 7700 L, callsign KLM1234, "
                   "address 3C65AC, at 45 -45, level 10000");
    expect_answers(21, {{21010, "19 0C"}, {21040, "00"}, {21161, "01 23"}, {21071, kOtherTime},
                        {21130, "20 00 00 C0 00 00"}, {21131, "04 00 00 00 04 00 00 00"}, {21072, kOtherTime},
                        {21150, "04 01"}, {21151, "00 07"}, {21080, "3C 65 AC"}, {21073, kOtherTime},
                        {21075, kOtherTime}, {21140, "00 03"}, {21090, "00"}, {21070, "0F C0"}, {21230, "00 05"},
                        {21145, "01 90"}, {21152, "20 00"}, {21155, "00 10"}, {21157, "00 20"}, {21160, "04 00 40 00"},
                        {21077, "58 78 40"}, {21030, kOtherTime}, {21170, "2C C3 71 CB 3D 20"}, {21146, "A1 E0"},
                        {21148, "21 F4"}},
                   "source 25/12, time 12:34:56.500, type 5, number 291, code 7700, callsign KLM1234, address 3C65AC, "
                   "at 45 -90, level 10000, selected 12000, track 90, speed 225, rate 100");
    expect_answers(48, {{48010, "19 0C"}, {48140, "58 78 40"}, {48020, "20"}, {48040, "00 80 40 00"},
                        {48070, "CF C0"}, {48090, "01 90"}, {48220, "3C 65 AC"}, {48240, "2C C3 71 CB 3D 20"},
                        {48250, "03 93 8C BB 80 00 00 00 40 00 14 00 00 00 00 00 50 90 00 00 00 00 00 00 60"},
                        {48161, "01 23"}, {48042, "00 05 00 06"}, {48200, "04 00 60 00"}, {48110, "00 28"},
                        {48050, "00 01"}},
                   "source 25/12, time 12:34:56.500, type 4, number 291, code 7700 G, callsign KLM1234, "
                   "address 3C65AC, level 10000, selected 12000, polar 0.5 90, heading 45, track 90");
    expect_answers(62, {{62010, "19 0C"}, {62015, "05"}, {62070, "58 78 40"}, {62105, "00 80 00 00 FF 80 00 00"},
                        {62100, "00 00 04 00 00 08"}, {62185, "00 04 FF FC"}, {62210, "01 02"}, {62060, "2F C0"},
                        {62245, "00 04 20 C4 14 61 C8"},
                        {62380, "FF 01 70 3C 65 AC 2C C3 71 CB 3D 20 20 00 00 80 01 2C A1 E0 01 F4 05 05 40 00 04 00"},
                        {62040, "F1 23"}, {62136, "01 90"}, {62130, "00 10"}, {62135, "00 20"}, {62220, "00 10"},
                        {62120, "00 01"}},
                   "source 25/12, time 12:34:56.500, type 4, number 61731, code 7700 L, callsign KLM1234, "
                   "address 3C65AC, at 45 -45, level 10000, selected 12000, heading 45, track 90, speed 225, "
                   "velocity 1 -1, rate 100");
    // clang-format on
}

TEST(Accessors, FallBackToAnotherItem) {
    LogCapture log;
    // clang-format off
    expect_answers(10, {{10091, "00 10"}}, "type 8, level 100");
    expect_answers(20, {{20105, "00 20"}, {20110, "00 10"}}, "type 6, level 100");
    expect_answers(20, {{20105, "00 20"}}, "type 6, level 200");
    expect_answers(21, {{21030, "58 78 40"}, {21077, kOtherTime}, {21131, "10 00 00 00 20 00 00 00"},
                        {21130, "20 00 00 C0 00 00"}}, "time 12:34:56.500, type 5, at 45 90");
    expect_answers(21, {{21902, "00 80 00 00 FF 80 00 00"}}, "type 5, at 45 -45");
    expect_answers(48, {{48110, "00 28"}}, "type 3, level 1000");
    // A selected altitude without the FMS: 10000 ft of the MCP/FCU.
    expect_answers(48, {{48250, "01 93 88 00 00 00 00 00 40"}}, "type 3, selected 10000");
    expect_answers(62, {{62135, "00 20"}, {62130, "00 10"}}, "type 4, level 800");
    expect_answers(62, {{62130, "00 10"}}, "type 4, level 100");
    // TAS and FSS; IAS; a Mach number, which is no speed.
    expect_answers(62, {{62380, "1A 00 80 01 2C 01 F4"}}, "type 4, selected 12500, speed 300");
    expect_answers(62, {{62380, "10 04 00"}}, "type 4, speed 225");
    expect_answers(62, {{62380, "10 84 00"}}, "type 4");
    // clang-format on
}

// Whatever such a record holds. That all of category 021 are ADS-B does not depend on the record.
TEST(Accessors, TakeValidRecordsOnly) {
    for (const uint32_t category : {1U, 2U, 10U, 15U, 20U, 21U, 48U, 62U}) {
        const ast_datarecord_func_t func = ast_datarecord_get_func(category);
        const ast_datarecord_t invalid{.category = category};
        const auto expect_nothing = [&](auto *get) {
            if (!get) return;
            EXPECT_FALSE(get(nullptr).valid) << category;
            EXPECT_FALSE(get(&invalid).valid) << category;
        };
        expect_nothing(func.get_sacsic);
        expect_nothing(func.get_timeofday);
        if (category != 21) expect_nothing(func.get_msgtype);
        expect_nothing(func.get_tracknum);
        expect_nothing(func.get_squawk);
        expect_nothing(func.get_callsign);
        expect_nothing(func.get_icaoaddr);
        expect_nothing(func.get_coordinate);
        expect_nothing(func.get_flightlevel);
        expect_nothing(func.get_selaltitude);
        expect_nothing(func.get_polarcoord);
        expect_nothing(func.get_heading);
        expect_nothing(func.get_speed);
        expect_nothing(func.get_cartesianvel);
        expect_nothing(func.get_vrate);
    }
}

// Other categories have none, whatever they carry.
TEST(Accessors, AreOfEightCategories) {
    LogCapture log;
    for (const uint32_t category : {4U, 8U, 16U, 19U, 23U, 34U, 63U, 65U, 240U}) {
        const uint32_t first = category * 1000;
        expect_answers(category, {{first + 10, "19 0C"}, {first + 140, "58 78 40"}, {first, "01"}}, "");
    }
}

} // namespace
