#include "api/open_options.hpp"

#include <algorithm>
#include <system_error>

#include "api/failure.hpp"
#include "source/live_url.hpp"
#include "system/files.hpp"

namespace ast::recording {

namespace {

[[noreturn]] void refuse(const char *option, const std::string &what) {
    throw CannotOpen(AST_RECORDING_ERROR_OPTION, std::string(option) + ": " + what);
}

[[noreturn]] void refuse(const std::string &what) { throw CannotOpen(AST_RECORDING_ERROR_OPTION, what); }

constexpr uint32_t kMostThreads = 256;

bool is_given(const char *text) { return text && *text; }
bool is_chosen(const char *name) { return is_given(name) && std::string_view(name) != "auto"; }

const FramingKind *framing_of(const char *name) {
    if (!is_chosen(name)) return nullptr;
    if (const FramingKind *const framing = find_framing(name)) return framing;
    std::string all;
    for (const FramingKind &framing : framings()) all.append(all.empty() ? "" : ", ").append(framing.name);
    refuse("framing", "'" + std::string(name) + "' is none of " + all);
}

const ast_uap_info_t *profile_of(const char *name) {
    if (!is_chosen(name)) return nullptr;
    if (const ast_uap_info_t *const profile = find_profile(name)) return profile;
    std::string all;
    for (const ast_uap_info_t &profile : profiles()) all.append(all.empty() ? "" : ", ").append(profile.name);
    refuse("profile", "'" + std::string(name) + "' is none of " + all);
}

CategorySet categories_of(const char *list) {
    const auto categories = read_categories(is_given(list) ? list : "0-255");
    if (!categories) refuse("categories", "'" + std::string(list) + "' is no list such as 34,48 or 1-21");
    return *categories;
}

template <typename Range>
std::vector<Range> list_of(const char *option, const char *list, std::vector<Range> (*read)(std::string_view)) try {
    return is_given(list) ? read(list) : std::vector<Range>();
} catch (const std::invalid_argument &error) {
    refuse(option, error.what());
}

std::optional<Moment> moment_of(const char *option, const char *text) {
    if (!is_given(text)) return std::nullopt;
    const auto moment = read_moment(text);
    if (!moment) refuse(option, "'" + std::string(text) + "' is no time such as 12:00 or 2014-02-25T12:43:47Z");
    return moment;
}

bool is_standard_input(std::string_view input) { return input == "-"; }

// Addresses are set apart by blanks further on.
void check_url(std::string_view input) {
    const bool is_blank_within = is_live(std::string(input)) && input.find_first_of(" \t\n") != std::string_view::npos;
    const bool is_other = input.find("://") != std::string_view::npos && !is_live(std::string(input));
    if (is_blank_within || (is_other && !system::exists(std::string(input))))
        refuse("'" + std::string(input) + "' is neither a file nor udp://HOST:PORT nor tcp://HOST:PORT");
}

} // namespace

ReadOptions read_open_options(const ast_recording_options_t &options) {
    ReadOptions read{.profile = profile_of(options.profile),
                     .framing = framing_of(options.framing),
                     .categories = categories_of(options.categories),
                     .datagrams = {},
                     .merge = options.merge,
                     .follow = options.follow,
                     .interface = options.network_interface ? options.network_interface : "",
                     .threads = options.threads + size_t{1}};
    read.datagrams = {.ports = list_of("ports", options.ports, read_ports),
                      .hosts = list_of("hosts", options.hosts, read_hosts),
                      .from = moment_of("from", options.from),
                      .to = moment_of("to", options.to)};
    if (options.threads > kMostThreads) refuse("threads", std::to_string(options.threads) + " is more than 256");
    if (std::ranges::any_of(options.reserved, [](const void *any) { return any != nullptr; }))
        refuse("reserved", "is for later versions, and null");
    if (read.merge && read.follow) refuse("merge and follow exclude each other: what grows has no end");
    return read;
}

std::vector<Origin> origins_of(std::span<const char *const> inputs, const ReadOptions &options) try {
    if (inputs.empty()) refuse("there is no input");
    if (std::ranges::count(inputs, nullptr) != 0) refuse("an input is null");
    if (std::ranges::count_if(inputs, is_standard_input) > 1) refuse("standard input can be read once");
    std::ranges::for_each(inputs, check_url);
    std::vector<std::string> paths(inputs.begin(), inputs.end());
    const bool is_live = join_live(paths);
    if ((is_live || options.follow) && (paths.size() > 1 || options.merge)) refuse("what has no end is read by itself");
    if (!options.interface.empty() && !is_live) refuse("network_interface", "is for udp:// alone");
    std::vector<Origin> origins;
    for (const std::string &path : paths) origins.push_back({.path = path, .name = path, .octets = {}});
    return origins;
} catch (const std::invalid_argument &error) {
    refuse(error.what());
}

void check_access(const Origin &origin) {
    if (origin.octets || origin.path == "-" || is_live(origin.path)) return;
    const std::error_code failure = system::check_readable(origin.path);
    if (failure) throw CannotOpen(code_of(failure), origin.path + ": " + failure.message());
}

} // namespace ast::recording
