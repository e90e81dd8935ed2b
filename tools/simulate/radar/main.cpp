// Makes a recording of one rotating radar with the library's encoders, or sends it live.

#include <cstdio>

#include "radar.hpp"

using namespace simulation;

namespace {

constexpr const char *kExamples =
    R"(The same options give the same octets on the same machine.

Examples:
  simulate_radar --seed 7 --aircraft 40 --duration 300 --output radar.pcap
  simulate_radar --aircraft 300 --size 1G --raw --output large.ast
  simulate_radar --send udp://127.0.0.1:8600 --speed 10)";

struct Options {
    RadarForm form;
    std::string truth;
};

void describe(CLI::App &app, Options &options) {
    app.add_option("--detection", options.form.detection, "How likely transponders answer, 0.97 if not given")
        ->check(CLI::Range(0.0, 1.0).description(""))
        ->type_name("P");
    app.add_option("--delay", options.form.delay_s, "How long datagrams are on the way")
        ->check(CLI::Range(0.0, 3600.0).description(""))
        ->type_name("SECONDS");
    app.add_option("--truth", options.truth, "Write how many turns there were, and who was detected, as JSON")
        ->type_name("FILE");
}

int write(const std::string &path, const std::string &text) {
    std::FILE *const file = std::fopen(path.c_str(), "wb");
    const bool is_written = file && std::fputs(text.c_str(), file) >= 0;
    if (file && std::fclose(file) == 0 && is_written) return 0;
    std::perror(path.c_str());
    return 1;
}

} // namespace

int main(int argc, char **argv) {
    Options options;
    Truth truth;
    const int status = run(argc, argv,
                           {.name = "simulate_radar",
                            .description = "Simulates a rotating radar and the traffic around it.",
                            .examples = kExamples,
                            .station = kRadarSic,
                            .make_sensor =
                                [&](Traffic &traffic, Random &random, double start_s) {
                                    return std::make_unique<Radar>(traffic, random, start_s, options.form, truth);
                                },
                            .add_options = [&](CLI::App &app) { describe(app, options); }});
    return status != 0 || options.truth.empty() ? status : write(options.truth, truth.json());
}
