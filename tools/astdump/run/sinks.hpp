// What a command line asks for: the sinks that show, count and write it.
#pragma once

#include "base/interruption.hpp"
#include "run/options.hpp"
#include "run/worker.hpp"
#include "show/report_log.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

// On `out`, which is standard output to all who look whether it is a terminal, and in the files that the options name.
// What is drawn anew now and then is drawn while the interruption waits, too. Throws std::runtime_error where a file
// cannot be written, nothing can be sent to an address, or a terminal would get octets.
Sinks make_sinks(const Options &options, Output &out, const ReportLog &reports, Interruption &interruption);

bool use_color(const Options &options, std::FILE *file);

} // namespace ast::recording::astdump
