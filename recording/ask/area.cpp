#include "ask/area.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <numbers>
#include <stdexcept>

#include "ask/units.hpp"
#include "base/json_value.hpp"

namespace ast::recording {

namespace {

constexpr double kEarthRadiusM = 6'371'008.8; // mean, as an arc is bent
constexpr double kMostLatitudeDeg = 90;
constexpr double kTurnDeg = 360;
constexpr double kMostLongitudeDeg = kTurnDeg + kTurnDeg / 2; // of what goes on beyond the date line

// Of an arc along the surface.
double chord_m(double arc_m) {
    const double half_turn_m = std::numbers::pi * kEarthRadiusM;
    if (arc_m >= half_turn_m) return std::numeric_limits<double>::infinity();
    return 2 * kEarthRadiusM * std::sin(arc_m / kEarthRadiusM / 2);
}

} // namespace

Circle::Circle(double latitude_deg, double longitude_deg, double radius_m)
    : centre_{latitude_deg, longitude_deg, 0}, most_chord_nm_(chord_m(radius_m) / kMetresPerNm) {}

// The slant range between two places on the ellipsoid is the chord.
bool Circle::contains(double latitude_deg, double longitude_deg) const {
    const ast_place_t place{latitude_deg, longitude_deg, 0};
    double chord_nm = 0;
    return ast_place_to_polar(&centre_, &place, &chord_nm, nullptr) && chord_nm <= most_chord_nm_;
}

// ---- GeoJSON ----

// Takes polygons out of what holds them, and knows the way there for what is wrong.
struct Area::Builder {
    using Kind = JsonValue::Kind;

    std::vector<Polygon> polygons{};
    std::string way{};

    [[noreturn]] void fail(const std::string &what) const {
        throw std::invalid_argument((way.empty() ? "" : way + ": ") + what);
    }

    // Goes into a member or an element, and back.
    template <typename Take>
    void within(const std::string &step, Take take) {
        const size_t size = way.size();
        way += step;
        take();
        way.resize(size);
    }

    const std::vector<JsonValue> &list(const JsonValue &value, const char *of) const {
        if (value.kind != Kind::list) fail(std::string("is ") + value.kind_text() + ", not a list of " + of);
        return value.elements;
    }

    template <typename Take>
    void each(const JsonValue &value, const char *of, Take take) {
        const auto &elements = list(value, of);
        for (size_t i = 0; i < elements.size(); ++i) within('[' + std::to_string(i) + ']', [&] { take(elements[i]); });
    }

    template <typename Take>
    void member(const JsonValue &object, const char *name, Take take) {
        const JsonValue *const found = object.find(name);
        if (!found) fail(std::string("has no member \"") + name + '"');
        within((way.empty() ? "" : ".") + std::string(name), [&] { take(*found); });
    }

    void object(const JsonValue &value) {
        const JsonValue *const type = value.find("type");
        if (value.kind != Kind::object || !type || type->kind != Kind::text) fail("is no GeoJSON: it has no \"type\"");
        const auto take_object = [&](const JsonValue &each) { object(each); };
        const auto take_polygon = [&](const JsonValue &rings) { polygon(rings); };
        if (type->text == "FeatureCollection")
            member(value, "features", [&](const JsonValue &all) { each(all, "features", take_object); });
        else if (type->text == "GeometryCollection")
            member(value, "geometries", [&](const JsonValue &all) { each(all, "geometries", take_object); });
        else if (type->text == "Feature")
            member(value, "geometry", [&](const JsonValue &one) {
                if (one.kind != Kind::null) object(one);
            });
        else if (type->text == "Polygon")
            member(value, "coordinates", take_polygon);
        else if (type->text == "MultiPolygon")
            member(value, "coordinates", [&](const JsonValue &all) { each(all, "polygons", take_polygon); });
        else
            fail("is of the type " + type->text + ", which has no inside: wanted is a Polygon or a MultiPolygon");
    }

    void polygon(const JsonValue &rings) {
        Polygon result{.points = {},
                       .ends = {},
                       .least = {kMostLongitudeDeg, kMostLatitudeDeg},
                       .most = {-kMostLongitudeDeg, -kMostLatitudeDeg}};
        each(rings, "rings", [&](const JsonValue &points) { ring(points, result); });
        if (result.ends.empty()) fail("has no ring");
        polygons.push_back(std::move(result));
    }

    void ring(const JsonValue &points, Polygon &result) {
        constexpr size_t kLeastPoints = 4;
        const size_t begin = result.points.size();
        each(points, "positions", [&](const JsonValue &position) { result.points.push_back(point(position)); });
        if (result.points.size() - begin < kLeastPoints)
            fail("has fewer than four positions, of which the last is the first again");
        const Point &first = result.points[begin];
        const Point &last = result.points.back();
        if (first.longitude_deg != last.longitude_deg || first.latitude_deg != last.latitude_deg)
            fail("does not end where it begins");
        for (const Point &each : result.points) {
            result.least = {std::min(result.least.longitude_deg, each.longitude_deg),
                            std::min(result.least.latitude_deg, each.latitude_deg)};
            result.most = {std::max(result.most.longitude_deg, each.longitude_deg),
                           std::max(result.most.latitude_deg, each.latitude_deg)};
        }
        result.ends.push_back(result.points.size());
    }

    Point point(const JsonValue &position) const {
        const auto &numbers = list(position, "numbers");
        if (numbers.size() < 2 || numbers[0].kind != Kind::number || numbers[1].kind != Kind::number)
            fail("is no position: longitude and latitude");
        const Point result{numbers[0].number, numbers[1].number};
        if (!(std::abs(result.latitude_deg) <= kMostLatitudeDeg))
            fail("has a latitude beyond 90: the longitude stands first");
        if (!(std::abs(result.longitude_deg) <= kMostLongitudeDeg)) fail("has a longitude that is none");
        return result;
    }
};

Area Area::read(std::string_view geojson) {
    Builder builder;
    builder.object(read_json(geojson));
    if (builder.polygons.empty()) throw std::invalid_argument("has no polygon");
    Area area;
    area.polygons_ = std::move(builder.polygons);
    return area;
}

Area Area::read_file(const std::string &path) try {
    std::ifstream file(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file || text.empty()) throw std::invalid_argument("cannot be read, or is empty");
    return read(text);
} catch (const std::invalid_argument &error) {
    throw std::invalid_argument(path + ": " + error.what());
}

// A way to the east crosses an odd number of edges, those of holes included. Of an edge, the lower end counts, so that
// of two areas with a border in common one has it.
bool Area::Polygon::contains(const Point &point) const {
    if (point.longitude_deg < least.longitude_deg || point.longitude_deg > most.longitude_deg ||
        point.latitude_deg < least.latitude_deg || point.latitude_deg > most.latitude_deg)
        return false;
    bool is_inside = false;
    size_t begin = 0;
    for (const size_t end : ends) {
        for (size_t i = begin + 1; i < end; ++i) {
            const Point &from = points[i - 1];
            const Point &to = points[i];
            if ((from.latitude_deg > point.latitude_deg) == (to.latitude_deg > point.latitude_deg)) continue;
            const double share = (point.latitude_deg - from.latitude_deg) / (to.latitude_deg - from.latitude_deg);
            const double crossing_deg = from.longitude_deg + share * (to.longitude_deg - from.longitude_deg);
            if (point.longitude_deg < crossing_deg) is_inside = !is_inside;
        }
        begin = end;
    }
    return is_inside;
}

bool Area::contains(double latitude_deg, double longitude_deg) const {
    return std::ranges::any_of(polygons_, [&](const Polygon &polygon) {
        return polygon.contains({longitude_deg, latitude_deg}) ||
               polygon.contains({longitude_deg + kTurnDeg, latitude_deg}) ||
               polygon.contains({longitude_deg - kTurnDeg, latitude_deg});
    });
}

} // namespace ast::recording
