// The command line.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ask/filter.hpp"
#include "columns/table.hpp"
#include "show/csv.hpp"
#include "show/rotating_file.hpp"
#include "source/live_url.hpp"
#include "source/read_options.hpp"
#include "write/anonymizer.hpp"
#include "write/sender.hpp"
#include "write/settings.hpp"

namespace ast::recording::astdump {

struct Options : ReadOptions {
    std::vector<std::string> files;
    std::vector<std::string> hex; // texts with octets, read behind the files
    CategorySet convert;          // to these, what converts to them
    Filter where;                 // that records must meet to be shown
    Settings settings;            // of fields of these
    std::optional<Anonymizer> anonymizer;
    std::optional<int64_t> dedup_window_ns; // in which records that came twice are left out
    std::optional<uint64_t> count;          // of what is to be shown: blocks, or lines of records
    bool list = false;
    bool json = false;
    bool texts = false;                        // of codes, in JSON
    std::optional<std::vector<CsvColumn>> csv; // those behind the ones that are always there
    std::shared_ptr<const Table> table;        // what tables have that are written; null for none
    bool arrow = false;                        // as a stream
    bool partition = false;                    // of tables, into files by day and category
    bool detail = false;                       // in the listing
    std::string html;                          // the page to write; empty for none
    std::vector<std::string> writes;           // of what is chosen: files, and addresses to send to
    std::vector<std::string> listens;          // where those connect who get what is chosen
    SendOptions send;                          // to these
    Rotation rotation;                         // of files; none for one file
    uint64_t passes = 1;                       // over the input
    bool diff = false;                         // between two files
    double diff_within_s = 0;                  // between the times of one report in both
    bool report = false;                       // how well data sources work, on a page where one is to be written
    bool stats = false;
    std::chrono::seconds stats_every{0}; // of what goes through; 0 for none
    std::string metrics;                 // the file for those who collect these; empty for none
    bool shifts = false;                 // all times to now
    bool top = false;
    bool quiet = false;
    bool verbose = false;      // each report by itself
    std::optional<bool> pager; // what is shown on a terminal; nothing: details
    std::string color = "auto";
    std::optional<size_t> chunk_octets; // read at a time; nothing: what suits the output

    // Whether what is no record, or broken, is shown along with the others.
    bool keeps_remainders() const { return where.empty() && !dedup_window_ns && !anonymizer; }
    bool changes() const { return !settings.empty() || anonymizer || dedup_window_ns || shifts; }

    bool writes_files() const { return !html.empty() || !writes.empty() || !listens.empty(); }
    bool sends() const { return !listens.empty() || std::ranges::any_of(writes, is_live); }

    // Whether something is due by the clock, and not only when something has come.
    bool goes_by_clock() const { return top || stats_every.count() != 0 || !metrics.empty() || sends(); }
};

constexpr int kExitClean = 0;
constexpr int kExitDamaged = 1;
constexpr int kExitUnusable = 2;
constexpr int kExitInternal = 70; // a fault of the tool itself

// Reads the command line. When there is nothing left to do, after --help or for a mistake that has been reported,
// gives the exit status instead of options.
struct CommandLine {
    std::optional<Options> options;
    int status = kExitClean;
    std::string output{}; // that was asked for
};
CommandLine read_command_line(int argc, char **argv);

} // namespace ast::recording::astdump
