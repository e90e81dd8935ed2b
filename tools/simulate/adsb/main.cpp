// Makes a recording of one ADS-B ground station with the library's encoders, or sends it live.

#include "station.hpp"

using namespace simulation;

namespace {

constexpr const char *kExamples =
    R"(The same options give the same octets on the same machine.

Examples:
  simulate_adsb --seed 7 --aircraft 40 --duration 300 --output adsb.pcap
  simulate_adsb --edition 0.23 --raw --output old.ast
  simulate_adsb --send udp://127.0.0.1:8600)";

constexpr const char *kOldEdition = "0.23";
constexpr const char *kLaterEdition = "2.1";

} // namespace

int main(int argc, char **argv) {
    std::string edition = kLaterEdition;
    return run(argc, argv,
               {.name = "simulate_adsb",
                .description = "Simulates an ADS-B ground station and the traffic around it.",
                .examples = kExamples,
                .station = kStationSic,
                .make_sensor =
                    [&](Traffic &traffic, Random &random, double start_s) {
                        return std::make_unique<Station>(traffic, random, start_s,
                                                         edition == kOldEdition ? Edition::ed0_23 : Edition::ed2_1);
                    },
                .add_options =
                    [&](CLI::App &app) {
                        app.add_option("--edition", edition, "Of category 021: 0.23 or 2.1, 2.1 if not given")
                            ->check(CLI::IsMember({kOldEdition, kLaterEdition}).description(""))
                            ->type_name("EDITION");
                    }});
}
