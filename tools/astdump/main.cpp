// astdump: shows the ASTERIX surveillance data in captures and recordings.

#include <cerrno>
#include <cstdio>
#include <exception>
#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

#include "page/page.hpp"
#include "run/options.hpp"
#include "run/run.hpp"
#include "run/signals.hpp"
#include "run/sinks.hpp"
#include "show/terminal.hpp"
#include "system/descriptor.hpp"
#include "system/process.hpp"

namespace ast::recording::astdump {

namespace {

// A listing on a terminal shows by itself how far the work has got.
bool wants_progress(const Options &options) {
    if (options.top) return !is_terminal(stdout);
    return options.quiet || options.stats || options.writes_files() || !is_terminal(stdout);
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

// As git does; what comes live is not kept waiting for anyone.
bool wants_pager(const Options &options) {
    const bool is_shown = !options.top && !options.quiet && !options.follow && !options.writes_files();
    return is_shown && options.pager.value_or(options.detail) && has_cursor(stdout);
}

int run(const Options &options) {
    if (options.files.empty() && options.hex.empty()) {
        write_viewer(options.html);
        return kExitClean;
    }
    Interruption interruption;
    const Signals signals(interruption);
    Output out(system::kStandardOutput);
    ReportLog reports(use_color(options, stderr), options.verbose);
    Sinks sinks = make_sinks(options, out, reports, interruption); // which look at the terminal
    const bool progress = wants_progress(options);
    std::optional<system::Pager> pager;
    if (wants_pager(options)) pager.emplace();
    Run run(options, std::move(sinks), out, reports, Progress(progress), &interruption);
    const int status = files_of(run);
    pager.reset();
    if (interruption.ended() && !options.follow) signals.pass_on();
    return check_output(out.error(), status);
}

} // namespace

} // namespace ast::recording::astdump

int main(int argc, char **argv) try {
    using namespace ast::recording::astdump;
    ast::recording::system::prepare_standard_streams();
    const CommandLine command_line = read_command_line(argc, argv);
    if (command_line.options) return run(*command_line.options);
    ast::recording::Output out(ast::recording::system::kStandardOutput);
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
