// User Application Profiles: which item each FRN announces, all editions of all categories side by side.

#include "codec/profile.hpp"

#include <array>
#include <cstddef>

#include "codec/category.hpp"

namespace {

using namespace ast;

constexpr uint16_t RFS = AST_ITEM_RFS;
constexpr uint16_t REF = AST_ITEM_REF;
constexpr uint16_t SPF = AST_ITEM_SPF;
constexpr uint16_t NIL = UINT16_MAX; // spare FRN

// One category's items by FRN, from FRN 1, as item numbers within the category.
struct Layout {
    const uint16_t *items = nullptr;
    uint32_t count = 0;
    uint32_t max_frn = 0;              // how far the encoder looks
    const char *reported_as = nullptr; // null: undefined FRNs pass in silence
};

template <size_t N>
constexpr Layout layout(const uint16_t (&items)[N], const char *reported_as, uint32_t max_frn = N) {
    return {items, N, max_frn, reported_as};
}

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
// clang-format on

// The standard profile by category. Category 021 is asked of another profile object and so has no entry.
constexpr auto kStandard = [] {
    std::array<Layout, kCategoryNumbers> layouts{};
    layouts[1] = layout(k001, "CAT001", 21); // FRN 22 is decoded but never encoded; senders rely on both
    layouts[2] = layout(k002, "CAT002");
    layouts[4] = layout(k004, "CAT004");
    layouts[8] = layout(k008, "CAT008");
    layouts[10] = layout(k010, "CAT010");
    layouts[15] = layout(k015, "CAT015");
    layouts[16] = layout(k016, "CAT016");
    layouts[19] = layout(k019, "CAT019");
    layouts[20] = layout(k020, "CAT020");
    layouts[23] = layout(k023, "CAT023");
    layouts[34] = layout(k034, "CAT034");
    layouts[48] = layout(k048, "CAT048");
    layouts[62] = layout(k062, "CAT062");
    layouts[63] = layout(k063, "CAT063");
    layouts[65] = layout(k065, "CAT065");
    layouts[240] = layout(k240, nullptr, 0); // video is received only
    return layouts;
}();

constexpr uint32_t kAdsb = 21;

// What a variant profile puts in place of the standard one for one category.
struct Override {
    uint32_t category;
    Layout layout;
};

constexpr Override kCat001Plot[] = {{1, layout(k001Plot, nullptr)}};
constexpr Override kCat021Ver023[] = {{kAdsb, layout(k021Ed023, "ADS-B v0.23", 26)}};
constexpr Override kCat021Ver026[] = {{kAdsb, layout(k021Ed026, "ADS-B v0.26")}};
constexpr Override kCat021Ver21[] = {{kAdsb, layout(k021Ed21, "ADS-B v2.1")}};
constexpr Override kCat021Ver24[] = {{kAdsb, layout(k021Ed24, "ADS-B v2.4")}};
constexpr Override kAsr10ss[] = {{1, layout(k001Asr10, nullptr)}, {2, layout(k002Asr10, nullptr)}};
constexpr Override kAsr10ssMk2[] = {{1, layout(k001Asr10Mk2, nullptr)}, {2, layout(k002Asr10Mk2, nullptr)}};
constexpr Override kThales[] = {{kAdsb, layout(k021Thales, nullptr)}};

bool defines(const Layout &layout, uint32_t frn) { return frn - 1 < layout.count; } // FRN 0 lies beyond all of them

ast_dataitem_type_t defined_item(const Layout &layout, uint32_t category, uint32_t frn) {
    const uint16_t number = layout.items[frn - 1];
    return number == NIL ? AST_DATAITEM_NONE : AST_DATAITEM_TYPE(category, number);
}

ast_dataitem_type_t undefined_item(const Layout &layout, uint32_t frn) {
    if (frn != 0 && layout.reported_as)
        ast_log(AST_LOG_CRITICAL, "UAP %s: Undefined FRN %d", layout.reported_as, static_cast<int>(frn));
    return AST_DATAITEM_NONE;
}

ast_dataitem_type_t item_at(const Layout &layout, uint32_t category, uint32_t frn) {
    return defines(layout, frn) ? defined_item(layout, category, frn) : undefined_item(layout, frn);
}

// What the standard profile answers where its tables do not.
ast_dataitem_type_t outside_standard(uint32_t category, uint32_t frn) {
    if (category == kAdsb) return ast_uap_get_dataitem(&AST_UAP_CAT021_VER026, category, frn);
    if (category < kStandard.size() && kStandard[category].items) return undefined_item(kStandard[category], frn);
    ast_log(AST_LOG_CRITICAL, "UAP STD: Unknown category %d", static_cast<int>(category));
    return AST_DATAITEM_NONE;
}

template <size_t N>
const Layout *find_override(const Override (&overrides)[N], uint32_t category) {
    for (const Override &override : overrides)
        if (override.category == category) return &override.layout;
    return nullptr;
}

// Whatever a variant leaves alone is asked of the AST_UAP_STANDARD object as it is at that moment.
template <size_t N>
uint32_t variant_max_frn(const Override (&overrides)[N], uint32_t category) {
    const Layout *const layout = find_override(overrides, category);
    return layout ? layout->max_frn : ast_uap_max_frn(&AST_UAP_STANDARD, category);
}

template <size_t N>
ast_dataitem_type_t variant_item(const Override (&overrides)[N], uint32_t category, uint32_t frn) {
    const Layout *const layout = find_override(overrides, category);
    return layout ? item_at(*layout, category, frn) : ast_uap_get_dataitem(&AST_UAP_STANDARD, category, frn);
}

} // namespace

uint32_t ast_uap_max_frn(const ast_uap_t *uap, uint32_t category) {
    return uap && uap->max_frn ? uap->max_frn(category) : 0;
}

ast_dataitem_type_t ast_uap_get_dataitem(const ast_uap_t *uap, uint32_t category, uint32_t frn) {
    return uap && uap->get_dataitem ? uap->get_dataitem(category, frn) : AST_DATAITEM_NONE;
}

uint32_t ast_uap_max_frn_standard(uint32_t category) {
    if (category == kAdsb) return ast_uap_max_frn(&AST_UAP_CAT021_VER026, category);
    return category < kStandard.size() ? kStandard[category].max_frn : 0;
}

// Asked once for each item of a record, so the common answer comes first and calls nothing.
ast_dataitem_type_t ast_uap_get_dataitem_standard(uint32_t category, uint32_t frn) {
    if (category < kStandard.size() && defines(kStandard[category], frn)) [[likely]]
        return defined_item(kStandard[category], category, frn);
    return outside_standard(category, frn);
}

#define AST_DEFINE_VARIANT(name, overrides)                                                                            \
    uint32_t ast_uap_max_frn_##name(uint32_t category) { return variant_max_frn(overrides, category); }                \
    ast_dataitem_type_t ast_uap_get_dataitem_##name(uint32_t category, uint32_t frn) {                                 \
        return variant_item(overrides, category, frn);                                                                 \
    }

AST_DEFINE_VARIANT(cat001_plot, kCat001Plot)
AST_DEFINE_VARIANT(cat021_ver023, kCat021Ver023)
AST_DEFINE_VARIANT(cat021_ver026, kCat021Ver026)
AST_DEFINE_VARIANT(cat021_ver21, kCat021Ver21)
AST_DEFINE_VARIANT(cat021_ver24, kCat021Ver24)
AST_DEFINE_VARIANT(asr10ss, kAsr10ss)
AST_DEFINE_VARIANT(asr10ss_mk2, kAsr10ssMk2)
AST_DEFINE_VARIANT(thales, kThales)

// The MANAGAIR layouts differ from the standard ones in single FRNs only.
uint32_t ast_uap_max_frn_managair(uint32_t category) {
    constexpr uint32_t kMaxFrn = 23;
    return category == 1 || category == 2 ? kMaxFrn : ast_uap_max_frn(&AST_UAP_STANDARD, category);
}

ast_dataitem_type_t ast_uap_get_dataitem_managair(uint32_t category, uint32_t frn) {
    constexpr uint32_t kCustomField = 951;
    const bool is_custom = (category == 1 && (frn == 5 || frn == 23)) || (category == 2 && frn == 23);
    return is_custom ? AST_DATAITEM_TYPE(category, kCustomField)
                     : ast_uap_get_dataitem(&AST_UAP_STANDARD, category, frn);
}

#define AST_DEFINE_PROFILE(object, name) ast_uap_t object = {ast_uap_max_frn_##name, ast_uap_get_dataitem_##name};

AST_DEFINE_PROFILE(AST_UAP_STANDARD, standard)
AST_DEFINE_PROFILE(AST_UAP_CAT001_PLOT, cat001_plot)
AST_DEFINE_PROFILE(AST_UAP_CAT021_VER023, cat021_ver023)
AST_DEFINE_PROFILE(AST_UAP_CAT021_VER026, cat021_ver026)
AST_DEFINE_PROFILE(AST_UAP_CAT021_VER21, cat021_ver21)
AST_DEFINE_PROFILE(AST_UAP_CAT021_VER24, cat021_ver24)
AST_DEFINE_PROFILE(AST_UAP_ASR10SS, asr10ss)
AST_DEFINE_PROFILE(AST_UAP_ASR10SS_MK2, asr10ss_mk2)
AST_DEFINE_PROFILE(AST_UAP_THALES, thales)
AST_DEFINE_PROFILE(AST_UAP_MANAGAIR, managair)
