#include "run/options.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "ask/suggestion.hpp"
#include "base/nearest.hpp"
#include "base/numbers.hpp"
#include "framing/text_octets.hpp"
#include "run/output_options.hpp"
#include "show/field_list.hpp"
#include "show/terminal.hpp"
#include "show/write_file.hpp"
#include "show/write_table.hpp"
#include "source/given_sites.hpp"
#include "source/live_url.hpp"
#include "system/files.hpp"
#include "system/process.hpp"
#include "write/block_converter.hpp"

namespace ast::recording::astdump {

namespace {

constexpr const char *kHelp = R"(Shows the ASTERIX surveillance data in recordings, and as it arrives.
Usage: astdump [OPTIONS] FILE...

FILE is a capture, a file of blocks or of JSON, a text with octets,
- for standard input, udp://HOST:PORT, or tcp://HOST:PORT.

  --list, --detail          a line per record; every field; neither: every item
  --json, --csv [PATHS]     data; a table of quantities and fields
  --stats, --top            counts; a table of what arrives
  --html PAGE               a page for web browsers
  --diff                    what differs between two files
  -w,--write NEWFILE        a .pcap, .ast or .json file, or udp://, of a choice
  --where EXPRESSION        only such records: 'callsign=KLM* and fl>=350'
  --fields [PATTERN]        the names that it knows: '*level*'
  --category LIST           only these: 34,48
  -c,--count N              only so many
  -q,--quiet, -v,--verbose  only what is damaged; each of it by itself

  astdump recording.pcap
  astdump --list --where squawk=7700 recording.pcap
  astdump --list udp://239.1.1.1:8600
  astdump 300007A0190CA0

--help all explains everything, and so does man astdump.
)";

constexpr const char *kExamples =
    R"(Captures may be pcap or pcapng, of Ethernet with or without VLAN tags, Linux cooked, loopback or raw IP, with UDP
or TCP over IPv4 or IPv6, or LLC frames; any other file holds blocks, one after the other or as a recorder has wrapped
them, or records as JSON, an object a line. All of them may be compressed by gzip or zstd. The kind is told by content.

Each item is listed with its type, name, size in octets, summary where there is one, and octets in hexadecimal. Lines
are laid out for the width of the terminal, or for 120 columns elsewhere: long octets go on in their column, and a long
summary pushes them to the next line.

Profiles: standard, cat001-plot, cat021-0.23, cat021-0.26, cat021-2.1, cat021-2.4, asr10ss, asr10ss-mk2, thales,
managair, published, published-other. A block for which a profile has nothing of its own is read by the standard one.

--where takes an expression: conditions, joined by and, or, not and parentheses. A condition is a name, to have any value;
a name with an operator, = != < <= > >=, and a value, or with = and a range, fl=100..200; squawk in (7500,7600,7700); within
40nm of 48.35,11.79; or inside area.geojson. Numbers may have a unit, altitude>3000m, times are as 12:00:01.5, in texts *
and ? stand for any characters, and codes of fields are known by number or text, I048/020/TYP="ModeS roll-call". Blocks
without a record that is asked for are left out.

--where and --csv know timestamp, time, category, sac, sic, type, track_number, squawk (octal), callsign, icao24
(hexadecimal), fl (350), altitude_ft, selected_altitude_ft, latitude, longitude, range_nm, azimuth_deg, x_nm, y_nm,
groundspeed_kt, track_deg, magnetic_heading_deg, true_heading_deg, vertical_rate_ftmin, spi, emergency, on_ground and
simulated, and the shorter sacsic (25/12), track, icao, selalt, position, polar, speed, heading, velocity and vrate; and
every published field by its path (I070/MODE3A of any category, I048/070/MODE3A of one, I250/MCP_ALT), in published
units, and items (I240). --fields lists them all.

--list shows latitude and longitude also of what is measured from a place that the recording tells or --site gives:
G behind them is placed as on the ground, without a height, and E from a place that is worked out by aircraft that others
saw, too; --verbose says where that is. A height with ? is garbled or not validated.

Exit status: 0 when all is well, 1 when a block or the input is damaged, or what a source sends cannot be, or not all
could be sent, 2 for a mistake on the command line or a file that cannot be read.

Examples:
  astdump recording.pcap                     list all blocks
  astdump --category 34,48 --count 10 a.pcap the first ten blocks of a radar
  astdump --stats recording.pcapng           count blocks, records and items
  astdump --report radar.pcap                how well a radar works: turns, detection, delays
  astdump --port 8600 --from 12:00 --to 12:05 a.pcap
                                             five minutes of one stream
  astdump --list --merge a.pcap b.pcap       two recordings as one, in the order of time
  astdump --detail --count 1 a.pcap          the value of every field of the first block
  astdump --html a.html a.pcap               a page to click through, with the bits of every item
  astdump 300007A0190CA0                     the octets of a block, and so does a mail on standard input
  astdump --quiet *.ast || echo damaged      check files in a script
  astdump --uap cat021-2.1 adsb.pcap         read category 021 as edition 2.1
  astdump --list recording.pcap | less -S    one line per record
  astdump --json recording.pcap | jq .I140   every value of every record, a line of JSON each
  astdump a.pcap --where track=42 --write b.pcap
                                             the reports of one track as a capture of their own
  astdump a.pcap --set I010/SIC=99 --write b.pcap
                                             the same with another SIC
  astdump --merge --dedup --write c.pcap a.pcap b.pcap
                                             what came over two networks, once
  astdump a.pcap --convert 1,2 --write b.pcap
                                             a recording of a modern radar for an old display
  astdump --write udp://239.1.1.1:8600 --speed 10 a.pcap
                                             send a recording, ten times as fast as it was made
  astdump --write udp://239.1.1.1:8600 --shift now --loop a.pcap
                                             send it over and over, as if it were made now
  astdump udp://239.1.1.1:8600 --where 'fl>100' --write udp://127.0.0.1:9000
                                             pass on what flies high
  astdump udp://239.1.1.1:8600 --listen tcp://127.0.0.1:8600
                                             let others connect and get what comes
  astdump udp://239.1.1.1:8600 --write day-%Y%m%d-%H.pcap --rotate 1h --keep 48
                                             record, and keep the last two days
  astdump --list --where squawk=7700 a.pcap  who is in distress
  astdump --list --site 25/12=43.57,16.41,780 a.pcap
                                             what a radar sees, as latitude and longitude
  astdump --diff --within 0.1s a.pcap b.pcap what two recordings of one radar do not have in common
  astdump --where track --where fl=350 a.pcap tracks at flight level 350
  astdump --where 'I070/MODE3A>=7500' a.pcap  by a published field
  astdump --list --where 'fl=100..200 and within 40nm of 48.35,11.79' a.pcap
                                             who is there, at these levels
  astdump --fields '*level*'                 how fields are called that have to do with levels
  astdump --list udp://239.1.1.1:8600        join a multicast group and list what comes; several at once
  astdump --list tcp://radar.example:8600    connect to a server and list what it sends
  astdump --top udp://239.1.1.1:8600         watch who sends how much
  astdump --follow --quiet growing.pcap      watch a recording for damage while it is made
  tcpdump -i eth0 -w - | astdump -           look at live traffic of any kind)";

std::vector<std::string> profile_names() {
    std::vector<std::string> names = {"auto"};
    for (const ast_uap_info_t &profile : profiles()) names.emplace_back(profile.name);
    return names;
}

std::vector<std::string> framing_names() {
    std::vector<std::string> names = {"auto"};
    for (const FramingKind &framing : framings()) names.emplace_back(framing.name);
    return names;
}

struct Texts {
    std::optional<std::string> help; // how much of it
    std::string profile = "auto";
    std::string framing = "auto";
    std::string categories = "0-255";
    std::vector<std::string> conditions;
    std::vector<std::string> settings;
    std::optional<std::string> seed; // of pseudonyms
    std::optional<std::string> dedup;
    std::string convert;
    std::optional<std::string> csv; // its columns
    std::string columns;            // of tables that are written, and whose names they have
    std::string names;
    std::optional<std::string> fields; // their pattern
    std::optional<std::string> count;
    std::optional<std::string> ports;
    std::optional<std::string> hosts;
    std::optional<std::string> octets; // of a file
    std::optional<std::string> from;
    std::optional<std::string> to;
    std::vector<std::string> sites;
    std::optional<std::string> site_file;
    std::optional<std::string> shift;
    std::optional<std::string> stats_every;
    std::optional<std::string> within;
    std::optional<std::string> speed;
    std::optional<std::string> rate;
    std::optional<std::string> loop;
    std::optional<std::string> ttl;
    std::optional<std::string> rotation;
    std::optional<std::string> keep;

    bool shape_sending() const { return speed || rate || loop || ttl; }
};

constexpr size_t kMaxJobs = 256;
constexpr const char *kUsualValue = "-";

bool is_number(const std::string &text) { return read_number<uint64_t>(text).has_value(); }

struct OptionalValue {
    std::string_view option;
    bool (*is_value)(const std::string &text);
};

bool is_all(const std::string &text) { return text == "all"; }
bool is_time(const std::string &text) { return find_tolerance(text).has_value(); }
bool is_no_option(const std::string &text) { return !text.starts_with("-"); }

constexpr const char *kFieldsOption = "--fields";

constexpr OptionalValue kOptionalValues[] = {{"--csv", is_csv_columns},     {"--loop", is_number}, {"--dedup", is_time},
                                             {kFieldsOption, is_no_option}, {"--help", is_all},    {"-h", is_all}};

// The parser takes whatever stands behind these for their value; what is none, such as a file, is set apart from it.
// Last first, as the parser wants them.
std::vector<std::string> arguments(int argc, char **argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.emplace_back(argv[i]);
        const auto option = std::ranges::find(kOptionalValues, arguments.back(), &OptionalValue::option);
        const bool has_value = i + 1 < argc && option != std::end(kOptionalValues) && option->is_value(argv[i + 1]);
        if (option != std::end(kOptionalValues) && !has_value) arguments.emplace_back(kUsualValue);
    }
    std::ranges::reverse(arguments);
    return arguments;
}

// A variable of a shell may be empty, too.
std::string is_name(const std::string &file) { return file.empty() ? "the name of the file is empty" : ""; }

void describe_live(CLI::App &app, Options &options) {
    app.add_flag("--follow", options.follow, "Wait for more at the end; SIGINT (Ctrl-C) ends it and shows --stats");
    app.add_option("-i,--interface", options.interface, "Network interface to listen on, by name or address")
        ->type_name("NAME");
}

void describe_datagrams(CLI::App &app, Options &options, Texts &texts) {
    app.add_option("--port", texts.ports, "Read only datagrams from or to ports such as 8600 or 8600-8620,9000")
        ->type_name("LIST");
    app.add_option("--host", texts.hosts,
                   "Read only datagrams from or to addresses such as 10.1.2.3, 10.1.0.0/16 or 10.1.2.3-10.1.2.9")
        ->type_name("LIST");
    app.add_option("--from", texts.from, "Read only what came at this time or later: 12:00 or 2014-02-25T12:43:47, UTC")
        ->type_name("TIME");
    app.add_option("--to", texts.to, "Read only what came at this time or before")->type_name("TIME");
    app.add_option("--octets", texts.octets, "Read of a file only what begins in a range such as 1M-2M, 1M- or -1M")
        ->type_name("RANGE");
    app.add_flag("--merge", options.merge, "Read several files as one, by the times of their datagrams");
}

void describe_sites(CLI::App &app, Texts &texts) {
    app.add_option("--site", texts.sites,
                   "Where a data source stands, for positions: latitude, longitude, and height in metres; repeated")
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("SAC/SIC=PLACE");
    app.add_option("--sites", texts.site_file, "The same by lines of a file, such as 25,12,43.57,16.41,780,name")
        ->type_name("FILE");
}

void describe_sending(CLI::App &app, Options &options, Texts &texts) {
    app.add_option("--listen", options.listens,
                   "Send what is chosen to whoever connects to tcp://HOST:PORT, an address of this host; repeated")
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("URL");
    app.add_option("--speed", texts.speed,
                   "Send a recording so many times as fast as it was made, or as fast as can be")
        ->type_name("N|max");
    app.add_option("--rate", texts.rate, "Send no more than so many bits a second, such as 500k or 100M")
        ->type_name("BITS");
    app.add_option("--loop", texts.loop, "Read and send the input N times over, or without an end")->type_name("[N]");
    app.add_option("--ttl", texts.ttl, "Send over so many networks, to a multicast group over one if not given")
        ->type_name("N");
}

void describe_rotation(CLI::App &app, Texts &texts) {
    app.add_option("--rotate", texts.rotation,
                   "Write files one after the other, each of so long or so many octets: 10m, 1h, 100M; NEWFILE may "
                   "have %Y%m%d-%H%M%S")
        ->type_name("LIMIT");
    app.add_option("--keep", texts.keep, "Delete the oldest of these where there are more than N")->type_name("N");
}

void describe(CLI::App &app, Options &options, Texts &texts) {
    app.set_help_flag();
    app.failure_message([](const CLI::App *, const CLI::Error &error) {
        return std::string(error.what()) + "\nRun with --help for more information.\n";
    });
    app.add_option("-h,--help", texts.help, "Print a page of help and exit, or all of it")->type_name("[all]");
    app.add_option("FILE", options.files,
                   "Captures and files of blocks, - for standard input, udp://HOST:PORT or tcp://HOST:PORT")
        ->type_name("");
    app.add_option(
           "--hex", options.hex,
           "Read the octets in a text, as FILE may be one, too; with one --category, records without CAT and LEN")
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("TEXT");
    describe_live(app, options);
    app.add_option("--uap", texts.profile,
                   "Profile to read with what it lays out, see below; auto, if not given, what fits each source")
        ->check(CLI::IsMember(profile_names()).description(""))
        ->type_name("NAME");
    app.add_option(
           "--framing", texts.framing,
           "How the blocks of a file are wrapped: raw, final, gps, oradis, hdlc, mac-llc, hex, text or json; auto, if "
           "not given, finds out")
        ->check(CLI::IsMember(framing_names()).description(""))
        ->type_name("NAME");
    app.add_option("--category", texts.categories, "Categories to show, such as 34,48 or 1-21")
        ->check([](const std::string &list) {
            return read_categories(list) ? std::string() : "'" + list + "' is not a list of categories, 0 to 255";
        })
        ->type_name("LIST");
    app.add_option("--where", texts.conditions,
                   "Show only records that meet it, such as squawk=7700 or 'fl>100 and callsign', see below; repeated, "
                   "all must hold")
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("EXPRESSION");
    app.add_option("--set", texts.settings,
                   "Give a field of these records another value: I010/SIC=99, 'I140=I140+3600', "
                   "'I010/SIC=99 if I010/SAC=25'; repeated")
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("PATH=VALUE");
    app.add_option("--anonymize", texts.seed,
                   "Replace addresses, callsigns and codes by others, the same ones for the same seed")
        ->type_name("SEED");
    app.add_option("--dedup", texts.dedup, "Leave out records that came twice within this time, 1s if not given")
        ->type_name("[WINDOW]");
    app.add_option(kFieldsOption, texts.fields,
                   "List what --where and --csv know, quantities and published fields, by a pattern such as '*level*' "
                   "or 'I048/*', with --json as data, and exit")
        ->type_name("[PATTERN]");
    app.add_option("-c,--count", texts.count, "Stop after N blocks, or N records where these are the lines")
        ->type_name("N");
    describe_datagrams(app, options, texts);
    describe_sites(app, texts);
    app.add_flag("--detail", options.detail, "Below each item of the listing, the value of every field");
    app.add_option("--html", options.html,
                   "Instead of the listing, write a page for web browsers; without FILE, an empty one to drop files on")
        ->check(is_name)
        ->type_name("PAGE");
    app.add_flag("--list", options.list, "A line per record with the common quantities in columns");
    app.add_flag("--json", options.json, "Instead of the listing, a line of JSON per record with all its values");
    app.add_flag("--texts", options.texts, "In JSON, codes with their texts");
    app.add_option("--csv", texts.csv, "A line per record as comma-separated values: all quantities, or PATHS")
        ->type_name("[PATHS]");
    app.add_flag("--arrow", options.arrow, "The same as a table, as a stream of Arrow on standard output, for a pipe");
    app.add_option("--columns", texts.columns,
                   "What tables have: common, if not given, quantities and PATHS, all, of one --category, or reports")
        ->check(is_name)
        ->type_name("LIST");
    app.add_option("--names", texts.names, "Whose names and units they have instead of their own")
        ->check(CLI::IsMember({"traffic"}).description(""))
        ->type_name("traffic");
    app.add_flag("--partition", options.partition,
                 "Write tables to a file for each day and category, in folders such as date=2024-06-01/category=48");
    app.add_flag("--stats", options.stats, "Instead of the listing, count by category, by item and by edition");
    app.add_flag("--report", options.report,
                 "Instead of the listing, how well each data source works: turns, detection, delays, and more; also "
                 "with --json, or on the page of --html");
    app.add_option("--stats-every", texts.stats_every,
                   "Every so often, such as 10s or 1m, say on standard error what goes through each second")
        ->type_name("TIME");
    app.add_option("--metrics", options.metrics, "Keep the same in a file for Prometheus' textfile collector")
        ->check(is_name)
        ->type_name("FILE");
    app.add_flag("--top", options.top,
                 "Instead of the listing, a table of what each data source sends, drawn anew every second");
    app.add_flag("--diff", options.diff,
                 "Instead of the listing, what differs between two files, record by record and field by field");
    app.add_option("--within", texts.within, "With --diff, how far apart the times of one report may be: 0.1s, 100ms")
        ->type_name("TIME");
    app.add_option("--shift", texts.shift, "Move all times in records, and of reception, so that the first is now")
        ->check(CLI::IsMember({"now"}).description(""))
        ->type_name("now");
    app.add_option("--convert", texts.convert,
                   "Turn records into those of categories that say the same: 1 from 48, 2 from 34, and back")
        ->type_name("LIST");
    app.add_option("-w,--write", options.writes,
                   "Write what is chosen to a .pcap, .ast or .json file instead, or a table to a .parquet, .arrow or "
                   ".csv file, or send it to udp:// or tcp://HOST:PORT; repeated")
        ->check(is_name)
        ->take_all()
        ->allow_extra_args(false)
        ->type_name("NEWFILE");
    describe_sending(app, options, texts);
    describe_rotation(app, texts);
    app.add_flag("-q,--quiet", options.quiet, "No listing, only reports of damage");
    app.add_flag("-v,--verbose", options.verbose, "Report everything that is damaged, not a line for each reason");
    app.add_option("--jobs", options.threads,
                   "Threads, as many as there are processors if not given; the output is the same")
        ->check(CLI::Range(size_t{1}, kMaxJobs).description(""))
        ->type_name("N");
    app.add_flag_callback(
        "--pager", [&] { options.pager = true; },
        "Show what is listed on a terminal page by page, with PAGER or less; --detail does so anyway");
    app.add_flag_callback(
        "--no-pager", [&] { options.pager = false; }, "Do not do so");
    app.add_option("--color", options.color, "Colours: always, never, or auto, if not given, on terminals")
        ->check(CLI::IsMember({"auto", "always", "never"}).description(""))
        ->type_name("WHEN");
    app.set_version_flag("--version", std::string("astdump ") + ast_library_version());
    app.footer(kExamples);
}

// The first line is the message; those behind it show what it is about, and may quote names of files that a pattern of
// the shell found.
void tell_lines(const std::string &text) {
    std::istringstream lines(text);
    std::string line;
    if (std::getline(lines, line)) tell(line);
    while (std::getline(lines, line)) std::fprintf(stderr, "%s\n", readable(line).c_str());
}

// "; did you mean --json?" of an option that there is not.
std::string option_meant(const CLI::App &app, const std::string &message) {
    const size_t begin = message.find("--");
    if (begin == std::string::npos) return {};
    Nearest nearest(std::string_view(message).substr(begin, message.find_first_of(" =", begin) - begin));
    for (const CLI::Option *const option : app.get_options())
        for (const std::string &name : option->get_lnames()) nearest.offer("--" + name);
    return nearest.found().empty() ? std::string() : "; did you mean " + nearest.found() + '?';
}

// Shows the help that was asked for, or what is wrong.
CommandLine end_for(const CLI::App &app, const CLI::ParseError &error) {
    std::ostringstream output, messages;
    const bool is_unknown = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError);
    const CLI::ParseError said(error.what() + (is_unknown ? option_meant(app, error.what()) : ""),
                               error.get_exit_code());
    const bool is_clean = app.exit(is_unknown ? said : error, output, messages) == 0;
    tell_lines(messages.str());
    return {.options = {}, .status = is_clean ? kExitClean : kExitUnusable, .output = output.str()};
}

uint64_t read_count(const std::string &option, const std::string &text) {
    const auto count = read_number<uint64_t>(text);
    if (!count || *count == 0) throw std::invalid_argument(option + ": '" + text + "' is no number of 1 or more");
    return *count;
}

Moment read_limit(const char *option, const std::string &text) {
    const auto moment = read_moment(text);
    if (!moment)
        throw std::invalid_argument(std::string(option) + ": '" + text +
                                    "' is no time such as 12:00, 12:00:00.5 or 2014-02-25T12:43:47Z");
    return *moment;
}

// Also where it is not there as yet.
bool is_same_file(const std::string &one, const std::string &other) {
    std::error_code error;
    const auto path = [&](const std::string &name) {
        return std::filesystem::weakly_canonical(std::filesystem::current_path(error) / name, error);
    };
    return !other.empty() && path(one) == path(other) && !error;
}

// Of the forms that take the place of the listing, standard output has room for one.
void refuse_two_forms(const Options &options) {
    const bool is_json = options.json && !options.diff && !options.report; // a form of these, too
    if (options.list + is_json + options.stats + options.top + options.csv.has_value() + options.arrow + options.diff +
            options.report >
        1)
        throw std::invalid_argument(
            "--list, --csv, --json, --arrow, --stats, --report, --top and --diff exclude each other");
    if (options.report && options.json && !options.html.empty())
        throw std::invalid_argument("--report is written as --json or as --html");
}

// Each is a file of its own, or an address.
void check_outputs(const Options &options) {
    std::vector<std::string> files = {options.html, options.metrics};
    for (const std::string &write : options.writes) {
        if (is_live(write)) continue;
        if (!find_table_format(write)) file_kind(write);
        if (std::ranges::any_of(files, [&](const std::string &other) { return is_same_file(write, other); }))
            throw std::invalid_argument("--html, --metrics and --write are to be different files");
        files.push_back(write);
    }
}

// What is wrong with a text is said of its option.
template <typename Read>
auto read_for(const char *option, const std::string &text, Read read) try {
    return read(text);
} catch (const std::invalid_argument &error) {
    throw std::invalid_argument(std::string(option) + ": " + error.what());
}

// What tables have.
void read_columns(Options &options, const Texts &texts) {
    std::vector<TableFormat> formats;
    if (options.arrow) formats.push_back(TableFormat::arrow_stream);
    for (const std::string &write : options.writes)
        if (const auto format = is_live(write) ? std::nullopt : find_table_format(write)) formats.push_back(*format);
    if (formats.empty() && !(texts.columns.empty() && texts.names.empty()))
        throw std::invalid_argument("--columns and --names are for --write to .parquet, .arrow or .csv, and --arrow");
    if (options.partition && std::ranges::count(formats, TableFormat::arrow_stream) == std::ssize(formats))
        throw std::invalid_argument("--partition is for --write to .parquet, .arrow or .csv");
    if (formats.empty()) return;
    if (texts.rotation) throw std::invalid_argument("--rotate is for captures, blocks and JSON");
    options.table = std::make_shared<Table>(read_for("--columns", texts.columns, [&](const std::string &columns) {
        Table table = read_table(columns, texts.names, options.categories);
        for (const TableFormat format : formats) check_columns(format, table.heads);
        if (options.partition && !table.is_of_records())
            throw std::invalid_argument("'reports' is a table of no days and categories");
        return table;
    }));
}

// Datagrams, and how much of them.
void read_choice(Options &options, const Texts &texts) {
    DatagramChoice &datagrams = options.datagrams;
    if (texts.count) options.count = read_count("--count", *texts.count);
    if (texts.ports) datagrams.ports = read_for("--port", *texts.ports, read_ports);
    if (texts.hosts) datagrams.hosts = read_for("--host", *texts.hosts, read_hosts);
    if (texts.from) datagrams.from = read_limit("--from", *texts.from);
    if (texts.to) datagrams.to = read_limit("--to", *texts.to);
}

void add_condition(Filter &where, const std::string &text) try { where.add(text); } catch (const Mistake &mistake) {
    throw std::invalid_argument("--where: " + mistake_text(text, mistake));
}

bool wants_positions(const Options &options) {
    const auto asks = [](const CsvColumn &each) { return asks_position(each); };
    if (options.table && options.table->asks_position()) return true;
    return options.where.asks_position() || (options.csv && std::ranges::any_of(*options.csv, asks));
}

// Where data sources stand; what is given by itself goes over what a file has.
void read_sites(Options &options, const Texts &texts) {
    if (texts.site_file) options.sites = read_for("--sites", *texts.site_file, read_site_file);
    for (const std::string &site : texts.sites) options.sites.push_back(read_for("--site", site, read_site));
    options.locates = options.list || (!options.html.empty() && !options.report) || wants_positions(options);
}

// How it is sent.
void read_sending(Options &options, const Texts &texts) {
    if (texts.speed) options.send.pace.speed = read_for("--speed", *texts.speed, read_speed);
    if (texts.rate) options.send.pace.bits_per_s = read_for("--rate", *texts.rate, read_rate);
    if (texts.ttl) options.send.form.ttl = read_for("--ttl", *texts.ttl, read_ttl);
    options.send.form.interface = options.interface;
    if (!texts.loop) return;
    options.passes =
        *texts.loop == kUsualValue ? std::numeric_limits<uint64_t>::max() : read_count("--loop", *texts.loop);
    if (options.follow || std::ranges::count(options.files, "-") != 0)
        throw std::invalid_argument("--loop is for files, which can be read again");
}

// How captures follow one another.
void read_files(Options &options, const Texts &texts) {
    if (texts.rotation) options.rotation = read_for("--rotate", *texts.rotation, read_rotation);
    if (texts.keep) options.rotation.keep = read_count("--keep", *texts.keep);
    if (texts.keep && !texts.rotation) throw std::invalid_argument("--keep is for --rotate");
    if (!texts.rotation) return;
    if (std::ranges::all_of(options.writes, is_live)) throw std::invalid_argument("--rotate is for --write NEWFILE");
}

// Names that are none of files but octets in digits: a text of its own, cut to words by the shell or not.
void read_octets(Options &options) {
    std::string text;
    for (const std::string &file : options.files) text.append(text.empty() ? "" : " ").append(file);
    if (std::ranges::any_of(options.files, system::exists) || !is_hexadecimal_text(text)) return;
    options.files.clear();
    options.hex.insert(options.hex.begin(), text);
}

// Two recordings are compared as a whole.
void read_comparison(Options &options, const Texts &texts) {
    if (texts.within) options.diff_within_s = read_for("--within", *texts.within, read_tolerance);
    if (texts.within && !options.diff) throw std::invalid_argument("--within is for --diff");
    if (!options.diff) return;
    if (options.files.size() + options.hex.size() != 2) throw std::invalid_argument("--diff takes two FILEs");
    if (options.follow || options.merge || options.count || options.shifts || options.passes != 1 || options.detail ||
        options.writes_files())
        throw std::invalid_argument("--diff only reads two files: no --follow, --merge, --count, --shift, --loop, "
                                    "--detail, --html or --write");
}

void read_dedup(Options &options, const Texts &texts) {
    constexpr double kUsualWindow_s = 1;
    constexpr double kNanosecondsPerS = 1e9;
    constexpr double kMost_s = 86400;
    if (!texts.dedup) return;
    const double window_s =
        *texts.dedup == kUsualValue ? kUsualWindow_s : read_for("--dedup", *texts.dedup, read_tolerance);
    if (window_s > kMost_s) throw std::invalid_argument("--dedup: the window is a day at most");
    options.dedup_window_ns = static_cast<int64_t>(window_s * kNanosecondsPerS);
}

// A part of one file, whose other parts others may read.
void read_range(Options &options, const Texts &texts) {
    if (!texts.octets) return;
    options.range = read_for("--octets", *texts.octets, read_octet_range);
    const bool is_file = options.files.size() == 1 && options.files.front() != "-" && !options.follow;
    if (!is_file || !options.hex.empty())
        throw std::invalid_argument("--octets takes one FILE, which has an end: neither several, nor standard input, "
                                    "an address or --follow");
    const auto lacks_day = [](const std::optional<Moment> &moment) { return moment && !moment->day; };
    if (lacks_day(options.datagrams.from) || lacks_day(options.datagrams.to))
        throw std::invalid_argument("--octets: --from and --to need a date, since no part has the first of the file");
}

// What the parser cannot tell. Throws std::invalid_argument for a mistake.
void complete(Options &options, const Texts &texts) {
    read_octets(options);
    if (options.files.empty() && options.hex.empty() && (options.html.empty() || options.report))
        throw CLI::RequiredError("FILE");
    options.profile = find_profile(texts.profile);
    options.framing = find_framing(texts.framing);
    options.categories = *read_categories(texts.categories);
    for (const std::string &condition : texts.conditions) add_condition(options.where, condition);
    for (const std::string &setting : texts.settings)
        read_for("--set", setting, [&](const std::string &text) { options.settings.add(text); });
    read_dedup(options, texts);
    if (texts.seed && texts.seed->empty()) throw std::invalid_argument("--anonymize: the seed is empty");
    if (texts.seed) options.anonymizer.emplace(*texts.seed);
    read_choice(options, texts);
    if (!texts.convert.empty()) options.convert = read_convert_targets(texts.convert);
    check_outputs(options);
    if (texts.csv) options.csv = read_csv_columns(*texts.csv == kUsualValue ? "" : *texts.csv);
    read_columns(options, texts);
    refuse_two_forms(options);
    read_sites(options, texts);
    const bool live = join_live(options.files);
    options.follow = options.follow || live;
    if (options.follow && options.files.size() > 1)
        throw std::invalid_argument("--follow takes one FILE, since it has no end");
    options.merge = options.merge && options.files.size() > 1;
    read_range(options, texts);
    if (options.merge && options.follow) throw std::invalid_argument("--merge is for files that have an end");
    if (!options.interface.empty() && !live && !options.sends())
        throw std::invalid_argument("--interface is for udp://HOST:PORT");
    if (texts.shape_sending() && !options.sends())
        throw std::invalid_argument(
            "--speed, --rate, --loop and --ttl are for --write udp://HOST:PORT or tcp://, and --listen");
    if (texts.stats_every) options.stats_every = read_for("--stats-every", *texts.stats_every, read_interval);
    options.shifts = texts.shift.has_value();
    read_sending(options, texts);
    read_files(options, texts);
    read_comparison(options, texts);
}

// What stands behind other options is no file, which is not needed, but the pattern.
CommandLine list_fields(const Options &options, const Texts &texts) {
    std::string pattern = *texts.fields == kUsualValue ? "" : *texts.fields;
    if (pattern.empty() && !options.files.empty()) pattern = options.files.front();
    std::string list = field_list(pattern, options.json);
    if (list.empty())
        throw std::invalid_argument("--fields: nothing is called '" + pattern + "'" + suggestion(pattern));
    return {.options = {}, .status = kExitClean, .output = std::move(list)};
}

} // namespace

CommandLine read_command_line(int argc, char **argv) {
    CLI::App app("Shows the ASTERIX surveillance data in captures and recordings.", "astdump");
    app.allow_windows_style_options(false); // "/" begins a path, on every system
    Options options;
    options.threads = std::min(system::processors(), kMaxJobs);
    Texts texts;
    describe(app, options, texts);
    try {
        app.parse(arguments(argc, argv));
        if (texts.help) return {.output = is_all(*texts.help) ? app.help() : kHelp};
        if (texts.fields) return list_fields(options, texts);
        complete(options, texts);
    } catch (const CLI::ParseError &error) {
        return end_for(app, error);
    } catch (const std::invalid_argument &error) {
        tell_lines(error.what());
        return {.status = kExitUnusable};
    }
    return {.options = options};
}

} // namespace ast::recording::astdump
