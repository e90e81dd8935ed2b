// The command line that simulators share, and their run from the first datagram to the last.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "random.hpp"
#include "splice.hpp"
#include "traffic.hpp"

namespace simulation {

class Sensor {
public:
    virtual ~Sensor() = default;

    // What it sends in its next step.
    virtual std::vector<Datagram> next() = 0;

    // How long it has been running.
    virtual double elapsed_s() const = 0;
};

struct Simulator {
    const char *name;
    const char *description;
    const char *examples;
    uint8_t station; // its number, the last of its addresses
    std::function<std::unique_ptr<Sensor>(Traffic &traffic, Random &random, double start_s)> make_sensor;
    std::function<void(CLI::App &app)> add_options; // that only it has; null for none
};

// Returns the exit status.
int run(int argc, char **argv, const Simulator &simulator);

} // namespace simulation
