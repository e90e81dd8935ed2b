// The whole command-line tool in one process: what it reads, in every way it shows, counts, converts and writes. The
// input is the file that it reads; its last octets choose the command line, and how much is read at a time. What goes
// to terminals must hold no control characters. Now and then, what is written and reported must be the same with other
// pieces and by two threads.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "harness.hpp"
#include "run/run.hpp"
#include "run/sinks.hpp"

namespace ast_fuzz {

namespace {

namespace recording = ast::recording;
namespace astdump = ast::recording::astdump;
namespace fs = std::filesystem;

// A file in memory, for one input after the other.
class File {
public:
    File() : descriptor_(memfd_create("file", MFD_CLOEXEC)) { require(descriptor_ >= 0, "there can be a file"); }
    ~File() { close(descriptor_); }
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    int descriptor() const { return descriptor_; }
    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

    void clear() { require(ftruncate(descriptor_, 0) == 0 && lseek(descriptor_, 0, SEEK_SET) == 0, "it is emptied"); }
    void set(Octets octets) {
        clear();
        const ssize_t written = write(descriptor_, octets.data(), octets.size());
        require(written == static_cast<ssize_t>(octets.size()), "the input can be made a file");
    }
    std::string contents() const {
        std::string text(static_cast<size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
        require(pread(descriptor_, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
                "the output can be read");
        return text;
    }

private:
    int descriptor_;
};

// In memory where the system has such a place: what is written is made safe on disks, which takes time.
class Directory {
public:
    Directory() {
        std::string name = (fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) / "fuzz.XXXXXX";
        require(mkdtemp(name.data()) != nullptr, "there can be a directory");
        path_ = name;
    }
    ~Directory() { fs::remove_all(path_); }
    Directory(const Directory &) = delete;
    Directory &operator=(const Directory &) = delete;

    const fs::path &path() const { return path_; }

private:
    fs::path path_;
};

struct Mode {
    const char *arguments;
    bool is_text = true;    // on standard output
    bool in_pieces = false; // that are packed each by itself
};

// A word with @ is a file of this directory, by itself the input once more.
constexpr Mode kModes[] = {
    {""},
    {"--detail"},
    {"--detail --color always", false},
    {"--list"},
    {"--json"},
    {"--json --texts"},
    {"--csv"},
    {"--csv time,squawk,I010/SAC,I040/RHO,I070/MODE3A,I250,I380/ID"},
    {"--stats"},
    {"--top"},
    {"--quiet"},
    {.arguments = "--html @page.html", .in_pieces = true},
    {"--write @blocks.pcap"},
    {"--write @blocks.ast"},
    {"--write @records.json --texts"},
    {"--list --write @blocks.pcap"},
    {"--list --merge @"},
};

constexpr const char *kChoices[] = {
    "",
    "",
    "",
    "--verbose",
    "--where squawk=7700",
    "--where fl>100 --where time>=11:00",
    "--where callsign=*A*",
    "--where I040/RHO>3",
    "--where I250",
    "--convert 1,2",
    "--convert 34,48",
    "--category 8,34,48,240",
    "--count 3",
    "--port 8600-9000 --host 192.0.2.0/24",
    "--from 11:00 --to 13:00",
    "--site 25/10=47,19,150 --site 0/0=-89.9,179.9,0",
    "--uap cat021-2.1",
    "--uap standard",
};

class Tool {
public:
    struct Outcome {
        int status;
        std::string output;
        std::string reports;
        bool operator==(const Outcome &) const = default;
    };

    Tool() {
        const std::string viewer = file("viewer.html");
        std::ofstream(viewer) << "<script id=\"recording\"></script><script id=\"about\"></script>";
        setenv("AST_VIEWER", viewer.c_str(), 1);          // whether the tool was built with its own or not
        stderr = fdopen(dup(reports_.descriptor()), "w"); // of the tool's reports; the engine has its own
        require(stderr != nullptr, "reports can be written");
    }

    const astdump::Options &options(size_t mode, size_t choice) {
        const auto [place, is_new] = options_.try_emplace({mode, choice});
        if (is_new) place->second = read_options(std::string(kModes[mode].arguments) + ' ' + kChoices[choice]);
        return place->second;
    }

    void set_input(Octets octets) { input_.set(octets); }

    Outcome run(const astdump::Options &options) {
        output_.clear();
        reports_.clear();
        recording::Output out(output_.descriptor());
        astdump::ReportLog log(false, options.verbose);
        recording::Interruption interruption;
        astdump::Run run(options, make_sinks(options, out, log, interruption), out, log, astdump::Progress(false),
                         &interruption);
        const int status = run.files();
        std::fflush(stderr);
        return {status, output_.contents(), reports_.contents()};
    }

private:
    astdump::Options read_options(const std::string &arguments) {
        std::vector<std::string> words = {"astdump", input_.path()};
        std::istringstream rest(arguments);
        for (std::string word; rest >> word;) words.push_back(word[0] == '@' ? file(word.substr(1)) : word);
        std::vector<char *> pointers;
        for (std::string &word : words) pointers.push_back(word.data());
        const astdump::CommandLine line = astdump::read_command_line(static_cast<int>(words.size()), pointers.data());
        require(line.options.has_value(), "the command line can be read");
        return *line.options;
    }

    std::string file(const std::string &name) const {
        return name.empty() ? input_.path() : (directory_.path() / name).string();
    }

    Directory directory_;
    File input_, output_, reports_;
    std::map<std::pair<size_t, size_t>, astdump::Options> options_;
};

// Takes choices from the end of the input, so that any file is one.
class Choices {
public:
    explicit Choices(Octets octets) : rest_(octets) {}

    size_t below(size_t limit) {
        if (rest_.empty()) return 0;
        const size_t choice = rest_.back();
        rest_ = rest_.first(rest_.size() - 1);
        return choice % limit;
    }

private:
    Octets rest_;
};

void require_printable(const std::string &text) {
    for (const char c : text)
        require(c == '\n' || (static_cast<uint8_t>(c) >= 0x20 && c != 0x7F), "a control character is shown");
}

void read_through_pipe(Tool &tool, Octets octets, astdump::Options options) {
    int ends[2];
    require(pipe(ends) == 0, "there can be a pipe");
    const ssize_t written = write(ends[1], octets.data(), octets.size());
    close(ends[1]);
    options.files = {"/proc/self/fd/" + std::to_string(ends[0])};
    if (written == static_cast<ssize_t>(octets.size())) tool.run(options);
    close(ends[0]);
}

} // namespace

void run(Input input) {
    static Tool tool;
    const Octets octets = input.rest();
    Choices choices(octets);
    const size_t mode = choices.below(std::size(kModes));
    astdump::Options options = tool.options(mode, choices.below(std::size(kChoices)));
    const size_t chunk_octets = 1 + choices.below(256);
    const auto framings = recording::framings();
    const size_t framing = choices.below(16 * framings.size());
    options.framing = framing < framings.size() ? &framings[framing] : nullptr;
    options.chunk_octets = size_t{1} << 14;
    options.threads = 1;
    tool.set_input(octets);
    const Tool::Outcome outcome = tool.run(options);
    require(outcome.status == astdump::kExitClean || outcome.status == astdump::kExitDamaged ||
                outcome.status == astdump::kExitUnusable,
            "the exit status is none");
    require_printable(outcome.reports);
    if (kModes[mode].is_text) require_printable(outcome.output);

    const size_t way = 63 - choices.below(64);
    if (way == 0) read_through_pipe(tool, octets, options);
    if (way < 2) options.threads = 2;
    options.chunk_octets = chunk_octets;
    if (way < 4 && !kModes[mode].in_pieces)
        require(tool.run(options) == outcome, "pieces or threads change the output");
}

} // namespace ast_fuzz
