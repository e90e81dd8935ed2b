#include "show/rotating_file.hpp"

#include <algorithm>
#include <cctype>
#include <ctime>
#include <filesystem>
#include <iomanip>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "base/counted.hpp"
#include "show/stamped.hpp"
#include "show/terminal.hpp"
#include "system/calendar.hpp"
#include "system/files.hpp"

namespace ast::recording::astdump {

namespace {

// Pieces of what another one renders, with their times.
class StampedRenderer : public Renderer {
public:
    // `lags`: what comes out is what came in before.
    StampedRenderer(std::unique_ptr<Renderer> inner, bool lags) : inner_(std::move(inner)), lags_(lags) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        inner_->block(decoded, text_);
        put(out, decoded.datagram->time);
    }
    void no_block(const Datagram &datagram, uint64_t offset, const std::string &reason, TextBuffer &out) override {
        inner_->no_block(datagram, offset, reason, text_);
        put(out, datagram.time);
    }
    void end(TextBuffer &out) override {
        inner_->end(text_);
        put(out, time_);
    }

private:
    void put(TextBuffer &out, const std::optional<Time> &time) {
        if (!text_.text().empty()) put_stamped(out, lags_ ? time_ : time, text_.text());
        text_.clear();
        time_ = time;
    }

    std::unique_ptr<Renderer> inner_;
    bool lags_;
    TextBuffer text_;
    std::optional<Time> time_; // of the last one
};

int64_t period_of(const Time &time, const Rotation &rotation) {
    return rotation.period_s == 0 ? 0 : time.seconds / rotation.period_s;
}

struct Conversion {
    std::string_view letters; // behind the %
    const char *expression;
};

constexpr Conversion kConversions[] = {
    {"CdgHImMSUVWy", "[0-9]{2}"},
    {"j", "[0-9]{3}"},
    {"GY", "[0-9]{4}"},
    {"s", "[0-9]+"},
    {"F", "[0-9]{4}-[0-9]{2}-[0-9]{2}"},
    {"R", "[0-9]{2}:[0-9]{2}"},
    {"T", "[0-9]{2}:[0-9]{2}:[0-9]{2}"},
    {"aAbBhp", "[A-Za-z]+"},
    {"%", "%"},
};

// What matches the names that a pattern makes, with "-2" in front of the extension, too; nothing where it has another
// conversion.
std::optional<std::regex> names_of(const std::string &pattern) {
    const size_t extension = pattern.rfind('.');
    std::string text;
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (i == extension) text += "(-[0-9]+)?";
        if (pattern[i] == '%') {
            const char letter = ++i < pattern.size() ? pattern[i] : '\0';
            const auto found = std::ranges::find_if(kConversions, [&](const Conversion &conversion) {
                return conversion.letters.find(letter) != std::string_view::npos;
            });
            if (found == std::end(kConversions)) return std::nullopt;
            text += found->expression;
        } else {
            if (std::isalnum(static_cast<unsigned char>(pattern[i])) == 0) text += '\\';
            text += pattern[i];
        }
    }
    return std::regex(text);
}

} // namespace

std::unique_ptr<Renderer> RotatingFile::renderer() const {
    return std::make_unique<StampedRenderer>(make_file_renderer(kind_, form_, input_), kind_ == FileKind::pcap);
}

// "day-20140225-120000.pcap", or "day-20140225-120000-2.pcap" where there is that already.
std::string RotatingFile::name_for(const Time &time) const {
    const std::tm utc = system::calendar_of(time.seconds);
    std::ostringstream text;
    text << std::put_time(&utc, pattern_.c_str());
    const std::string first = text.str();
    const size_t extension = first.rfind('.');
    std::string name = first;
    for (int i = 2; system::exists(name); ++i)
        name = first.substr(0, extension) + '-' + std::to_string(i) + first.substr(extension);
    return name;
}

// What comes out of its order goes with what it came with.
bool RotatingFile::is_full(const Time &time, size_t octets) const {
    if (period_of(time, rotation_) > period_) return true;
    return rotation_.octets != 0 && file_->written() + octets > rotation_.octets;
}

void RotatingFile::begin(const Time &time) {
    close();
    period_ = period_of(time, rotation_);
    file_.emplace(name_for(time), inputs_);
    write(file_header(kind_));
    has_begun_ = true;
}

void RotatingFile::close() {
    if (!file_) return;
    file_->replace();
    file_.reset();
    delete_oldest();
}

// Also those of earlier runs, by their names; where the folder is a part of what changes, there is no telling. What is
// read stays.
void RotatingFile::delete_oldest() const {
    namespace fs = std::filesystem;
    const fs::path pattern(pattern_);
    if (rotation_.keep == 0 || pattern.parent_path().string().find('%') != std::string::npos) return;
    const std::optional<std::regex> names = names_of(pattern.filename().string());
    if (!names) return;
    const auto is_input = [&](const fs::path &path) {
        std::error_code none;
        return std::ranges::any_of(inputs_,
                                   [&](const std::string &input) { return fs::equivalent(path, input, none); });
    };
    std::vector<std::pair<fs::file_time_type, std::string>> files;
    std::error_code ignored;
    const fs::path folder = pattern.has_parent_path() ? pattern.parent_path() : fs::path(".");
    for (const fs::directory_entry &entry : fs::directory_iterator(folder, ignored))
        if (entry.is_regular_file(ignored) && std::regex_match(entry.path().filename().string(), *names) &&
            !is_input(entry.path()))
            files.emplace_back(entry.last_write_time(ignored), entry.path().string());
    std::ranges::sort(files);
    for (size_t i = 0; i + rotation_.keep < files.size(); ++i) system::remove(files[i].second);
}

// What a full disk has left of a file is worth keeping.
void RotatingFile::write(std::string_view octets) try { file_->write(octets); } catch (const std::runtime_error &) {
    const std::string whole = counted(file_->written(), "octet");
    tell(file_->path() + ": broken off; the first " + whole + " are in " + file_->keep_part());
    file_.reset();
    throw;
}

void RotatingFile::store(const Time &time, std::string_view piece) {
    if (!file_ || is_full(time, piece.size())) begin(time);
    write(piece);
    if (lost_octets_ != 0) tell_lost();
}

void RotatingFile::take(std::string_view rendered) {
    constexpr auto kPause = std::chrono::seconds(5);
    each_stamped(rendered, [&](const std::optional<Time> &time, std::string_view piece) {
        if (lost_octets_ != 0 && Clock::now() < tried_at_ + kPause) {
            lost_octets_ += piece.size();
            return;
        }
        try {
            store(time ? *time : now(), piece);
        } catch (const std::runtime_error &error) {
            if (!has_begun_) throw;
            lose(piece, error.what());
        }
    });
}

void RotatingFile::lose(std::string_view piece, const std::string &reason) {
    if (lost_octets_ == 0) tell(reason + "; tried again every few seconds");
    if (file_) tell(file_->path() + ": left in " + file_->keep_part());
    file_.reset();
    tried_at_ = Clock::now();
    lost_octets_ += piece.size();
    has_lost_any_ = true;
}

void RotatingFile::tell_lost() {
    tell(pattern_ + ": lost " + counted(std::exchange(lost_octets_, 0), "octet") + " that could not be written");
}

void RotatingFile::finish(uint64_t) {
    if (lost_octets_ != 0) tell_lost();
    close();
}

void RotatingFile::break_off() {
    if (file_) tell_part(*file_);
}

} // namespace ast::recording::astdump
