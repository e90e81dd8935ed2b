#include <sstream>

#include "support/records.hpp"
#include "support/text.hpp"

using namespace ast_test;

namespace {

constexpr uint32_t kUnknown = 0xFFFFFFFF;

// Everything that category 048 answers, and two items that it does not ask.
const Record &full_record() {
    // clang-format off
    static const Record record(48,
        {{48010, "19 0C"}, {48140, "58 78 40"}, {48040, "00 80 40 00"}, {48070, "6F 77"}, {48090, "01 90"},
         {48220, "3C 65 AC"}, {48240, "2C C3 71 82 08 20"}, {48161, "F1 23"},
         {48250, "03 9F 45 77 00 00 00 00 40 A0 00 00 00 00 00 00 60 00 12 00 00 00 00 00 50"},
         {48042, "00 80 00 80"}, {48200, "04 00 40 00"}});
    // clang-format on
    return record;
}

std::string text_of(const ast_quantity_t &quantity) {
    std::ostringstream out;
    out << quantity.valid << ' ' << quantity.value;
    return out.str();
}

// What every accessor but that of message types gives: whether it is valid, and its values.
std::string answers(const ast_datarecord_t *record) {
    const auto source = ast_datarecord_get_sacsic(record);
    const auto time = ast_datarecord_get_timeofday(record);
    const auto number = ast_datarecord_get_tracknum(record);
    const auto squawk = ast_datarecord_get_squawk(record);
    const auto callsign = ast_datarecord_get_callsign(record);
    const auto aircraft = ast_datarecord_get_icaoaddr(record);
    const auto polar = ast_datarecord_get_polarcoord(record);
    const auto heading = ast_datarecord_get_heading(record);
    const auto position = ast_datarecord_get_wgs84coord(record);
    const auto velocity = ast_datarecord_get_cartesianvel(record);
    std::ostringstream out;
    out << "source " << source.valid << ' ' << source.sac << ' ' << source.sic << "; time " << time.valid << ' '
        << time.raw << ' ' << time.hour << ':' << time.minute << ':' << time.second << '.' << time.millisecond
        << "; track " << number.valid << ' ' << number.value << "; squawk " << squawk.valid << ' ' << squawk.code << ' '
        << squawk.not_validated << squawk.garbled << squawk.smoothed << "; callsign " << callsign.valid << ' '
        << callsign.text << "; aircraft " << aircraft.valid << ' ' << aircraft.address << "; level "
        << text_of(ast_datarecord_get_flightlevel(record)) << "; selected "
        << text_of(ast_datarecord_get_selaltitude(record)) << "; polar " << polar.valid << ' ' << polar.rho_nm << ' '
        << polar.theta_deg << "; heading " << heading.valid << ' ' << text_of(heading.magnetic) << ' '
        << text_of(heading.track) << "; position " << position.valid << ' ' << position.latitude_deg << ' '
        << position.longitude_deg << "; velocity " << velocity.valid << ' ' << velocity.vx_m_s << ' ' << velocity.vy_m_s
        << "; speed " << text_of(ast_datarecord_get_speed(record)) << "; rate "
        << text_of(ast_datarecord_get_vrate(record));
    return out.str();
}

void expect_fallbacks(const ast_datarecord_t *record) {
    EXPECT_EQ(answers(record),
              "source 0 4294967295 4294967295; time 0 0 0:0:0.0; track 0 4294967295; squawk 0 4294967295 000; "
              "callsign 0 ; aircraft 0 4294967295; level 0 0; selected 0 0; polar 0 0 0; heading 0 0 -1 0 -1; "
              "position 0 0 0; velocity 0 0 0; speed 0 0; rate 0 0");
    for (const char character : ast_datarecord_get_callsign(record).text) EXPECT_EQ(character, '\0');
}

TEST(Accessors, AnswerForACategory) {
    EXPECT_EQ(answers(full_record()), // the track number takes 12 of 16 bits, the squawk is octal 7567
              "source 1 25 12; time 1 5797952 12:34:56.500; track 1 291; squawk 1 3959 011; callsign 1 KLM1; "
              "aircraft 1 3958188; level 1 10000; selected 1 24000; polar 1 0.5 90; heading 1 1 90 1 45; "
              "position 0 0 0; velocity 0 0 0; speed 0 0; rate 0 0");
    EXPECT_EQ(ast_datarecord_get_msgtype(full_record()), AST_MSGTYPE_TRACK);
    EXPECT_EQ(ast_datarecord_get_func(48).get_coordinate, nullptr);
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
    // clang-format off
    expect_fallbacks(Record(48, {{48010, "19"}, {48140, "58 78"}, {48040, "00 80 40"}, {48070, "6F"}, {48090, "01"},
                                 {48110, "00"}, {48220, "3C 65"}, {48240, "2C C3 71 82 08"}, {48161, "F1"},
                                 {48250, "01 9F 45 77 00 00 00 00"}}));
    // clang-format on
    EXPECT_EQ(ast_datarecord_get_msgtype(Record(48, {})), AST_MSGTYPE_PLOT);
}

TEST(Accessors, CallsignEndsAtItsFirstBlank) {
    each_case("2C C3 71 82 08 20 = KLM1; 04 28 31 CB 38 20 = AB; " // meant, of "AB 123  "
              "2C C3 71 CB 3D 35 = KLM12345; 82 08 20 82 08 20 = ",
              [](const std::string &hex, const std::string &text) {
                  const auto callsign = ast_datarecord_get_callsign(Record(48, {{48240, hex}}));
                  EXPECT_TRUE(callsign.valid && callsign.text == text) << hex;
              });
}

} // namespace
