// Recordings as tests read them.
#pragma once

#include <ast_recording.h>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ast_test {

struct Closer {
    void operator()(ast_recording_t *recording) const { ast_recording_close(recording); }
};
using Recording = std::unique_ptr<ast_recording_t, Closer>;

// A block, with the octets copied.
struct ReadBlock {
    std::vector<uint8_t> octets;
    uint64_t number;
    uint64_t datagram;
    uint64_t packet;
    uint64_t offset;
    std::string file;
    std::string time;
    std::string route; // "sender > receiver", empty where nothing is known
    bool valid;
    std::string profile;
    std::string edition;

    bool operator==(const ReadBlock &) const = default;
};

// A report, with its texts; numbers that are not asked for are not kept.
struct Told {
    ast_recording_report_t data;
    std::string file;
    std::string detail;
    std::string text;
    std::string cause;
};

std::string sample(const char *name);
std::vector<uint8_t> contents(const std::string &path);

// A file with these octets, as long as it lives.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::vector<uint8_t> &octets = {});
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    void append(const std::vector<uint8_t> &octets) const;
    const std::string &path() const { return path_; }

private:
    std::string path_;
};

// Keeps what is reported, where options name it as their context.
struct Reports {
    std::vector<Told> told;
    static void keep(void *context, const ast_recording_report_t *report);

    // Those options, with this as what is told.
    ast_recording_options_t with(ast_recording_options_t options = {});
};

// Opened, or a failure of the test.
Recording open(const std::vector<std::string> &inputs, const ast_recording_options_t &options = {});
Recording open(const std::vector<uint8_t> &octets, const ast_recording_options_t &options = {},
               const char *name = nullptr);

ReadBlock copy_of(const ast_recording_block_t &block);
std::vector<ReadBlock> read_all(ast_recording_t *recording);
ast_recording_state_t state_of(const ast_recording_t *recording);

// Category 034, a north marker of 25/12 at 12:00; and one of some other time.
std::vector<uint8_t> north_marker(uint8_t time = 0x54);

} // namespace ast_test
