#include "api/open_options.hpp"

#include <algorithm>
#include <system_error>
#include <unistd.h>

#include "api/failure.hpp"
#include "source/live_url.hpp"

namespace ast::recording {

namespace {

[[noreturn]] void refuse(const char *option, const std::string &what) {
    throw CannotOpen(AST_RECORDING_BAD_OPTION, std::string(option) + ": " + what);
}

[[noreturn]] void refuse(const std::string &what) { throw CannotOpen(AST_RECORDING_BAD_OPTION, what); }

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

} // namespace

ReadOptions read_open_options(const ast_recording_options_t &options) {
    ReadOptions read{.profile = profile_of(options.profile),
                     .framing = framing_of(options.framing),
                     .categories = categories_of(options.categories),
                     .datagrams = {},
                     .merge = options.merge,
                     .follow = options.follow,
                     .interface = options.interface ? options.interface : ""};
    read.datagrams = {.ports = list_of("ports", options.ports, read_ports),
                      .hosts = list_of("hosts", options.hosts, read_hosts),
                      .from = moment_of("from", options.from),
                      .to = moment_of("to", options.to)};
    if (read.merge && read.follow) refuse("merge and follow exclude each other: what grows has no end");
    return read;
}

std::vector<Origin> origins_of(std::span<const char *const> inputs, const ReadOptions &options) try {
    if (inputs.empty()) refuse("there is no input");
    if (std::ranges::count(inputs, nullptr) != 0) refuse("an input is null");
    std::vector<std::string> paths(inputs.begin(), inputs.end());
    const bool is_live = join_live(paths);
    if ((is_live || options.follow) && (paths.size() > 1 || options.merge)) refuse("what has no end is read by itself");
    if (!options.interface.empty() && !is_live) refuse("interface", "is for udp:// alone");
    std::vector<Origin> origins;
    for (const std::string &path : paths) origins.push_back({.path = path, .name = path, .octets = {}});
    return origins;
} catch (const std::invalid_argument &error) {
    refuse(error.what());
}

void check_access(const Origin &origin) {
    if (origin.octets || origin.path == "-" || is_live(origin.path)) return;
    if (::access(origin.path.c_str(), R_OK) == 0) return;
    const std::error_code code(errno, std::generic_category());
    throw CannotOpen(code_of(code), origin.path + ": " + code.message());
}

} // namespace ast::recording
