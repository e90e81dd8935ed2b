// How the command-line tool reads its input, by one thread and by several: what they write and report must be the same.
// The input is a file; its last octet also says how much of it is read at a time, the one before that what its framing
// is, if that is not to be found out. Through a pipe, whose reader takes what has come, nothing must go wrong.

#include <cstdio>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "harness.hpp"
#include "run/run.hpp"
#include "show/record_list.hpp"
#include "show/report_log.hpp"
#include "show/stats.hpp"

namespace ast_fuzz {

namespace {

namespace recording = ast::recording;
namespace astdump = ast::recording::astdump;

// A file in memory.
class File {
public:
    explicit File(std::span<const uint8_t> octets = {}) : descriptor_(memfd_create("input", MFD_CLOEXEC)) {
        require(descriptor_ >= 0 &&
                    write(descriptor_, octets.data(), octets.size()) == static_cast<ssize_t>(octets.size()),
                "the input can be made a file");
    }
    ~File() { close(descriptor_); }
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    int descriptor() const { return descriptor_; }
    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

    std::string contents() const {
        std::string text(static_cast<size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
        require(pread(descriptor_, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
                "the output can be read");
        return text;
    }

private:
    int descriptor_;
};

// Reports go to a file as long as this lives.
class Reports {
public:
    Reports() : shown_(std::exchange(stderr, fdopen(dup(file_.descriptor()), "w"))) {}
    ~Reports() { std::fclose(std::exchange(stderr, shown_)); }
    Reports(const Reports &) = delete;
    Reports &operator=(const Reports &) = delete;

    std::string contents() const {
        std::fflush(stderr);
        return file_.contents();
    }

private:
    File file_;
    FILE *shown_;
};

struct Outcome {
    int status;
    std::string output;
    std::string reports;
    bool operator==(const Outcome &) const = default;
};

struct Way {
    const recording::FramingKind *framing; // null: found out
    size_t jobs;
    size_t chunk_octets;
};

Outcome read(const std::string &path, const Way &way) {
    astdump::Options options;
    options.files = {path};
    options.framing = way.framing;
    options.categories.set();
    options.jobs = way.jobs;
    options.chunk_octets = way.chunk_octets;
    const File output;
    const Reports reports;
    recording::Output out(output.descriptor());
    astdump::Sinks sinks;
    sinks.push_back(std::make_unique<astdump::RecordList>(
        out, astdump::RecordList::Form{.columns = 120, .color = false, .name_files = false}));
    sinks.push_back(std::make_unique<astdump::Stats>(out, false));
    astdump::ReportLog log(false, true);
    const int status = astdump::Run(options, std::move(sinks), out, log, astdump::Progress(false), nullptr).files();
    return {status, output.contents(), reports.contents()};
}

void read_through_pipe(Octets octets, const Way &way) {
    int ends[2];
    require(pipe(ends) == 0, "there can be a pipe");
    const ssize_t written = write(ends[1], octets.data(), octets.size());
    close(ends[1]);
    if (written == static_cast<ssize_t>(octets.size())) read("/proc/self/fd/" + std::to_string(ends[0]), way);
    close(ends[0]);
}

} // namespace

void run(Input input) {
    constexpr size_t kAll = size_t{1} << 18;
    const Octets octets = input.rest();
    const size_t chunk_octets = octets.empty() ? 1 : octets.back() + size_t{1};
    const size_t choice = octets.size() < 2 ? 0xFF : octets[octets.size() - 2];
    const auto framings = recording::framings();
    const recording::FramingKind *const framing = choice < framings.size() ? &framings[choice] : nullptr;
    const File file(octets);
    const Outcome serial = read(file.path(), {framing, 1, kAll});
    require(serial == read(file.path(), {framing, 1, chunk_octets}),
            "the output depends on how much is read at a time");
    require(serial == read(file.path(), {framing, 2, chunk_octets}), "the output depends on the number of threads");
    read_through_pipe(octets, {framing, 1, chunk_octets});
}

} // namespace ast_fuzz
