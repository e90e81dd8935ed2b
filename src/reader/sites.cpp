// Data sources and their places: the table of them, what they tell of it, and targets seen from there.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "ast.h"
#include "core/bits.hpp"
#include "core/earth.hpp"

namespace ast::reader {

namespace {

using earth::kMetresPerNm;

constexpr double kDegreesPerRadian = 180 / 3.14159265358979323846;
constexpr double kFullCircleDeg = 360;

earth::Place as_place(const ast_place_t &place) { return {place.latitude_deg, place.longitude_deg, place.height_m}; }

bool is_on_globe(const ast_place_t &place) {
    constexpr double kHighestM = 100'000;
    return std::abs(place.latitude_deg) <= 90 && std::abs(place.longitude_deg) <= 180 &&
           std::abs(place.height_m) <= kHighestM;
}

// ---- The table ----

constexpr uint32_t kMostCodes = 256;

uint32_t key_of(const ast_site_t &site) { return site.sac * kMostCodes + site.sic; }

// The first site in the table that is not before that one.
size_t lower_bound(const ast_sites_t &sites, uint32_t key) {
    const auto is_before = [](const ast_site_t &site, uint32_t wanted) { return key_of(site) < wanted; };
    return static_cast<size_t>(std::lower_bound(sites.sites, sites.sites + sites.count, key, is_before) - sites.sites);
}

bool is_proper(const ast_site_t &site) {
    return site.sac < kMostCodes && site.sic < kMostCodes && site.known >= AST_SITE_WORKED_OUT &&
           site.known <= AST_SITE_GIVEN && is_on_globe(site.place);
}

// ---- What records tell ----

// A number in two's complement, from an octet of an item on, which counts from 0.
struct Quantity {
    uint16_t item;
    uint8_t first_octet;
    uint8_t octets;
    double step;
};

// Heights are sums of what is told; the second one is the height of the sea above the ellipsoid.
struct Told {
    uint32_t category;
    Quantity latitude;
    Quantity longitude;
    Quantity heights[2] = {};
};

constexpr double kPower23 = 1U << 23;
constexpr double kPower30 = 1U << 30;
constexpr double kPower31 = 1U << 31;
constexpr double kPower32 = 2 * kPower31;

constexpr Told kTold[] = {
    {16, {400, 0, 4, 180 / kPower31}, {400, 4, 4, 180 / kPower31}, {{405, 0, 2, 0.25}}},
    {19, {600, 0, 4, 180 / kPower30}, {600, 4, 4, 180 / kPower30}, {{610, 0, 2, 0.25}, {620, 0, 1, 1}}},
    {25, {600, 0, 4, 180 / kPower32}, {600, 4, 4, 180 / kPower31}, {{610, 0, 2, 0.25}}},
    {34, {120, 2, 3, 180 / kPower23}, {120, 5, 3, 180 / kPower23}, {{120, 0, 2, 1}}},
};

constexpr uint32_t kSourceItem = 10; // of all of them

const ast_dataitem_t *find_item(const ast_datarecord_t &record, uint32_t number, uint64_t octets) {
    const ast_dataitem_t *const end = record.items + std::min<uint64_t>(record.item_count, std::size(record.items));
    const auto is_wanted = [&](const ast_dataitem_t &item) {
        return item.type == AST_DATAITEM_TYPE(record.category, number) && item.valid && item.size >= octets;
    };
    const ast_dataitem_t *const found = std::find_if(record.items, end, is_wanted);
    return found == end ? nullptr : found;
}

// Adds a quantity to a value; false when the record does not tell it.
bool add_told(const ast_datarecord_t &record, const Quantity &quantity, double &value) {
    const unsigned behind = quantity.first_octet + quantity.octets;
    const ast_dataitem_t *const item = behind == 0 ? nullptr : find_item(record, quantity.item, behind);
    if (!item) return false;
    const unsigned bits = 8U * quantity.octets;
    value += quantity.step * twos_complement(field(item->data, behind * 8 - bits + 1, behind * 8), bits);
    return true;
}

// ---- Targets ----

struct Height {
    double m;
    bool is_known;
};

Height height_of(const ast_answers_t &answers, const ast_site_t &site) {
    constexpr double kFeetPerLevel = 100;
    if ((answers.present & AST_ANSWER_FL) != 0) return {answers.fl * kFeetPerLevel * earth::kMetresPerFoot, true};
    if ((answers.present & AST_ANSWER_ALTITUDE) != 0) return {answers.altitude_ft * earth::kMetresPerFoot, true};
    return {site.place.height_m, false};
}

bool has(const ast_answers_t &answers, uint64_t wanted) { return (answers.present & wanted) == wanted; }

struct Polar {
    double range_m;
    double azimuth_rad;
};

// What a sensor has measured, as it is or turned into x and y; false where there is none.
bool find_measured(const ast_answers_t &answers, Polar &measured) {
    const bool is_of_sensor = answers.frame == AST_FRAME_RADAR || answers.frame == AST_FRAME_TANGENTIAL;
    if (is_of_sensor && has(answers, AST_ANSWER_RANGE | AST_ANSWER_AZIMUTH))
        measured = {answers.range_nm * kMetresPerNm, answers.azimuth_deg / kDegreesPerRadian};
    else if (answers.frame == AST_FRAME_RADAR && has(answers, AST_ANSWER_X | AST_ANSWER_Y))
        measured = {std::sqrt(answers.x_nm * answers.x_nm + answers.y_nm * answers.y_nm) * kMetresPerNm,
                    std::atan2(answers.x_nm, answers.y_nm)};
    else
        return false;
    return true;
}

// What is drawn on a plane around the site.
bool find_drawn(const ast_answers_t &answers, const earth::Place &origin, earth::Place &found) {
    if (!has(answers, AST_ANSWER_X | AST_ANSWER_Y)) return false;
    const double east_m = answers.x_nm * kMetresPerNm;
    const double north_m = answers.y_nm * kMetresPerNm;
    if (answers.frame == AST_FRAME_TANGENTIAL) return earth::find_in_plane(origin, east_m, north_m, found);
    return answers.frame == AST_FRAME_SYSTEM && earth::find_stereographic(origin, east_m, north_m, found);
}

// Finds the place of a target, and in `located` what there is to say of it.
bool find_target(const ast_answers_t &answers, const ast_site_t &site, earth::Place &found, uint32_t &located) {
    located = AST_LOCATED_BY_SITE | (site.known == AST_SITE_WORKED_OUT ? AST_LOCATED_BY_ESTIMATE : 0);
    Polar measured{};
    if (!find_measured(answers, measured)) return find_drawn(answers, as_place(site.place), found);
    const Height height = height_of(answers, site);
    if (!height.is_known) located |= AST_LOCATED_ON_GROUND;
    return earth::find_polar(as_place(site.place), measured.range_m, measured.azimuth_rad, height.m, found);
}

} // namespace

} // namespace ast::reader

using namespace ast;
using namespace ast::reader;

bool ast_sites_add(ast_sites_t *sites, const ast_site_t *site) {
    if (!sites || !sites->sites || !site || !is_proper(*site)) return false;
    const size_t at = lower_bound(*sites, key_of(*site));
    ast_site_t *const there = sites->sites + at;
    if (at < sites->count && key_of(*there) == key_of(*site)) {
        if (there->known > site->known) return false;
    } else {
        if (sites->count >= sites->room) return false;
        std::copy_backward(there, sites->sites + sites->count, sites->sites + sites->count + 1);
        ++sites->count;
    }
    *there = *site;
    return true;
}

const ast_site_t *ast_sites_find(const ast_sites_t *sites, uint32_t sac, uint32_t sic) {
    if (!sites || !sites->sites || sac >= kMostCodes || sic >= kMostCodes) return nullptr;
    const uint32_t key = sac * kMostCodes + sic;
    const size_t at = lower_bound(*sites, key);
    return at < sites->count && key_of(sites->sites[at]) == key ? sites->sites + at : nullptr;
}

bool ast_sites_learn(ast_sites_t *sites, const ast_datarecord_t *record) {
    if (!record || !record->valid) return false;
    const auto is_of_category = [&](const Told &each) { return each.category == record->category; };
    const Told *const told = std::find_if(std::begin(kTold), std::end(kTold), is_of_category);
    if (told == std::end(kTold)) return false;
    const ast_dataitem_t *const source = find_item(*record, kSourceItem, 2);
    if (!source) return false;
    ast_site_t site{
        .sac = source->data[0], .sic = source->data[1], .known = AST_SITE_LEARNT, .place = {}, .standard_error_m = 0};
    if (!add_told(*record, told->latitude, site.place.latitude_deg)) return false;
    if (!add_told(*record, told->longitude, site.place.longitude_deg)) return false;
    if (site.place.latitude_deg == 0 && site.place.longitude_deg == 0) return false;
    for (const Quantity &height : told->heights) add_told(*record, height, site.place.height_m);
    return ast_sites_add(sites, &site);
}

bool ast_sites_locate(const ast_sites_t *sites, ast_answers_t *answers) {
    constexpr uint64_t kPosition = AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE;
    if (!answers || (answers->present & kPosition) != 0 || !has(*answers, AST_ANSWER_SAC | AST_ANSWER_SIC))
        return false;
    const ast_site_t *const site = ast_sites_find(sites, answers->sac, answers->sic);
    earth::Place found{};
    uint32_t located = 0;
    if (!site || !find_target(*answers, *site, found, located)) return false;
    answers->present |= kPosition;
    answers->latitude_deg = found.latitude_deg;
    answers->longitude_deg = found.longitude_deg;
    answers->located = located;
    return true;
}

bool ast_place_from_polar(const ast_place_t *station, double range_nm, double azimuth_deg, double height_m,
                          ast_place_t *target) {
    earth::Place found{};
    const bool is_found = station && target && is_on_globe(*station) &&
                          earth::find_polar(as_place(*station), range_nm * kMetresPerNm,
                                            azimuth_deg / kDegreesPerRadian, height_m, found);
    if (target) *target = {};
    if (is_found) *target = {found.latitude_deg, found.longitude_deg, found.height_m};
    return is_found;
}

bool ast_place_to_polar(const ast_place_t *station, const ast_place_t *target, double *range_nm, double *azimuth_deg) {
    const bool is_seen = station && target && is_on_globe(*station) && is_on_globe(*target);
    earth::Plane::Point seen{};
    if (is_seen) seen = earth::Plane(as_place(*station)).point_of(as_place(*target));
    const double across_2 = seen.east_m * seen.east_m + seen.north_m * seen.north_m;
    if (range_nm) *range_nm = std::sqrt(across_2 + seen.up_m * seen.up_m) / kMetresPerNm;
    if (azimuth_deg) {
        const double angle_deg = std::atan2(seen.east_m, seen.north_m) * kDegreesPerRadian;
        *azimuth_deg = angle_deg < 0 ? angle_deg + kFullCircleDeg : angle_deg;
    }
    return is_seen;
}
