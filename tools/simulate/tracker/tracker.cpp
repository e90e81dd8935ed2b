#include "tracker.hpp"

#include <cmath>

namespace simulation {

namespace {

constexpr double kBatchesPerSecond = 5;
constexpr uint64_t kBatchesPerRound = 20;
constexpr double kRoundS = kBatchesPerRound / kBatchesPerSecond;

constexpr double kDetection = 0.85; // by the radar in each turn of its antenna, which takes a round
constexpr double kLongestSquitterS = 1.5;
constexpr double kDelayS = 0.02;           // from the time of the tracks to the wire
constexpr uint64_t kTentativeMessages = 2; // then a track is confirmed
constexpr uint32_t kLastTrackNumber = 4000;

// Where the radar saw it, so many seconds ago.
Measurement measure(const Aircraft &aircraft, double time_s, double age_s) {
    const Ground position_nm = position_after_nm(aircraft, -age_s);
    return {.time_s = time_s - age_s,
            .rho_nm = slant_range_nm(position_nm, aircraft.altitude_ft),
            .theta_deg = bearing_deg(position_nm),
            .altitude_ft = aircraft.altitude_ft - aircraft.vertical_rate_ft_min * age_s / 60};
}

} // namespace

Tracker::Tracker(Traffic &traffic, Random &random, double start_s)
    : traffic_(traffic), random_(random), start_s_(start_s), memories_(traffic.aircraft().size()) {}

double Tracker::elapsed_s() const { return static_cast<double>(batches_) / kBatchesPerSecond; }

std::vector<Datagram> Tracker::next() {
    traffic_.advance(1 / kBatchesPerSecond);
    ++batches_;
    std::vector<Octets> blocks = pack_blocks(kTracks, send_tracks(), kMostPayloadOctets);
    for (const Octets &block : pack_blocks(kServiceMessages, send_service_messages(), kMostPayloadOctets))
        blocks.push_back(block);
    return pack_datagrams(blocks, now_s() + kDelayS);
}

std::vector<Octets> Tracker::send_tracks() {
    std::vector<Octets> records;
    for (size_t place = batches_ % kBatchesPerRound; place < memories_.size(); place += kBatchesPerRound) {
        Memory &memory = memories_[place];
        const Aircraft &aircraft = traffic_.aircraft()[place];
        if (memory.aircraft_serial != aircraft.serial) {
            if (memory.aircraft_serial != 0) records.push_back(encode_track_end(memory.track_number, now_s()));
            begin_track(memory, aircraft);
        }
        records.push_back(update(memory, aircraft));
    }
    return records;
}

std::vector<Octets> Tracker::send_service_messages() const {
    const auto batch = static_cast<uint32_t>(batches_ % kBatchesPerRound);
    std::vector<Octets> records = {encode_end_of_batch(now_s(), batch)};
    if (batch == 0) records.push_back(encode_status(now_s()));
    return records;
}

Octets Tracker::update(Memory &memory, const Aircraft &aircraft) {
    const double age_s = random_.between(0, kRoundS);
    if (memory.messages == 0 || random_.chance(kDetection)) memory.measured = measure(aircraft, now_s(), age_s);
    ++memory.messages;
    return encode_track({.number = memory.track_number,
                         .time_s = now_s(),
                         .is_first = memory.messages == 1,
                         .is_tentative = memory.messages <= kTentativeMessages,
                         .squitter_s = now_s() - random_.between(0, kLongestSquitterS),
                         .measured = memory.measured,
                         .aircraft = &aircraft});
}

void Tracker::begin_track(Memory &memory, const Aircraft &aircraft) {
    last_track_number_ = last_track_number_ % kLastTrackNumber + 1;
    memory = {.aircraft_serial = aircraft.serial, .track_number = last_track_number_};
}

} // namespace simulation
