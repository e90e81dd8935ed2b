// Mode S registers as their document has them: the width of each field, its step and its unit.

#include <string>

#include <gtest/gtest.h>

#include "ast.h"

namespace {

// "HDG 10 45/128°" of a quantity, "FTC 5" of another field, "; " between them; spare bits without a name.
std::string fields_of(uint32_t bds) {
    std::string fields;
    const auto add = [](void *context, const ast_field_t *field) {
        if (field->kind == AST_FIELD_GROUP || field->kind == AST_FIELD_EITHER) return;
        auto &text = *static_cast<std::string *>(context);
        const std::string path = field->path;
        const size_t bar = path.find('/');
        text += (text.empty() ? "" : "; ") + (bar == path.npos ? "" : path.substr(bar + 1)) + " " +
                std::to_string(field->bits);
        if (field->numerator != 0)
            text += " " + std::to_string(field->numerator) + "/" + std::to_string(field->denominator) + field->unit;
        if (field->offset != 0) text += " from " + std::to_string(field->offset);
        if (field->kind == AST_FIELD_SIGNED) text += " signed";
    };
    EXPECT_TRUE(ast_bds_describe(bds, add, &fields));
    return fields;
}

TEST(RegisterFields, AreThoseOfTheirDocument) {
    EXPECT_EQ(fields_of(0x05), "FTC 5; SS 2; SAF 1; ALT 12; T 1; F 1; LAT 17; LON 17");
    EXPECT_EQ(fields_of(0x08), "FTC 5; EC 3; ID 48");
    EXPECT_EQ(fields_of(0x10), "CODE 8; CONT 1;  5; OCC 1; ACAS 1; VERSION 7; EPI 1; SPEC 1; UELM 3; DELM 4; AIC 1; "
                               "SCS 1; SIC 1; GICB 1; ACAS_CAP 4; DTE 16");
    EXPECT_EQ(fields_of(0x20), "CODE 8; ID 48");
    EXPECT_EQ(fields_of(0x30), "CODE 8; ARA 14; RAC 4; RAT 1; MTE 1; TTI 2; ADDRESS 24;  2; TIDA 13; TIDR 7; TIDB 6");
    EXPECT_EQ(fields_of(0x40), "MCP_ALT 12 16/1ft; FMS_ALT 12 16/1ft; BARO 12 1/10mb from 800;  8; VNAV 1; ALT_HOLD 1; "
                               "APPROACH 1;  2; SOURCE 2");
    EXPECT_EQ(fields_of(0x50), "ROLL 10 45/256° signed; TRACK 11 45/256° signed; GS 10 2/1kt; "
                               "TRACK_RATE 10 1/32°/s signed; TAS 10 2/1kt");
    EXPECT_EQ(fields_of(0x60), "HDG 11 45/256° signed; IAS 10 1/1kt; MACH 10 1/250; "
                               "BARO_RATE 10 32/1ft/min signed; INERTIAL_RATE 10 32/1ft/min signed");
}

// The velocity of four subtypes between what all have; 0 stands for no value, so that 1 is the first step.
TEST(RegisterFields, OfVelocitiesReadByTheirSubtype) {
    const std::string begin = "IC 1; IFR 1; NACV 3; ";
    const auto ground = [&](const std::string &step) {
        const std::string speed = " 10 " + step + "/1kt from -" + step;
        return begin + "EW_DIR 1; EW" + speed + "; NS_DIR 1; NS" + speed + "; ";
    };
    const auto air = [&](const std::string &step) {
        return begin + "HDG 10 45/128°; AS_TYPE 1; AS 10 " + step + "/1kt from -" + step + "; ";
    };
    EXPECT_EQ(fields_of(0x09), "FTC 5; SUBTYPE 3; " + ground("1") + ground("4") + air("1") + air("4") +
                                   "VR_SOURCE 1; VR_SIGN 1; VR 9 64/1ft/min from -64; TURN 2; DIFF_SIGN 1; "
                                   "DIFF 7 25/1ft from -25");
}

} // namespace
