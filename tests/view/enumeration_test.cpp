#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/text.hpp"

using namespace ast_test;

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

// The texts by value, the last one that of all further values. `to_str` may take the style as well.
template <typename ToStr, typename... Style>
void expect_texts(ToStr to_str, const char *texts, Style... style) {
    uint32_t value = 0;
    std::string last;
    each_entry(texts, [&](std::string_view text) {
        last = text;
        EXPECT_EQ(to_str(value++, style...), last) << value - 1;
    });
    EXPECT_EQ(to_str(value, style...), last);
    EXPECT_EQ(to_str(UINT32_MAX, style...), last);
}

TEST(Enumerations, HaveTexts) {
    for (const auto to_str :
         {ast_acas_status_to_str, ast_multi_navids_status_to_str, ast_diff_correction_status_to_str})
        expect_texts(to_str, "UNKNOWN; NOT_OPERATIONAL; OPERATIONAL; INVALID; UNDEFINED");
    expect_texts(ast_transponder_comm_cap_to_str,
                 "NO_COMM; COMM-A COMM-B; COMM-A COMM-B UPLINK_ELM; COMM-A COMM-B UPLINK_ELM DOWNLINK_ELM; LEVEL_5; "
                 "UNDEFINED");
    expect_texts(ast_altitude_type_to_str, "BAROMETRIC_ALTITUDE; GEOMETRIC_ALTITUDE; UNDEFINED");
    expect_texts(ast_geometric_altitude_source_to_str,
                 "NO_SOURCE; GNSS; 3D_RADAR; TRIANGULATION; COVERAGE; SPEED_LOOKUP_TABLE; DEFAULT; MULTILATERATION; "
                 "UNDEFINED");
    expect_texts(ast_emergency_status_to_str, // 7 is a value without a text
                 "NO_EMG; GENERAL; MEDICAL; MINI_FUEL; NO_COMM; UNLAWFUL; DOWNED; UNDEFINED");
    expect_texts(ast_iff_status_to_str, "NO_INTERROGATION; FRIEND; UNKNOWN; NO_REPLY; NO_INTERROGATION");
    expect_texts(ast_radar_flight_status_to_str, "AIR; GND; AIR_ALR; GND_ALR; ALR_SPI; SPI; UNDEFINED");
}

TEST(Enumerations, OfTwoStylesHaveBothTexts) {
    expect_texts(ast_emitter_category_to_str,
                 "NO_INFO; LIGHT_AIRCRAFT; SMALL_AIRCRAFT; MEDIUM_AIRCRAFT; UNKNOWN_EMITTER; HEAVY_AIRCRAFT; "
                 "HIGH_MANOEUVRABLE_AIRCRAFT; UNKNOWN_EMITTER; UNKNOWN_EMITTER; UNKNOWN_EMITTER; ROTOCRAFT; GLIDER; "
                 "LIGHTER_THAN_AIR; UAV; SPACE_VEHICLE; ULTRALIGHT; PARACHUTIST; UNKNOWN_EMITTER; UNKNOWN_EMITTER; "
                 "UNKNOWN_EMITTER; SURF_EMG_VEHICLE; SURF_SVC_VEHICLE; FIXED_OBSTRUCTION; CLUSTER_OBSTACLE; "
                 "LINE_OBSTACLE; UNKNOWN_EMITTER",
                 AST_STYLE_SHORT);
    const std::string none = "Reserved / Unknown emitter category; ";
    const std::string emitters =
        "No ADS-B Emitter Category Information; Light aircraft (0 - 15500 lbs); Small aircraft (15500 - 75000 lbs); "
        "Medium aircraft (75000 - 300000 lbs); " +
        none + "Heavy aircraft (300000+ lbs); Highly manoeuvrable and high speed; " + none + none + none +
        "Rotocraft; Glider / Sailplane; Lighter-than-air; Unmanned Aerial Vehicle; Space / Transatmospheric Vehicle; "
        "Ultralight / Handglider / Paraglider; Parachutist / Skydriver; " +
        none + none + none +
        "Surface emergency vehicle; Surface service vehicle; Fixed ground or tethered obstruction; Cluster obstacle; "
        "Line obstacle; " +
        none;
    expect_texts(ast_emitter_category_to_str, emitters.c_str(), AST_STYLE_LONG);
    expect_texts(ast_selected_altitude_source_to_str, "UNKNOWN; AC_ALTITUDE; FCU_MCP_SELECTED; FMS_SELECTED; UNDEFINED",
                 AST_STYLE_SHORT);
    expect_texts(ast_selected_altitude_source_to_str,
                 "Unknown; Aircraft Altitude; FCU/MCP Selected Altitude; FMS Selected Altitude; Undefined",
                 AST_STYLE_LONG);
    // No such style.
    expect_texts(ast_emitter_category_to_str, "UNKNOWN_EMITTER", 2U);
    expect_texts(ast_selected_altitude_source_to_str, "UNDEFINED", 2U);
}

TEST(Enumerations, CategoriesReadAsTheirReference) {
    EXPECT_STREQ(ast_category_to_str(48), "I048");
    EXPECT_STREQ(ast_category_to_str(0), "I000");
    EXPECT_STREQ(ast_category_to_str(UINT32_MAX), "I42949672"); // cut at nine characters
}

} // namespace
