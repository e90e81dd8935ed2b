// Makes a recording of one tracker, whose records it describes as JSON, or sends it live.

#include "tracker.hpp"

using namespace simulation;

namespace {

constexpr const char *kExamples =
    R"(The same options give the same octets on the same machine.

Examples:
  simulate_tracker --seed 7 --aircraft 40 --duration 300 --output tracks.pcap
  simulate_tracker --raw --size 1M --output tracks.ast
  simulate_tracker --send udp://127.0.0.1:8600)";

} // namespace

int main(int argc, char **argv) {
    return run(argc, argv,
               {.name = "simulate_tracker",
                .description = "Simulates a tracker and the traffic around it.",
                .examples = kExamples,
                .station = kTrackerSic,
                .make_sensor = [](Traffic &traffic, Random &random,
                                  double start_s) { return std::make_unique<Tracker>(traffic, random, start_s); },
                .add_options = nullptr});
}
