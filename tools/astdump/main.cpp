// astdump: shows the ASTERIX surveillance data in captures and recordings.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <fcntl.h>
#include <limits>
#include <new>
#include <stdexcept>
#include <unistd.h>

#include "page/page.hpp"
#include "run/options.hpp"
#include "run/run.hpp"
#include "run/signals.hpp"
#include "show/csv.hpp"
#include "show/json_lines.hpp"
#include "show/listing.hpp"
#include "show/record_list.hpp"
#include "show/stats.hpp"
#include "show/top.hpp"
#include "show/write_file.hpp"

namespace ast::recording::astdump {

namespace {

bool use_color(const Options &options, std::FILE *file) {
    return options.color == "always" || (options.color == "auto" && takes_color(file));
}

JsonForm json_form(const Options &options) {
    return {.texts = options.texts, .name_files = options.files.size() > 1, .remainders = options.where.empty()};
}

std::unique_ptr<Top> make_top(const Options &options, Output &out, const ReportLog &reports,
                              Interruption &interruption) {
    const Top::Form form{
        .color = use_color(options, stdout), .is_drawn = has_cursor(stdout), .is_live = options.follow};
    auto top = std::make_unique<Top>(out, form, reports);
    interruption.meanwhile([&top = *top] { top.refresh(); });
    return top;
}

// What is not shown on a terminal takes lines of any length.
RecordList::Form list_form(const Options &options) {
    constexpr size_t kAnyLength = std::numeric_limits<size_t>::max();
    return {.columns = is_terminal(stdout) ? columns(stdout) : kAnyLength,
            .color = use_color(options, stdout),
            .name_files = options.files.size() > 1 && !options.merge};
}

Sinks make_sinks(const Options &options, Output &out, const ReportLog &reports, Interruption &interruption) {
    Sinks sinks;
    const bool color = use_color(options, stdout);
    if (options.top)
        sinks.push_back(make_top(options, out, reports, interruption));
    else if (options.stats)
        sinks.push_back(std::make_unique<Stats>(out, color));
    else if (options.json)
        sinks.push_back(std::make_unique<JsonLines>(out, json_form(options)));
    else if (options.csv)
        sinks.push_back(std::make_unique<Csv>(out, *options.csv, options.files.size() > 1, options.merge));
    else if (options.list)
        sinks.push_back(std::make_unique<RecordList>(out, list_form(options)));
    else if (!options.quiet && options.html.empty() && options.write.empty())
        sinks.push_back(std::make_unique<Listing>(out, Listing::Form{columns(stdout), color,
                                                                     options.files.size() > 1 && !options.merge,
                                                                     options.detail, is_terminal(stdout)}));
    if (options.follow && !options.top && !options.stats && !options.json && !options.csv)
        sinks.push_back(std::make_unique<Stats>(out, color));
    if (!options.html.empty()) sinks.push_back(std::make_unique<Page>(options.html, options.files));
    if (!options.write.empty())
        sinks.push_back(std::make_unique<WriteFile>(options.write, options.files, json_form(options)));
    return sinks;
}

// A listing on a terminal shows by itself how far the work has got.
bool wants_progress(const Options &options) {
    if (options.top) return !is_terminal(stdout);
    return options.quiet || options.stats || !options.html.empty() || !options.write.empty() || !is_terminal(stdout);
}

// A reader that has seen enough is no fault.
int check_output(int error, int status) {
    if (error == 0 || error == EPIPE) return status;
    tell("standard output cannot be written");
    return kExitUnusable;
}

// A fault of the tool itself names what it was about, and no more: the rest means nothing to users.
int files_of(Run &run) try { return run.files(); } catch (const std::logic_error &) {
    tell("internal error in " + run.place());
    return kExitInternal;
}

int run(const Options &options) {
    Interruption interruption;
    const Signals signals(interruption);
    Output out(STDOUT_FILENO);
    ReportLog reports(use_color(options, stderr), options.verbose);
    Run run(options, make_sinks(options, out, reports, interruption), out, reports, Progress(wants_progress(options)),
            &interruption);
    const int status = files_of(run);
    if (interruption.ended() && !options.follow) signals.pass_on();
    return check_output(out.error(), status);
}

// Where whoever started this has closed one, a file that is opened later would take its place, and be written to.
void open_standard_descriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(descriptor, F_GETFD) < 0) ::open("/dev/null", descriptor == STDIN_FILENO ? O_RDONLY : O_WRONLY);
}

} // namespace

} // namespace ast::recording::astdump

int main(int argc, char **argv) try {
    using namespace ast::recording::astdump;
    open_standard_descriptors();
    // Writing to a pipe that nobody reads any more then fails instead of ending the process.
    std::signal(SIGPIPE, SIG_IGN);
    const CommandLine command_line = read_command_line(argc, argv);
    if (command_line.options) return run(*command_line.options);
    ast::recording::Output out(STDOUT_FILENO);
    out.write(command_line.output);
    return check_output(out.error(), command_line.status);
} catch (const std::runtime_error &error) {
    ast::recording::astdump::tell(error.what());
    return ast::recording::astdump::kExitUnusable;
} catch (const std::bad_alloc &) {
    ast::recording::astdump::tell("there is no memory left");
    return ast::recording::astdump::kExitUnusable;
} catch (const std::exception &) {
    ast::recording::astdump::tell("internal error in reading the command line");
    return ast::recording::astdump::kExitInternal;
}
