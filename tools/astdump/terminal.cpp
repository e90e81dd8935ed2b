#include "terminal.hpp"

#include <algorithm>
#include <cinttypes>
#include <sys/ioctl.h>
#include <unistd.h>

namespace astdump {

namespace {

constexpr unsigned kMinColumns = 60;
constexpr unsigned kFileColumns = 120;
constexpr auto kFirstProgress = std::chrono::seconds(1);
constexpr auto kProgressInterval = std::chrono::milliseconds(200);

} // namespace

const char *Style::on(Color color) const {
    if (!enabled_) return "";
    switch (color) {
    case Color::heading:
        return "\033[1m";
    case Color::item:
        return "\033[36m";
    case Color::dim:
        return "\033[2m";
    case Color::good:
        return "\033[32m";
    case Color::fault:
        return "\033[1;31m";
    }
    return "";
}

const char *Style::off() const { return enabled_ ? "\033[0m" : ""; }

bool is_terminal(std::FILE *file) { return ::isatty(::fileno(file)) == 1; }

void clear_line() {
    if (is_terminal(stderr)) std::fputs("\r\033[K", stderr);
}

unsigned columns(std::FILE *file) {
    winsize size{};
    if (::ioctl(::fileno(file), TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kFileColumns;
    return std::max<unsigned>(size.ws_col, kMinColumns);
}

Progress::Progress(bool enabled) : enabled_(enabled && is_terminal(stderr)), next_(Clock::now() + kFirstProgress) {}

void Progress::update(const std::string &file, uint64_t consumed, std::optional<uint64_t> size, uint64_t blocks) {
    if (!enabled_ || Clock::now() < next_) return;
    next_ = Clock::now() + kProgressInterval;
    if (size && *size > 0)
        std::fprintf(stderr, "\r%s: %3" PRIu64 " %%, %" PRIu64 " blocks", file.c_str(), 100 * consumed / *size, blocks);
    else
        std::fprintf(stderr, "\r%s: %" PRIu64 " MB, %" PRIu64 " blocks", file.c_str(), consumed / 1000000, blocks);
}

} // namespace astdump
