// One rotating antenna: what it sees of the traffic, what becomes a track, and what it sends when.
#pragma once

#include <cstdint>
#include <vector>

#include "common/simulator.hpp"
#include "messages.hpp"
#include "truth.hpp"

namespace simulation {

struct RadarForm {
    double detection = 0.97; // how likely a transponder answers
    double delay_s = 0;      // on the way, beside what processing takes
};

class Radar final : public Sensor {
public:
    Radar(Traffic &traffic, Random &random, double start_s, const RadarForm &form, Truth &truth);

    // Sends when the antenna crosses into a sector, and sweeps that sector. What it finds is sent the next time.
    std::vector<Datagram> next() override;
    double elapsed_s() const override;

private:
    // How an aircraft is followed from turn to turn.
    struct Track {
        uint64_t aircraft_serial = 0;
        unsigned hits = 0;
        unsigned misses = 0; // since the last hit
        uint32_t number = 0; // from the hit that confirms it
    };

    // When and where the beam of this turn passes an aircraft.
    struct Pass {
        size_t aircraft; // its place in the traffic
        double slant_range_nm;
        double azimuth_deg;
    };

    // Whether an aircraft has answered when the beam passed.
    struct Answer {
        uint64_t serial;
        bool answered;
    };

    unsigned sector() const;
    double sector_time_s() const;
    std::vector<Octets> service_messages() const;
    std::vector<Datagram> send();
    void begin_turn();
    void sweep();
    void look(const Pass &pass);
    void hit(const Pass &pass, Track &track, bool seen_by_primary, bool answered);
    void add_false_plot();
    Plot measure(double slant_range_nm, double azimuth_deg);

    Traffic &traffic_;
    Random &random_;
    double start_s_;
    RadarForm form_;
    Truth &truth_;
    uint64_t sectors_turned_ = 0;
    uint32_t last_track_number_ = 0;
    std::vector<Track> tracks_;   // one for each aircraft, in the order of the traffic
    std::vector<Pass> passes_;    // those of this turn that are still to come, the next one last
    std::vector<Plot> plots_;     // of the sector being swept
    std::vector<Answer> answers_; // of those with Mode S, in the sector swept last
    std::vector<Octets> reports_; // of the sector swept last
};

} // namespace simulation
