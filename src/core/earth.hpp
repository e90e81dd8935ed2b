// The earth as WGS-84 has it: places, the plane that touches it at one of them, and what is measured or drawn there.
#pragma once

namespace ast::earth {

constexpr double kMetresPerNm = 1852;
constexpr double kMetresPerFoot = 0.3048;

struct Place {
    double latitude_deg;
    double longitude_deg;
    double height_m; // above the ellipsoid
};

// From the centre of the earth, to longitude 0 on the equator, to 90 degrees east on it, and to the north pole.
struct Vector {
    double x_m;
    double y_m;
    double z_m;
};

Vector vector_to(const Place &place);
Place place_at(const Vector &vector);

// A plane that touches the earth, or lies above it, at a place.
class Plane {
public:
    explicit Plane(const Place &origin);

    struct Point {
        double east_m;
        double north_m;
        double up_m; // on the normal of the plane
    };

    Vector vector_to(const Point &point) const;
    Point point_of(const Place &place) const;

private:
    Vector origin_;
    Vector east_;
    Vector north_;
    Vector up_;
};

// The farthest that anything is looked for.
constexpr double kFarthestM = 1000 * kMetresPerNm;

// Each finds a place, and says whether there is one: not beyond kFarthestM, nor for what is no number.

// At a slant range and an azimuth from the north of the origin, so high above the ellipsoid. What is not as far as it
// is high or low is right above or below the origin.
bool find_polar(const Place &origin, double range_m, double azimuth_rad, double height_m, Place &found);

// Below or above a point of the plane, as high as its origin.
bool find_in_plane(const Place &origin, double east_m, double north_m, Place &found);

// On the stereographic plane of the conformal sphere that is as large as the earth is curved at the origin; as high as
// the origin.
bool find_stereographic(const Place &origin, double east_m, double north_m, Place &found);

} // namespace ast::earth
