// One ground station: what it hears of the traffic, and what it sends when.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "common/simulator.hpp"
#include "reports.hpp"

namespace simulation {

class Station final : public Sensor {
public:
    Station(Traffic &traffic, Random &random, double start_s, Edition edition);

    // Listens for half a second, in which every other aircraft is due for a report, and sends what it heard.
    std::vector<Datagram> next() override;
    double elapsed_s() const override;

private:
    // What is remembered of an aircraft from report to report.
    struct Contact {
        uint64_t aircraft_serial = 0;
        uint32_t track_number = 0;
        std::optional<double> identified_s;
    };

    std::vector<Report> listen();
    std::optional<Report> hear(size_t place);
    Contact &contact_with(size_t place);

    Traffic &traffic_;
    Random &random_;
    double start_s_;
    Edition edition_;
    uint64_t periods_ = 0;
    uint32_t last_track_number_ = 0;
    std::vector<Contact> contacts_; // one for each aircraft, in the order of the traffic
};

} // namespace simulation
