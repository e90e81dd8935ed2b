#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"

namespace {

using namespace ast_test;

// FRNs of a profile: a spare one, one whose item is not registered, one beyond its list, and how far it is encoded.
struct Oddity {
    const char *name;
    const ast_uap_t *uap;
    uint32_t category;
    uint32_t frn;
    ast_dataitem_type_t type;
    const char *report = "";
};

const Oddity kOddities[] = {
    {"found though it is never encoded", &AST_UAP_STANDARD, 1, 22, 1150},
    {"beyond", &AST_UAP_STANDARD, 1, 23, 0, "UAP CAT001: Undefined FRN 23"},
    {"spare", &AST_UAP_STANDARD, 62, 2, 0},
    {"not registered", &AST_UAP_STANDARD, 48, 23, 48055},
    {"video, beyond, passes in silence", &AST_UAP_STANDARD, 240, 15, 0},
    {"FRN 0", &AST_UAP_STANDARD, 48, 0, 0},
    {"the standard profile's category 021", &AST_UAP_STANDARD, 21, 4, 21902},
    {"and what lies beyond it", &AST_UAP_STANDARD, 21, 29, 0, "UAP ADS-B v0.26: Undefined FRN 29"},
    {"plots, beyond, pass in silence", &AST_UAP_CAT001_PLOT, 1, 22, 0},
    {"edition 0.23 answers for more than it encodes", &AST_UAP_CAT021_VER023, 21, 34, 21998},
    {"edition 0.23", &AST_UAP_CAT021_VER023, 21, 21, 21908},
    {"edition 2.1", &AST_UAP_CAT021_VER21, 21, 37, 21907},
    {"edition 2.4", &AST_UAP_CAT021_VER24, 21, 37, 21271},
    {"THALES", &AST_UAP_THALES, 21, 28, 21070},
    {"MANAGAIR", &AST_UAP_MANAGAIR, 1, 5, 1951},
    {"MANAGAIR as the standard", &AST_UAP_MANAGAIR, 1, 22, 1150},
    {"MANAGAIR, beyond", &AST_UAP_MANAGAIR, 1, 24, 0, "UAP CAT001: Undefined FRN 24"},
    {"ASR10SS leaves category 048 alone", &AST_UAP_ASR10SS, 48, 1, 48010},
};

TEST(Profile, AnnouncesItemsAndReportsWhatItDoesNotDefine) {
    LogCapture log;
    for (const Oddity &odd : kOddities) {
        EXPECT_EQ(ast_uap_get_dataitem(odd.uap, odd.category, odd.frn), odd.type) << odd.name;
        EXPECT_EQ(log.take(), *odd.report ? (LogLines{{3, odd.report}}) : LogLines{}) << odd.name;
    }
    EXPECT_EQ(ast_uap_max_frn(&AST_UAP_STANDARD, 1), 21U);
    EXPECT_EQ(ast_uap_max_frn(&AST_UAP_STANDARD, 240), 0U) << "video is received only";
    EXPECT_EQ(ast_uap_max_frn(&AST_UAP_CAT021_VER023, 21), 26U);
}

TEST(Profile, AreListedInTheOrderInWhichTheyAreTried) {
    EXPECT_EQ(ast_uap_get_number(), 10U);
    EXPECT_EQ(ast_uap_get_info(0).uap, &AST_UAP_STANDARD);
    EXPECT_EQ(ast_uap_get_info(0).override_count, 0U);
    const ast_uap_info_t last = ast_uap_get_info(9);
    EXPECT_STREQ(last.name, "managair");
    EXPECT_TRUE(last.uap == &AST_UAP_MANAGAIR && last.override_count == 2 && last.overrides[1] == 2);
    EXPECT_FALSE(ast_uap_get_info(10).valid);
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

TEST(Profile, ObjectsHoldTheFunctionsNamedAfterThem) {
    EXPECT_EQ(AST_UAP_STANDARD.get_dataitem, ast_uap_get_dataitem_standard);
    EXPECT_EQ(AST_UAP_CAT021_VER21.get_dataitem, ast_uap_get_dataitem_cat021_ver21);
    EXPECT_EQ(AST_UAP_MANAGAIR.max_frn, ast_uap_max_frn_managair);
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
    for (uint64_t i = 1; i < ast_uap_get_number(); ++i) {
        EXPECT_EQ(ast_uap_max_frn(ast_uap_get_info(i).uap, 48), 53U);
        EXPECT_EQ(ast_uap_get_dataitem(ast_uap_get_info(i).uap, 48, 77), 48077U);
    }
    EXPECT_EQ(ast_uap_get_dataitem(&AST_UAP_MANAGAIR, 1, 22), 1022U);
    EXPECT_EQ(ast_uap_get_dataitem(&AST_UAP_THALES, 21, 4), 21130U) << "its own";

    AST_UAP_STANDARD = {nullptr, nullptr};
    for (uint64_t i = 1; i < ast_uap_get_number(); ++i) {
        EXPECT_EQ(ast_uap_max_frn(ast_uap_get_info(i).uap, 48), 0U);
        EXPECT_EQ(ast_uap_get_dataitem(ast_uap_get_info(i).uap, 48, 1), 0U);
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
