#include "show/terminal.hpp"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "base/counted.hpp"
#include "base/numbers.hpp"
#include "base/printable.hpp"

namespace ast::recording::astdump {

namespace {

constexpr unsigned kMinColumns = 60;
constexpr unsigned kFileColumns = 120;
constexpr unsigned kUsualRows = 24;
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

namespace {

std::string_view environment(const char *name) {
    const char *const value = std::getenv(name);
    return value ? value : "";
}

} // namespace

bool has_cursor(std::FILE *file) { return is_terminal(file) && system::takes_escapes(file); }

bool takes_color(std::FILE *file) { return has_cursor(file) && environment("NO_COLOR").empty(); }

std::optional<ScreenSize> screen_size(std::FILE *file) {
    auto size = system::screen_size(file);
    if (size && size->rows == 0) size->rows = kUsualRows;
    return size;
}

unsigned columns(std::FILE *file) {
    const auto wanted = read_number<uint16_t>(environment("COLUMNS"));
    const auto size = screen_size(file);
    const unsigned count = wanted.value_or(0) != 0 ? *wanted : size ? size->columns : kFileColumns;
    return std::max(count, kMinColumns);
}

// ---- What stands on the terminal for a while ----

namespace {

Drawing *current = nullptr;

constexpr std::string_view kWipeRestOfLine = "\033[K";
constexpr std::string_view kWipeRestOfScreen = "\033[J";

template <typename Visitor>
void each_line(std::string_view lines, Visitor visit) {
    while (!lines.empty()) {
        const size_t end = lines.find('\n');
        visit(lines.substr(0, end));
        lines.remove_prefix(end + 1);
    }
}

} // namespace

std::string cut(std::string text, size_t width) {
    constexpr std::string_view kDots = "...";
    if (text.size() > width && width >= kDots.size()) text.replace(width - kDots.size(), std::string::npos, kDots);
    if (text.size() > width) text.resize(width);
    return text;
}

size_t width_of(std::string_view line) {
    size_t width = 0;
    bool is_escape = false;
    for (const char c : line) {
        const bool continues = (c & 0xC0) == 0x80; // a character of UTF-8
        is_escape = is_escape || c == '\033';
        if (!is_escape && !continues) ++width;
        if (c == 'm') is_escape = false;
    }
    return width;
}

void clear_line() {
    if (has_cursor(stderr)) std::fputs("\r\033[K", stderr);
}

void tell(std::string_view text, Style style) {
    if (current) current->erase();
    clear_line();
    std::fprintf(stderr, "%sastdump:%s %s\n", style.on(Color::fault), style.off(), readable(text).c_str());
    if (current) current->put();
}

void Drawing::draw(std::string lines) {
    if (current == this) out_.write(to_first_line());
    current = this;
    lines_ = std::move(lines);
    put();
}

void Drawing::leave() {
    if (current == this) current = nullptr;
}

// A line that has become too long since the terminal was made narrower has gone on in the next row.
size_t Drawing::rows() const {
    const auto size = screen_size(stdout);
    size_t rows = 0;
    each_line(lines_, [&](std::string_view line) { rows += 1 + (size ? width_of(line) / (size->columns + 1) : 0); });
    return rows;
}

std::string Drawing::to_first_line() const {
    const size_t rows = this->rows();
    return rows == 0 ? "\r" : "\r\033[" + std::to_string(rows) + 'A';
}

void Drawing::erase() { out_.write(to_first_line().append(kWipeRestOfScreen)); }

void Drawing::put() {
    std::string text;
    each_line(lines_, [&](std::string_view line) { text.append(line).append(kWipeRestOfLine).append("\n"); });
    out_.write(text.append(kWipeRestOfScreen));
}

Progress::Progress(bool enabled)
    : enabled_(enabled && has_cursor(stderr)), next_(Clock::now() + kFirstProgress), begin_(Clock::now()) {}

namespace {

// "1:05", "2:03:00".
std::string span_text(uint64_t seconds) {
    constexpr uint64_t kSixty = 60;
    char text[32];
    const uint64_t minutes = seconds / kSixty;
    if (minutes < kSixty)
        std::snprintf(text, sizeof text, "%d:%02d", static_cast<int>(minutes), static_cast<int>(seconds % kSixty));
    else
        std::snprintf(text, sizeof text, "%llu:%02d:%02d", static_cast<unsigned long long>(minutes / kSixty),
                      static_cast<int>(minutes % kSixty), static_cast<int>(seconds % kSixty));
    return text;
}

} // namespace

// ", 12.3 MB/s, 1:05 left", by what has been read since the file was begun; empty while there is too little of that.
std::string Progress::pace(const std::string &file, uint64_t consumed, std::optional<uint64_t> size) {
    constexpr double kOctetsPerMb = 1e6;
    const Clock::time_point now = Clock::now();
    if (file != file_) {
        begin_ = file_.empty() ? begin_ : now;
        file_ = file;
    }
    const double elapsed_s = std::chrono::duration<double>(now - begin_).count();
    if (consumed == 0 || elapsed_s <= 0) return {};
    const double octets_per_s = static_cast<double>(consumed) / elapsed_s;
    char text[64];
    std::snprintf(text, sizeof text, ", %.1f MB/s", octets_per_s / kOctetsPerMb);
    if (!size || *size < consumed) return text;
    const double left_s = static_cast<double>(*size - consumed) / octets_per_s;
    constexpr double kMost_s = 1e9;
    return text + (", " + span_text(static_cast<uint64_t>(std::min(left_s, kMost_s)))) + " left";
}

void Progress::show(const std::string &file, uint64_t consumed, std::optional<uint64_t> size, uint64_t blocks,
                    const std::string &more) {
    next_ = Clock::now() + kProgressInterval;
    const std::string done =
        size && *size > 0 ? std::to_string(100 * consumed / *size) + " %" : std::to_string(consumed / 1000000) + " MB";
    const std::string text = file + ": " + done + pace(file, consumed, size) + ", " + counted(blocks, "block") +
                             (more.empty() ? "" : ", ") + more;
    std::fprintf(stderr, "\r%s\033[K", cut(text, columns(stderr) - 1).c_str());
}

} // namespace ast::recording::astdump
