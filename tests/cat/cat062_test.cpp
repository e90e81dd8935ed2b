#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

// The octets of so many elements behind those of a start.
std::string many(const std::string &start, const std::string &element, unsigned count) {
    std::string hex = start;
    for (unsigned i = 0; i < count; ++i) hex += " " + element;
    return hex;
}

// ---- Items ----

TEST(Cat062TrackStatus, SummaryAndDetailGiveTheOctetsThatAreThere) {
    expect_summaries(62080, "80 = TRACK_STS:MONO; 7E = TRACK_STS:MULTI; 81 02 = TRACK_STS:MONO");
    expect_table(62080, "FF FF 67 FF 81 02",
                 "Bit|Item|Value; Bit[0]|TRACK_TYPE|MONO_SENSOR_TRACK; Bit[2]|MORE_RELIABLE_HEIGHT|1; "
                 "Bit[3-5]|ALTITUDE_SOURCE|MULTILATERATION; Bit[6]|TENTATIVE|1; Bit[8]|SIMULATED|1; "
                 "Bit[9]|TRACK_END|1; Bit[10]|TRACK_BEGIN|1; Bit[11]|FP_CORRELATED|1; Bit[12]|ADSB_INCONSISTENT|1; "
                 "Bit[13]|SLAVE_TRACK_PROMOTION|1; Bit[14]|BACKGROUND_SERVICE|1; Bit[16]|AMALGAMATION|0; "
                 "Bit[17-18]|MODE-4|NO_REPLY; Bit[19]|MIL_EMERGENCY|0; Bit[20]|MIL_IDENTIFICATION|0; "
                 "Bit[21-22]|MODE-5|NO_REPLY; Bit[24]|COASTING|1; Bit[25]|PSR_COASTING|1; Bit[26]|SSR_COASTING|1; "
                 "Bit[27]|MODES_COASTING|1; Bit[28]|ADSB_COASTING|1; Bit[29]|SPECIAL_MODEA_CODE|1; "
                 "Bit[30]|CONFLICT_MODEA_CODE|1; Bit[32-33]|SUR_STATUS|NONCOOPERATIVE_ONLY; "
                 "Bit[34-36]|EMG_STATUS|NO_EMG; Bit[37]|POTENTIAL_FALSE_TRACK|0; Bit[38]|FPL_TRACK|0; "
                 "Bit[40]|DUP_MODEA|0; Bit[41]|DUP_FP|0; Bit[42]|DUP_FP_DUE_TO_MANUAL_CORRELATION|0; "
                 "Bit[43]|SURFACE_TARGET|0; Bit[44]|DUP_FLIGHT_ID|0; Bit[45]|INCONSISTENT_EMG_CODE|0; "
                 "Bit[46]|MLAT_COASTING|1");
    expect_values(62080, "1A = MULTI_SENSOR_TRACK|0|DEFAULT|1");
    for (const auto &[hex, cooperative] : {std::pair{"01 01 01 01 40", true}, {"01 01 01 01 C0", false}})
        EXPECT_EQ(ast_dataitem_062_080_decode(Item(62080, hex)).cooperative, cooperative) << hex;
}

// Meant: a negative number is its magnitude less its maximum, so that all ones read as 0.
TEST(Cat062Levels, NegativeOnesAreOneUnitHigher) {
    expect_summaries(62130, "16 CD = LEVEL:36481.25 LSB:FT; FF FF = LEVEL:0.00 LSB:FT; FF FE = LEVEL:-6.25 LSB:FT; "
                            "80 00 = LEVEL:-204793.75 LSB:FT; 16 = ");
    expect_summaries(62135, "05 78 = ALTITUDE:35000 LSB:FT; C0 01 = ALTITUDE:-409550 LSB:FT QNH; "
                            "FF FF = ALTITUDE:0 LSB:FT QNH; 7F FE = ALTITUDE:-25 LSB:FT");
    expect_summaries(62136, "05 78 = LEVEL:35000 LSB:FT; FF FE = LEVEL:-25 LSB:FT; 80 00 = LEVEL:-819175 LSB:FT");
    expect_summaries(62220, "00 A0 = VH:1000.00; FF FF = VH:0.00; FF 5F = VH:-1000.00");
    expect_values(62130, "00 64 = 625.00|190.50");
    expect_values(62135, "85 78 = 1|35000.00|10668.00");
    expect_values(62136, "05 78 = 35000.00|10668.00");
    expect_values(62220, "00 A1 = 1006.25|306.705");
}

// Meant: a negative octet is far away from anything that flies.
TEST(Cat062Movement, AccelerationTakesTheMaximumOfSixteenBitsOff) {
    expect_summaries(62210, "FF 01 = AX:-8160.00 AY:0.25; 7F 80 = AX:31.75 AY:-8191.75");
    expect_table(62210, "04 08",
                 "Octet|Item|Value; Octect[0]|ACCERATION_X LSB:M/S^2|1.00; Octect[1]|ACCERATION_Y LSB:M/S^2|2.00");
    expect_summaries(62200, "00 = CONSTANT_COURSE CONSTANT_GROUNDSPEED LEVEL; "
                            "FE = UNDETERMINED UNDETERMINED UNDETERMINED ALTITUDE_DISCREPANCY");
    expect_values(62200, "66 = RIGHT_TURN|DECREASING_GROUNDSPEED|CLIMB|1");
}

TEST(Cat062Target, SizeGrowsWithTheItem) {
    expect_summaries(62270, "64 = L:50; 65 40 = L:50 O:90.00; 65 41 FE = L:50 O:90.00 W:127");
    expect_values(62270, "65 41 14 = 50|32|90.00|10; 64 = 50");
}

TEST(Cat062Fleet, UndefinedOnesReadAsUnknown) {
    expect_summaries(62300, "10 = FOLLOW_ME; 11 = UNKNOWN; 20 = UNKNOWN");
    expect_values(62300, "10 = FOLLOW_ME; 11 = UNDEFINED");
    EXPECT_STREQ(ast_vehicle_fleet_id_get_name(16), "FOLLOW_ME");
    EXPECT_STREQ(ast_vehicle_fleet_id_get_name(32), "UNDEFINED");
}

TEST(Cat062ComposedTrack, TakesSixteenParts) {
    expect_summaries(62510, "19 00 03 = NUM_TRACKS:1; 19 00 03 1A FF FE = NUM_TRACKS:2; 19 00 = ; 19 00 03 1A = ");
    EXPECT_EQ(summary_of(62510, many("01 02 03", "01 02 03", 15)), "NUM_TRACKS:16");
    EXPECT_EQ(summary_of(62510, many("01 02 03", "01 02 03", 16)), "");
    expect_table(62510, "19 00 03 1A FF FE",
                 "Octets|Unit ID|Track Number; Octet[0-2]|0x19 - 1; Octet[3-5]|0x1A - 32767");
}

// ---- Subfields ----

TEST(Cat062Mode5, SubfieldSummaries) {
    expect_subfield_summaries(62110001, "80 83 = M5 MC X; 80 00 = ; 40 00 00 00 00 = ");
    expect_subfield_summaries(62110002, "40 FF FF FF FF = PIN:16383 NAT:31 MIS:63; 40 00 01 02 03 = PIN:1 NAT:2 MIS:3");
    expect_subfield_summaries(62110003, "20 20 00 00 E0 00 00 = 450000N0450000W");
    expect_subfield_summaries(62110004, "10 3F FF = -25 FT; 10 C0 28 = 1000 FT");
    expect_subfield_summaries(62110005, "08 F0 07 = 7; 08 0F C0 = 7700");
    expect_subfield_summaries(62110006, "04 80 = -1.000000 SEC; 04 40 = 0.500000 SEC");
    expect_subfield_summaries(62110007, "02 FF = X5 XC X3 X2 X1; 02 08 = XC");
    expect_subfield_summaries(62110008, "02 FF = NOT_IMPLEMENTED");
    EXPECT_EQ(table_of(subfield_detail_of(62110007, "02 11")),
              "Octet/Bit|Name|Value; Bit[3]|X5|1; Bit[4]|XC|0; Bit[5]|X3|0; Bit[6]|X2|0; Bit[7]|X1|1");
}

TEST(Cat062Ages, OneHasTwoOctets) {
    expect_subfield_summaries(62290001, "88 FF 01 00 = 63.75 SEC; 08 01 00 = ");
    expect_subfield_summaries(62290005, "88 FF 01 00 = 64.00 SEC; 08 FF FF = 16383.75 SEC");
    expect_subfield_summaries(62290011, "88 FF 01 00 = NOT_IMPLEMENTED");
    expect_subfield_summaries(62295031, "01 01 01 01 20 05 = 1.25 SEC");
    EXPECT_EQ(table_of(subfield_detail_of(62290005, "08 01 02")),
              "Octet|Name|Value; Octet[0]|AGE LSB:1/4 SEC|258; Octet[0]|AGE LSB:SEC|64.50");
}

TEST(Cat062Measured, SubfieldSummariesAndDetails) {
    expect_subfield_summaries(62340001, "80 19 0C = SAC:025 SIC:012");
    expect_subfield_summaries(62340002, "40 01 00 40 00 = RHO:1.0 THETA:90.0");
    expect_subfield_summaries(62340003, "20 FF FF = HEIGHT:-25");
    expect_subfield_summaries(62340004, "10 05 78 = MODE_C:0350; 10 C0 04 = MODE_C:0001 NOT_VALIDATED GARBLED");
    expect_subfield_summaries(62340005, "08 EF C0 = MODE_3/A:7700 NOT_VALIDATED GARBLED SMOOTHED");
    expect_subfield_summaries(62340006, "04 7C = TYPE:PSR+SSR SIM RAB TST; 04 A3 = TYPE:ROLL_CALL");
    EXPECT_EQ(values_of(subfield_detail_of(62340003, "20 00 64")), "100|2500.00|762.00");
    EXPECT_EQ(values_of(subfield_detail_of(62340004, "10 BF FF")), "1|0|-1|-0.25|-25.00|-7.62");
}

TEST(Cat062Aircraft, SubfieldSummaries) {
    expect_subfield_summaries(62380001, "80 4C A7 08 = 4CA708; 20 00 00 = ");
    expect_subfield_summaries(62380002, "40 49 94 B1 DF 40 E0 = RYR174C ");
    expect_subfield_summaries(62380003, "20 40 00 = 90.00 DEG; 20 00 01 = 0.01 DEG; 20 FF FF = 359.99 DEG");
    expect_subfield_summaries(62380004, "10 40 00 = 3600.00 KT; 10 83 34 = 0.820 MACH");
    expect_subfield_summaries(62380005, "08 01 C2 = 450 KT");
    expect_subfield_summaries(62380006, "04 C5 78 = SAL:35000 FT SRC:FCU_MCP_SELECTED; "
                                        "04 7F FF = SAL:-25 FT SRC:NOT_PROVIDED");
    expect_subfield_summaries(62380007, "02 FF FF = -25 FT; 02 05 78 = 35000 FT");
    expect_subfield_summaries(62380008, "01 80 00 = AVAILABLE VALID; 01 80 C0 = UNAVAILABLE INVALID");
    expect_subfield_summaries(62380010, "01 20 20 F6 = COM:COMM-A COMM-B FS:AIR; 01 20 FC 00 = COM:UNDEFINED "
                                        "FS:UNDEFINED");
    expect_subfield_summaries(62380011, "01 10 02 02 = GBS EMG:MEDICAL; 01 10 FC 07 = NO_GBS EMG:UNDEFINED");
    expect_subfield_summaries(62380012, "01 08 00 00 00 00 00 00 00 = 3,0");
    expect_subfield_summaries(62380013, "01 04 FF FF = -6.25 FT/M");
    expect_subfield_summaries(62380014, "01 02 00 A0 = 1000.00 FT/M");
    expect_subfield_summaries(62380015, "01 01 80 FF 9C = -1.00 DEG");
    expect_subfield_summaries(62380016, "01 01 40 C0 FE = -0.25 DEG/SEC; 01 01 40 80 3D = 7.50 DEG/SEC");
    expect_subfield_summaries(62380017, "01 01 20 80 00 = 180.00 DEG");
    expect_subfield_summaries(62380018, "01 01 10 08 00 = 450.00 KT; 01 01 10 FF FF = -0.22 KT");
    expect_subfield_summaries(62380019, "01 01 08 07 = 7");
    expect_subfield_summaries(62380020, "01 01 04 00 00 1E 01 0E FF C8 05 = WS:30 KT WD:270 DEG TMP:-14.000000 C");
    expect_subfield_summaries(62380021, "01 01 02 05 = HEAVY_AIRCRAFT; 01 01 02 07 = UNKNOWN_EMITTER");
    expect_subfield_summaries(62380022, "01 01 01 80 20 00 00 E0 00 00 = 450000N0450000W");
    expect_subfield_summaries(62380023, "01 01 01 40 FF FF = -6.25 FT");
    expect_subfield_summaries(62380024, "01 01 01 20 F5 = 5; 01 01 01 20 F0 = "); // meant: 0 is nothing
    expect_subfield_summaries(62380026, "01 01 01 08 01 00 = 256 KT");
    expect_subfield_summaries(62380027, "01 01 01 04 00 64 = 0.800 MACH");
    expect_subfield_summaries(62380028, "01 01 01 02 F8 52 = 1013.0 MB");
    expect_subfield_summaries(62380029, "01 01 01 02 F8 52 = NOT_IMPLEMENTED");
}

TEST(Cat062Aircraft, SubfieldDetails) {
    constexpr struct {
        uint32_t subfield;
        const char *octets;
        const char *values;
    } kCases[] = {
        {62380002, "40 49 94 B1 DF 40 E0", "R|Y|R|1|7|4|C| "},
        {62380003, "20 40 00", "16384|90.00"},
        {62380004, "10 83 34", "1|820|0.82"},
        {62380004, "10 40 00", "0|16384|3600.00"},
        {62380006, "04 C5 78", "1|FCU/MCP Selected Altitude|1400|35000.00"},
        {62380007, "02 A5 78", "1|0|1|1400|35000.00"},
        {62380010, "01 20 20 D6", "COMM-A COMM-B|AIR|1|25FT|0|00000001|00000110"},
        {62380011, "01 10 6E 03", "NOT_OPERATIONAL|OPERATIONAL|INVALID|1|MINI_FUEL"},
        {62380013, "01 04 00 64", "100|625.00|190.50"},
        {62380016, "01 01 40 80 3D", "RIGHT|30|7.50"},
        {62380018, "01 01 10 40 00", "16384|3600.00|1.00"},
        {62380020, "01 01 04 A0 00 1E 01 0E FF C8 05", "1|0|1|0|30|270|-56|-14.00|5"},
        {62380021, "01 01 02 05", "Heavy aircraft (300000+ lbs)"},
        {62380028, "01 01 01 02 F8 52", "2130|1013.00"},
    };
    for (const auto &one : kCases)
        EXPECT_EQ(values_of(subfield_detail_of(one.subfield, one.octets)), one.values) << one.subfield;
    EXPECT_EQ(subfield_detail_of(62380003, "40 49 94 B1 DF 40 E0"), "") << "absent";
}

TEST(Cat062Repeated, CountsAllAndKeepsWhatFits) {
    const std::string registers = many("01 01 01 10 09", "00 00 00 00 00 00 00 40", 9);
    EXPECT_EQ(subfield_summary_of(62380025, registers), "BDS:4,0 4,0 4,0 4,0 4,0 4,0 4,0 4,0 ");
    EXPECT_EQ(ast_dataitem_062_380_decode(Item(62380, registers)).mb.count, 9U);
    expect_subfield_summaries(62380025, "01 01 01 10 00 = BDS:");

    const std::string point = "05 0D AC 20 00 00 E0 00 00 16 00 0E 10 00 C8";
    const std::string points = many("01 40 11", point, 17);
    EXPECT_EQ(subfield_summary_of(62380009, points), "TIP:17");
    EXPECT_EQ(rows_of(subfield_detail_of(62380009, points)).size(), 1U + 16);
    EXPECT_EQ(rows_of(subfield_detail_of(62380009, many("01 40 01", point, 1)))[1],
              "5|YES|35000|450000N0450000W|FLY_BY_WAYPOINT|RIGHT|3600|2.00");

    const std::string times = many("01 08 11", "08 01 02 03", 17);
    EXPECT_EQ(subfield_summary_of(62390012, times), "17 TIMES");
    EXPECT_EQ(rows_of(subfield_detail_of(62390012, times)).size(), 1U + 16);
    EXPECT_EQ(table_of(subfield_detail_of(62390012, "01 08 02 08 17 3B 3B 74 00 00 80")),
              "Type|Date|Time; Estimated off-block time|Today|23:59:59; Unknown time|Tomorrow|00:00");
}

TEST(Cat062Aircraft, CountryLookupIsAskedWithTheWholeItem) {
    static ast_dataitem_type_t asked;
    ast_reg_callback_icao_addr_get_country([](ast_country_t *result, uint32_t address, const ast_dataitem_t *item) {
        asked = item->type;
        result->found = address == 0x4CA7A8;
        result->name = "Ireland";
        result->code = "IE";
    });
    const std::string known = subfield_detail_of(62380001, "80 4C A7 A8");
    const std::string unknown = subfield_detail_of(62380001, "80 00 00 01");
    ast_reg_callback_icao_addr_get_country(nullptr);
    EXPECT_EQ(asked, 62380U);
    EXPECT_NE(known.find("ICAO 24-bit address: 4CA7A8"), known.npos);
    EXPECT_NE(known.find("This ICAO 24-bit address 4CA7A8 is allocated to Ireland (IE)."), known.npos);
    EXPECT_NE(unknown.find("000001 is allocated to unknown country/region."), unknown.npos);
}

TEST(Cat062FlightPlan, SubfieldSummaries) {
    expect_subfield_summaries(62390001, "80 19 0C = SAC:025 SIC:012");
    expect_subfield_summaries(62390002, "40 41 46 52 31 32 33 20 = AFR123 ; 40 20 20 20 00 00 20 20 = INVALID; "
                                        "40 41 00 1B 7F FF 0A 42 = A     B");
    expect_subfield_summaries(62390003, "20 05 F5 E0 FF = TYP:PLAN_NUMBER NUM:99999999; 20 F8 00 00 01 = TYP:UNIT3 "
                                        "NUM:1");
    expect_subfield_summaries(62390004, "10 46 = GAT IFR RVSM HPR; 10 B8 = OAT CVFR; 10 20 = ; 10 D8 = VFR");
    expect_subfield_summaries(62390005, "08 41 33 32 30 = A320");
    expect_subfield_summaries(62390006, "04 4D = M; 04 00 = INVALID");
    expect_subfield_summaries(62390009, "01 40 33 36 4C = 36L");
    expect_subfield_summaries(62390010, "01 20 05 78 = 35000 FT; 01 20 00 04 = 00100 FT; 01 20 FF FF = 1638375 FT");
    expect_subfield_summaries(62390011, "01 10 07 FF = CEN:007 POS:255");
    expect_subfield_summaries(62390013, "01 04 41 31 32 20 20 20 = A12   ");
    expect_subfield_summaries(62390014, "01 02 00 = EMP:EMPTY AVL:AVAILABLE; 01 02 50 = EMP:OCCUPIED AVL:UNAVAILABLE; "
                                        "01 02 BF = EMP:UNKNOWN AVL:INVALID");
    expect_subfield_summaries(62390017, "01 01 20 1F C0 = 7700; 01 01 20 EF C0 = INVALID");
    expect_subfield_summaries(62390018, "01 01 10 41 42 43 44 45 46 47 = ABCDEFG");
}

TEST(Cat062FlightPlan, TextsFromTheNetworkAreEscaped) {
    constexpr char kOctets[] = "40 3C 62 3E 26 22 07 80"; // <b>&", a bell and an octet beyond ASCII
    EXPECT_EQ(subfield_summary_of(62390002, kOctets), "&lt;b&gt;&amp;&quot;  ");
    const std::string detail = subfield_detail_of(62390002, kOctets);
    EXPECT_NE(detail.find("Callsign: &lt;b&gt;&amp;&quot;  "), detail.npos);
    EXPECT_EQ(rows_of(detail)[1], "Octet[0]|&lt;");
    EXPECT_EQ(ast_dataitem_062_390_decode(Item(62390, kOctets)).csn.text[6], '\x80') << "the value is as sent";
}

TEST(Cat062Accuracies, SubfieldSummaries) {
    expect_subfield_summaries(62500001, "80 00 03 FF FF = X:1.50 Y:32767.50 M");
    expect_subfield_summaries(62500002, "40 FF FF = -0.50 M");
    expect_subfield_summaries(62500003, "20 FF FF 00 00 = LAT:0.35 LON:0.00 DEG");
    expect_subfield_summaries(62500004, "10 FF = 1593.75 FT");
    expect_subfield_summaries(62500005, "08 FF = 6375.00 FT");
    expect_subfield_summaries(62500006, "04 04 FF = X:1.00 Y:63.75 M/S");
    expect_subfield_summaries(62500007, "02 01 00 = X:0.25 Y:0.00 M/S2");
    expect_subfield_summaries(62500008, "01 80 02 = 12.50 FT/MIN");
    EXPECT_EQ(values_of(subfield_detail_of(62500001, "80 00 03 FF FF")), "3|1.50|65535|32767.50");
}

// ---- Accessors ----

TEST(Cat062Accessors, FlightLevelTakesTheMeasuredOneFirst) {
    const Content geometric{62130, "00 64"};
    const Content barometric{62135, "85 78"};
    const Content measured{62136, "FF FE"};
    EXPECT_EQ(ast_datarecord_062_get_flightlevel(Record(62, {geometric, measured})).value, -25);
    EXPECT_EQ(ast_datarecord_062_get_flightlevel(Record(62, {geometric, barometric})).value, 35000);
    EXPECT_EQ(ast_datarecord_062_get_flightlevel(Record(62, {geometric})).value, 625);
    EXPECT_EQ(ast_datarecord_062_get_flightlevel(Record(62, {{62136, "05"}, geometric})).value, 625) << "not an item";
    EXPECT_FALSE(ast_datarecord_062_get_flightlevel(Record(62, {})).valid);
}

TEST(Cat062Accessors, AircraftDerivedDataHaveAnOrder) {
    const auto speed = [](const char *hex) { return ast_datarecord_062_get_speed(Record(62, {{62380, hex}})); };
    EXPECT_EQ(speed("19 01 10 40 00 01 C2 08 00").value, 450) << "ground speed 450 kt beside IAS and TAS";
    EXPECT_EQ(speed("18 40 00 01 2C").value, 300) << "true airspeed";
    EXPECT_EQ(speed("10 40 00").value, 3600) << "indicated airspeed";
    EXPECT_FALSE(speed("10 83 34").valid) << "a Mach number is no speed";
    const auto selected = [](const char *hex) {
        return ast_datarecord_062_get_selaltitude(Record(62, {{62380, hex}}));
    };
    EXPECT_EQ(selected("06 C5 78 00 04").value, 35000);
    EXPECT_EQ(selected("02 00 04").value, 100);
    const auto heading = ast_datarecord_062_get_heading(Record(62, {{62380, "01 01 20 80 00"}}));
    EXPECT_TRUE(heading.valid && heading.track.value == 180 && !heading.magnetic.valid && heading.magnetic.value == -1);
    EXPECT_EQ(ast_datarecord_062_get_icaoaddr(Record(62, {{62380, "20 40 00"}})).address, UINT32_MAX);
    EXPECT_FALSE(ast_datarecord_062_get_callsign(Record(62, {{62380, "20 40 00"}})).valid);
}

// One subfield alone is found in another way than all of them, wherever the item ends.
TEST(Cat062Accessors, ReadOneSubfieldAsAllAreRead) {
    uint64_t state = 1;
    const auto next = [&] {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<uint8_t>(state >> 56);
    };
    unsigned found = 0;
    for (int i = 0; i < 20000; ++i) {
        std::vector<uint8_t> octets(1 + next() % 60);
        for (uint8_t &octet : octets) octet = next();
        Record record(62, {{}});
        record->items[0] = {.data = octets.data(), .size = octets.size(), .type = 62380, .valid = true};
        const auto all = ast_dataitem_062_380_decode(record->items);
        const auto aircraft = ast_datarecord_062_get_icaoaddr(record);
        const auto heading = ast_datarecord_062_get_heading(record);
        ASSERT_EQ(aircraft.valid ? aircraft.address : 0, all.adr.address);
        ASSERT_STREQ(ast_datarecord_062_get_callsign(record).text, all.id.text);
        ASSERT_EQ(heading.magnetic.valid ? heading.magnetic.value : 0, all.mhg.angle_deg);
        ASSERT_EQ(heading.track.valid ? heading.track.value : 0, all.tan.angle_deg);
        if (!all.gsp.present) continue;
        ASSERT_EQ(ast_datarecord_062_get_speed(record).value, all.gsp.speed_kt);
        ++found;
    }
    EXPECT_GT(found, 100U);
}

TEST(Cat062Accessors, DispatchersFindThem) {
    const Record record(62, {{62010, "19 64"},
                             {62105, "00 80 00 00 01 00 00 00"},
                             {62185, "00 04 FF FC"},
                             {62060, "EF C0"},
                             {62380, "C0 4C A7 A8 49 94 B1 DF 40 E0"},
                             {62220, "FF 5F"}});
    EXPECT_EQ(ast_datarecord_get_msgtype(record), AST_MSGTYPE_TRACK);
    EXPECT_EQ(ast_datarecord_get_sacsic(record).sic, 100U);
    EXPECT_EQ(ast_datarecord_get_wgs84coord(record).latitude_deg, 45);
    EXPECT_EQ(ast_datarecord_get_wgs84coord(record).longitude_deg, 90);
    EXPECT_EQ(ast_datarecord_get_cartesianvel(record).vy_m_s, -1);
    EXPECT_TRUE(ast_datarecord_get_squawk(record).not_validated);
    EXPECT_STREQ(ast_datarecord_get_callsign(record).text, "RYR174C");
    EXPECT_EQ(ast_datarecord_get_vrate(record).value, -1000);
    EXPECT_FALSE(ast_datarecord_062_get_msgtype(nullptr).valid);
}

// ---- The flat record ----

TEST(Cat062Flat, LeavesTargetIdentificationAndFlightPlanOut) {
    static ast_datarecord_062_t flat;
    flat.vehicle_fleet.valid = true; // of an earlier use
    const Record record(
        62, {{62245, "00 49 94 B1 DF 40 E0"}, {62380, "80 4C A7 A8"}, {62390, "80 19 0C"}, {62510, "19 00 03"}});
    LogCapture log;
    EXPECT_EQ(ast_datarecord_062_disassemble(&flat, record), &flat);
    EXPECT_EQ(log.take(), (LogLines{{AST_LOG_DEBUG, "Failed to disassemble dataitem I062/245."},
                                    {AST_LOG_DEBUG, "Failed to disassemble dataitem I062/390."}}));
    EXPECT_TRUE(flat.valid && !flat.vehicle_fleet.valid && !flat.track_status.valid);
    EXPECT_EQ(flat.aircraft_derived_data.adr.address, 0x4CA7A8U);
    EXPECT_EQ(flat.composed_track_number.tracks[0].track_number, 1U);
    EXPECT_FALSE(ast_datarecord_062_disassemble(&flat, Record(48, {{62510, "19 00 03"}}))->valid);
    EXPECT_EQ(ast_datarecord_062_disassemble(nullptr, record), nullptr);
}

} // namespace
