// A file that is written whole or not at all, and never over an input.
#pragma once

#include <span>
#include <string>
#include <system_error>

#include "write/output.hpp"

namespace ast::recording {

class OutputFile {
public:
    // Writes to a temporary file beside the one at `path`, at the end of its links; what is no regular file, such as a
    // device or a pipe, is written at once. Throws std::runtime_error when it cannot be written, or is one of the
    // inputs, by whatever name.
    OutputFile(const std::string &path, std::span<const std::string> inputs);

    // Leaves what was there before, unless it has been replaced.
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    const std::string &path() const { return path_; }

    // Throws std::runtime_error.
    void write(std::string_view octets);
    uint64_t written() const { return out_.written(); }

    // All is written: the file takes its place. Throws std::runtime_error.
    void replace();

    // What is written stays beside the file, which is left as it was. The name of the part; empty where there is none,
    // since it was written at once. Throws std::runtime_error.
    std::string keep_part();

private:
    int open_beside();
    void close();
    [[noreturn]] void fail(const std::error_code &why) const;

    std::string path_;
    std::string target_;    // the path, links followed
    std::string temporary_; // empty for none
    int file_ = -1;         // of none once it is closed
    Output out_;
};

} // namespace ast::recording
