#include "support/records.hpp"

using namespace ast_test;

namespace {

constexpr uint32_t kUnknown = 0xFFFFFFFF;

// Everything that category 048 answers, and two items that it does not ask.
const Record &full_record() {
    static const Record record(48,
                               {{48010, "19 0C"},
                                {48140, "58 78 40"},
                                {48040, "00 80 40 00"},
                                {48070, "6F 77"},
                                {48090, "01 90"},
                                {48220, "3C 65 AC"},
                                {48240, "2C C3 71 82 08 20"},
                                {48250, "03 9F 45 77 00 00 00 00 40 A0 00 00 00 00 00 00 60 00 12 00 00 00 00 00 50"},
                                {48161, "F1 23"},
                                {48042, "00 80 00 80"},
                                {48200, "04 00 40 00"}});
    return record;
}

void expect_no_position_or_velocity(const ast_datarecord_t *record) {
    const auto position = ast_datarecord_get_wgs84coord(record);
    EXPECT_TRUE(!position.valid && position.latitude_deg == 0 && position.longitude_deg == 0);
    const auto velocity = ast_datarecord_get_cartesianvel(record);
    EXPECT_TRUE(!velocity.valid && velocity.vx_m_s == 0 && velocity.vy_m_s == 0);
    for (const auto quantity : {ast_datarecord_get_speed(record), ast_datarecord_get_vrate(record)})
        EXPECT_TRUE(!quantity.valid && quantity.value == 0);
}

// What every accessor but that of message types gives when there is nothing to be read.
void expect_fallbacks(const ast_datarecord_t *record) {
    const auto source = ast_datarecord_get_sacsic(record);
    EXPECT_TRUE(!source.valid && source.sac == kUnknown && source.sic == kUnknown);
    const auto time = ast_datarecord_get_timeofday(record);
    EXPECT_TRUE(!time.valid && time.raw == 0 && time.hour == 0 && time.minute == 0 && time.second == 0 &&
                time.millisecond == 0);
    const auto number = ast_datarecord_get_tracknum(record);
    EXPECT_TRUE(!number.valid && number.value == kUnknown);
    const auto squawk = ast_datarecord_get_squawk(record);
    EXPECT_TRUE(!squawk.valid && squawk.code == kUnknown);
    EXPECT_FALSE(squawk.not_validated || squawk.garbled || squawk.smoothed);
    const auto callsign = ast_datarecord_get_callsign(record);
    EXPECT_FALSE(callsign.valid);
    for (const char character : callsign.text) EXPECT_EQ(character, '\0');
    const auto aircraft = ast_datarecord_get_icaoaddr(record);
    EXPECT_TRUE(!aircraft.valid && aircraft.address == kUnknown);
    for (const auto quantity : {ast_datarecord_get_flightlevel(record), ast_datarecord_get_selaltitude(record)})
        EXPECT_TRUE(!quantity.valid && quantity.value == 0);
    const auto polar = ast_datarecord_get_polarcoord(record);
    EXPECT_TRUE(!polar.valid && polar.rho_nm == 0 && polar.theta_deg == 0);
    const auto heading = ast_datarecord_get_heading(record);
    EXPECT_FALSE(heading.valid || heading.magnetic.valid || heading.track.valid);
    EXPECT_TRUE(heading.magnetic.value == -1 && heading.track.value == -1);
    expect_no_position_or_velocity(record);
}

TEST(Accessors, AnswerForACategory) {
    const ast_datarecord_t *const record = full_record();
    const auto source = ast_datarecord_get_sacsic(record);
    EXPECT_TRUE(source.valid && source.sac == 25 && source.sic == 12);
    const auto time = ast_datarecord_get_timeofday(record);
    EXPECT_TRUE(time.valid && time.hour == 12 && time.minute == 34 && time.second == 56 && time.millisecond == 500);
    EXPECT_EQ(ast_datarecord_get_msgtype(record), AST_MSGTYPE_TRACK);
    const auto number = ast_datarecord_get_tracknum(record);
    EXPECT_TRUE(number.valid && number.value == 0x123); // 12 of 16 bits
    const auto squawk = ast_datarecord_get_squawk(record);
    EXPECT_TRUE(squawk.valid && squawk.code == 07567 && squawk.garbled && squawk.smoothed);
    const auto callsign = ast_datarecord_get_callsign(record);
    EXPECT_TRUE(callsign.valid);
    EXPECT_STREQ(callsign.text, "KLM1");
    const auto aircraft = ast_datarecord_get_icaoaddr(record);
    EXPECT_TRUE(aircraft.valid && aircraft.address == 0x3C65AC);
    const auto level = ast_datarecord_get_flightlevel(record);
    EXPECT_TRUE(level.valid && level.value == 10000);
    const auto selected = ast_datarecord_get_selaltitude(record);
    EXPECT_TRUE(selected.valid && selected.value == 24000);
    const auto polar = ast_datarecord_get_polarcoord(record);
    EXPECT_TRUE(polar.valid && polar.rho_nm == 0.5 && polar.theta_deg == 90);
    const auto heading = ast_datarecord_get_heading(record);
    EXPECT_TRUE(heading.valid && heading.magnetic.valid && heading.track.valid);
    EXPECT_TRUE(heading.magnetic.value == 90 && heading.track.value == 45);
    EXPECT_EQ(ast_datarecord_get_func(48).get_sacsic, ast_datarecord_048_get_sacsic);
    EXPECT_EQ(ast_datarecord_get_func(48).get_coordinate, nullptr);
    expect_no_position_or_velocity(record); // nor are there accessors of speeds
}

TEST(Accessors, FallBackWithoutARecord) {
    expect_fallbacks(nullptr);
    EXPECT_EQ(ast_datarecord_get_msgtype(nullptr), 0U);
    ast_datarecord_t not_valid = *static_cast<const ast_datarecord_t *>(full_record());
    not_valid.valid = false;
    expect_fallbacks(&not_valid);
    EXPECT_EQ(ast_datarecord_get_msgtype(&not_valid), 0U);
}

TEST(Accessors, FallBackForCategoriesWithoutThem) {
    for (const uint32_t category :
         {0U, 3U, 4U, 8U, 16U, 19U, 23U, 34U, 47U, 63U, 65U, 240U, 255U, 256U, 304U, kUnknown}) {
        SCOPED_TRACE(category);
        Record record(category, {{34010, "19 0C"}, {48010, "19 0C"}, {48161, "01 23"}});
        expect_fallbacks(record);
        EXPECT_EQ(ast_datarecord_get_msgtype(record), 0U);
        EXPECT_EQ(ast_datarecord_get_func(category).get_sacsic, nullptr);
    }
}

TEST(Accessors, FallBackForItemsThatAreAbsentOrDoNotDecode) {
    expect_fallbacks(Record(48, {}));
    expect_fallbacks(Record(48, {{48010, "19"},
                                 {48140, "58 78"},
                                 {48040, "00 80 40"},
                                 {48070, "6F"},
                                 {48090, "01"},
                                 {48110, "00"},
                                 {48220, "3C 65"},
                                 {48240, "2C C3 71 82 08"},
                                 {48250, "01 9F 45 77 00 00 00 00"},
                                 {48161, "F1"}}));
    EXPECT_EQ(ast_datarecord_get_msgtype(Record(48, {})), AST_MSGTYPE_PLOT);
}

TEST(Accessors, CallsignEndsAtItsFirstBlank) {
    constexpr struct {
        const char *octets;
        const char *callsign;
    } kCases[] = {
        {"2C C3 71 82 08 20", "KLM1"},     // and four blanks
        {"04 28 31 CB 38 20", "AB"},       // meant, of "AB 123  "
        {"2C C3 71 CB 3D 35", "KLM12345"}, // no blank
        {"82 08 20 82 08 20", ""},         // eight blanks
    };
    for (const auto &one : kCases) {
        const auto callsign = ast_datarecord_get_callsign(Record(48, {{48240, one.octets}}));
        EXPECT_TRUE(callsign.valid) << one.octets;
        EXPECT_STREQ(callsign.text, one.callsign) << one.octets;
    }
}

} // namespace
