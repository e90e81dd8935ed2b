// How the command-line tool reads its input, by one thread and by several: what they write and report must be the same.
// The input is a file, a capture or raw blocks; its last octet also says how much of it is read at a time.

#include <cstdio>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "harness.hpp"
#include "record_list.hpp"
#include "run.hpp"
#include "stats.hpp"

namespace ast_fuzz {

namespace {

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

Outcome read(const File &input, size_t jobs, size_t chunk_octets) {
    astdump::Options options;
    options.files = {input.path()};
    options.categories.set();
    options.jobs = jobs;
    options.chunk_octets = chunk_octets;
    const File output;
    const Reports reports;
    astdump::Output out(output.descriptor());
    astdump::Sinks sinks;
    sinks.push_back(std::make_unique<astdump::RecordList>(out, false, false, false));
    sinks.push_back(std::make_unique<astdump::Stats>(out, false));
    astdump::DamageLog damage(false, true);
    const int status = astdump::Run(options, std::move(sinks), out, damage, astdump::Progress(false), nullptr).files();
    return {status, output.contents(), reports.contents()};
}

} // namespace

void run(Input input) {
    constexpr size_t kAll = size_t{1} << 18;
    const Octets octets = input.rest();
    const size_t chunk_octets = octets.empty() ? 1 : octets.back() + size_t{1};
    const File file(octets);
    const Outcome serial = read(file, 1, kAll);
    require(serial == read(file, 1, chunk_octets), "the output depends on how much is read at a time");
    require(serial == read(file, 2, chunk_octets), "the output depends on the number of threads");
}

} // namespace ast_fuzz
