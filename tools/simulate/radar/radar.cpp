#include "radar.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

namespace simulation {

namespace {

constexpr double kPrimaryRangeNm = 80;
constexpr double kRangeNm = 255.9; // I048/040 holds less than 256 NM
constexpr double kAntennaHeightFt = 80;

constexpr double kRangeErrorNm = 0.03;
constexpr double kAzimuthErrorDeg = 0.1;
constexpr double kPrimaryDetection = 0.85;
constexpr double kFalsePlotsPerSector = 0.01;

constexpr unsigned kHitsToConfirm = 3;
constexpr unsigned kMissesToDrop = 3;
constexpr uint32_t kTrackNumbers = 4096; // 12 bits in I048/161

// From the line crossing to the wire: the time that processing takes.
constexpr double kShortestDelayS = 0.004;
constexpr double kLongestDelayS = 0.015;

bool is_visible(const Aircraft &aircraft, double slant_range_nm) {
    return slant_range_nm < kRangeNm && slant_range_nm < line_of_sight_nm(aircraft.altitude_ft, kAntennaHeightFt);
}

// Where an aircraft is when the beam, which is at north now, gets there. Going by its bearing now is close enough: the
// beam is much faster than any aircraft.
Ground where_beam_meets(const Aircraft &aircraft) {
    return position_after_nm(aircraft, bearing_deg(aircraft.position_nm) / 360 * kRotationPeriodS);
}

} // namespace

Radar::Radar(Traffic &traffic, Random &random, double start_s, const RadarForm &form, Truth &truth)
    : traffic_(traffic),
      random_(random),
      start_s_(start_s),
      form_(form),
      truth_(truth),
      tracks_(traffic.aircraft().size()) {}

unsigned Radar::sector() const { return static_cast<unsigned>(sectors_turned_ % kSectors); }

double Radar::elapsed_s() const { return static_cast<double>(sectors_turned_) * kSectorS; }

double Radar::sector_time_s() const { return start_s_ + elapsed_s(); }

std::vector<Datagram> Radar::next() {
    std::vector<Datagram> datagrams = send();
    sweep();
    ++sectors_turned_;
    return datagrams;
}

std::vector<Octets> Radar::service_messages() const {
    std::vector<Octets> messages;
    if (sector() == 0) messages.push_back(encode_north_marker(sector_time_s()));
    messages.push_back(encode_sector_crossing(sector_time_s(), sector()));
    return messages;
}

std::vector<Datagram> Radar::send() {
    std::vector<Octets> blocks = pack_blocks(kTargetReports, reports_, kMostPayloadOctets);
    std::ranges::move(pack_blocks(kServiceMessages, service_messages(), kMostPayloadOctets),
                      std::back_inserter(blocks));
    if (sector() == 0) truth_.turn();
    for (const Answer &each : answers_) truth_.pass(each.serial, each.answered);
    return pack_datagrams(blocks, sector_time_s() + form_.delay_s + random_.between(kShortestDelayS, kLongestDelayS));
}

void Radar::begin_turn() {
    traffic_.advance(kRotationPeriodS);
    passes_.clear();
    for (const Aircraft &aircraft : traffic_.aircraft()) {
        const Ground position_nm = where_beam_meets(aircraft);
        passes_.push_back({.aircraft = passes_.size(),
                           .slant_range_nm = slant_range_nm(position_nm, aircraft.altitude_ft),
                           .azimuth_deg = bearing_deg(position_nm)});
    }
    std::ranges::sort(passes_, std::greater(), &Pass::azimuth_deg);
}

void Radar::sweep() {
    if (sector() == 0) begin_turn();
    plots_.clear();
    answers_.clear();
    for (; !passes_.empty() && passes_.back().azimuth_deg < (sector() + 1) * kSectorDeg; passes_.pop_back())
        look(passes_.back());
    if (random_.chance(kFalsePlotsPerSector)) add_false_plot();
    std::ranges::sort(plots_, {}, &Plot::time_s);
    reports_.clear();
    for (const Plot &plot : plots_) reports_.push_back(encode_target_report(plot));
}

void Radar::look(const Pass &pass) {
    const Aircraft &aircraft = traffic_.aircraft()[pass.aircraft];
    Track &track = tracks_[pass.aircraft];
    if (track.aircraft_serial != aircraft.serial) track = {.aircraft_serial = aircraft.serial};
    const bool visible = is_visible(aircraft, pass.slant_range_nm);
    const bool in_primary_range = visible && pass.slant_range_nm < kPrimaryRangeNm;
    const bool can_answer = visible && aircraft.transponder != Transponder::none;
    const bool seen_by_primary = in_primary_range && random_.chance(kPrimaryDetection);
    const bool answered = can_answer && random_.chance(form_.detection);
    if (has_mode_s(aircraft)) answers_.push_back({aircraft.serial, answered});
    if (seen_by_primary || answered)
        hit(pass, track, seen_by_primary, answered);
    else if (++track.misses >= kMissesToDrop)
        track.hits = 0;
}

void Radar::hit(const Pass &pass, Track &track, bool seen_by_primary, bool answered) {
    const bool is_first = track.hits == 0;
    track.misses = 0;
    if (++track.hits == kHitsToConfirm) track.number = last_track_number_ = (last_track_number_ + 1) % kTrackNumbers;
    Plot plot = measure(pass.slant_range_nm, pass.azimuth_deg);
    plot.aircraft = &traffic_.aircraft()[pass.aircraft];
    plot.seen_by_primary = seen_by_primary;
    plot.answered = answered;
    plot.all_call = is_first && has_mode_s(*plot.aircraft);
    if (track.hits >= kHitsToConfirm) plot.track_number = track.number;
    plots_.push_back(plot);
}

void Radar::add_false_plot() {
    const double range_nm = random_.between(2, kPrimaryRangeNm);
    Plot plot = measure(range_nm, (sector() + random_.between(0, 1)) * kSectorDeg);
    plot.seen_by_primary = true;
    plots_.push_back(plot);
}

// The time is that of the beam; range and azimuth come with errors.
Plot Radar::measure(double slant_range_nm, double azimuth_deg) {
    Plot plot{};
    plot.time_s = sector_time_s() + (azimuth_deg / kSectorDeg - sector()) * kSectorS;
    plot.slant_range_nm = slant_range_nm + random_.error(kRangeErrorNm);
    plot.azimuth_deg = std::fmod(azimuth_deg + random_.error(kAzimuthErrorDeg) + 360, 360);
    return plot;
}

} // namespace simulation
