#include "block/station_finder.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <tuple>

#include "block/split_block.hpp"

namespace ast::recording {

namespace {

constexpr double kMetresPerFoot = 0.3048;
constexpr double kFeetPerLevel = 100;
constexpr double kDegreesPerRadian = 180 / std::numbers::pi;
constexpr double kSecondsPerHour = 3600;

// Aircraft turn: what was seen that long before and after a moment says where they were then, and what was seen that
// long before or after it where it says how fast they fly.
constexpr double kMostBetweenS = 13;
constexpr double kMostBeyondS = 4;
constexpr double kSameMomentS = 0.1;

// Of a station, evenly chosen.
constexpr size_t kMostMeetings = 500;

// Each may make others known.
constexpr int kMostRounds = 5;

// The categories of targets with an address, and with range and azimuth, x and y, or latitude and longitude.
constexpr uint32_t kTelling[] = {10, 11, 18, 20, 21, 48, 62};

bool has(const ast_answers_t &answers, uint64_t wanted) { return (answers.present & wanted) == wanted; }

std::optional<double> height_m_of(const ast_answers_t &answers) {
    if (has(answers, AST_ANSWER_FL)) return answers.fl * kFeetPerLevel * kMetresPerFoot;
    if (has(answers, AST_ANSWER_ALTITUDE)) return answers.altitude_ft * kMetresPerFoot;
    return std::nullopt;
}

bool is_of_aircraft(const ast_answers_t &answers) {
    return has(answers, AST_ANSWER_TIME | AST_ANSWER_ICAO24) && !answers.simulated && !answers.test && !answers.coasted;
}

} // namespace

bool StationFinder::looks_at(Octets block) {
    return !block.empty() && std::ranges::find(kTelling, block[0]) != std::end(kTelling);
}

void StationFinder::look(const SplitBlock &block) {
    ast_answers_t answers;
    for (uint64_t i = 0; i < block.record_count && !is_full(); ++i) {
        ast_datarecord_get_answers(&block.records[i], nullptr, &answers);
        if (is_of_aircraft(answers)) look(answers);
    }
}

// Beyond midnight, times go on.
double StationFinder::running_time_s(double time_of_day_s) {
    if (!first_time_s_) first_time_s_ = time_of_day_s;
    return *first_time_s_ + std::remainder(time_of_day_s - *first_time_s_, double{kSecondsPerDay});
}

// On a plane that touches the earth, targets are seen as high as the sensor. Whether it is anything around a sensor.
bool StationFinder::find_measured(const ast_answers_t &answers, Measured &measured) {
    const bool is_of_radar = answers.frame == AST_FRAME_RADAR;
    if (!is_of_radar && answers.frame != AST_FRAME_TANGENTIAL) return false;
    if (has(answers, AST_ANSWER_RANGE | AST_ANSWER_AZIMUTH)) {
        measured.range_nm = answers.range_nm;
        measured.azimuth_deg = answers.azimuth_deg;
        return true;
    }
    if (!has(answers, AST_ANSWER_X | AST_ANSWER_Y)) return false;
    measured.range_nm = std::hypot(answers.x_nm, answers.y_nm);
    measured.azimuth_deg = std::atan2(answers.x_nm, answers.y_nm) * kDegreesPerRadian;
    if (!is_of_radar) measured.height_m = 0;
    return true;
}

StationFinder::Seen StationFinder::seen_in(const ast_answers_t &answers) {
    Seen seen{.address = answers.icao24,
              .time_s = running_time_s(answers.time_of_day_s),
              .height_m = height_m_of(answers),
              .speed_nm_s = {},
              .track_deg = answers.track_deg};
    if (has(answers, AST_ANSWER_GROUNDSPEED | AST_ANSWER_TRACK))
        seen.speed_nm_s = answers.groundspeed_kt / kSecondsPerHour;
    return seen;
}

void StationFinder::look(const ast_answers_t &answers) {
    const Seen seen = seen_in(answers);
    if (has(answers, AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE)) {
        placed_.push_back({seen, {answers.latitude_deg, answers.longitude_deg, seen.height_m.value_or(0)}, 0});
    } else if (has(answers, AST_ANSWER_SAC | AST_ANSWER_SIC)) {
        Measured measured{seen, answers.sac << 8 | answers.sic, 0, 0};
        if (find_measured(answers, measured)) measured_.push_back(measured);
    }
}

// ---- Where aircraft were ----

void StationFinder::place(const Measured &measured, const ast_site_t &site) {
    if (!measured.height_m) return;
    Placed placed{measured, {}, site.standard_error_m};
    if (ast_place_from_polar(&site.place, measured.range_nm, measured.azimuth_deg, *measured.height_m, &placed.place))
        placed_.push_back(placed);
}

// What is measured from known places says where aircraft were. Whether there was any.
bool StationFinder::place_those_of_known(const SiteMemory &known) {
    const size_t before = placed_.size();
    std::erase_if(measured_, [&](const Measured &measured) {
        const ast_site_t *const site = known.find(measured.source >> 8, measured.source & 0xFF);
        if (site) place(measured, *site);
        return site != nullptr;
    });
    return placed_.size() != before;
}

std::optional<StationFinder::Placed> StationFinder::between(const Placed &before, const Placed &after, double time_s) {
    constexpr double kFullCircleDeg = 360;
    const double span_s = after.time_s - before.time_s;
    if (span_s > kMostBetweenS) return std::nullopt;
    const double part = span_s == 0 ? 0 : (time_s - before.time_s) / span_s;
    const double east_deg = std::remainder(after.place.longitude_deg - before.place.longitude_deg, kFullCircleDeg);
    Placed placed = before;
    placed.place.latitude_deg += part * (after.place.latitude_deg - before.place.latitude_deg);
    placed.place.longitude_deg = std::remainder(before.place.longitude_deg + part * east_deg, kFullCircleDeg);
    placed.standard_error_m = std::max(before.standard_error_m, after.standard_error_m);
    return placed;
}

std::optional<StationFinder::Placed> StationFinder::carried_on(const Placed &from, double time_s) {
    constexpr double kHalfCircleDeg = 180;
    const double seconds = time_s - from.time_s;
    if (std::abs(seconds) <= kSameMomentS) return from;
    if (std::abs(seconds) > kMostBeyondS || !from.speed_nm_s) return std::nullopt;
    Placed placed = from;
    const double bearing_deg = from.track_deg + (seconds < 0 ? kHalfCircleDeg : 0);
    ast_place_from_polar(&from.place, std::abs(seconds) * *from.speed_nm_s, bearing_deg, from.place.height_m,
                         &placed.place);
    return placed;
}

std::optional<StationFinder::Placed> StationFinder::placed_at(uint32_t address, double time_s) const {
    const auto is_before = [](const Placed &one, const std::tuple<uint32_t, double> &other) {
        return std::tuple(one.address, one.time_s) < other;
    };
    const auto after = std::lower_bound(placed_.begin(), placed_.end(), std::tuple(address, time_s), is_before);
    const bool is_after = after != placed_.end() && after->address == address;
    const bool is_before_there = after != placed_.begin() && std::prev(after)->address == address;
    std::optional<Placed> found;
    if (is_after && is_before_there) found = between(*std::prev(after), *after, time_s);
    if (!found && is_before_there) found = carried_on(*std::prev(after), time_s);
    if (!found && is_after) found = carried_on(*after, time_s);
    return found;
}

std::optional<Meeting> StationFinder::meeting_of(const Measured &measured) const {
    auto placed = placed_at(measured.address, measured.time_s);
    const auto height_m = measured.height_m ? measured.height_m : placed ? placed->height_m : std::nullopt;
    if (!placed || !height_m) return std::nullopt;
    placed->place.height_m = *height_m;
    return Meeting{.address = measured.address,
                   .target = placed->place,
                   .target_error_m = placed->standard_error_m,
                   .range_nm = measured.range_nm,
                   .azimuth_deg = measured.azimuth_deg};
}

std::vector<Meeting> StationFinder::meetings_of(std::span<const Measured> measured) const {
    std::vector<Meeting> meetings;
    for (const Measured &each : measured)
        if (const auto meeting = meeting_of(each)) meetings.push_back(*meeting);
    if (meetings.size() <= kMostMeetings) return meetings;
    std::vector<Meeting> chosen;
    for (size_t i = 0; i < kMostMeetings; ++i) chosen.push_back(meetings[i * meetings.size() / kMostMeetings]);
    return chosen;
}

// ---- Rounds ----

std::vector<ast_site_t> StationFinder::find_next() const {
    std::vector<ast_site_t> found;
    for (auto first = measured_.begin(); first != measured_.end();) {
        const uint32_t source = first->source;
        const auto is_other = [&](const Measured &each) { return each.source != source; };
        const auto last = std::find_if(first, measured_.end(), is_other);
        if (const auto fit = fit_station(meetings_of({first, last})))
            found.push_back({.sac = source >> 8,
                             .sic = source & 0xFF,
                             .known = AST_SITE_WORKED_OUT,
                             .place = fit->place,
                             .standard_error_m = fit->standard_error_m});
        first = last;
    }
    return found;
}

// The stations of a round are not used in it, so that their order does not matter.
std::vector<ast_site_t> StationFinder::find_all(SiteMemory known) {
    std::vector<ast_site_t> all;
    std::ranges::stable_sort(measured_, {}, [](const Measured &each) { return each.source; });
    for (int round = 0; round < kMostRounds; ++round) {
        if (!place_those_of_known(known) && round != 0) break;
        std::ranges::stable_sort(placed_, {}, [](const Placed &each) { return std::tuple(each.address, each.time_s); });
        for (const ast_site_t &site : find_next()) {
            known.add(site);
            all.push_back(site);
        }
    }
    return all;
}

bool StationFinder::find(SiteMemory &sites) const {
    bool is_any_better = false;
    for (const ast_site_t &site : StationFinder(*this).find_all(sites.told())) {
        const ast_site_t *const there = sites.find(site.sac, site.sic);
        if (there && there->standard_error_m <= site.standard_error_m) continue;
        sites.add(site);
        is_any_better = true;
    }
    return is_any_better;
}

} // namespace ast::recording
