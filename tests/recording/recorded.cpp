#include "recording/recorded.hpp"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace ast_test {

namespace {

std::string text_of(const ast_endpoint_t &endpoint) {
    char text[64];
    ast_endpoint_to_text(text, sizeof text, &endpoint);
    return text;
}

} // namespace

std::string sample(const char *name) { return std::string(SAMPLES) + '/' + name; }

std::vector<uint8_t> contents(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TemporaryFile::TemporaryFile(const std::vector<uint8_t> &octets) : path_("/tmp/recording_test.XXXXXX") {
    const int descriptor = mkstemp(path_.data());
    EXPECT_GE(descriptor, 0);
    close(descriptor);
    append(octets);
}

TemporaryFile::~TemporaryFile() { unlink(path_.c_str()); }

void TemporaryFile::append(const std::vector<uint8_t> &octets) const {
    std::ofstream file(path_, std::ios::binary | std::ios::app);
    file.write(reinterpret_cast<const char *>(octets.data()), static_cast<std::streamsize>(octets.size()));
}

void Reports::keep(void *context, const ast_recording_report_t *report) {
    char text[500], cause[200];
    ast_recording_report_to_text(text, sizeof text, report);
    ast_recording_report_get_cause(cause, sizeof cause, report);
    static_cast<Reports *>(context)->told.push_back({*report, report->file, report->detail, text, cause});
}

ast_recording_options_t Reports::with(ast_recording_options_t options) {
    options.report = keep;
    options.context = this;
    return options;
}

Recording open(const std::vector<std::string> &inputs, const ast_recording_options_t &options) {
    std::vector<const char *> paths;
    for (const std::string &input : inputs) paths.push_back(input.c_str());
    ast_recording_error_t error;
    Recording recording(ast_recording_open(paths.data(), paths.size(), &options, &error));
    EXPECT_TRUE(recording) << error.text;
    return recording;
}

Recording open(const std::vector<uint8_t> &octets, const ast_recording_options_t &options, const char *name) {
    ast_recording_error_t error;
    Recording recording(ast_recording_open_octets(octets.data(), octets.size(), name, &options, &error));
    EXPECT_TRUE(recording) << error.text;
    return recording;
}

ReadBlock copy_of(const ast_recording_block_t &block) {
    char time[40];
    ast_time_to_text(time, sizeof time, block.time_ns);
    std::string route = text_of(block.sender);
    if (!route.empty()) route += " > " + text_of(block.receiver);
    return {{block.octets, block.octets + block.length},
            block.number,
            block.datagram,
            block.packet,
            block.offset,
            block.file,
            time,
            route,
            block.read.valid,
            block.read.profile,
            block.read.edition};
}

std::vector<ReadBlock> read_all(ast_recording_t *recording) {
    std::vector<ReadBlock> blocks;
    ast_recording_block_t block;
    while (ast_recording_next(recording, &block)) blocks.push_back(copy_of(block));
    return blocks;
}

ast_recording_state_t state_of(const ast_recording_t *recording) {
    ast_recording_state_t state;
    ast_recording_get_state(recording, &state);
    return state;
}

std::vector<uint8_t> north_marker(uint8_t time) { return {34, 0, 11, 0xF0, 25, 12, 1, time, 0x60, 0x00, 0x00}; }

} // namespace ast_test
