// Places of data sources, and of the targets that they see, against places worked by hand: on the equator and on the
// axis of the earth, where its ellipsoid is a circle. tests/earth has the rest of it.

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>

#include "support/records.hpp"

namespace {

using namespace ast_test;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kMetreDeg = 1e-5; // about a metre, in degrees of latitude

struct Sites : ast_sites_t {
    explicit Sites(std::initializer_list<ast_site_t> known = {}) : ast_sites_t{places, std::size(places), 0} {
        for (const ast_site_t &site : known) EXPECT_TRUE(ast_sites_add(this, &site));
    }
    Sites(const Sites &) = delete;
    Sites &operator=(const Sites &) = delete;

    ast_site_t places[4] = {};
};

ast_site_t site(uint32_t sac, uint32_t sic, ast_place_t place, uint32_t known = AST_SITE_GIVEN) {
    return {.sac = sac, .sic = sic, .known = known, .place = place, .standard_error_m = 0};
}

// ---- The table ----

TEST(Sites, AreFoundBySacAndSic) {
    const Sites sites{site(25, 12, {1, 2, 3}), site(0, 0, {4, 5, 6}), site(255, 255, {7, 8, 9}), site(24, 255, {})};
    EXPECT_EQ(sites.count, 4U);
    ASSERT_NE(ast_sites_find(&sites, 25, 12), nullptr);
    EXPECT_EQ(ast_sites_find(&sites, 25, 12)->place.longitude_deg, 2);
    EXPECT_EQ(ast_sites_find(&sites, 0, 0)->place.latitude_deg, 4);
    EXPECT_EQ(ast_sites_find(&sites, 255, 255)->place.height_m, 9);
    EXPECT_EQ(ast_sites_find(&sites, 25, 13), nullptr);
    EXPECT_EQ(ast_sites_find(&sites, 24, 268), nullptr);
    EXPECT_EQ(ast_sites_find(&sites, (1U << 24) + 25, 12), nullptr);
    EXPECT_EQ(ast_sites_find(nullptr, 25, 12), nullptr);
    for (uint64_t i = 1; i < sites.count; ++i)
        EXPECT_LT(sites.sites[i - 1].sac * 256 + sites.sites[i - 1].sic, sites.sites[i].sac * 256 + sites.sites[i].sic);
}

TEST(Sites, GiveWayToWhatIsKnownBetterOrLater) {
    Sites sites;
    const auto add = [&](uint32_t known, double latitude_deg) {
        const ast_site_t added = site(25, 12, {latitude_deg, 0, 0}, known);
        return ast_sites_add(&sites, &added);
    };
    EXPECT_TRUE(add(AST_SITE_WORKED_OUT, 1));
    EXPECT_TRUE(add(AST_SITE_LEARNT, 2));
    EXPECT_FALSE(add(AST_SITE_WORKED_OUT, 3));
    EXPECT_TRUE(add(AST_SITE_LEARNT, 4));
    EXPECT_EQ(sites.sites[0].place.latitude_deg, 4);
    EXPECT_TRUE(add(AST_SITE_GIVEN, 5));
    EXPECT_FALSE(add(AST_SITE_LEARNT, 6));
    EXPECT_EQ(sites.count, 1U);
    EXPECT_EQ(sites.sites[0].place.latitude_deg, 5);
}

TEST(Sites, AreNotAddedWhereTheyCannotBe) {
    Sites sites;
    const ast_site_t wrong[] = {
        site(256, 0, {}),         site(0, 256, {}),        site(0, 0, {90.1, 0, 0}), site(0, 0, {0, -180.1, 0}),
        site(0, 0, {kNan, 0, 0}), site(0, 0, {0, 0, 1e6}), site(0, 0, {}, 0),        site(0, 0, {}, 4),
    };
    for (const ast_site_t &each : wrong) EXPECT_FALSE(ast_sites_add(&sites, &each));
    EXPECT_FALSE(ast_sites_add(&sites, nullptr));
    EXPECT_FALSE(ast_sites_add(nullptr, wrong));
    EXPECT_EQ(sites.count, 0U);
    for (uint32_t sic = 0; sic < 6; ++sic) {
        const ast_site_t added = site(25, 6 - sic, {1, 1, 1});
        EXPECT_EQ(ast_sites_add(&sites, &added), sic < 4) << sic;
    }
    EXPECT_EQ(sites.count, 4U);
    ast_sites_t none{};
    const ast_site_t added = site(25, 12, {1, 1, 1});
    EXPECT_FALSE(ast_sites_add(&none, &added));
    EXPECT_EQ(ast_sites_find(&none, 25, 12), nullptr);
}

TEST(Sites, AreLearntFromWhatRecordsTell) {
    struct {
        const char *name;
        uint32_t category;
        std::initializer_list<Content> items;
        ast_place_t place; // all 0: none is told
    } const kTold[] = {
        {"034", 34, {{34010, "19 0C"}, {34120, "03 0C 20 00 00 F0 00 00"}}, {45, -22.5, 780}},
        {"034, below the sea", 34, {{34010, "19 0C"}, {34120, "FF FE E0 00 00 7F FF FF"}}, {-45, 179.99998, -2}},
        {"025", 25, {{25010, "19 0C"}, {25600, "40 00 00 00 F0 00 00 00"}, {25610, "0C 30"}}, {45, -22.5, 780}},
        {"025, without a height", 25, {{25010, "19 0C"}, {25600, "40 00 00 00 F0 00 00 00"}}, {45, -22.5, 0}},
        {"019",
         19,
         {{19010, "19 0C"}, {19600, "10 00 00 00 F8 00 00 00"}, {19610, "0C 30"}, {19620, "F6"}},
         {45, -22.5, 770}},
        {"016", 16, {{16010, "19 0C"}, {16400, "20 00 00 00 F0 00 00 00"}, {16405, "FF FC"}}, {45, -22.5, -1}},
        {"a place without a source", 34, {{34120, "03 0C 20 00 00 F0 00 00"}}, {}},
        {"a source without a place", 34, {{34010, "19 0C"}}, {}},
        {"a place that was not entered", 34, {{34010, "19 0C"}, {34120, "03 0C 00 00 00 00 00 00"}}, {}},
        {"beyond the pole", 34, {{34010, "19 0C"}, {34120, "00 00 40 00 01 10 00 00"}}, {}},
        {"an octet short", 34, {{34010, "19 0C"}, {34120, "03 0C 20 00 00 F0 00"}}, {}},
        {"a target", 20, {{20010, "19 0C"}, {20041, "00 80 00 00 FF C0 00 00"}}, {}},
    };
    for (const auto &each : kTold) {
        SCOPED_TRACE(each.name);
        const bool is_told = each.place.latitude_deg != 0;
        Sites sites;
        EXPECT_EQ(ast_sites_learn(&sites, Record(each.category, each.items)), is_told);
        ASSERT_EQ(sites.count, is_told ? 1U : 0U);
        if (!is_told) continue;
        EXPECT_EQ(sites.sites[0].sac, 25U);
        EXPECT_EQ(sites.sites[0].sic, 12U);
        EXPECT_EQ(sites.sites[0].known, AST_SITE_LEARNT);
        EXPECT_NEAR(sites.sites[0].place.latitude_deg, each.place.latitude_deg, 1e-5);
        EXPECT_NEAR(sites.sites[0].place.longitude_deg, each.place.longitude_deg, 1e-5);
        EXPECT_EQ(sites.sites[0].place.height_m, each.place.height_m);
    }
    Sites sites;
    EXPECT_FALSE(ast_sites_learn(&sites, nullptr));
    Record record(34, {{34010, "19 0C"}, {34120, "03 0C 20 00 00 F0 00 00"}});
    EXPECT_FALSE(ast_sites_learn(nullptr, record));
    record->valid = false;
    EXPECT_FALSE(ast_sites_learn(&sites, record));
}

// ---- Range and azimuth ----

struct Sight {
    const char *name;
    ast_place_t station;
    double range_nm;
    double azimuth_deg;
    ast_place_t target;
};

// The equator is a circle of 6378137 m, and at the poles the surface is 6356752.314 m from the centre.
constexpr Sight kSights[] = {
    {"a degree of the equator: 2 a sin 0.5", {0, 0, 0}, 60.1069535, 90, {0, 1, 0}},
    {"to the west", {0, 0, 0}, 60.1069535, 270, {0, -1, 0}},
    {"across the date line", {0, 179.5, 0}, 60.1069535, 90, {0, -179.5, 0}},
    {"and back", {0, -179.5, 0}, 60.1069535, 270, {0, 179.5, 0}},
    {"at flight level 350", {0, 10, 0}, 60.4323527, 90, {0, 11, 10668}},
    {"two degrees, 10,000 m up, by the law of cosines", {0, 10, 0}, 120.4246413, 90, {0, 12, 10000}},
    {"the other way round, downwards", {0, 10, 10000}, 120.4246413, 90, {0, 12, 0}},
    // N cos 89 from the axis, N (1 - e2) sin 89 up
    {"a degree from the north pole, to 90 east", {90, 0, 0}, 60.3090968, 90, {89, 90, 0}},
    {"a degree from the north pole, onto its own meridian", {90, 0, 0}, 60.3090968, 180, {89, 0, 0}},
    {"a degree from the south pole", {-90, 0, 0}, 60.3090968, 0, {-89, 0, 0}},
    {"over the pole", {89, 0, 0}, 120.6136008, 0, {89, 180, 0}}, // 2 N cos 89 / 1852
};

TEST(Places, AreWhereStationsSeeThem) {
    for (const Sight &each : kSights) {
        SCOPED_TRACE(each.name);
        ast_place_t target;
        ASSERT_TRUE(
            ast_place_from_polar(&each.station, each.range_nm, each.azimuth_deg, each.target.height_m, &target));
        EXPECT_NEAR(target.latitude_deg, each.target.latitude_deg, kMetreDeg);
        const double cosine = std::cos(each.target.latitude_deg * 3.14159265 / 180);
        EXPECT_NEAR(std::remainder(target.longitude_deg - each.target.longitude_deg, 360) * cosine, 0, kMetreDeg);
        EXPECT_LE(std::abs(target.longitude_deg), 180);
        EXPECT_NEAR(target.height_m, each.target.height_m, 0.01);
        double range_nm;
        double azimuth_deg;
        ASSERT_TRUE(ast_place_to_polar(&each.station, &each.target, &range_nm, &azimuth_deg));
        EXPECT_NEAR(range_nm, each.range_nm, 1e-6);
        EXPECT_NEAR(std::remainder(azimuth_deg - each.azimuth_deg, 360), 0, 1e-6);
        EXPECT_TRUE(azimuth_deg >= 0 && azimuth_deg < 360);
    }
}

TEST(Places, AreRightAboveWhenTheyAreNotAsFarAsTheyAreHigh) {
    const ast_place_t station = {45, 12, 1000};
    for (const double range_nm : {0.0, 5.0, 9.999}) { // 18,520 m up is 10 NM
        ast_place_t target;
        ASSERT_TRUE(ast_place_from_polar(&station, range_nm, 77, 19520, &target));
        EXPECT_EQ(target.latitude_deg, 45);
        EXPECT_EQ(target.longitude_deg, 12);
        EXPECT_EQ(target.height_m, 19520);
    }
    ast_place_t target;
    ASSERT_TRUE(ast_place_from_polar(&station, 0, 77, 1000, &target));
    EXPECT_EQ(target.latitude_deg, 45);
}

TEST(Places, AreNoneOfWhatIsNone) {
    const ast_place_t station = {45, 12, 0};
    const ast_place_t nowhere = {91, 0, 0};
    const double wrong[][3] = {{-1, 0, 0}, {kNan, 0, 0}, {1, kNan, 0}, {1, 0, kNan}, {1001, 0, 0}, {1, 0, 1e9}};
    for (const auto &each : wrong) {
        ast_place_t target = {1, 2, 3};
        EXPECT_FALSE(ast_place_from_polar(&station, each[0], each[1], each[2], &target));
        EXPECT_EQ(target.height_m, 0);
    }
    ast_place_t target = {1, 2, 3};
    double range_nm = 1;
    double azimuth_deg = 1;
    EXPECT_FALSE(ast_place_from_polar(&nowhere, 1, 0, 0, &target));
    EXPECT_FALSE(ast_place_from_polar(nullptr, 1, 0, 0, &target));
    EXPECT_FALSE(ast_place_from_polar(&station, 1, 0, 0, nullptr));
    EXPECT_FALSE(ast_place_to_polar(&station, &nowhere, &range_nm, &azimuth_deg));
    EXPECT_EQ(range_nm, 0);
    EXPECT_EQ(azimuth_deg, 0);
    EXPECT_FALSE(ast_place_to_polar(nullptr, &station, nullptr, nullptr));
    EXPECT_TRUE(ast_place_to_polar(&station, &station, nullptr, nullptr));
}

// ---- Answers ----

struct Case {
    const char *name;
    uint32_t category;
    std::initializer_list<Content> items;
    double longitude_deg; // 0: it is not found
    uint32_t located = AST_LOCATED_BY_SITE;
};

// All of them seen from latitude 0 and longitude 10, to the east.
const Case kTargets[] = {
    {"048, at flight level 350", // 15470.6/256 NM
     48,
     {{48010, "19 0C"}, {48040, "3C 6F 40 00"}, {48090, "05 78"}},
     11},
    {"048, at a measured height", 48, {{48010, "19 0C"}, {48040, "3C 6F 40 00"}, {48110, "05 78"}}, 11},
    {"048, the flight level before that", // 13,000 m up, 1.74 NM nearer
     48,
     {{48010, "19 0C"}, {48040, "3C 6F 40 00"}, {48090, "05 78"}, {48110, "06 AA"}},
     11},
    {"048, as on the ground", // 15387.4/256 NM
     48,
     {{48010, "19 0C"}, {48040, "3C 1B 40 00"}},
     11,
     AST_LOCATED_BY_SITE | AST_LOCATED_ON_GROUND},
    {"048, the measured position before x and y",
     48,
     {{48010, "19 0C"}, {48040, "3C 6F 40 00"}, {48042, "7F FF 7F FF"}, {48090, "05 78"}},
     11},
    {"048, x and y of a slant range", // 7735/128 NM
     48,
     {{48010, "19 0C"}, {48042, "1E 37 00 00"}, {48090, "05 78"}, {48170, "00"}},
     11},
    {"048, x and y that are corrected", // 7693.4/128 NM: a sin 1
     48,
     {{48010, "19 0C"}, {48042, "1E 0D 00 00"}, {48090, "05 78"}, {48170, "01 10"}},
     11},
    {"001", 1, {{1010, "19 0C"}, {1040, "1E 37 40 00"}, {1090, "05 78"}}, 11},
    {"020", // 222627.68 half metres
     20,
     {{20010, "19 0C"}, {20042, "03 65 A4 00 00 00"}, {20090, "05 78"}},
     11},
    {"010", 10, {{10010, "19 0C"}, {10042, "2B 7B 00 00"}}, 10.1}, // a sin 0.1 is 11131.9 m
    {"010, by range",                                              // chord of 0.1 degree
     10,
     {{10010, "19 0C"}, {10040, "2B 7C 40 00"}},
     10.1,
     AST_LOCATED_BY_SITE | AST_LOCATED_ON_GROUND},
    {"062", // 2 b tan 0.5 is 221898.1 half metres
     62,
     {{62010, "19 0C"}, {62100, "03 62 CA 00 00 00"}},
     11},
    {"011", 11, {{11010, "19 0C"}, {11042, "2B 57 00 00"}}, 10.1}, // 2 b tan 0.05 is 11094.8 m
    {"205", 205, {{205010, "19 0C"}, {205060, "03 62 CA 00 00 00"}}, 11},
    {"007", 7, {{7010, "19 0C"}, {7040, "3C 6F 40 00"}, {7090, "05 78"}}, 11},
    {"007, x and y that are corrected", 7, {{7010, "19 0C"}, {7042, "1E 0D 00 00"}, {7170, "01 10"}}, 11},
    {"018", 18, {{18036, "19 0C"}, {18014, "3C 6F 40 00"}, {18033, "05 78"}}, 11},
    {"062, the range of one of its sensors", 62, {{62010, "19 0C"}, {62340, "40 3C 6F 40 00"}}, 0},
    {"another source", 48, {{48010, "19 0D"}, {48040, "3C 6F 40 00"}}, 0},
    {"no source", 48, {{48040, "3C 6F 40 00"}}, 0},
    {"no position", 48, {{48010, "19 0C"}, {48090, "05 78"}}, 0},
};

TEST(Places, CompleteAnswers) {
    const Sites sites{site(25, 12, {0, 10, 0})};
    for (const Case &each : kTargets) {
        SCOPED_TRACE(each.name);
        ast_answers_t answers;
        const uint64_t present = ast_datarecord_get_answers(Record(each.category, each.items), nullptr, &answers);
        EXPECT_EQ(ast_sites_locate(&sites, &answers), each.longitude_deg != 0);
        EXPECT_NEAR(answers.longitude_deg, each.longitude_deg, 7 * kMetreDeg);
        EXPECT_NEAR(answers.latitude_deg, 0, kMetreDeg);
        EXPECT_EQ(answers.located, each.longitude_deg == 0 ? 0 : each.located);
        const uint64_t added = each.longitude_deg == 0 ? 0 : AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE;
        EXPECT_EQ(answers.present, present | added);
    }
}

TEST(Places, OfSystemsAreOnTheConformalSphere) {
    const Sites sites{site(25, 12, {90, 0, 0}), site(25, 13, {0, 10, 0})};
    ast_answers_t answers{};
    const auto locate = [&](uint32_t sic, double x_nm, double y_nm) {
        answers = {};
        answers.present = AST_ANSWER_SAC | AST_ANSWER_SIC | AST_ANSWER_X | AST_ANSWER_Y;
        answers.frame = AST_FRAME_SYSTEM;
        answers.sac = 25;
        answers.sic = sic;
        answers.x_nm = x_nm;
        answers.y_nm = y_nm;
        return ast_sites_locate(&sites, &answers);
    };
    // Latitude 89 is 88.9932694 there; 2 a2/b tan of half of what is left.
    EXPECT_TRUE(locate(12, 60.7174058, 0));
    EXPECT_NEAR(answers.latitude_deg, 89, kMetreDeg);
    EXPECT_NEAR(answers.longitude_deg, 90, kMetreDeg);
    EXPECT_TRUE(locate(12, 0, -60.7174058));
    EXPECT_NEAR(answers.longitude_deg, 0, kMetreDeg);
    EXPECT_TRUE(locate(13, 0, 0));
    EXPECT_EQ(answers.longitude_deg, 10);
    EXPECT_FALSE(locate(13, 1001, 0));
    EXPECT_FALSE(locate(13, kNan, 0));
}

TEST(Places, AreCompletedOnlyWhereThereAreNone) {
    const Sites sites{site(25, 12, {0, 10, 0}, AST_SITE_WORKED_OUT)};
    ast_answers_t answers;
    ast_datarecord_get_answers(Record(48, {{48010, "19 0C"}, {48040, "3C 6F 40 00"}}), nullptr, &answers);
    EXPECT_TRUE(ast_sites_locate(&sites, &answers));
    EXPECT_EQ(answers.located, AST_LOCATED_BY_SITE | AST_LOCATED_ON_GROUND | AST_LOCATED_BY_ESTIMATE);
    EXPECT_FALSE(ast_sites_locate(&sites, &answers));
    EXPECT_FALSE(ast_sites_locate(&sites, nullptr));
    const Record told(20, {{20010, "19 0C"}, {20041, "00 80 00 00 FF C0 00 00"}, {20042, "03 65 A4 00 00 00"}});
    ast_datarecord_get_answers(told, nullptr, &answers);
    EXPECT_FALSE(ast_sites_locate(&sites, &answers));
    EXPECT_EQ(answers.latitude_deg, 45);
    EXPECT_EQ(answers.located, 0U);
    EXPECT_FALSE(ast_sites_locate(nullptr, &answers));
}

} // namespace
