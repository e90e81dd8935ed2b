// User Application Profiles: which layouts each of them puts in place of those of another profile.

#include "codec/profile.hpp"
#include "items/layouts.hpp"

using namespace ast;

namespace {

constexpr Override kStandardOverrides[] = {
    {1, layout<1>("CAT001", 21)}, // FRN 22 is decoded but never encoded; senders rely on both
    {2, layout<2>("CAT002")},
    {4, layout<4>("CAT004")},
    {8, layout<8>("CAT008")},
    {10, layout<10>("CAT010")},
    {15, layout<15>("CAT015")},
    {16, layout<16>("CAT016")},
    {19, layout<19>("CAT019")},
    {20, layout<20>("CAT020")},
    {21, layout_of(AST_UAP_CAT021_VER026)}, // whatever that object says when it is asked
    {23, layout<23>("CAT023")},
    {34, layout<34>("CAT034")},
    {48, layout<48>("CAT048")},
    {62, layout<62>("CAT062")},
    {63, layout<63>("CAT063")},
    {65, layout<65>("CAT065")},
    {240, layout<240>(nullptr, 0)}, // video is received only
};
constexpr Override kCat001PlotOverrides[] = {{1, layout<1, cat001::plots>(nullptr)}};
constexpr Override kCat021Ver023Overrides[] = {{21, layout<21, cat021::v023>("ADS-B v0.23", 26)}};
constexpr Override kCat021Ver026Overrides[] = {{21, layout<21, cat021::v026>("ADS-B v0.26")}};
constexpr Override kCat021Ver21Overrides[] = {{21, layout<21, cat021::v21>("ADS-B v2.1")}};
constexpr Override kCat021Ver24Overrides[] = {{21, layout<21, cat021::v24>("ADS-B v2.4")}};
constexpr Override kAsr10ssOverrides[] = {{1, layout<1, cat001::asr10>(nullptr)},
                                          {2, layout<2, cat002::asr10>(nullptr)}};
constexpr Override kAsr10ssMk2Overrides[] = {{1, layout<1, cat001::asr10_mk2>(nullptr)},
                                             {2, layout<2, cat002::asr10_mk2>(nullptr)}};
constexpr Override kThalesOverrides[] = {{21, layout<21, cat021::thales>(nullptr)}};
constexpr Override kManagairOverrides[] = {{1, open_layout<1, cat001::managair>()},
                                           {2, open_layout<2, cat002::managair>()}};

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
