#include "support/items.hpp"

using namespace ast_test;

namespace {

constexpr ast_dataitem_type_t kDataSource = 48010;
constexpr ast_dataitem_type_t kService = 62015;
constexpr ast_dataitem_type_t kAmplitude = 21132;
constexpr ast_dataitem_type_t kAddress = 48220;
constexpr ast_dataitem_type_t kAircraftId = 48240;
constexpr ast_dataitem_type_t kTargetId = 62245;

// "KLM1234 ": 001011 001100 001101 110001 110010 110011 110100 100000
#define KLM1234 "2C C3 71 CB 3D 20"

TEST(DataSource, TakesAnOctetEach) {
    expect_summaries(kDataSource, "00 00 = SAC:000 SIC:000; 19 0C = SAC:025 SIC:012; FF FF = SAC:255 SIC:255");
    constexpr EncodeCase<ast_sac_sic_t> kCases[] = {
        {"both", {.valid = true, .sac = 25, .sic = 255}, "19 FF"},
        {"SAC too high", {.valid = true, .sac = 256, .sic = 0}, nullptr},
        {"SIC too high", {.valid = true, .sac = 0, .sic = 256}, nullptr},
    };
    expect_encodes(kDataSource, kCases);
}

TEST(SingleOctets, TakeWhatFits) {
    expect_summaries(kService, "00 = SVC_ID:000; FF = SVC_ID:255");
    expect_summaries(kAmplitude, "00 = AMP:0; FF = AMP:255");
    constexpr EncodeCase<ast_uint_value_t> kCases[] = {
        {"highest", {.valid = true, .value = 255}, "FF"},
        {"too high", {.valid = true, .value = 256}, nullptr},
    };
    for (const ast_dataitem_type_t type : {ast_dataitem_type_t{34000}, kService, kAmplitude})
        expect_encodes(type, kCases);
}

TEST(TrackNumber, TakesSixteenBitsInFiveItemsAndTwelveInTheOthers) {
    constexpr ast_dataitem_type_t kLong[] = {1161, 4030, 4035, 62040, 15161};
    for (const ast_dataitem_type_t type : {1161U, 4030U, 4035U, 62040U, 15161U, 10161U, 20161U, 21161U, 48161U}) {
        const bool is_long = std::find(std::begin(kLong), std::end(kLong), type) != std::end(kLong);
        EXPECT_EQ(summary_of(type, "F1 23"), is_long ? "TRACK_NUM:61731" : "TRACK_NUM:0291") << type;
        const bool is_written_long = is_long && type != 15161; // meant: read in 16 bits, written in 12
        const EncodeCase<ast_uint_value_t> kCases[] = {
            {"twelve bits", {.valid = true, .value = 0xFFF}, "0F FF"},
            {"sixteen", {.valid = true, .value = 0xF123}, is_written_long ? "F1 23" : nullptr},
            {"more", {.valid = true, .value = 0x10000}, nullptr},
        };
        expect_encodes(type, kCases);
    }
}

TEST(TargetAddress, EncoderStoresTheOctetsBackAndRefusesAddressZero) {
    expect_summaries(kAddress, "00 00 00 = ADDR:000000; 3C 65 AC = ADDR:3C65AC; FF FF FF = ADDR:FFFFFF");
    ast_target_address_t target{.valid = true, .octets = {9, 9, 9}, .address = 0x3C65AC};
    expect_encodes("one", kAddress, &target, "3C 65 AC");
    EXPECT_EQ(target.octets[0], 0x3C);
    EXPECT_EQ(target.octets[2], 0xAC);
    for (const uint32_t address : {0U, 0x1000000U}) {
        target.address = address;
        expect_encodes("none, or more than 24 bits", kAddress, &target, nullptr);
        EXPECT_EQ(target.octets[0], 0x3C);
    }
}

TEST(AircraftId, ViewsGiveTheCharacters) {
    expect_summaries(kAircraftId, KLM1234 " = ACID:KLM1234 ; 2C C3 40 CB 3D 20 = ACID:KLM; " // no character, no more
                                          "00 00 00 00 00 00 = ACID:; FF FF FF FF FF FF = ACID:");
    expect_table(kAircraftId, KLM1234,
                 "Bit|Item|Value; Bit[0-5]|CHAR_1|K; Bit[6-11]|CHAR_2|L; Bit[12-17]|CHAR_3|M; Bit[18-23]|CHAR_4|1; "
                 "Bit[24-29]|CHAR_5|2; Bit[30-25]|CHAR_6|3; " // meant: this label counts backwards
                 "Bit[36-41]|CHAR_7|4; Bit[42-47]|CHAR_8| ");
}

TEST(AircraftId, EncoderFillsWithBlanks) {
    constexpr EncodeCase<ast_aircraft_id_t> kCases[] = {
        {"lower case is folded", {.valid = true, .text = "klm1234"}, KLM1234},
        {"all eight places", {.valid = true, .text = "AAAAAAA9"}, "04 10 41 04 10 79"},
        {"without a code", {.valid = true, .text = "A?"}, "04 08 20 82 08 20"},
        {"empty", {.valid = true, .text = ""}, "82 08 20 82 08 20"},
    };
    expect_encodes(kAircraftId, kCases);
}

TEST(TargetId, ViewsAreLedByTheSource) {
    expect_summaries(kTargetId, "00 " KLM1234 " = TARGET_ID:KLM1234 ; 3F " KLM1234 " = TARGET_ID:KLM1234 ; "
                                "40 " KLM1234 " = REGISTRATION:KLM1234 ; 80 " KLM1234 " = CALLSIGN:KLM1234 ; "
                                "C0 " KLM1234 " = TARGET_ID:UNDIFINED"); // meant: a fixed text
    EXPECT_EQ(ast_dataitem_target_id_decode(nullptr).sti, 3U);
    expect_table(kTargetId, "00 2C C3 40 00 00 00",
                 "Bit|Item|Value; Bit[0-1]|TARGET_ID_TYPE|CALLSIGN_OR_REGISTRATION; Bit[2-7]|SPARE|0; "
                 "Bit[8-13]|CHAR_1|K; Bit[14-19]|CHAR_2|L; Bit[20-25]|CHAR_3|M; Bit[26-31]|CHAR_4|; "
                 "Bit[32-37]|CHAR_5|; Bit[38-43]|CHAR_6|; Bit[44-49]|CHAR_7|; Bit[50-55]|CHAR_8|");
    expect_values(kTargetId,
                  "40 " KLM1234 " = REGISTRATION|0|K|L|M|1|2|3|4| ; "
                  "80 " KLM1234 " = CALLSIGN|0|K|L|M|1|2|3|4| ; C0 " KLM1234 " = UNDIFINED|0|K|L|M|1|2|3|4| ");
}

// ---- Lookups ----

constexpr char kAreaHeader[] = "Octet|Name|Hex|Dec|Region|Country";
constexpr char kSensorHeader[] = "Octet|Name|Hex|Dec|Country|System|Type|Manufacturer|Model|Description";
constexpr char kUnknownArea[] = "Octet[1]|SAC|0x19|025|Unknown Region|Unknown Country";
constexpr char kUnknownSensor[] = "Octet[2]|SIC|0x0C|012|Unknown|Unknown|Unknown|Unknown|Unknown|Unknown System";
using Rows = std::vector<std::string>;
const Rows kUnknown = {kAreaHeader, kUnknownArea, kSensorHeader, kUnknownSensor};

const std::string kLong(300, 'x');

class Lookups : public testing::Test {
protected:
    void TearDown() override {
        ast_reg_callback_sac_get_info(nullptr);
        ast_reg_callback_sacsic_get_sensor(nullptr);
        ast_reg_callback_icao_addr_get_country(nullptr);
        ast_reg_callback_get_national_flag(nullptr);
    }

    static Rows data_source_rows() { return rows_of(detail_of(kDataSource, "19 0C")); }
};

TEST_F(Lookups, UnknownWithoutThem) {
    EXPECT_EQ(data_source_rows(), kUnknown);
    const std::string view = detail_of(kDataSource, "19 0C");
    EXPECT_EQ(view.find("<h4>System Area Code (SAC)</h4>"), 0U);
    EXPECT_NE(view.find("<h4>System Identification Code (SIC)</h4>"), view.npos);
    EXPECT_EQ(detail_of(kAddress, "3C 65 AC"), "");
}

TEST_F(Lookups, OnlyValidEntriesAreShown) {
    ast_reg_callback_sac_get_info([](ast_sac_info_list_t *result, uint32_t sac) {
        EXPECT_EQ(sac, 25U);
        result->count = 3;
        result->entries[0] = {.valid = true, .region = "Europe", .country_code = "DE", .country = "Germany"};
        result->entries[1] = {.valid = false, .region = "Nowhere"};
        result->entries[2] = {.valid = true}; // null texts read as empty ones
    });
    ast_reg_callback_sacsic_get_sensor([](ast_sensor_list_t *result, uint32_t sac, uint32_t sic) {
        EXPECT_EQ(sac, 25U);
        EXPECT_EQ(sic, 12U);
        result->count = 2;
        ast_sensor_t &tower = result->entries[0];
        tower = {.valid = true, .system = "Tower", .country_code = "DE", .country = "Germany", .type = "PSR"};
        tower.manufacturer = "Maker";
        tower.model = "M1";
        tower.description = "North";
        result->entries[1] = {.valid = true};
    });
    EXPECT_EQ(
        data_source_rows(),
        (Rows{kAreaHeader, "Octet[1]|SAC|0x19|025|Europe|Germany [DE]", "Octet[1]|SAC|0x19|025|| []", kSensorHeader,
              "Octet[2]|SIC|0x0C|012|Germany [DE]|Tower|PSR|Maker|M1|North", "Octet[2]|SIC|0x0C|012| []|||||"}));
    TearDown();
    EXPECT_EQ(data_source_rows()[1], kUnknownArea) << "switched off again";
}

TEST_F(Lookups, WithoutAValidEntryAllIsUnknown) {
    ast_reg_callback_sac_get_info([](ast_sac_info_list_t *, uint32_t) {});
    ast_reg_callback_sacsic_get_sensor([](ast_sensor_list_t *result, uint32_t, uint32_t) { result->count = 10; });
    EXPECT_EQ(data_source_rows(), kUnknown);
}

TEST_F(Lookups, NoMoreEntriesAreReadThanThereIsRoomFor) {
    ast_reg_callback_sac_get_info([](ast_sac_info_list_t *result, uint32_t) {
        for (ast_sac_info_t &entry : result->entries) entry.valid = true;
        result->count = UINT64_MAX;
    });
    ast_reg_callback_sacsic_get_sensor([](ast_sensor_list_t *result, uint32_t, uint32_t) {
        for (ast_sensor_t &entry : result->entries) entry.valid = true;
        result->count = 11;
    });
    EXPECT_EQ(data_source_rows().size(), 22U); // two headers and ten rows under each
}

TEST_F(Lookups, LongTextsAreCut) {
    ast_reg_callback_sac_get_info([](ast_sac_info_list_t *result, uint32_t) {
        result->count = 1;
        result->entries[0] = {.valid = true, .region = kLong.c_str(), .country_code = "XX", .country = kLong.c_str()};
    });
    ast_reg_callback_sacsic_get_sensor([](ast_sensor_list_t *result, uint32_t, uint32_t) {
        const char *const text = kLong.c_str();
        result->count = 1;
        ast_sensor_t &sensor = result->entries[0];
        sensor = {.valid = true, .system = text, .country_code = "XX", .country = text, .type = text};
        sensor.manufacturer = sensor.model = sensor.description = text;
    });
    const auto cut = [](size_t count) { return "|" + kLong.substr(0, count); };
    EXPECT_EQ(data_source_rows()[1], "Octet[1]|SAC|0x19|025" + cut(127) + cut(127));
    EXPECT_EQ(data_source_rows()[3],
              "Octet[2]|SIC|0x0C|012" + cut(127) + cut(127) + cut(63) + cut(127) + cut(127) + cut(255));
}

std::string announced_flag;

TEST_F(Lookups, CountryOfAnAddressIsNamedAndItsFlagAnnounced) {
    ast_reg_callback_icao_addr_get_country([](ast_country_t *result, uint32_t address, const ast_dataitem_t *item) {
        EXPECT_EQ(item->type, kAddress);
        if (address == 0x3C65AC) *result = {.found = true, .code = "DE", .name = "Germany"};
        if (address == 0x000001) *result = {.found = true};
    });
    EXPECT_EQ(detail_of(kAddress, "3C 65 AC"), "<p>This ICAO 24-bit address 3C65AC is allocated to Germany (DE).</p>");
    ast_reg_callback_get_national_flag([](const char *code) -> const void * {
        announced_flag = code;
        return nullptr;
    });
    EXPECT_EQ(detail_of(kAddress, "FF FF FF"),
              "<p>This ICAO 24-bit address FFFFFF is allocated to unknown country/region.</p>");
    EXPECT_EQ(announced_flag, "");
    EXPECT_EQ(detail_of(kAddress, "3C 65 AC"), "<p>This ICAO 24-bit address 3C65AC is allocated to Germany (DE).</p>");
    EXPECT_EQ(announced_flag, "DE");
    EXPECT_EQ(detail_of(kAddress, "00 00 01"), "<p>This ICAO 24-bit address 000001 is allocated to  ().</p>");
    EXPECT_EQ(announced_flag, "");
}

} // namespace
