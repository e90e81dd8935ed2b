// Which item each FRN announces, all editions of all categories side by side. An edition is a list of item numbers by
// FRN; the profiles say who sends which.
#pragma once

#include "codec/profile.hpp"

namespace ast {

namespace layouts {

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

} // namespace layouts

// The places of a category's editions, where it has several.
namespace cat001 {
enum : size_t { tracks, plots, asr10, asr10_mk2, managair };
}
namespace cat002 {
enum : size_t { standard, asr10, asr10_mk2, managair };
}
namespace cat021 {
enum : size_t { v023, thales, v026, v21, v24 };
}

template <>
inline constexpr auto kLayoutsOf<1> = listed(layouts::k001, layouts::k001Plot, layouts::k001Asr10,
                                             layouts::k001Asr10Mk2, layouts::k001Managair);
template <>
inline constexpr auto kLayoutsOf<2> = listed(layouts::k002, layouts::k002Asr10, layouts::k002Asr10Mk2,
                                             layouts::k002Managair);
template <>
inline constexpr auto kLayoutsOf<21> = listed(layouts::k021Ed023, layouts::k021Thales, layouts::k021Ed026,
                                              layouts::k021Ed21, layouts::k021Ed24);
template <>
inline constexpr auto kLayoutsOf<4> = listed(layouts::k004);
template <>
inline constexpr auto kLayoutsOf<8> = listed(layouts::k008);
template <>
inline constexpr auto kLayoutsOf<10> = listed(layouts::k010);
template <>
inline constexpr auto kLayoutsOf<15> = listed(layouts::k015);
template <>
inline constexpr auto kLayoutsOf<16> = listed(layouts::k016);
template <>
inline constexpr auto kLayoutsOf<19> = listed(layouts::k019);
template <>
inline constexpr auto kLayoutsOf<20> = listed(layouts::k020);
template <>
inline constexpr auto kLayoutsOf<23> = listed(layouts::k023);
template <>
inline constexpr auto kLayoutsOf<34> = listed(layouts::k034);
template <>
inline constexpr auto kLayoutsOf<48> = listed(layouts::k048);
template <>
inline constexpr auto kLayoutsOf<62> = listed(layouts::k062);
template <>
inline constexpr auto kLayoutsOf<63> = listed(layouts::k063);
template <>
inline constexpr auto kLayoutsOf<65> = listed(layouts::k065);
template <>
inline constexpr auto kLayoutsOf<240> = listed(layouts::k240);

} // namespace ast
