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

TEST(Enumerations, WhatIsUndefinedHasATextOfItsOwn) {
    EXPECT_STREQ(ast_emergency_status_to_str(6), "DOWNED");
    EXPECT_STREQ(ast_emergency_status_to_str(7), "UNDEFINED"); // a value without a text
    EXPECT_STREQ(ast_iff_status_to_str(4), "NO_INTERROGATION");
    EXPECT_STREQ(ast_acas_status_to_str(UINT32_MAX), "UNDEFINED");
    EXPECT_STREQ(ast_emitter_category_to_str(10, AST_STYLE_SHORT), "ROTOCRAFT");
    EXPECT_STREQ(ast_emitter_category_to_str(9, AST_STYLE_LONG), "Reserved / Unknown emitter category");
    EXPECT_STREQ(ast_emitter_category_to_str(1, 2U), "UNKNOWN_EMITTER"); // no such style
    EXPECT_STREQ(ast_selected_altitude_source_to_str(4, AST_STYLE_LONG), "Undefined");
    EXPECT_STREQ(ast_selected_altitude_source_to_str(1, 2U), "UNDEFINED");
}

TEST(Enumerations, CategoriesReadAsTheirReference) {
    EXPECT_STREQ(ast_category_to_str(48), "I048");
    EXPECT_STREQ(ast_category_to_str(0), "I000");
    EXPECT_STREQ(ast_category_to_str(UINT32_MAX), "I42949672"); // cut at nine characters
}

} // namespace
