#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "ast.h"

namespace {

struct FromInt {
    const char *name;
    uint32_t (*from_int)(uint32_t raw);
    uint32_t defined; // how many values from 0 stand for themselves
    uint32_t undefined;
    std::vector<uint32_t> gaps = {};
};

TEST(Enumerations, FoldUndefinedValuesIntoOne) {
    const FromInt enumerations[] = {
        {"emitter category", ast_emitter_category_from_int, 25, 25, {4, 7, 8, 9, 17, 18, 19}},
        {"communications capability", ast_transponder_comm_cap_from_int, 5, 7},
        {"ACAS", ast_acas_status_from_int, 4, 8},
        {"navigation aids", ast_multi_navids_status_from_int, 4, 8},
        {"differential correction", ast_diff_correction_status_from_int, 4, 8},
        {"geometric altitude source", ast_geometric_altitude_source_from_int, 8, 0},
        {"selected altitude source", ast_selected_altitude_source_from_int, 4, 0},
        {"emergency", ast_emergency_status_from_int, 8, 8},
        {"friend or foe", ast_iff_status_from_int, 4, 0},
        {"flight status", ast_radar_flight_status_from_int, 6, 8},
    };
    for (const FromInt &one : enumerations) {
        for (uint32_t raw = 0; raw < 40; ++raw) {
            const bool is_gap = std::find(one.gaps.begin(), one.gaps.end(), raw) != one.gaps.end();
            EXPECT_EQ(one.from_int(raw), raw < one.defined && !is_gap ? raw : one.undefined) << one.name << " " << raw;
        }
        EXPECT_EQ(one.from_int(UINT32_MAX), one.undefined) << one.name;
    }
}

struct ToStr {
    const char *(*to_str)(uint32_t value);
    std::vector<const char *> texts; // by value; the last one is that of all further values
};

TEST(Enumerations, HaveTexts) {
    const std::vector<const char *> acas = {"UNKNOWN", "NOT_OPERATIONAL", "OPERATIONAL", "INVALID", "UNDEFINED"};
    const ToStr enumerations[] = {
        {ast_transponder_comm_cap_to_str,
         {"NO_COMM", "COMM-A COMM-B", "COMM-A COMM-B UPLINK_ELM", "COMM-A COMM-B UPLINK_ELM DOWNLINK_ELM", "LEVEL_5",
          "UNDEFINED"}},
        {ast_acas_status_to_str, acas},
        {ast_multi_navids_status_to_str, acas},
        {ast_diff_correction_status_to_str, acas},
        {ast_altitude_type_to_str, {"BAROMETRIC_ALTITUDE", "GEOMETRIC_ALTITUDE", "UNDEFINED"}},
        {ast_geometric_altitude_source_to_str,
         {"NO_SOURCE", "GNSS", "3D_RADAR", "TRIANGULATION", "COVERAGE", "SPEED_LOOKUP_TABLE", "DEFAULT",
          "MULTILATERATION", "UNDEFINED"}},
        {ast_emergency_status_to_str, // 7 is a value without a text
         {"NO_EMG", "GENERAL", "MEDICAL", "MINI_FUEL", "NO_COMM", "UNLAWFUL", "DOWNED", "UNDEFINED"}},
        {ast_iff_status_to_str, {"NO_INTERROGATION", "FRIEND", "UNKNOWN", "NO_REPLY", "NO_INTERROGATION"}},
        {ast_radar_flight_status_to_str, {"AIR", "GND", "AIR_ALR", "GND_ALR", "ALR_SPI", "SPI", "UNDEFINED"}},
    };
    for (const ToStr &one : enumerations) {
        for (uint32_t value = 0; value < one.texts.size(); ++value)
            EXPECT_STREQ(one.to_str(value), one.texts[value]) << value;
        EXPECT_STREQ(one.to_str(UINT32_MAX), one.texts.back());
    }
}

struct Styled {
    const char *brief;
    const char *full;
};

template <size_t N>
void expect_styles(const char *(*to_str)(uint32_t value, uint32_t style), const Styled (&texts)[N]) {
    const Styled &unknown = texts[N - 1];
    for (uint32_t value = 0; value < N; ++value) {
        EXPECT_STREQ(to_str(value, AST_STYLE_SHORT), texts[value].brief) << value;
        EXPECT_STREQ(to_str(value, AST_STYLE_LONG), texts[value].full) << value;
        EXPECT_STREQ(to_str(value, 2), unknown.brief) << value; // no such style
    }
    EXPECT_STREQ(to_str(UINT32_MAX, AST_STYLE_SHORT), unknown.brief);
    EXPECT_STREQ(to_str(UINT32_MAX, AST_STYLE_LONG), unknown.full);
}

TEST(Enumerations, OfTwoStylesHaveBothTexts) {
    constexpr Styled kNone = {"UNKNOWN_EMITTER", "Reserved / Unknown emitter category"};
    constexpr Styled kEmitters[] = {
        {"NO_INFO", "No ADS-B Emitter Category Information"},
        {"LIGHT_AIRCRAFT", "Light aircraft (0 - 15500 lbs)"},
        {"SMALL_AIRCRAFT", "Small aircraft (15500 - 75000 lbs)"},
        {"MEDIUM_AIRCRAFT", "Medium aircraft (75000 - 300000 lbs)"},
        kNone,
        {"HEAVY_AIRCRAFT", "Heavy aircraft (300000+ lbs)"},
        {"HIGH_MANOEUVRABLE_AIRCRAFT", "Highly manoeuvrable and high speed"},
        kNone,
        kNone,
        kNone,
        {"ROTOCRAFT", "Rotocraft"},
        {"GLIDER", "Glider / Sailplane"},
        {"LIGHTER_THAN_AIR", "Lighter-than-air"},
        {"UAV", "Unmanned Aerial Vehicle"},
        {"SPACE_VEHICLE", "Space / Transatmospheric Vehicle"},
        {"ULTRALIGHT", "Ultralight / Handglider / Paraglider"},
        {"PARACHUTIST", "Parachutist / Skydriver"},
        kNone,
        kNone,
        kNone,
        {"SURF_EMG_VEHICLE", "Surface emergency vehicle"},
        {"SURF_SVC_VEHICLE", "Surface service vehicle"},
        {"FIXED_OBSTRUCTION", "Fixed ground or tethered obstruction"},
        {"CLUSTER_OBSTACLE", "Cluster obstacle"},
        {"LINE_OBSTACLE", "Line obstacle"},
        kNone,
    };
    constexpr Styled kSources[] = {
        {"UNKNOWN", "Unknown"},
        {"AC_ALTITUDE", "Aircraft Altitude"},
        {"FCU_MCP_SELECTED", "FCU/MCP Selected Altitude"},
        {"FMS_SELECTED", "FMS Selected Altitude"},
        {"UNDEFINED", "Undefined"},
    };
    expect_styles(ast_emitter_category_to_str, kEmitters);
    expect_styles(ast_selected_altitude_source_to_str, kSources);
}

TEST(Enumerations, CategoriesReadAsTheirReference) {
    EXPECT_STREQ(ast_category_to_str(48), "I048");
    EXPECT_STREQ(ast_category_to_str(0), "I000");
    EXPECT_STREQ(ast_category_to_str(UINT32_MAX), "I42949672"); // cut at nine characters
}

} // namespace
