// Areas on the earth: circles, and what is inside polygons of GeoJSON (RFC 7946).
#pragma once

#include <ast.h>
#include <string>
#include <string_view>
#include <vector>

namespace ast::recording {

// What lies no farther from a place than so much, along the surface of the earth.
class Circle {
public:
    Circle(double latitude_deg, double longitude_deg, double radius_m);

    bool contains(double latitude_deg, double longitude_deg) const;

private:
    ast_place_t centre_;
    double most_chord_nm_;
};

// Polygons, of which any may hold a place. Edges are straight in latitude and longitude, as RFC 7946 has them; what
// reaches over the date line is cut in two there, or goes on beyond 180 degrees.
class Area {
public:
    // Of a Polygon, a MultiPolygon, a GeometryCollection, a Feature or a FeatureCollection of these. Throws
    // std::invalid_argument that says what is wrong, and where.
    static Area read(std::string_view geojson);
    static Area read_file(const std::string &path);

    bool contains(double latitude_deg, double longitude_deg) const;

private:
    struct Point {
        double longitude_deg;
        double latitude_deg;
    };
    // The rings, holes included, one behind the other, each with its first point again at its end.
    struct Polygon {
        std::vector<Point> points;
        std::vector<size_t> ends; // of rings
        Point least;
        Point most;

        bool contains(const Point &point) const;
    };
    struct Builder;

    std::vector<Polygon> polygons_;
};

} // namespace ast::recording
