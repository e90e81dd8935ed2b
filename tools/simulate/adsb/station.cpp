#include "station.hpp"

#include <algorithm>
#include <cmath>

namespace simulation {

namespace {

constexpr double kPeriodS = 0.5;
constexpr uint64_t kPeriodsPerReport = 2;

constexpr double kAntennaHeightFt = 120;
constexpr double kRangeNm = 200;

// Of a position nearby; the farther, the fewer.
constexpr double kReception = 0.98;
constexpr double kLossAtRange = 0.4;
constexpr double kVelocityReception = 0.93;
constexpr double kIdentificationS = 5;
constexpr double kIdentificationsPerReport = 1 / kIdentificationS;

constexpr uint32_t kTrackNumbers = 4096; // 12 bits in I021/161

// From the end of a period to the wire.
constexpr double kShortestDelayS = 0.01;
constexpr double kLongestDelayS = 0.03;

} // namespace

Station::Station(Traffic &traffic, Random &random, double start_s, Edition edition)
    : traffic_(traffic), random_(random), start_s_(start_s), edition_(edition), contacts_(traffic.aircraft().size()) {}

double Station::elapsed_s() const { return static_cast<double>(periods_) * kPeriodS; }

std::vector<Datagram> Station::next() {
    traffic_.advance(kPeriodS);
    std::vector<Report> reports = listen();
    ++periods_;
    const double sent_s = start_s_ + elapsed_s() + random_.between(kShortestDelayS, kLongestDelayS);
    std::vector<Octets> records;
    for (Report &report : reports) {
        report.sent_s = sent_s;
        records.push_back(encode_report(report, edition_));
    }
    return pack_datagrams(pack_blocks(kAdsbReports, records, kMostPayloadOctets), sent_s);
}

std::vector<Report> Station::listen() {
    std::vector<Report> reports;
    for (size_t place = 0; place < contacts_.size(); ++place)
        if (const std::optional<Report> report = hear(place)) reports.push_back(*report);
    std::ranges::sort(reports, {}, &Report::received_s);
    return reports;
}

// The traffic is where it is at the end of the period.
std::optional<Report> Station::hear(size_t place) {
    const Aircraft &aircraft = traffic_.aircraft()[place];
    if (!has_mode_s(aircraft) || (aircraft.serial + periods_) % kPeriodsPerReport != 0) return {};
    const double range_nm = slant_range_nm(aircraft.position_nm, aircraft.altitude_ft);
    if (range_nm > std::min(kRangeNm, line_of_sight_nm(aircraft.altitude_ft, kAntennaHeightFt))) return {};
    if (!random_.chance(kReception - kLossAtRange * range_nm / kRangeNm)) return {};

    Contact &contact = contact_with(place);
    const double into_period_s = random_.between(0, kPeriodS);
    Report report{};
    report.received_s = start_s_ + elapsed_s() + into_period_s;
    report.position = geographic(position_after_nm(aircraft, into_period_s - kPeriodS));
    report.has_velocity = random_.chance(kVelocityReception);
    if (random_.chance(kIdentificationsPerReport)) contact.identified_s = report.received_s;
    report.identified_s = contact.identified_s;
    report.track_number = contact.track_number;
    report.aircraft = &aircraft;
    return report;
}

Station::Contact &Station::contact_with(size_t place) {
    Contact &contact = contacts_[place];
    const uint64_t serial = traffic_.aircraft()[place].serial;
    if (contact.aircraft_serial == serial) return contact;
    last_track_number_ = (last_track_number_ + 1) % kTrackNumbers;
    contact = {.aircraft_serial = serial, .track_number = last_track_number_, .identified_s = {}};
    // Those of the first reports were there before.
    if (periods_ < kPeriodsPerReport) contact.identified_s = start_s_ - random_.between(0, kIdentificationS);
    return contact;
}

} // namespace simulation
