#include <cstdio>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/functions.hpp"
#include "support/log_capture.hpp"

namespace {

using namespace ast_test;

// The items of a category by FRN, as item numbers, or as types where a variant stands in their place: "-" is a spare
// FRN, a star marks what no item is registered for. `report` is what is logged for an FRN beyond them.
struct Layout {
    const char *name;
    const ast_uap_t *uap;
    uint32_t category;
    uint32_t max_frn;
    const char *report;
    const char *items;
};

constexpr char k021From5To20[] = "080 140 21905 21906 230 145 150 151 152 155 157 160 165 170 095 032 ";
constexpr char k021To36[] =
    "010 040 161 015 071 130 131 072 150 151 080 073 074 075 076 140 090 210 070 230 145 152 200 155 157 "
    "160 165 077 170 020 220 146 148 110 016 008 ";
const std::string k023 =
    std::string("010 21903 030 130 ") + k021From5To20 + "21908 020 220 146 148 110 - - - - - - - 998 999";
const std::string k026 = std::string("010 21903 030 21902 ") + k021From5To20 + "21908 020 220 146 148 110 070 21904";
const std::string kThales = std::string("010 21903 030 130 ") + k021From5To20 + "200 020 220 146 148 110 21904 070";
const std::string kSpareTail = "132 250 260* 400 295 - - - - - 998 999";
const std::string k21 = std::string(k021To36) + "21907 " + kSpareTail;
const std::string k24 = std::string(k021To36) + "271 " + kSpareTail;

// clang-format off
const Layout kLayouts[] = {
    {"standard", &AST_UAP_STANDARD, 1, 21, "UAP CAT001: Undefined FRN 23", "010 020 161 040 042 200 070 090 141 130 131 120 170 210 050 080 100 060 030 999 997 150"},
    {"standard", &AST_UAP_STANDARD, 2, 14, "UAP CAT002: Undefined FRN 15", "010 000 020 030 041 050 060* 070* 100* 090* 080* - 999 997"},
    {"standard", &AST_UAP_STANDARD, 4, 21, "UAP CAT004: Undefined FRN 22", "010 000 015* 020 040 045* 060 030 170 120 070* 076* 074* 075* 100 035 171 110* - 998 999"},
    {"standard", &AST_UAP_STANDARD, 8, 14, "UAP CAT008: Undefined FRN 15", "010 000 020 036 034 040 050 090 100 110 120 038 999 997"},
    {"standard", &AST_UAP_STANDARD, 10, 28, "UAP CAT010: Undefined FRN 29", "010 000 020 140 041 040 042 200 202 161 170 060 220 245 250* 300* 090 091 270 550 310* 500 280* 131 210* - 999 998"},
    {"standard", &AST_UAP_STANDARD, 15, 25, "UAP CAT015: Undefined FRN 26", "010 000 015* 020 030* 145 161 170 050* 270* 300 400 600 601 602 603* 604 605* 480 625 626 627 628* 630* 631*"},
    {"standard", &AST_UAP_STANDARD, 16, 10, "UAP CAT016: Undefined FRN 11", "010 015 000 140 200 300 400 405 410 420"},
    {"standard", &AST_UAP_STANDARD, 19, 14, "UAP CAT019: Undefined FRN 15", "010 000 140 550 551 552 553 600 610 620 - - 998 999"},
    {"standard", &AST_UAP_STANDARD, 20, 28, "UAP CAT020: Undefined FRN 29", "010 020 140 041 042 161 170 070 202 090 100 220 245 110 105 210 300 310 500 400 250 230 260 030 055 050 998 999"},
    {"standard", &AST_UAP_STANDARD, 21, 28, "UAP ADS-B v0.26: Undefined FRN 29", k026.c_str()},
    {"standard", &AST_UAP_STANDARD, 23, 9, "UAP CAT023: Undefined FRN 10", "010 000 015 070 100 101 200* 110 120"},
    {"standard", &AST_UAP_STANDARD, 34, 14, "UAP CAT034: Undefined FRN 15", "010 000 030 020 041 050 060 070 100* 110 120 090 998 999"},
    {"standard", &AST_UAP_STANDARD, 48, 28, "UAP CAT048: Undefined FRN 29", "010 140 020 040 070 090 130 220 240 250 161 042 200 170 210 030 080 100 110 120 230 260 055* 050 065* 060* 999 998"},
    {"standard", &AST_UAP_STANDARD, 62, 35, "UAP CAT062: Undefined FRN 36", "010 - 015 070 105 100 185 210 060 245 380 040 080 290 200 295 136 130 135 220 390 270 300 110 120 510 500 340 - - - - - 998 999"},
    {"standard", &AST_UAP_STANDARD, 63, 14, "UAP CAT063: Undefined FRN 15", "010 015 030 050 060 070* 080* 081* 090* 091* 092* - 998 999"},
    {"standard", &AST_UAP_STANDARD, 65, 14, "UAP CAT065: Undefined FRN 15", "010 000 015 030 020 040 050* - - - - - 998 999"},
    {"standard", &AST_UAP_STANDARD, 240, 0, "", "010 000 020 030 040 041 048 049 050 051 052 140 998 999"},
    {"plot", &AST_UAP_CAT001_PLOT, 1, 21, "", "010 020 040 070 090 130 141 050 120 131 080 100 060 030 150 - - - - 999 997"},
    {"edition 0.23", &AST_UAP_CAT021_VER023, 21, 26, "UAP ADS-B v0.23: Undefined FRN 36", k023.c_str()},
    {"edition 0.26", &AST_UAP_CAT021_VER026, 21, 28, "UAP ADS-B v0.26: Undefined FRN 29", k026.c_str()},
    {"edition 2.1", &AST_UAP_CAT021_VER21, 21, 49, "UAP ADS-B v2.1: Undefined FRN 50", k21.c_str()},
    {"edition 2.4", &AST_UAP_CAT021_VER24, 21, 49, "UAP ADS-B v2.4: Undefined FRN 50", k24.c_str()},
    {"ASR10SS", &AST_UAP_ASR10SS, 1, 15, "", "010 020 161 040 - 200 070 090 141 1901 - - 170 1902 050"},
    {"ASR10SS", &AST_UAP_ASR10SS, 2, 6, "", "010 000 020 030 - 2901"},
    {"ASR10SS MK2", &AST_UAP_ASR10SS_MK2, 1, 15, "", "010 020 161 040 - 200 070 090 141 1903 - - 170 1904 050"},
    {"ASR10SS MK2", &AST_UAP_ASR10SS_MK2, 2, 6, "", "010 000 020 030 - 2902"},
    {"THALES", &AST_UAP_THALES, 21, 28, "", kThales.c_str()},
    {"MANAGAIR", &AST_UAP_MANAGAIR, 1, 23, "UAP CAT001: Undefined FRN 24", "010 020 161 040 1951 200 070 090 141 130 131 120 170 210 050 080 100 060 030 999 997 150 1951"},
};
// clang-format on

TEST(Profile, AnnouncesTheItemsOfItsLayout) {
    LogCapture log;
    for (const Layout &layout : kLayouts) {
        SCOPED_TRACE(std::string(layout.name) + ", category " + std::to_string(layout.category));
        EXPECT_EQ(ast_uap_max_frn(layout.uap, layout.category), layout.max_frn);
        EXPECT_EQ(ast_uap_get_dataitem(layout.uap, layout.category, 0), 0U);
        std::istringstream items(layout.items);
        uint32_t frn = 0;
        for (std::string item; items >> item;) {
            const uint32_t type = ast_uap_get_dataitem(layout.uap, layout.category, ++frn);
            EXPECT_EQ(log.take(), LogLines{});
            if (item == "-") {
                EXPECT_EQ(type, 0U) << "FRN " << frn;
                continue;
            }
            const uint32_t number = static_cast<uint32_t>(std::stoul(item));
            EXPECT_EQ(type, number < 1000 ? layout.category * 1000 + number : number) << "FRN " << frn;
            EXPECT_EQ(ast_dataitem_get_func(type).get_size == nullptr, item.back() == '*') << type;
            log.take();
        }
        EXPECT_EQ(ast_uap_get_dataitem(layout.uap, layout.category, frn + 1), 0U);
        EXPECT_EQ(log.take(), *layout.report ? (LogLines{{3, layout.report}}) : LogLines{});
        EXPECT_EQ(ast_uap_get_dataitem(layout.uap, layout.category, UINT32_MAX), 0U);
        log.take();
    }
}

// Between the standard table of 14 and its own FRN 23, this layout of category 002 has nothing to say.
TEST(Profile, ManagairCategory002HasOneItemBehindTheStandardOnes) {
    LogCapture log;
    const ast_uap_t &uap = AST_UAP_MANAGAIR;
    EXPECT_EQ(ast_uap_max_frn(&uap, 2), 23U);
    for (uint32_t frn = 1; frn <= 14; ++frn)
        EXPECT_EQ(ast_uap_get_dataitem(&uap, 2, frn), ast_uap_get_dataitem_standard(2, frn));
    EXPECT_EQ(ast_uap_get_dataitem(&uap, 2, 23), 2951U);
    EXPECT_EQ(log.take(), LogLines{});
    EXPECT_EQ(ast_uap_get_dataitem(&uap, 2, 22), 0U);
    EXPECT_EQ(log.take(), (LogLines{{3, "UAP CAT002: Undefined FRN 22"}}));
}

TEST(Profile, UnknownCategoriesAreReported) {
    LogCapture log;
    for (const uint32_t category : {0U, 3U, 30U, 64U, 66U, 239U, 241U, 256U, 65536U + 48U}) {
        EXPECT_EQ(ast_uap_max_frn_standard(category), 0U);
        EXPECT_EQ(log.take(), LogLines{});
        EXPECT_EQ(ast_uap_get_dataitem_standard(category, 1), 0U);
        EXPECT_EQ(log.take(), (LogLines{{3, "UAP STD: Unknown category " + std::to_string(category)}}));
    }
}

struct NamedProfile {
    ast_uap_t *uap;
    ast_uap_t functions;
};

#define PROFILE(object, suffix)                                                                                        \
    {                                                                                                                  \
        &object, { ast_uap_max_frn_##suffix, ast_uap_get_dataitem_##suffix }                                           \
    }
const NamedProfile kVariants[] = {
    PROFILE(AST_UAP_CAT001_PLOT, cat001_plot),     PROFILE(AST_UAP_CAT021_VER023, cat021_ver023),
    PROFILE(AST_UAP_CAT021_VER026, cat021_ver026), PROFILE(AST_UAP_CAT021_VER21, cat021_ver21),
    PROFILE(AST_UAP_CAT021_VER24, cat021_ver24),   PROFILE(AST_UAP_ASR10SS, asr10ss),
    PROFILE(AST_UAP_ASR10SS_MK2, asr10ss_mk2),     PROFILE(AST_UAP_THALES, thales),
    PROFILE(AST_UAP_MANAGAIR, managair),
};

TEST(Profile, ObjectsHoldTheFunctionsNamedAfterThem) {
    EXPECT_EQ(AST_UAP_STANDARD.max_frn, ast_uap_max_frn_standard);
    EXPECT_EQ(AST_UAP_STANDARD.get_dataitem, ast_uap_get_dataitem_standard);
    for (const NamedProfile &profile : kVariants) {
        EXPECT_TRUE(same_function(profile.uap->max_frn, profile.functions.max_frn));
        EXPECT_TRUE(same_function(profile.uap->get_dataitem, profile.functions.get_dataitem));
    }
}

// Puts a profile object back when a test is through with it.
class Restored {
public:
    explicit Restored(ast_uap_t &object) : object_(object), before_(object) {}
    ~Restored() { object_ = before_; }
    Restored(const Restored &) = delete;
    Restored &operator=(const Restored &) = delete;

private:
    ast_uap_t &object_;
    ast_uap_t before_;
};

TEST(Profile, VariantsFallBackThroughTheStandardObject) {
    const Restored standard(AST_UAP_STANDARD);
    AST_UAP_STANDARD.max_frn = [](uint32_t category) { return category + 5; };
    AST_UAP_STANDARD.get_dataitem = [](uint32_t category, uint32_t frn) { return category * 1000 + frn; };
    for (const NamedProfile &profile : kVariants) {
        EXPECT_EQ(ast_uap_max_frn(profile.uap, 48), 53U);
        EXPECT_EQ(ast_uap_get_dataitem(profile.uap, 48, 77), 48077U);
    }
    EXPECT_EQ(ast_uap_get_dataitem(&AST_UAP_MANAGAIR, 1, 22), 1022U);
    EXPECT_EQ(ast_uap_get_dataitem(&AST_UAP_THALES, 21, 4), 21130U) << "its own";

    AST_UAP_STANDARD = {nullptr, nullptr};
    for (const NamedProfile &profile : kVariants) {
        EXPECT_EQ(ast_uap_max_frn(profile.uap, 48), 0U);
        EXPECT_EQ(ast_uap_get_dataitem(profile.uap, 48, 1), 0U);
    }
}

TEST(Profile, StandardAsksTheEdition026ObjectForCategory021) {
    const Restored edition(AST_UAP_CAT021_VER026);
    AST_UAP_CAT021_VER026 = AST_UAP_CAT021_VER24;
    EXPECT_EQ(ast_uap_max_frn_standard(21), 49U);
    EXPECT_EQ(ast_uap_get_dataitem_standard(21, 37), 21271U);
    EXPECT_EQ(ast_uap_get_dataitem_standard(48, 1), 48010U);
}

TEST(Profile, MayLackItsFunctions) {
    const ast_uap_t empty{nullptr, nullptr};
    EXPECT_EQ(ast_uap_max_frn(&empty, 48), 0U);
    EXPECT_EQ(ast_uap_get_dataitem(&empty, 48, 1), 0U);
    EXPECT_EQ(ast_uap_max_frn(nullptr, 48), 0U);
    EXPECT_EQ(ast_uap_get_dataitem(nullptr, 48, 1), 0U);
}

} // namespace
