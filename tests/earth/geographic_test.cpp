// Places against those of GeographicLib, all over the earth: as far as radars see, and as high as aircraft fly.

#include <gtest/gtest.h>

#include <GeographicLib/Ellipsoid.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/LocalCartesian.hpp>
#include <cmath>
#include <cstdio>

#include "ast.h"

namespace {

using namespace GeographicLib;

constexpr double kMetresPerNm = 1852;
constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr double kAllowedM = 10;

constexpr double kLatitudesDeg[] = {-90, -89.99, -75, -45, -10, 0, 0.5, 30, 52, 80, 89.5, 90};
constexpr double kLongitudesDeg[] = {-180, -179.9, -60, 0, 100, 179.99};
constexpr double kStationsM[] = {-50, 780, 3000};
constexpr double kDistancesNm[] = {0, 0.1, 1, 5, 20, 60, 120, 180, 249};
constexpr double kHeightsFt[] = {-1000, 0, 3000, 10000, 24000, 35000, 45000, 60000};

struct Target {
    double latitude_deg;
    double longitude_deg;
    double height_m;
};

// Calls `see` with a station and targets around it.
template <typename See>
void each_target(See see) {
    const Geodesic &geodesic = Geodesic::WGS84();
    for (const double latitude_deg : kLatitudesDeg)
        for (const double longitude_deg : kLongitudesDeg)
            for (const double station_m : kStationsM)
                for (const double distance_nm : kDistancesNm)
                    for (double azimuth_deg = 0; azimuth_deg < 360; azimuth_deg += 24)
                        for (const double height_ft : kHeightsFt) {
                            Target target{0, 0, height_ft * 0.3048};
                            geodesic.Direct(latitude_deg, longitude_deg, azimuth_deg, distance_nm * kMetresPerNm,
                                            target.latitude_deg, target.longitude_deg);
                            see(ast_place_t{latitude_deg, longitude_deg, station_m}, target);
                        }
}

// How far places are from where they should be.
struct Differences {
    const char *name;
    double largest_m = 0;
    long count = 0;

    void add(double latitude_deg, double longitude_deg, const Target &target) {
        double metres = 0;
        Geodesic::WGS84().Inverse(latitude_deg, longitude_deg, target.latitude_deg, target.longitude_deg, metres);
        EXPECT_LT(metres, kAllowedM);
        largest_m = std::fmax(largest_m, metres);
        ++count;
    }

    ~Differences() { std::printf("%s: %ld places, at most %.6f m away\n", name, count, largest_m); }
};

TEST(Earth, PlacesWhatASensorSees) {
    Differences differences{"range and azimuth"};
    each_target([&](const ast_place_t &station, const Target &target) {
        const LocalCartesian around(station.latitude_deg, station.longitude_deg, station.height_m);
        double east_m, north_m, up_m;
        around.Forward(target.latitude_deg, target.longitude_deg, target.height_m, east_m, north_m, up_m);
        const double range_nm = std::hypot(east_m, north_m, up_m) / kMetresPerNm;
        const double azimuth_deg = std::atan2(east_m, north_m) / kDegree;
        ast_place_t found{};
        EXPECT_TRUE(ast_place_from_polar(&station, range_nm, azimuth_deg, target.height_m, &found));
        EXPECT_NEAR(found.height_m, target.height_m, 0.01);
        differences.add(found.latitude_deg, found.longitude_deg, target);

        const ast_place_t seen = {target.latitude_deg, target.longitude_deg, target.height_m};
        double seen_nm = 0;
        double seen_deg = 0;
        EXPECT_TRUE(ast_place_to_polar(&station, &seen, &seen_nm, &seen_deg));
        EXPECT_NEAR(seen_nm, range_nm, 1e-6);
        const double across_nm = std::hypot(east_m, north_m) / kMetresPerNm;
        EXPECT_NEAR(std::remainder(seen_deg - azimuth_deg, 360) * kDegree * across_nm, 0, 1e-6);
    });
}

// x and y, as answers have them.
void locate(const ast_place_t &place, uint32_t frame, double east_m, double north_m, ast_answers_t &answers) {
    ast_site_t site = {.sac = 25, .sic = 12, .known = AST_SITE_GIVEN, .place = place, .standard_error_m = 0};
    const ast_sites_t sites = {.sites = &site, .room = 1, .count = 1};
    answers = {};
    answers.present = AST_ANSWER_SAC | AST_ANSWER_SIC | AST_ANSWER_X | AST_ANSWER_Y;
    answers.frame = frame;
    answers.sac = 25;
    answers.sic = 12;
    answers.x_nm = east_m / kMetresPerNm;
    answers.y_nm = north_m / kMetresPerNm;
    EXPECT_TRUE(ast_sites_locate(&sites, &answers));
}

TEST(Earth, PlacesWhatIsOnATangentialPlane) {
    Differences differences{"tangential plane"};
    each_target([&](const ast_place_t &station, const Target &target) {
        const LocalCartesian around(station.latitude_deg, station.longitude_deg, station.height_m);
        double east_m, north_m, up_m;
        around.Forward(target.latitude_deg, target.longitude_deg, station.height_m, east_m, north_m, up_m);
        ast_answers_t answers;
        locate(station, AST_FRAME_TANGENTIAL, east_m, north_m, answers);
        differences.add(answers.latitude_deg, answers.longitude_deg, target);
    });
}

TEST(Earth, PlacesWhatIsOnAStereographicPlane) {
    const Ellipsoid &ellipsoid = Ellipsoid::WGS84();
    Differences differences{"stereographic plane"};
    each_target([&](const ast_place_t &origin, const Target &target) {
        // By the geometric mean of the radii of curvature, and latitudes of the conformal sphere.
        const double radius_m = std::sqrt(ellipsoid.MeridionalCurvatureRadius(origin.latitude_deg) *
                                          ellipsoid.TransverseCurvatureRadius(origin.latitude_deg));
        const double there = ellipsoid.ConformalLatitude(target.latitude_deg) * kDegree;
        const double here = ellipsoid.ConformalLatitude(origin.latitude_deg) * kDegree;
        const double east = (target.longitude_deg - origin.longitude_deg) * kDegree;
        const double from_axis = std::cos(there) * std::cos(east);
        const double scale = 2 * radius_m / (1 + std::sin(here) * std::sin(there) + std::cos(here) * from_axis);
        ast_answers_t answers;
        locate(origin, AST_FRAME_SYSTEM, scale * std::cos(there) * std::sin(east),
               scale * (std::cos(here) * std::sin(there) - std::sin(here) * from_axis), answers);
        differences.add(answers.latitude_deg, answers.longitude_deg, target);
    });
}

} // namespace
