// astdump: shows the ASTERIX surveillance data in captures and recordings.

#include <csignal>
#include <cstdio>
#include <exception>

#include "listing.hpp"
#include "options.hpp"
#include "page.hpp"
#include "record_list.hpp"
#include "run.hpp"
#include "stats.hpp"

namespace {

using namespace astdump;

bool use_color(const Options &options, std::FILE *file) {
    return options.color == "always" || (options.color == "auto" && is_terminal(file));
}

std::vector<std::unique_ptr<Sink>> make_sinks(const Options &options) {
    std::vector<std::unique_ptr<Sink>> sinks;
    const bool color = use_color(options, stdout);
    if (options.stats)
        sinks.push_back(std::make_unique<Stats>(stdout, color));
    else if (options.list)
        sinks.push_back(std::make_unique<RecordList>(stdout, color, options.files.size() > 1));
    else if (!options.quiet && options.html.empty())
        sinks.push_back(std::make_unique<Listing>(
            stdout, Listing::Form{columns(stdout), color, options.files.size() > 1, options.detail}));
    if (options.follow && !options.stats) sinks.push_back(std::make_unique<Stats>(stdout, color));
    if (!options.html.empty()) sinks.push_back(std::make_unique<Page>(options.html));
    return sinks;
}

// A listing on a terminal shows by itself how far the work has got.
bool wants_progress(const Options &options) {
    return options.quiet || options.stats || !options.html.empty() || !is_terminal(stdout);
}

int run(const Options &options) {
    Damage damage(use_color(options, stderr));
    Run run(options, make_sinks(options), damage, Progress(wants_progress(options)));
    return run.files();
}

// A reader that has seen enough is no fault.
int close_output(int status) {
    const bool written = std::fflush(stdout) == 0 && !std::ferror(stdout);
    if (written || reader_gone(stdout)) return status;
    std::fputs("astdump: standard output cannot be written\n", stderr);
    return kExitUnusable;
}

} // namespace

int main(int argc, char **argv) try {
    // Writing to a pipe that nobody reads any more then fails instead of ending the process.
    std::signal(SIGPIPE, SIG_IGN);
    const CommandLine command_line = read_command_line(argc, argv);
    return close_output(command_line.options ? run(*command_line.options) : command_line.status);
} catch (const std::exception &error) {
    std::fprintf(stderr, "astdump: %s\n", error.what());
    return kExitUnusable;
}
