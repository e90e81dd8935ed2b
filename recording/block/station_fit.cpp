#include "block/station_fit.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <set>
#include <vector>

namespace ast::recording {

namespace {

constexpr double kRadian = std::numbers::pi / 180;
constexpr double kMetresPerNm = 1852;
constexpr double kMetresPerDegree = 60 * kMetresPerNm; // of latitude, nearly

// How far off measurements are as a rule: times that differ a little, and the beam.
constexpr double kPositionErrorM = 100;
constexpr double kAzimuthErrorRad = 0.1 * kRadian;
constexpr double kBiasErrorRad = 0.15 * kRadian; // of all azimuths of a station alike

// What a place takes, where errors count in those that are usual.
constexpr size_t kLeastMeetings = 3;
constexpr size_t kLeastAircraft = 3;
constexpr double kMostTypicalError = 10;
constexpr double kMostOneSided = 0.995; // the mean of the unit vectors to the targets, as of a sector of 20 degrees
constexpr double kMostBiasDeg = 2;
constexpr double kMostStandardErrorM = 1000;
constexpr double kMostLatitudeDeg = 89;

constexpr double kOutlier = 3; // times what is typical
constexpr int kMostSteps = 20;
constexpr double kSmallStepM = 0.1;

// The azimuth bias is solved for as what it makes at this distance, so that all unknowns are metres of a kind.
constexpr double kBiasArmM = 100'000;
constexpr double kBiasErrorM = kBiasErrorRad * kBiasArmM;

using Vector = std::array<double, 3>; // to the north, to the east, and of the bias
using Matrix = std::array<Vector, 3>;

struct Estimate {
    ast_place_t place;
    double bias_m = 0; // at kBiasArmM
};

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

double turned_to_half_circle(double degrees) { return std::remainder(degrees, 360.0); }

ast_place_t moved(const ast_place_t &place, double north_m, double east_m) {
    const double circle = std::cos(place.latitude_deg * kRadian);
    return {.latitude_deg = place.latitude_deg + north_m / kMetresPerDegree,
            .longitude_deg = turned_to_half_circle(place.longitude_deg + east_m / kMetresPerDegree / circle),
            .height_m = place.height_m};
}

// From where a target is seen at this range and azimuth: meridians converge, so that the way back is bent.
ast_place_t standpoint(const Meeting &meeting) {
    constexpr int kTurns = 3;
    constexpr double kHalfCircleDeg = 180;
    double back_deg = meeting.azimuth_deg + kHalfCircleDeg;
    ast_place_t place{};
    for (int i = 0; i < kTurns; ++i) {
        double azimuth_deg = 0;
        ast_place_from_polar(&meeting.target, meeting.range_nm, back_deg, 0, &place);
        ast_place_to_polar(&place, &meeting.target, nullptr, &azimuth_deg);
        back_deg += turned_to_half_circle(meeting.azimuth_deg - azimuth_deg);
    }
    return place;
}

// The middle of all standpoints.
ast_place_t first_guess(std::span<const Meeting> meetings) {
    std::vector<double> latitudes_deg;
    std::vector<double> longitudes_deg; // from that of the first, so that the date line divides nothing
    double first_deg = 0;
    for (const Meeting &meeting : meetings) {
        const ast_place_t place = standpoint(meeting);
        if (latitudes_deg.empty()) first_deg = place.longitude_deg;
        latitudes_deg.push_back(place.latitude_deg);
        longitudes_deg.push_back(turned_to_half_circle(place.longitude_deg - first_deg));
    }
    return {median(latitudes_deg), turned_to_half_circle(first_deg + median(longitudes_deg)), 0};
}

// How far a measurement is from what it would be, along the beam and across, in errors that are usual.
struct Residual {
    double along;
    double across;

    double size() const { return std::hypot(along, across); }
};

Residual residual_of(const Meeting &meeting, const Estimate &estimate) {
    double range_nm = 0;
    double azimuth_deg = 0;
    ast_place_to_polar(&estimate.place, &meeting.target, &range_nm, &azimuth_deg);
    const double range_m = meeting.range_nm * kMetresPerNm;
    const double ground_m =
        std::sqrt(std::max(range_m * range_m - meeting.target.height_m * meeting.target.height_m, 0.0));
    const double angle_rad = turned_to_half_circle(azimuth_deg - meeting.azimuth_deg) * kRadian;
    return {.along = (range_nm * kMetresPerNm - range_m) / kPositionErrorM,
            .across = ground_m * (angle_rad + estimate.bias_m / kBiasArmM) /
                      std::hypot(kPositionErrorM, ground_m * kAzimuthErrorRad)};
}

// ---- Least squares ----

struct Normals {
    Matrix matrix{};
    Vector vector{};
    double squares = 0; // the sum of those of the residuals

    void add(double residual, const Vector &slope) {
        squares += residual * residual;
        for (size_t i = 0; i < slope.size(); ++i) {
            vector[i] += slope[i] * residual;
            for (size_t k = 0; k < slope.size(); ++k) matrix[i][k] += slope[i] * slope[k];
        }
    }
};

Normals normals_of(std::span<const Meeting> meetings, const Estimate &estimate) {
    constexpr double kStepM = 100;
    const Estimate beside[] = {{moved(estimate.place, kStepM, 0), estimate.bias_m},
                               {moved(estimate.place, 0, kStepM), estimate.bias_m},
                               {estimate.place, estimate.bias_m + kStepM}};
    Normals normals;
    normals.add(estimate.bias_m / kBiasErrorM, {0, 0, 1 / kBiasErrorM});
    for (const Meeting &meeting : meetings) {
        const Residual here = residual_of(meeting, estimate);
        Vector along{};
        Vector across{};
        for (size_t i = 0; i < std::size(beside); ++i) {
            const Residual there = residual_of(meeting, beside[i]);
            along[i] = (there.along - here.along) / kStepM;
            across[i] = (there.across - here.across) / kStepM;
        }
        normals.add(here.along, along);
        normals.add(here.across, across);
    }
    return normals;
}

// None for a matrix that has none, or nearly so.
std::optional<Matrix> inverse(const Matrix &of) {
    constexpr double kLeastDeterminant = 1e-9; // as a part of what it is when the unknowns have nothing in common
    Matrix cofactors{};
    for (size_t i = 0; i < 3; ++i)
        for (size_t k = 0; k < 3; ++k)
            cofactors[i][k] = of[(i + 1) % 3][(k + 1) % 3] * of[(i + 2) % 3][(k + 2) % 3] -
                              of[(i + 1) % 3][(k + 2) % 3] * of[(i + 2) % 3][(k + 1) % 3];
    const double determinant = of[0][0] * cofactors[0][0] + of[0][1] * cofactors[0][1] + of[0][2] * cofactors[0][2];
    if (!(determinant > kLeastDeterminant * of[0][0] * of[1][1] * of[2][2])) return std::nullopt;
    for (Vector &row : cofactors)
        for (double &each : row) each /= determinant;
    return cofactors; // of a symmetric matrix
}

// Moves an estimate to where the squares are least, and returns the inverse of the normals there; none where that leads
// nowhere.
std::optional<Matrix> settle(std::span<const Meeting> meetings, Estimate &estimate) {
    for (int step = 0; step < kMostSteps; ++step) {
        const Normals normals = normals_of(meetings, estimate);
        const auto inverted = inverse(normals.matrix);
        if (!inverted) return std::nullopt;
        Vector change{};
        for (size_t i = 0; i < change.size(); ++i)
            for (size_t k = 0; k < change.size(); ++k) change[i] -= (*inverted)[i][k] * normals.vector[k];
        estimate.place = moved(estimate.place, change[0], change[1]);
        estimate.bias_m += change[2];
        if (!(std::abs(estimate.place.latitude_deg) < kMostLatitudeDeg)) return std::nullopt;
        if (std::hypot(change[0], change[1], change[2]) < kSmallStepM) return inverted;
    }
    return std::nullopt;
}

// ---- What is good enough ----

// Those that are not far off; empty where most are too far off to mean the same place.
std::vector<Meeting> agreeing(std::span<const Meeting> meetings, const Estimate &estimate, double most_typical) {
    std::vector<double> sizes;
    for (const Meeting &meeting : meetings) sizes.push_back(residual_of(meeting, estimate).size());
    const double typical = median(sizes);
    std::vector<Meeting> kept;
    if (!(typical <= most_typical)) return kept;
    for (size_t i = 0; i < meetings.size(); ++i)
        if (sizes[i] <= kOutlier * std::max(typical, 1.0)) kept.push_back(meetings[i]);
    return kept;
}

bool are_enough(std::span<const Meeting> meetings) {
    std::set<uint32_t> aircraft;
    double east = 0;
    double north = 0;
    for (const Meeting &meeting : meetings) {
        aircraft.insert(meeting.address);
        east += std::sin(meeting.azimuth_deg * kRadian);
        north += std::cos(meeting.azimuth_deg * kRadian);
    }
    return meetings.size() >= kLeastMeetings && aircraft.size() >= kLeastAircraft &&
           std::hypot(east, north) <= kMostOneSided * static_cast<double>(meetings.size());
}

// By the longer axis of the ellipse of errors, and the mean error of what the targets were placed by, which they share.
double standard_error_m(std::span<const Meeting> meetings, const Estimate &estimate, const Matrix &inverted) {
    double squares = 0;
    double targets_m = 0;
    for (const Meeting &meeting : meetings) {
        const double size = residual_of(meeting, estimate).size();
        squares += size * size;
        targets_m += meeting.target_error_m;
    }
    const auto count = static_cast<double>(meetings.size());
    const double variance = std::max(squares / (2 * count - 3), 1.0); // a few may agree by chance
    const double north = inverted[0][0];
    const double east = inverted[1][1];
    const double longest = (north + east) / 2 + std::hypot((north - east) / 2, inverted[0][1]);
    return std::hypot(std::sqrt(variance * longest), targets_m / count);
}

} // namespace

std::optional<StationFit> fit_station(std::span<const Meeting> meetings) {
    constexpr double kAnyTypical = 1000; // of the first guess
    constexpr int kSifts = 4;
    if (!are_enough(meetings)) return std::nullopt;
    Estimate estimate{.place = first_guess(meetings)};
    std::optional<Matrix> inverted;
    std::vector<Meeting> kept;
    for (int sift = 0; sift < kSifts; ++sift) {
        kept = agreeing(meetings, estimate, sift == 0 ? kAnyTypical : kMostTypicalError);
        if (!are_enough(kept)) return std::nullopt;
        inverted = settle(kept, estimate);
        if (!inverted) return std::nullopt;
    }
    const StationFit fit{.place = estimate.place,
                         .azimuth_bias_deg = -estimate.bias_m / kBiasArmM / kRadian,
                         .standard_error_m = standard_error_m(kept, estimate, *inverted)};
    if (!(fit.standard_error_m <= kMostStandardErrorM) || std::abs(fit.azimuth_bias_deg) > kMostBiasDeg)
        return std::nullopt;
    return fit;
}

} // namespace ast::recording
