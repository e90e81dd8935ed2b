// Makes a recording of one rotating radar with the library's encoders, or sends it live.

#include "radar.hpp"

using namespace simulation;

namespace {

constexpr const char *kExamples =
    R"(The same options give the same octets on the same machine.

Examples:
  simulate_radar --seed 7 --aircraft 40 --duration 300 --output radar.pcap
  simulate_radar --aircraft 300 --size 1G --raw --output large.ast
  simulate_radar --send udp://127.0.0.1:8600 --speed 10)";

} // namespace

int main(int argc, char **argv) {
    return run(argc, argv,
               {.name = "simulate_radar",
                .description = "Simulates a rotating radar and the traffic around it.",
                .examples = kExamples,
                .station = kRadarSic,
                .make_sensor = [](Traffic &traffic, Random &random, double start_s) {
                    return std::make_unique<Radar>(traffic, random, start_s);
                }});
}
