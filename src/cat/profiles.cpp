// User Application Profiles: which item each FRN announces, all editions of all categories side by side. An edition of
// a category is a list of item numbers by FRN; a profile says which lists it puts in place of those of another profile.

#include "codec/profile.hpp"

using namespace ast;

namespace {

constexpr uint16_t RFS = AST_ITEM_RFS;
constexpr uint16_t REF = AST_ITEM_REF;
constexpr uint16_t SPF = AST_ITEM_SPF;
constexpr uint16_t NIL = kSpareFrn;
constexpr uint16_t STD = kFrnOfBase;

// clang-format off
//                                FRN: 1    2    3    4    5    6    7    8    9   10   11   12   13   14
constexpr uint16_t k001[]         = { 10,  20, 161,  40,  42, 200,  70,  90, 141, 130, 131, 120, 170, 210,
                                      50,  80, 100,  60,  30, SPF, RFS, 150};
constexpr uint16_t k001Plot[]     = { 10,  20,  40,  70,  90, 130, 141,  50, 120, 131,  80, 100,  60,  30,
                                     150, NIL, NIL, NIL, NIL, SPF, RFS};
constexpr uint16_t k001Asr10[]    = { 10,  20, 161,  40, NIL, 200,  70,  90, 141, 901, NIL, NIL, 170, 902,
                                      50};
constexpr uint16_t k001Asr10Mk2[] = { 10,  20, 161,  40, NIL, 200,  70,  90, 141, 903, NIL, NIL, 170, 904,
                                      50};

constexpr uint16_t k002[]         = { 10,   0,  20,  30,  41,  50,  60,  70, 100,  90,  80, NIL, SPF, RFS};
constexpr uint16_t k002Asr10[]    = { 10,   0,  20,  30, NIL, 901};
constexpr uint16_t k002Asr10Mk2[] = { 10,   0,  20,  30, NIL, 902};

constexpr uint16_t k004[]         = { 10,   0,  15,  20,  40,  45,  60,  30, 170, 120,  70,  76,  74,  75,
                                     100,  35, 171, 110, NIL, REF, SPF};

constexpr uint16_t k008[]         = { 10,   0,  20,  36,  34,  40,  50,  90, 100, 110, 120,  38, SPF, RFS};

constexpr uint16_t k010[]         = { 10,   0,  20, 140,  41,  40,  42, 200, 202, 161, 170,  60, 220, 245,
                                     250, 300,  90,  91, 270, 550, 310, 500, 280, 131, 210, NIL, SPF, REF};

constexpr uint16_t k015[]         = { 10,   0,  15,  20,  30, 145, 161, 170,  50, 270, 300, 400, 600, 601,
                                     602, 603, 604, 605, 480, 625, 626, 627, 628, 630, 631};

constexpr uint16_t k016[]         = { 10,  15,   0, 140, 200, 300, 400, 405, 410, 420};

constexpr uint16_t k019[]         = { 10,   0, 140, 550, 551, 552, 553, 600, 610, 620, NIL, NIL, REF, SPF};

constexpr uint16_t k020[]         = { 10,  20, 140,  41,  42, 161, 170,  70, 202,  90, 100, 220, 245, 110,
                                     105, 210, 300, 310, 500, 400, 250, 230, 260,  30,  55,  50, REF, SPF};

constexpr uint16_t k021Ed023[]    = { 10, 903,  30, 130,  80, 140, 905, 906, 230, 145, 150, 151, 152, 155,
                                     157, 160, 165, 170,  95,  32, 908,  20, 220, 146, 148, 110, NIL, NIL,
                                     NIL, NIL, NIL, NIL, NIL, REF, SPF};
constexpr uint16_t k021Thales[]   = { 10, 903,  30, 130,  80, 140, 905, 906, 230, 145, 150, 151, 152, 155,
                                     157, 160, 165, 170,  95,  32, 200,  20, 220, 146, 148, 110, 904,  70};
constexpr uint16_t k021Ed026[]    = { 10, 903,  30, 902,  80, 140, 905, 906, 230, 145, 150, 151, 152, 155,
                                     157, 160, 165, 170,  95,  32, 908,  20, 220, 146, 148, 110,  70, 904};
constexpr uint16_t k021Ed21[]     = { 10,  40, 161,  15,  71, 130, 131,  72, 150, 151,  80,  73,  74,  75,
                                      76, 140,  90, 210,  70, 230, 145, 152, 200, 155, 157, 160, 165,  77,
                                     170,  20, 220, 146, 148, 110,  16,   8, 907, 132, 250, 260, 400, 295,
                                     NIL, NIL, NIL, NIL, NIL, REF, SPF};
constexpr uint16_t k021Ed24[]     = { 10,  40, 161,  15,  71, 130, 131,  72, 150, 151,  80,  73,  74,  75,
                                      76, 140,  90, 210,  70, 230, 145, 152, 200, 155, 157, 160, 165,  77,
                                     170,  20, 220, 146, 148, 110,  16,   8, 271, 132, 250, 260, 400, 295,
                                     NIL, NIL, NIL, NIL, NIL, REF, SPF};

constexpr uint16_t k023[]         = { 10,   0,  15,  70, 100, 101, 200, 110, 120};

constexpr uint16_t k034[]         = { 10,   0,  30,  20,  41,  50,  60,  70, 100, 110, 120,  90, REF, SPF};

constexpr uint16_t k048[]         = { 10, 140,  20,  40,  70,  90, 130, 220, 240, 250, 161,  42, 200, 170,
                                     210,  30,  80, 100, 110, 120, 230, 260,  55,  50,  65,  60, SPF, REF};

constexpr uint16_t k062[]         = { 10, NIL,  15,  70, 105, 100, 185, 210,  60, 245, 380,  40,  80, 290,
                                     200, 295, 136, 130, 135, 220, 390, 270, 300, 110, 120, 510, 500, 340,
                                     NIL, NIL, NIL, NIL, NIL, REF, SPF};

constexpr uint16_t k063[]         = { 10,  15,  30,  50,  60,  70,  80,  81,  90,  91,  92, NIL, REF, SPF};

constexpr uint16_t k065[]         = { 10,   0,  15,  30,  20,  40,  50, NIL, NIL, NIL, NIL, NIL, REF, SPF};

constexpr uint16_t k240[]         = { 10,   0,  20,  30,  40,  41,  48,  49,  50,  51,  52, 140, REF, SPF};

// Single FRNs of its own, where the rest is as in the profile that it varies.
constexpr uint16_t k001Managair[] = {STD, STD, STD, STD, 951, STD, STD, STD, STD, STD, STD, STD, STD, STD,
                                     STD, STD, STD, STD, STD, STD, STD, STD, 951};
constexpr uint16_t k002Managair[] = {STD, STD, STD, STD, STD, STD, STD, STD, STD, STD, STD, STD, STD, STD,
                                     STD, STD, STD, STD, STD, STD, STD, STD, 951};
// clang-format on

constexpr Override kStandardOverrides[] = {
    {1, layout(k001, "CAT001", 21)}, // FRN 22 is decoded but never encoded; senders rely on both
    {2, layout(k002, "CAT002")},
    {4, layout(k004, "CAT004")},
    {8, layout(k008, "CAT008")},
    {10, layout(k010, "CAT010")},
    {15, layout(k015, "CAT015")},
    {16, layout(k016, "CAT016")},
    {19, layout(k019, "CAT019")},
    {20, layout(k020, "CAT020")},
    {21, layout_of(AST_UAP_CAT021_VER026)}, // whatever that object says when it is asked
    {23, layout(k023, "CAT023")},
    {34, layout(k034, "CAT034")},
    {48, layout(k048, "CAT048")},
    {62, layout(k062, "CAT062")},
    {63, layout(k063, "CAT063")},
    {65, layout(k065, "CAT065")},
    {240, layout(k240, nullptr, 0)}, // video is received only
};
constexpr Override kCat001PlotOverrides[] = {{1, layout(k001Plot, nullptr)}};
constexpr Override kCat021Ver023Overrides[] = {{21, layout(k021Ed023, "ADS-B v0.23", 26)}};
constexpr Override kCat021Ver026Overrides[] = {{21, layout(k021Ed026, "ADS-B v0.26")}};
constexpr Override kCat021Ver21Overrides[] = {{21, layout(k021Ed21, "ADS-B v2.1")}};
constexpr Override kCat021Ver24Overrides[] = {{21, layout(k021Ed24, "ADS-B v2.4")}};
constexpr Override kAsr10ssOverrides[] = {{1, layout(k001Asr10, nullptr)}, {2, layout(k002Asr10, nullptr)}};
constexpr Override kAsr10ssMk2Overrides[] = {{1, layout(k001Asr10Mk2, nullptr)}, {2, layout(k002Asr10Mk2, nullptr)}};
constexpr Override kThalesOverrides[] = {{21, layout(k021Thales, nullptr)}};
constexpr Override kManagairOverrides[] = {{1, open_layout(k001Managair)}, {2, open_layout(k002Managair)}};

} // namespace

AST_DEFINE_PROFILE(kStandard, AST_UAP_STANDARD, "standard", nullptr, kStandardOverrides, ast_uap_max_frn_standard,
                   ast_uap_get_dataitem_standard)
AST_DEFINE_PROFILE(kCat001Plot, AST_UAP_CAT001_PLOT, "cat001-plot", &AST_UAP_STANDARD, kCat001PlotOverrides,
                   ast_uap_max_frn_cat001_plot, ast_uap_get_dataitem_cat001_plot)
AST_DEFINE_PROFILE(kCat021Ver023, AST_UAP_CAT021_VER023, "cat021-0.23", &AST_UAP_STANDARD, kCat021Ver023Overrides,
                   ast_uap_max_frn_cat021_ver023, ast_uap_get_dataitem_cat021_ver023)
AST_DEFINE_PROFILE(kCat021Ver026, AST_UAP_CAT021_VER026, "cat021-0.26", &AST_UAP_STANDARD, kCat021Ver026Overrides,
                   ast_uap_max_frn_cat021_ver026, ast_uap_get_dataitem_cat021_ver026)
AST_DEFINE_PROFILE(kCat021Ver21, AST_UAP_CAT021_VER21, "cat021-2.1", &AST_UAP_STANDARD, kCat021Ver21Overrides,
                   ast_uap_max_frn_cat021_ver21, ast_uap_get_dataitem_cat021_ver21)
AST_DEFINE_PROFILE(kCat021Ver24, AST_UAP_CAT021_VER24, "cat021-2.4", &AST_UAP_STANDARD, kCat021Ver24Overrides,
                   ast_uap_max_frn_cat021_ver24, ast_uap_get_dataitem_cat021_ver24)
AST_DEFINE_PROFILE(kAsr10ss, AST_UAP_ASR10SS, "asr10ss", &AST_UAP_STANDARD, kAsr10ssOverrides, ast_uap_max_frn_asr10ss,
                   ast_uap_get_dataitem_asr10ss)
AST_DEFINE_PROFILE(kAsr10ssMk2, AST_UAP_ASR10SS_MK2, "asr10ss-mk2", &AST_UAP_STANDARD, kAsr10ssMk2Overrides,
                   ast_uap_max_frn_asr10ss_mk2, ast_uap_get_dataitem_asr10ss_mk2)
AST_DEFINE_PROFILE(kThales, AST_UAP_THALES, "thales", &AST_UAP_STANDARD, kThalesOverrides, ast_uap_max_frn_thales,
                   ast_uap_get_dataitem_thales)
AST_DEFINE_PROFILE(kManagair, AST_UAP_MANAGAIR, "managair", &AST_UAP_STANDARD, kManagairOverrides,
                   ast_uap_max_frn_managair, ast_uap_get_dataitem_managair)

namespace ast {

constinit const Profile *const kProfiles[kProfileCount] = {
    &kStandard,    &kCat001Plot, &kCat021Ver023, &kCat021Ver026, &kCat021Ver21,
    &kCat021Ver24, &kAsr10ss,    &kAsr10ssMk2,   &kThales,       &kManagair,
};

} // namespace ast
