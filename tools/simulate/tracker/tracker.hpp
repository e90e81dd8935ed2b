// One tracker: what it makes of what a radar sees and an ADS-B station hears of the traffic, and what it sends when.
#pragma once

#include <cstdint>
#include <vector>

#include "common/simulator.hpp"
#include "messages.hpp"

namespace simulation {

class Tracker final : public Sensor {
public:
    Tracker(Traffic &traffic, Random &random, double start_s);

    // Sends a batch: the tracks of every twentieth aircraft, and the end of the batch. A round of all takes 4 s and
    // begins with a status message.
    std::vector<Datagram> next() override;
    double elapsed_s() const override;

private:
    // What is remembered of an aircraft from message to message.
    struct Memory {
        uint64_t aircraft_serial = 0; // 0: no track
        uint32_t track_number = 0;
        uint64_t messages = 0;
        Measurement measured{};
    };

    double now_s() const { return start_s_ + elapsed_s(); }
    std::vector<Octets> send_tracks();
    std::vector<Octets> send_service_messages() const;
    Octets update(Memory &memory, const Aircraft &aircraft);
    void begin_track(Memory &memory, const Aircraft &aircraft);

    Traffic &traffic_;
    Random &random_;
    double start_s_;
    size_t batches_ = 0;
    uint32_t last_track_number_ = 0;
    std::vector<Memory> memories_; // one for each aircraft, in the order of the traffic
};

} // namespace simulation
