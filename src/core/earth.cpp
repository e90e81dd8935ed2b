#include "core/earth.hpp"

#include <cmath>

namespace ast::earth {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kRadian = kPi / 180;

// WGS-84.
constexpr double kEquatorM = 6378137;
constexpr double kFlattening = 1 / 298.257223563;
constexpr double kPoleM = kEquatorM * (1 - kFlattening);
constexpr double kE2 = kFlattening * (2 - kFlattening); // of the eccentricity, its square and higher powers
constexpr double kE4 = kE2 * kE2;
constexpr double kE6 = kE4 * kE2;
constexpr double kE8 = kE4 * kE4;
constexpr double kSecondE2 = kE2 / (1 - kE2); // by the polar axis

double dot(const Vector &one, const Vector &other) {
    return one.x_m * other.x_m + one.y_m * other.y_m + one.z_m * other.z_m;
}

Vector sum(const Vector &one, double times, const Vector &other) {
    return {one.x_m + times * other.x_m, one.y_m + times * other.y_m, one.z_m + times * other.z_m};
}

// From the surface along the normal to the axis.
double normal_m(double sine) { return kEquatorM / std::sqrt(1 - kE2 * sine * sine); }

} // namespace

Vector vector_to(const Place &place) {
    const double latitude = place.latitude_deg * kRadian;
    const double longitude = place.longitude_deg * kRadian;
    const double sine = std::sin(latitude);
    const double normal = normal_m(sine);
    const double from_axis = (normal + place.height_m) * std::cos(latitude);
    return {from_axis * std::cos(longitude), from_axis * std::sin(longitude),
            (normal * (1 - kE2) + place.height_m) * sine};
}

namespace {

// What is known of a point by the normal of the ellipsoid through it.
struct Normal {
    double sine; // of the latitude
    double cosine;
    double height_m;
};

// Bowring's formula, within a millimetre from the surface up to beyond any aircraft; of roots alone, as it is asked for
// again and again.
Normal normal_through(const Vector &vector) {
    const double from_axis = std::sqrt(vector.x_m * vector.x_m + vector.y_m * vector.y_m);
    const double across = from_axis * kPoleM;
    const double along = vector.z_m * kEquatorM;
    const double reduced = std::sqrt(across * across + along * along);
    const double cosine = reduced == 0 ? 1 : across / reduced; // of the reduced latitude
    const double sine = reduced == 0 ? 0 : along / reduced;
    const double outwards = from_axis - kE2 * kEquatorM * cosine * cosine * cosine;
    const double upwards = vector.z_m + kSecondE2 * kPoleM * sine * sine * sine;
    const double length = std::sqrt(outwards * outwards + upwards * upwards);
    const Normal normal{upwards / length, outwards / length, 0};
    const double surface_m = kEquatorM * kEquatorM / normal_m(normal.sine);
    return {normal.sine, normal.cosine, from_axis * normal.cosine + vector.z_m * normal.sine - surface_m};
}

} // namespace

Place place_at(const Vector &vector) {
    const Normal normal = normal_through(vector);
    return {std::atan2(normal.sine, normal.cosine) / kRadian, std::atan2(vector.y_m, vector.x_m) / kRadian,
            normal.height_m};
}

Plane::Plane(const Place &origin) : origin_(earth::vector_to(origin)) {
    const double latitude = origin.latitude_deg * kRadian;
    const double longitude = origin.longitude_deg * kRadian;
    const double sine = std::sin(latitude);
    const double cosine = std::cos(latitude);
    const double sine_of_longitude = std::sin(longitude);
    const double cosine_of_longitude = std::cos(longitude);
    east_ = {-sine_of_longitude, cosine_of_longitude, 0};
    north_ = {-sine * cosine_of_longitude, -sine * sine_of_longitude, cosine};
    up_ = {cosine * cosine_of_longitude, cosine * sine_of_longitude, sine};
}

Vector Plane::vector_to(const Point &point) const {
    return sum(sum(sum(origin_, point.east_m, east_), point.north_m, north_), point.up_m, up_);
}

Plane::Point Plane::point_of(const Place &place) const {
    const Vector from_origin = sum(earth::vector_to(place), -1, origin_);
    return {dot(from_origin, east_), dot(from_origin, north_), dot(from_origin, up_)};
}

namespace {

// Finds how far above the plane a point is that is so high above the ellipsoid. `point_at` tells where it is across,
// for each distance above the plane. Height grows as fast as that distance, within a few hundredths.
template <typename PointAt>
bool find_at_height(const Place &origin, double height_m, PointAt point_at, Place &found) {
    constexpr double kCloseM = 1e-6; // across, what is nearly overhead moves by much more
    constexpr int kMostSteps = 20;   // four or five, within the range of a radar
    const Plane plane(origin);
    double up_m = 0;
    for (int step = 0; step < kMostSteps; ++step) {
        const Vector vector = plane.vector_to(point_at(up_m));
        const double missing_m = height_m - normal_through(vector).height_m;
        if (std::abs(missing_m) < kCloseM) {
            found = place_at(vector);
            return true;
        }
        up_m += missing_m;
    }
    return false;
}

} // namespace

bool find_polar(const Place &origin, double range_m, double azimuth_rad, double height_m, Place &found) {
    if (!(range_m >= 0 && range_m <= kFarthestM && std::abs(height_m) <= kFarthestM)) return false;
    if (!std::isfinite(azimuth_rad)) return false;
    if (range_m <= std::abs(height_m - origin.height_m)) {
        found = {origin.latitude_deg, origin.longitude_deg, height_m};
        return true;
    }
    const double sine = std::sin(azimuth_rad);
    const double cosine = std::cos(azimuth_rad);
    const auto point_at = [=](double up_m) {
        const double across_m = std::sqrt(std::fmax(range_m * range_m - up_m * up_m, 0));
        return Plane::Point{across_m * sine, across_m * cosine, up_m};
    };
    return find_at_height(origin, height_m, point_at, found);
}

bool find_in_plane(const Place &origin, double east_m, double north_m, Place &found) {
    if (!(east_m * east_m + north_m * north_m <= kFarthestM * kFarthestM)) return false;
    const auto point_at = [=](double up_m) { return Plane::Point{east_m, north_m, up_m}; };
    return find_at_height(origin, origin.height_m, point_at, found);
}

namespace {

// The latitude on the conformal sphere, and back: series, within a millimetre.
double conformal(double latitude) {
    return latitude - (kE2 / 2 + 5 * kE4 / 24 + 3 * kE6 / 32 + 281 * kE8 / 5760) * std::sin(2 * latitude) +
           (5 * kE4 / 48 + 7 * kE6 / 80 + 697 * kE8 / 11520) * std::sin(4 * latitude) -
           (13 * kE6 / 480 + 461 * kE8 / 13440) * std::sin(6 * latitude);
}

double geodetic(double conformal) {
    return conformal + (kE2 / 2 + 5 * kE4 / 24 + kE6 / 12 + 13 * kE8 / 360) * std::sin(2 * conformal) +
           (7 * kE4 / 48 + 29 * kE6 / 240 + 811 * kE8 / 11520) * std::sin(4 * conformal) +
           (7 * kE6 / 120 + 81 * kE8 / 1120) * std::sin(6 * conformal);
}

} // namespace

bool find_stereographic(const Place &origin, double east_m, double north_m, Place &found) {
    const double across_m = std::sqrt(east_m * east_m + north_m * north_m);
    if (!(across_m <= kFarthestM)) return false;
    found = origin;
    if (across_m == 0) return true;
    const double latitude = origin.latitude_deg * kRadian;
    const double sine = std::sin(latitude);
    const double radius_m = kPoleM / (1 - kE2 * sine * sine);
    const double sine_of_origin = std::sin(conformal(latitude));
    const double cosine_of_origin = std::cos(conformal(latitude));
    const double away = 2 * std::atan(across_m / (2 * radius_m));
    const double east = east_m / across_m * std::sin(away);
    const double north = north_m / across_m * std::sin(away);
    const double up = std::cos(away);
    const double sine_there = up * sine_of_origin + north * cosine_of_origin;
    const double from_axis = up * cosine_of_origin - north * sine_of_origin; // on the meridian of the origin
    const double latitude_there = geodetic(std::atan2(sine_there, std::sqrt(east * east + from_axis * from_axis)));
    found.latitude_deg = latitude_there / kRadian;
    found.longitude_deg = std::remainder(origin.longitude_deg + std::atan2(east, from_axis) / kRadian, 360);
    return true;
}

} // namespace ast::earth
