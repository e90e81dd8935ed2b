// What records answer, against octets worked by hand from the category documents.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <string>
#include <utility>

#include "support/records.hpp"

namespace {

using namespace ast_test;

// What each answer shows, in the order of the bits.
std::string value_of(const ast_answers_t &answers, unsigned number) {
    const double numbers[] = {answers.fl,
                              answers.altitude_ft,
                              answers.selected_altitude_ft,
                              answers.latitude_deg,
                              answers.longitude_deg,
                              answers.range_nm,
                              answers.azimuth_deg,
                              answers.x_nm,
                              answers.y_nm,
                              answers.groundspeed_kt,
                              answers.track_deg,
                              answers.magnetic_heading_deg,
                              answers.true_heading_deg,
                              answers.vertical_rate_ftmin,
                              answers.roll_deg,
                              answers.true_airspeed_kt,
                              answers.indicated_airspeed_kt,
                              answers.mach};
    const bool flags[] = {answers.squawk_validated,
                          answers.squawk_garbled,
                          answers.squawk_smoothed,
                          answers.squawk_changed,
                          answers.spi,
                          answers.emergency,
                          answers.on_ground,
                          answers.simulated,
                          answers.test,
                          answers.coasted,
                          answers.ended};
    const uint32_t codes[] = {answers.category, answers.sac, answers.sic, 0, answers.track_number};
    char shown[32];
    switch (number) {
    case 0:
        return std::to_string(answers.timestamp_ns);
    case 1:
        std::snprintf(shown, sizeof shown, "%.8g", answers.time_of_day_s);
        return shown;
    case 5:
        return ast_message_to_str(answers.type);
    case 7:
        std::snprintf(shown, sizeof shown, "%04o", answers.squawk);
        return shown;
    case 8:
        return answers.callsign;
    case 9:
        std::snprintf(shown, sizeof shown, "%06X", answers.icao24);
        return shown;
    default:
        if (number < 7) return std::to_string(codes[number - 2]);
        if (number >= 28) return flags[number - 28] ? "1" : "0";
        std::snprintf(shown, sizeof shown, "%.8g", numbers[number - 10]);
        return shown;
    }
}

// "sac=25 sic=12 fl=350": all that is there.
std::string shown(const ast_answers_t &answers) {
    std::string text;
    for (unsigned i = 0; i < AST_ANSWERS; ++i) {
        if ((answers.present >> i & 1) == 0 || i == 2) continue; // the category is that of the case
        if (!text.empty()) text += ' ';
        text += std::string(ast_answer_to_str(UINT64_C(1) << i)) + '=' + value_of(answers, i);
    }
    return text;
}

ast_answers_t answers_of(const ast_datarecord_t *record, const ast_answer_context_t *context = nullptr) {
    ast_answers_t answers;
    std::memset(&answers, 0xA5, sizeof answers);
    EXPECT_EQ(ast_datarecord_get_answers(record, context, &answers), answers.present);
    return answers;
}

struct Case {
    const char *name;
    uint32_t category;
    std::initializer_list<Content> items;
    const char *expected;
    const ast_uap_t *uap = &AST_UAP_PUBLISHED;
};

void expect_answers(const Case &each) {
    SCOPED_TRACE(each.name);
    Record record(each.category, each.items);
    record->uap = *each.uap;
    const ast_answers_t answers = answers_of(record);
    EXPECT_EQ(shown(answers), each.expected);
    EXPECT_EQ(answers.category, each.category);
    EXPECT_NE(answers.present & AST_ANSWER_CATEGORY, 0U);
}

const Case kTargets[] = {
    {"001, a track without reception",
     1,
     {{1010, "19 0C"},
      {1020, "E5 A0"}, // track, simulated, secondary, SPI; test, unlawful interference
      {1161, "01 2F"},
      {1040, "16 C0 60 00"}, // 5824/128, 24576 × 360/65536
      {1042, "00 C0 FF 80"}, // 192/64, -128/64
      {1200, "08 00 80 00"}, // 2048/16384 NM/s, half a turn
      {1070, "2A 53"},       // smoothed
      {1090, "05 78"},       // 1400/4
      {1141, "10 00"},
      {1170, "01 80"}}, // end of track
     "sac=25 sic=12 type=track track_number=303 squawk=5123 fl=350 range_nm=45.5 azimuth_deg=135 x_nm=3 y_nm=-2 "
     "groundspeed_kt=450 track_deg=180 squawk_validated=1 squawk_garbled=0 squawk_smoothed=1 spi=1 emergency=1 "
     "simulated=1 test=1 coasted=0 ended=1"},
    {"001, a plot", 1, {{1020, "20"}}, "type=plot spi=0 simulated=0 coasted=0"},
    {"001, a track that is not detected", 1, {{1020, "80"}}, "type=track spi=0 simulated=0 coasted=1"},
    {"004, of the first aircraft",
     4,
     {{4000, "07"},
      {4010, "19 0C"},
      {4020, "35 2A 80"},
      {4030, "01 2F"},
      // AI1, M31, AC1 and MS1: the identification of the transponder goes before the one of the system.
      {4170, "C3 80" // AI1, M31, then AC1; MS1
             " 4B 4C 4D 31 32 33 20"
             " 0A 53"
             " 00"
             " 50 86 71 04 28 20"}},
     "time=27221 sac=25 sic=12 type=alert track_number=303 squawk=5123 callsign=THY1AB emergency=0"},
    {"004, alive", 4, {{4000, "01"}}, "type=status"},
    {"007",
     7,
     {{7010, "19 0C"},
      {7410, "04"},
      {7020, "04"},                         // without detection; SPI
      {7085, "30 20 00 00 F0 00 00 00 28"}, // POS, GA
      {7110, "02 58"},
      {7140, "35 2A 80"},
      {7161, "01 2F"},
      {7230, "E4 00"}, // on ground
      {7240, "50 86 71 04 28 20"},
      {7220, "4B A9 D1"},
      {7042, "01 80 FF 00"},
      {7040, "2D 80 60 00"},
      {7070, "4A 53"}, // garbled
      {7090, "05 78"},
      {7200, "08 00 80 00"},
      {7170, "01 00"},
      {7250, "01 A0 0A 31 32 3F 64 05 60"}},
     "time=27221 sac=25 sic=12 type=track track_number=303 squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=350 "
     "altitude_ft=15000 latitude=45 longitude=-22.5 range_nm=45.5 azimuth_deg=135 x_nm=3 y_nm=-2 groundspeed_kt=450 "
     "track_deg=180 magnetic_heading_deg=90 vertical_rate_ftmin=-640 indicated_airspeed_kt=280 mach=0.8 "
     "squawk_validated=1 squawk_garbled=1 squawk_smoothed=0 spi=1 on_ground=1 simulated=0 coasted=1 ended=0"},
    {"007, Mode 5 height", 7, {{7085, "10 00 28"}}, "type=plot altitude_ft=1000"},
    {"007, a request", 7, {{7410, "07"}}, "type=interrogation"},
    {"008", 8, {{8010, "19 0C"}, {8020, "01 04"}, {8090, "35 2A 80"}}, "time=27221 sac=25 sic=12 type=weather test=1"},
    {"009", 9, {{9010, "19 0C"}, {9070, "35 2A 80"}}, "time=27221 sac=25 sic=12 type=weather"},
    {"010",
     10,
     {{10000, "01"},
      {10010, "19 0C"},
      {10020, "25 C1 80"}, // ground bit; simulated, test; SPI
      {10140, "35 2A 80"},
      {10041, "20 00 00 00 F0 00 00 00"}, // an eighth of 360°, minus a sixteenth
      {10040, "07 3C 40 00"},             // 1852 m
      {10042, "07 3C F8 C4"},             // 1852 m, -1852 m
      {10200, "01 00 40 00"},             // 256/16384 NM/s
      {10161, "01 2F"},
      {10170, "50"}, // end of track, predictable extrapolation
      {10060, "8A 53"},
      {10220, "4B A9 D1"},
      {10245, "00 50 86 71 04 28 20"},
      {10090, "00 04"}},
     "time=27221 sac=25 sic=12 type=track track_number=303 squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=1 latitude=45 "
     "longitude=-22.5 range_nm=1 azimuth_deg=90 x_nm=1 y_nm=-1 groundspeed_kt=56.25 track_deg=90 squawk_validated=0 "
     "squawk_garbled=0 squawk_smoothed=0 spi=1 on_ground=1 simulated=1 test=1 coasted=1 ended=1"},
    {"010, Cartesian velocity", // 463 m/s to the west
     10,
     {{10202, "F8 C4 00 00"}, {10170, "00"}},
     "type=plot groundspeed_kt=900 track_deg=270 coasted=0 ended=0"},
    {"010, polar velocity before Cartesian",
     10,
     {{10200, "01 00 40 00"}, {10202, "F8 C4 00 00"}},
     "type=plot groundspeed_kt=56.25 track_deg=90"},
    {"010, standing still", 10, {{10202, "00 00 00 00"}}, "type=plot groundspeed_kt=0"},
    {"010, cycles and status", 10, {{10000, "02"}}, "type=update cycle"},
    {"010, status", 10, {{10000, "04"}}, "type=status"},
    {"010, a code that no edition has", 10, {{10000, "09"}}, ""},
    {"011",
     11,
     {{11010, "00 0C"},
      {11000, "01"},
      {11140, "35 2A 80"},
      {11041, "20 00 00 00 F0 00 00 00"},
      {11042, "07 3C F8 C4"},
      {11202, "07 3C 00 00"}, // 463 m/s to the east
      {11245, "00 50 86 71 04 28 20"},
      {11380, "50 4B A9 D1 20 00 00"}, // ADR, COMACAS: code of no emergency, no SPI, airborne
      {11161, "41 2F"},
      {11170, "41 C5 60"}, // ground; simulated, ends, military emergency; SPI, coasting
      {11060, "0A 53"},
      {11090, "05 78"},
      {11092, "16 30"}, // 5680 × 6.25
      {11093, "05 50"},
      {11215, "FF 00"}}, // -256 × 6.25
     "time=27221 sac=0 sic=12 type=track track_number=16687 squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=350 "
     "altitude_ft=35500 latitude=45 longitude=-22.5 x_nm=1 y_nm=-1 groundspeed_kt=900 track_deg=90 "
     "vertical_rate_ftmin=-1600 spi=1 emergency=1 on_ground=1 simulated=1 coasted=1 ended=1"},
    {"011, barometric altitude and flight plan",
     11,
     {{11000, "02"}, {11390, "40 4B 4C 4D 31 32 33 20"}, {11093, "05 50"}},
     "type=flight plan callsign=KLM123 fl=340"},
    {"011, corrected for pressure", 11, {{11093, "85 50"}}, "type=track"},
    {"011, status of no communications", // 9 of four bits
     11,
     {{11380, "10 12 00 00"}},
     "type=track emergency=1"},
    {"011, SPI", 11, {{11380, "10 08 00 00"}}, "type=track spi=1 emergency=0"},
    {"015",
     15,
     {{15000, "08"}, // a sensor centric track
      {15010, "19 0C"},
      {15020, "30"}, // simulated
      {15145, "35 2A 80"},
      {15161, "01 2F"},
      {15170, "28"}, // terminated by its user, extrapolated
      {15600, "80 20 00 00 00 F0 00 00 00"},
      {15601, "80 00 0B E9"},       // 3049 cm
      {15602, "80 0B 4D C0 00 00"}, // 46300 and 0 cm/s in 20 bits each
      {15604, "80 FF FE 0C"},       // -500 cm/s
      {15625, "80 00 48 58"},       // 18520 × 0.1 m
      {15627, "80 40 00"}},
     "time=27221 sac=25 sic=12 type=track track_number=303 altitude_ft=100.03281 latitude=45 longitude=-22.5 "
     "range_nm=1 "
     "azimuth_deg=90 groundspeed_kt=900 track_deg=90 vertical_rate_ftmin=-984.25197 simulated=1 coasted=1 ended=1"},
    {"015, end of track", 15, {{15000, "0A"}}, "type=track ended=1"},
    {"015, a plot", 15, {{15000, "02"}, {15020, "00"}}, "type=plot simulated=0 ended=0"},
    {"017",
     17,
     {{17000, "0A"},
      {17010, "19 0C"},
      {17140, "35 2A 80"},
      {17045, "20 00 00 F0 00 00"},
      {17070, "0A 53"},
      {17050, "3F FC"}, // not signed: 16380/4
      {17200, "08 00 80 00"},
      {17220, "4B A9 D1"},
      {17240, "80"}},
     "time=27221 sac=25 sic=12 type=track squawk=5123 icao24=4BA9D1 fl=4095 latitude=45 longitude=-22.5 "
     "groundspeed_kt=450 track_deg=180 squawk_validated=1 squawk_garbled=0 squawk_smoothed=0 emergency=0 coasted=1"},
    {"017, of the network", 17, {{17000, "1F"}}, "type=coordination"},
    {"018",
     18,
     {{18036, "19 0C"},
      {18002, "35 2A 80"},
      {18005, "4B A9 D1"},
      {18012, "80"},
      {18014, "2D 80 60 00"},
      {18015, "01 80 FF 00"},
      {18031, "50 86 71 04 28 20"},
      {18032, "0A 53"},
      {18033, "05 78"},
      {18034, "08 00"},
      {18035, "80 00"},
      {18010, "07"}}, // no data source here
     "time=27221 sac=25 sic=12 type=data link squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=350 range_nm=45.5 "
     "azimuth_deg=135 x_nm=3 y_nm=-2 groundspeed_kt=450 track_deg=180 squawk_validated=1 squawk_garbled=0 "
     "squawk_smoothed=0 emergency=0 on_ground=1"},
    {"020",
     20,
     {{20010, "19 0C"},
      {20020, "41 56"}, // SPI, ground bit, simulated, test
      {20140, "35 2A 80"},
      {20041, "00 80 00 00 FF C0 00 00"}, // 2^23 × 180/2^25
      {20042, "00 0E 78 FF F1 88"},       // 3704 half metres
      {20161, "01 2F"},
      {20170, "60"}, // last report, coasted
      {20070, "0A 53"},
      {20202, "00 00 07 3C"}, // to the north
      {20090, "05 78"},
      {20220, "4B A9 D1"},
      {20245, "40 50 86 71 04 28 20"},
      {20110, "00 10"}, // above the plane of the system
      {20105, "16 30"},
      {20250, "02 00 06 23 00 00 00 00 40 E0 1C 01 35 C0 04 D2 50"},
      {20230, "3C 00"}}, // not known
     "time=27221 sac=25 sic=12 type=track track_number=303 squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=350 "
     "altitude_ft=35500 selected_altitude_ft=35008 latitude=45 longitude=-22.5 x_nm=1 y_nm=-1 groundspeed_kt=900 "
     "track_deg=0 roll_deg=-45 true_airspeed_kt=420 squawk_validated=1 squawk_garbled=0 squawk_smoothed=0 spi=1 "
     "emergency=0 on_ground=1 simulated=1 test=1 coasted=1 ended=1"},
    {"032",
     32,
     {{32010, "19 0C"}, {32020, "35 2A 80"}, {32040, "01 2F"}, {32060, "0A 53"}, {32400, "4B 4C 4D 31 32 33 20"}},
     "time=27221 sac=25 sic=12 type=flight plan track_number=303 squawk=5123 callsign=KLM123 emergency=0"},
    {"048",
     48,
     {{48010, "19 0C"},
      {48140, "35 2A 80"},
      {48020, "B5 90"}, // simulated, SPI; test, military emergency
      {48040, "2D 80 60 00"},
      {48070, "0A 53"},
      {48090, "05 78"},
      {48220, "4B A9 D1"},
      {48240, "50 86 71 04 28 20"},
      {48250, "01 E0 1C 01 35 C0 04 D2 50"}, // whose track and ground speed I048/200 has, too
      {48161, "01 2F"},
      {48042, "01 80 FF 00"},
      {48200, "08 00 80 00"},
      {48170, "01 80"},
      {48110, "02 58"},
      {48230, "08 00"}}, // alert, airborne
     "time=27221 sac=25 sic=12 type=track track_number=303 squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=350 "
     "altitude_ft=15000 range_nm=45.5 azimuth_deg=135 x_nm=3 y_nm=-2 groundspeed_kt=450 track_deg=180 roll_deg=-45 "
     "true_airspeed_kt=420 squawk_validated=1 squawk_garbled=0 squawk_smoothed=0 spi=1 emergency=1 on_ground=0 "
     "simulated=1 test=1 coasted=0 ended=1"},
    {"048, by registers alone",
     48,
     {{48250, "04 E0 1C 01 35 C0 04 D2 50 A0 0A 31 32 3F 64 05 60 88 B8 00 00 00 00 00 40 20 50 86 71 04 28 20 20"}},
     "type=plot callsign=THY1AB selected_altitude_ft=4464 groundspeed_kt=430 track_deg=270 magnetic_heading_deg=90 "
     "vertical_rate_ftmin=-640 roll_deg=-45 true_airspeed_kt=420 indicated_airspeed_kt=280 mach=0.8"},
    {"048, an identification filled up with zeros", 48, {{48240, "10 C2 35 C7 00 00"}}, "type=plot callsign=DLH510"},
    {"048, one of zeros", 48, {{48240, "00 00 00 00 00 00"}}, "type=plot"},
    {"048, fields of registers without their status bits", // the inertial rate alone has one
     48,
     {{48250, "03 60 1C 01 35 C0 28 D2 50 20 02 30 32 1F 64 05 60 08 BA 23 00 00 00 00 40"}},
     "type=plot groundspeed_kt=430 track_deg=270 vertical_rate_ftmin=160"},
    {"048, extended range, Mode 5 position and height", // M5N: POS, GA; ERR 300 NM
     48,
     {{48040, "FF FF 40 00"}, {48998, "0E 48 30 20 00 00 F0 00 00 00 28 01 2C 00"}},
     "type=plot altitude_ft=1000 latitude=45 longitude=-22.5 range_nm=300 azimuth_deg=90"},
    {"048, extended range behind an extended Mode 4 report", // M4E, which goes on; ERR
     48,
     {{48998, "07 28 01 00 01 2C 00"}},
     "type=plot range_nm=300"},
    {"048, an expansion field of a system's own",
     48,
     {{48040, "2D 80 60 00"}, {48998, "05 08 01 2C 00 00"}},
     "type=plot range_nm=45.5 azimuth_deg=135"},
    {"062",
     62,
     {{62010, "19 64"},
      {62070, "35 2A 80"},
      {62105, "00 80 00 00 FF C0 00 00"},
      {62100, "00 0E 78 FF F1 88"},
      {62185, "07 3C 00 00"},
      {62060, "2A 53"},
      {62245, "00 50 86 71 04 28 20"},
      {62380, "E5 25 31 4C"                                   // which ADR, ID, MHG, SAL; COM, BVR; TAN, GS; GAL,
              " 4B A9 D1 2C C3 71 CB 38 20 40 00 65 78 04 00" // IAR, MAC are
              " 00 40 40 00 08 00 00 10 01 18 00 64"},
      {62040, "01 2F"},
      {62080, "41 C1 11 81 08"}, // SPI; simulated, ends; military emergency; coasting; general emergency
      {62136, "05 78"},
      {62130, "16 30"},
      {62135, "05 50"},
      {62220, "FF 00"},
      {62340, "40 2D 80 60 00"}},
     "time=27221 sac=25 sic=100 type=track track_number=303 squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=350 "
     "altitude_ft=35500 selected_altitude_ft=35000 latitude=45 longitude=-22.5 range_nm=45.5 azimuth_deg=135 x_nm=1 "
     "y_nm=-1 groundspeed_kt=900 track_deg=90 magnetic_heading_deg=90 vertical_rate_ftmin=-1600 "
     "indicated_airspeed_kt=280 mach=0.8 squawk_validated=1 squawk_garbled=0 squawk_changed=1 spi=1 emergency=1 "
     "on_ground=1 simulated=1 coasted=1 ended=1"},
    {"062, second choices",
     62,
     {{62135, "05 50"},
      {62340, "2C 00 28 8A 53 14"},     // height, Mode 3/A code, simulated test report
      {62380, "13 13 31 80 83 20 05 78" // IAS, FSS; SAB, GVR; TAN, GS; POS
              " 02 05 FF C0 40 00 08 00 20 00 00 F0 00 00"},
      {62390, "40 4B 4C 4D 31 32 33 20"}},
     "type=track squawk=5123 callsign=KLM123 fl=340 altitude_ft=1000 selected_altitude_ft=35000 latitude=45 "
     "longitude=-22.5 groundspeed_kt=450 track_deg=90 vertical_rate_ftmin=-400 mach=0.8 squawk_validated=0 "
     "squawk_garbled=0 emergency=1 on_ground=1 simulated=1 test=1"},
    {"062, third choices",
     62,
     {{62340, "10 05 78"}, {62110, "30 20 00 00 F0 00 00 00 28"}},
     "type=track fl=350 altitude_ft=1000 latitude=45 longitude=-22.5"},
    {"062, the best that comes last",
     62,
     {{62390, "40 4B 4C 4D 31 32 33 20"}, {62380, "40 50 86 71 04 28 20"}},
     "type=track callsign=THY1AB"},
    {"062, nothing of a surface target, and an emergency that is not defined",
     62,
     {{62080, "01 01 01 01 39 00"}},
     "type=track spi=0 emergency=0 simulated=0 coasted=0 ended=0"},
    {"062, priority since version 3, behind a sensor",
     62,
     {{62998, "0A 88 01 19 0C 05 01 2F 80 A0"}},
     "type=track emergency=1"},
    {"062, no priority since version 3", 62, {{62998, "04 08 80 80"}}, "type=track emergency=0"},
    {"062, priority since version 3 that is not there", 62, {{62998, "04 08 80 20"}}, "type=track"},
    {"062, a military emergency", 62, {{62080, "01 01 10"}}, "type=track spi=0 emergency=1 simulated=0 ended=0"},
    {"062, a surface target",
     62,
     {{62080, "01 01 01 01 01 10"}},
     "type=track spi=0 emergency=0 on_ground=1 simulated=0 coasted=0 ended=0"},
    {"150",
     150,
     {{150030, "01"}, {150050, "4B 4C 4D 31 32 33 20"}, {150060, "35 31 32 33"}, {150210, "01 2F"}},
     "type=flight plan track_number=303 squawk=5123 callsign=KLM123 emergency=0"},
    {"150, no code is assigned", 150, {{150030, "FB"}, {150060, "7A 7A 7A 7A"}}, "type=alert"},
    {"205",
     205,
     {{205000, "04"},
      {205010, "19 0C"},
      {205030, "35 2A 80"},
      {205050, "00 80 00 00 FF C0 00 00"},
      {205060, "00 0E 78 FF F1 88"},
      {205080, "23 28"},
      {205070, "11 94"},
      {205160, "01 2F"}},
     "time=27221 sac=25 sic=12 type=direction track_number=303 latitude=45 longitude=-22.5 azimuth_deg=45 x_nm=1 "
     "y_nm=-1 ended=1"},
    {"205, system bearing", 205, {{205080, "23 28"}}, "type=direction azimuth_deg=90"},
};

TEST(Answers, AreTheFieldsOfEachCategory) {
    for (const Case &each : kTargets) expect_answers(each);
}

const Case kAdsB[] = {
    {"2.7",
     21,
     {{21010, "19 0C"},
      {21040, "01 70"}, // ground bit, simulated, test
      {21161, "01 2F"},
      {21071, "35 2A 80"},
      {21130, "00 00 00 00 00 00"},
      {21131, "10 00 00 00 F8 00 00 00"}, // 2^28 and -2^27 × 180/2^30
      {21150, "83 20"},
      {21151, "01 A4"},
      {21080, "4B A9 D1"},
      {21073, "00 00 80"},
      {21140, "16 30"},
      {21070, "0A 53"},
      {21230, "EE 6C"},
      {21145, "05 78"},
      {21152, "40 00"},
      {21200, "20"},    // military emergency
      {21155, "7F 00"}, // -256 in 15 bits
      {21157, "00 10"},
      {21160, "08 00 80 00"},
      {21077, "00 01 00"},
      {21170, "50 86 71 04 28 20"},
      {21146, "65 78"},
      {21148, "00 10"}},
     "time=27221 sac=25 sic=12 type=report track_number=303 squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=350 "
     "altitude_ft=35500 selected_altitude_ft=35000 latitude=45 longitude=-22.5 groundspeed_kt=450 track_deg=180 "
     "magnetic_heading_deg=90 vertical_rate_ftmin=-1600 roll_deg=-45 true_airspeed_kt=420 mach=0.8 spi=0 emergency=1 "
     "on_ground=1 simulated=1 test=1"},
    {"2.4, second choices",
     21,
     {{21072, "00 01 00"},
      {21130, "20 00 00 F0 00 00"},
      {21150, "08 00"},
      {21073, "35 2A 80"},
      {21157, "00 10"},
      {21077, "00 01 00"},
      {21148, "05 78"},
      {21200, "0B"}}, // no communications, and SPI
     "time=27221 type=report selected_altitude_ft=35000 latitude=45 longitude=-22.5 vertical_rate_ftmin=100 "
     "indicated_airspeed_kt=450 spi=1 emergency=1",
     &AST_UAP_CAT021_VER24},
    {"2.1, values beyond their range",
     21,
     {{21151, "81 A4"},
      {21140, "7F FF"},
      {21155, "FF 00"},
      {21157, "80 10"},
      {21160, "88 00 80 00"},
      {21907, "02"},
      {21077, "35 2A 80"},
      {21075, "00 00 80"}},
     "time=27221 type=report track_deg=180 spi=1",
     &AST_UAP_CAT021_VER21},
    {"2.7, high resolution before the rest, whatever comes first",
     21,
     {{21131, "10 00 00 00 F8 00 00 00"}, {21130, "00 00 00 00 00 00"}},
     "type=report latitude=45 longitude=-22.5"},
    {"2.7, a priority that is not defined", 21, {{21200, "1C"}}, "type=report spi=0 emergency=0"},
    {"2.7, an alert by an emergency code", 21, {{21200, "01"}}, "type=report spi=0 emergency=1"},
    {"2.7, surface track, true heading and priority", // 80/8 kt, 32 × 45/16
     21,
     {{21998, "09 0E 60 A1 40 01 D0 80 00"}},
     "type=report groundspeed_kt=10 track_deg=90 true_heading_deg=180 emergency=1"},
    {"2.7, magnetic heading on the surface",
     21,
     {{21998, "05 08 50 A1 40"}},
     "type=report groundspeed_kt=10 magnetic_heading_deg=90"},
    {"2.7, true heading on the surface",
     21,
     {{21998, "05 08 40 A1 40"}},
     "type=report groundspeed_kt=10 true_heading_deg=90"},
    {"2.7, an angle that is not valid", 21, {{21998, "05 08 20 A1 40"}}, "type=report groundspeed_kt=10"},
    {"2.7, an expansion field that is too long", 21, {{21998, "06 08 50 A1 40 00"}}, "type=report"},
    {"2.7, registers",
     21,
     {{21250, "01 E0 1C 01 35 C0 04 D2 50"}, {21160, "08 00 80 00"}},
     "type=report groundspeed_kt=450 track_deg=180 roll_deg=-45 true_airspeed_kt=420"},
    {"0.26",
     21,
     {{21010, "19 0C"},
      {21903, "72 00"}, // ground bit, simulated, test, SPI
      {21030, "35 2A 80"},
      {21902, "00 80 00 00 FF C0 00 00"},
      {21080, "4B A9 D1"},
      {21140, "16 30"},
      {21145, "FF FC"},
      {21151, "81 A4"},
      {21155, "FF 00"},
      {21160, "08 00 80 00"},
      {21170, "50 86 71 04 28 20"},
      {21908, "05"},
      {21070, "6A 53"}},
     "time=27221 sac=25 sic=12 type=report squawk=5123 callsign=THY1AB icao24=4BA9D1 fl=-1 altitude_ft=35500 "
     "latitude=45 longitude=-22.5 groundspeed_kt=450 track_deg=180 vertical_rate_ftmin=-1600 true_airspeed_kt=33188 "
     "squawk_validated=1 squawk_garbled=1 squawk_smoothed=1 spi=1 emergency=1 on_ground=1 simulated=1 test=1",
     &AST_UAP_STANDARD},
    {"0.23",
     21,
     {{21130, "20 00 00 F0 00 00"}, {21908, "06"}, {21157, "FF 00"}},
     "type=report latitude=45 longitude=-22.5 vertical_rate_ftmin=-1600",
     &AST_UAP_CAT021_VER023},
};

TEST(Answers, OfAdsBAreThoseOfItsEdition) {
    for (const Case &each : kAdsB) expect_answers(each);
}

// Categories that answer source, time and type: where their time is, the codes of their kinds, the first one of which
// is sent with the rest.
struct Service {
    uint32_t category;
    uint32_t time_item;
    std::initializer_list<std::pair<uint32_t, const char *>> types;
    const char *otherwise; // without or with another code
};

const Service kServices[] = {
    {2, 30, {{1, "north marker"}, {2, "sector crossing"}, {3, "south marker"}, {8, "filtering"}, {9, "filtering"}}, ""},
    {16, 140, {}, "configuration"},
    {19, 140, {{1, "update cycle"}, {2, "status"}, {3, "status"}}, "status"},
    {23, 70, {{1, "status"}, {2, "status"}, {3, "statistics"}}, "status"},
    {25, 70, {{2, "status"}, {6, "statistics"}}, "status"}, // and a bit for how the report came about
    {34,
     30,
     {{1, "north marker"},
      {2, "sector crossing"},
      {3, "filtering"},
      {4, "interference"},
      {5, "interference"},
      {6, "interference"},
      {7, "interference"}},
     ""},
    {63, 30, {}, "status"},
    {65, 30, {{1, "status"}, {2, "update cycle"}, {3, "status"}}, "status"},
    {240, 140, {}, "video"},
    {247, 140, {}, "configuration"},
};

TEST(Answers, OfServicesAreSourceTimeAndType) {
    const auto type_of = [](const char *type) { return *type ? std::string("type=") + type : std::string(); };
    for (const Service &each : kServices) {
        SCOPED_TRACE(each.category);
        const ast_dataitem_type_t first = AST_DATAITEM_TYPE(each.category, 0);
        const Record bare(each.category, {{first + 10, "19 0C"}, {first + each.time_item, "35 2A 80"}});
        const std::string separator = *each.otherwise ? " " : "";
        EXPECT_EQ(shown(answers_of(bare)), "time=27221 sac=25 sic=12" + separator + type_of(each.otherwise));
        for (const auto &[code, type] : each.types) {
            const std::string digits = {'0', "0123456789"[code]};
            EXPECT_EQ(shown(answers_of(Record(each.category, {{first, digits}}))), type_of(type)) << code;
        }
    }
}

// ---- What is no answer ----

const Case kNoAnswers[] = {
    {"a level that is not validated", 48, {{48090, "85 78"}}, "type=plot"},
    {"a garbled level", 48, {{48090, "45 78"}}, "type=plot"},
    {"the lowest level", 48, {{48090, "3F C4"}}, "type=plot fl=-15"},
    {"the last time of a day", 48, {{48140, "A8 BF FF"}}, "time=86399.992 type=plot"},
    {"the first time that none has", 48, {{48140, "A8 C0 00"}}, "type=plot"},
    {"a callsign of blanks", 48, {{48240, "82 08 20 82 08 20"}}, "type=plot"},
    {"a callsign of codes 0", 48, {{48240, "00 00 00 00 00 00"}}, "type=plot"},
    {"blanks and undefined codes", 48, {{48240, "00 08 00 82 08 20"}}, "type=plot"},
    {"a callsign with an undefined code", 48, {{48240, "50 80 31 04 28 20"}}, "type=plot callsign=TH?1AB"},
    {"the ends of letters and digits", 48, {{48240, "05 AC 39 6D F8 6F"}}, "type=plot callsign=AZ09????"},
    {"behind the digits", 48, {{48240, "EB F0 60 06 08 20"}}, "type=plot callsign=??A A"},
    {"an octet that is not printable", 32, {{32400, "4B 0A 4D 20 20 20 20"}}, "type=flight plan callsign=K?M"},
    {"the pole", 20, {{20041, "01 00 00 00 02 00 00 00"}}, "type=plot latitude=90 longitude=180"},
    {"beyond the pole", 20, {{20041, "01 00 00 01 00 00 00 00"}}, "type=plot"},
    {"beyond the date line", 20, {{20041, "00 00 00 00 FD FF FF FF"}}, "type=plot"},
    {"a flight status that is not known", 48, {{48230, "1C 00"}}, "type=plot"},
    {"SPI, on ground or not", 48, {{48230, "14 00"}}, "type=plot spi=1"},
    {"neither of two octets", 48, {{48040, "2D 80 60"}, {48010, "19"}}, "type=plot"},
    {"an item of another category", 48, {{62040, "01 2F"}, {10161, "01 2F"}}, "type=plot"},
    {"no categories of others", 3, {{3010, "19 0C"}}, ""},
};

TEST(Answers, AreNotWhatIsNotValid) {
    for (const Case &each : kNoAnswers) {
        if (each.category != 3) {
            expect_answers(each);
            continue;
        }
        EXPECT_EQ(answers_of(Record(each.category, each.items)).present, 0U);
    }
}

TEST(Answers, TellEmergenciesByCode) {
    struct {
        const char *octets;
        const char *emergency;
    } const kCodes[] = {
        {"0F 40", "1"}, {"0F 80", "1"}, {"0F C0", "1"}, {"0F 41", "0"}, {"0F 00", "0"}, {"8F C0", ""}, // not validated
        {"4F C0", ""},                                                                                 // garbled
        {"2F C0", "1"},
    };
    for (const auto &each : kCodes) {
        const std::string text = shown(answers_of(Record(48, {{48070, each.octets}})));
        const size_t at = text.find("emergency=");
        EXPECT_EQ(at == std::string::npos ? "" : text.substr(at + 10), each.emergency) << each.octets;
    }
}

TEST(Answers, AreNoneWithoutARecord) {
    ast_answers_t answers;
    answers.present = AST_ANSWER_FL;
    answers.fl = 350;
    EXPECT_EQ(ast_datarecord_get_answers(nullptr, nullptr, &answers), 0U);
    EXPECT_EQ(answers.present, 0U);
    EXPECT_EQ(answers.fl, 0);
    Record record(48, {{48090, "05 78"}});
    EXPECT_EQ(ast_datarecord_get_answers(record, nullptr, nullptr), 0U);
    record->valid = false;
    EXPECT_EQ(answers_of(record).present, 0U);
    record->valid = true;
    record->items[0].valid = false;
    EXPECT_EQ(shown(answers_of(record)), "type=plot");
}

// ---- Time ----

constexpr int64_t kSecondNs = 1'000'000'000;
constexpr int64_t kHourNs = 3600 * kSecondNs;
constexpr int64_t kMidnightNs = 1'700'006'400 * kSecondNs; // 15 November 2023

TEST(Answers, HaveTheTimeThatIsClosestToReception) {
    struct {
        const char *name;
        const char *time_of_day;
        int64_t reception_ns;
        int64_t expected_ns;
    } const kTimes[] = {
        {"at once", "35 2A 80", kMidnightNs + 27221 * kSecondNs, kMidnightNs + 27221 * kSecondNs},
        {"in parts of a second", "35 2A C0", kMidnightNs + 8 * kHourNs,
         kMidnightNs + 27221 * kSecondNs + kSecondNs / 2},
        {"sent before midnight", "A8 BF 80", kMidnightNs + kSecondNs, kMidnightNs - kSecondNs},
        {"received before midnight by a slow clock", "00 00 80", kMidnightNs - kSecondNs, kMidnightNs + kSecondNs},
        {"five hours late", "35 2A 80", kMidnightNs + 27221 * kSecondNs + 5 * kHourNs, kMidnightNs + 27221 * kSecondNs},
        {"late across midnight", "9D 80 00", kMidnightNs + 3 * kHourNs, kMidnightNs - 5760 * kSecondNs},
        {"before 1970", "A8 BF 80", -kHourNs, -kSecondNs},
        {"on its first day", "00 00 80", 0, kSecondNs},
    };
    for (const auto &each : kTimes) {
        SCOPED_TRACE(each.name);
        const Record record(48, {{48140, each.time_of_day}});
        const ast_answer_context_t context = {.has_reception = true, .reception_ns = each.reception_ns, .reserved = {}};
        const ast_answers_t answers = answers_of(record, &context);
        EXPECT_EQ(answers.timestamp_ns, each.expected_ns);
        EXPECT_NE(answers.present & AST_ANSWER_TIMESTAMP, 0U);
    }
}

TEST(Answers, HaveNoTimestampWithoutReceptionOrTime) {
    const Record timed(48, {{48140, "35 2A 80"}});
    const Record bare(48, {{48010, "19 0C"}});
    ast_answer_context_t context = {.has_reception = false, .reception_ns = kMidnightNs, .reserved = {}};
    EXPECT_EQ(shown(answers_of(timed, &context)), "time=27221 type=plot");
    context.has_reception = true;
    EXPECT_EQ(shown(answers_of(bare, &context)), "sac=25 sic=12 type=plot");
    for (const int64_t never : {INT64_MIN, INT64_MAX}) {
        context.reception_ns = never;
        EXPECT_EQ(shown(answers_of(timed, &context)), "time=27221 type=plot");
    }
}

TEST(Answers, RefineATimeOfReception) {
    struct {
        const char *name;
        std::initializer_list<Content> items;
        const char *expected;
    } const kTimes[] = {
        {"a quarter instead of half a second", {{21073, "35 2A C0"}, {21074, "10 00 00 00"}}, "27221.25"},
        {"the smallest step", {{21073, "00 00 00"}, {21074, "00 00 00 01"}}, "9.3132257e-10"},
        {"a second later", {{21073, "35 2A C0"}, {21074, "50 00 00 00"}}, "27222.25"},
        {"a second earlier", {{21073, "35 2A C0"}, {21074, "90 00 00 00"}}, "27220.25"},
        {"an indication that means nothing", {{21073, "35 2A C0"}, {21074, "D0 00 00 00"}}, "27221.5"},
        {"after midnight", {{21073, "A8 BF FF"}, {21074, "60 00 00 00"}}, "0.5"},
        {"before midnight", {{21073, "00 00 00"}, {21074, "A0 00 00 00"}}, "86399.5"},
        {"no time of day", {{21073, "A8 C0 00"}, {21074, "10 00 00 00"}}, ""},
        {"of a velocity", {{21075, "35 2A C0"}, {21076, "10 00 00 00"}}, "27221.25"},
        {"of another time", {{21075, "35 2A C0"}, {21074, "10 00 00 00"}}, "27221.5"},
        {"behind a better one", {{21071, "35 2A C0"}, {21073, "00 00 00"}, {21074, "10 00 00 00"}}, "27221.5"},
        {"alone", {{21074, "10 00 00 00"}}, ""},
        {"an octet short", {{21073, "35 2A C0"}, {21074, "10 00 00"}}, "27221.5"},
    };
    for (const auto &each : kTimes) {
        const std::string time = *each.expected ? std::string("time=") + each.expected + " type=report" : "type=report";
        Record record(21, each.items);
        record->uap = AST_UAP_PUBLISHED;
        EXPECT_EQ(shown(answers_of(record)), time) << each.name;
    }
}

TEST(Answers, CompleteATruncatedTime) {
    struct {
        const char *name;
        const char *octets; // in 1/128 s
        double reception_s; // since midnight
        const char *expected;
    } const kTimes[] = {
        {"a second ago", "10 80", 53 * 512 + 34, "timestamp=1700033569000000000 time=27169"},
        {"before it started anew", "FF 80", 53 * 512 + 1, "timestamp=1700033535000000000 time=27135"},
        {"ahead of it", "00 80", 53 * 512 - 1, "timestamp=1700033537000000000 time=27137"},
        {"before midnight", "BF 80", 1, "timestamp=1700006399000000000 time=86399"}, // 168 × 512 + 383
        {"after midnight, by a slow clock", "00 80", -1, "timestamp=1700006401000000000 time=1"},
    };
    for (const auto &each : kTimes) {
        const ast_answer_context_t context = {.has_reception = true,
                                              .reception_ns =
                                                  kMidnightNs + static_cast<int64_t>(each.reception_s) * kSecondNs,
                                              .reserved = {}};
        const Record record(1, {{1141, each.octets}});
        EXPECT_EQ(shown(answers_of(record, &context)), std::string(each.expected) + " type=plot") << each.name;
    }
}

// At the last value that can be, and at the first that cannot.
TEST(Answers, AreImplausibleWhereTheyCannotBe) {
    const struct {
        const char *name;
        uint32_t category;
        Content possible, impossible;
    } kValues[] = {
        {"a time of 24 hours", 48, {48140, "A8 BF FF"}, {48140, "A8 C0 00"}},
        {"a time that starts anew", 1, {1141, "FF FF"}, {}},
        {"a latitude above 90", 62, {62105, "01 00 00 00 00 00 00 00"}, {62105, "01 00 00 01 00 00 00 00"}},
        {"a longitude below -180", 62, {62105, "00 00 00 00 FE 00 00 00"}, {62105, "00 00 00 00 FD FF FF FF"}},
        {"level -15", 62, {62136, "FF C4"}, {62136, "FF C3"}},
        {"level 1500", 62, {62136, "17 70"}, {62136, "17 71"}},
        {"4000 kt", 48, {48200, "47 1C 00 00"}, {48200, "47 1D 00 00"}}, // 18204.4/16384 NM/s
    };
    for (const auto &each : kValues) {
        EXPECT_FALSE(ast_datarecord_is_implausible(Record(each.category, {each.possible}))) << each.name;
        if (each.impossible.hex.empty()) continue;
        EXPECT_TRUE(ast_datarecord_is_implausible(Record(each.category, {each.impossible}))) << each.name;
    }
    Record invalid(48, {{48140, "A8 C0 00"}});
    invalid->valid = false;
    EXPECT_FALSE(ast_datarecord_is_implausible(invalid));
    EXPECT_FALSE(ast_datarecord_is_implausible(nullptr));
}

// ---- Names ----

TEST(Answers, HaveNamesBothWays) {
    EXPECT_STREQ(ast_answer_to_str(AST_ANSWER_LATITUDE), "latitude");
    EXPECT_STREQ(ast_answer_to_str(AST_ANSWER_VERTICAL_RATE), "vertical_rate_ftmin");
    EXPECT_STREQ(ast_answer_to_str(AST_ANSWER_ENDED), "ended");
    for (const uint64_t none : {UINT64_C(0), UINT64_C(3), UINT64_C(1) << AST_ANSWERS, UINT64_MAX})
        EXPECT_STREQ(ast_answer_to_str(none), "");
    for (unsigned i = 0; i < AST_ANSWERS; ++i)
        EXPECT_EQ(ast_answer_from_str(ast_answer_to_str(UINT64_C(1) << i)), UINT64_C(1) << i);
    EXPECT_EQ(ast_answer_from_str("lat"), 0U);
    EXPECT_EQ(ast_answer_from_str(""), 0U);
    EXPECT_EQ(ast_answer_from_str(nullptr), 0U);
    EXPECT_STREQ(ast_message_to_str(AST_MESSAGE_NORTH_MARKER), "north marker");
    EXPECT_STREQ(ast_message_to_str(AST_MESSAGE_DIRECTION), "direction");
    EXPECT_STREQ(ast_message_to_str(0), "");
    EXPECT_STREQ(ast_message_to_str(AST_MESSAGES), "");
}

} // namespace
