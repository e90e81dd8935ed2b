#include "simulator.hpp"

#include <cstdio>
#include <exception>
#include <regex>

#include "output.hpp"

namespace simulation {

namespace {

struct Options {
    uint64_t seed = 1;
    uint64_t aircraft = 30;
    double duration_s = 60;
    std::string start = "12:00:00";
    uint64_t size_octets = 0; // 0: as long as the duration
    std::string file;
    bool raw = false;
    std::string url;
    double speed = 1;
};

double seconds_since_midnight(const std::string &time) {
    return std::stoi(time.substr(0, 2)) * 3600 + std::stoi(time.substr(3, 2)) * 60 + std::stoi(time.substr(6, 2));
}

std::string check_time(const std::string &time) {
    static const std::regex kTime("([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]");
    return std::regex_match(time, kTime) ? std::string() : "'" + time + "' is not a time of day";
}

void describe_scene(CLI::App &app, Options &options) {
    app.add_option("--seed", options.seed, "Another seed, another recording")->type_name("N");
    app.add_option("--aircraft", options.aircraft, "Aircraft at a time, 30 if not given")
        ->check(CLI::Range(1, 10000).description(""))
        ->type_name("N");
    app.add_option("--start", options.start, "Time of day in UTC, 12:00:00 if not given")
        ->check(check_time)
        ->type_name("HH:MM:SS");
    CLI::Option *const duration = app.add_option("--duration", options.duration_s, "Length, 60 s if not given")
                                      ->check(CLI::Range(0.001, 1e9).description(""))
                                      ->type_name("SECONDS");
    app.add_option("--size", options.size_octets, "Go on until there are so many octets, such as 500k or 1G")
        ->transform(CLI::AsSizeValue(true).description(""))
        ->excludes(duration)
        ->type_name("OCTETS");
}

void describe_output(CLI::App &app, Options &options) {
    CLI::Option_group *const where = app.add_option_group("Output", "Where it goes, one of these");
    CLI::Option *const file =
        where->add_option("--output", options.file, "Write a capture; - is standard output")->type_name("FILE");
    CLI::Option *const url =
        where->add_option("--send", options.url, "Send the datagrams to udp://HOST:PORT")->type_name("URL");
    where->require_option(1);
    app.add_flag("--raw", options.raw, "Write the blocks one after the other instead of a capture")->needs(file);
    app.add_option("--speed", options.speed, "Send faster than real time by this factor")
        ->check(CLI::Range(0.001, 1e6).description(""))
        ->needs(url)
        ->type_name("FACTOR");
}

std::unique_ptr<Output> open(const Options &options, uint8_t station) {
    if (!options.url.empty()) return open_live(options.url, options.speed);
    return options.raw ? open_raw_file(options.file) : open_capture(options.file, station);
}

bool is_done(const Options &options, const Output &output, double elapsed_s) {
    return options.size_octets > 0 ? output.size_octets() >= options.size_octets : elapsed_s >= options.duration_s;
}

void simulate(const Options &options, const Simulator &simulator) {
    const std::unique_ptr<Output> output = open(options, simulator.station);
    Random random(options.seed);
    Traffic traffic(random, options.aircraft);
    const std::unique_ptr<Sensor> sensor =
        simulator.make_sensor(traffic, random, seconds_since_midnight(options.start));
    while (!is_done(options, *output, sensor->elapsed_s()))
        for (const Datagram &datagram : sensor->next()) output->write(datagram);
    output->finish();
}

} // namespace

int run(int argc, char **argv, const Simulator &simulator) {
    CLI::App app(simulator.description, simulator.name);
    Options options;
    if (simulator.add_options) simulator.add_options(app);
    describe_scene(app, options);
    describe_output(app, options);
    app.footer(simulator.examples);
    CLI11_PARSE(app, argc, argv);
    try {
        simulate(options, simulator);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s: %s\n", simulator.name, error.what());
        return 1;
    }
    return 0;
}

} // namespace simulation
