// Standard output, or a file, written as it comes.
#pragma once

#include <cstdint>
#include <string_view>

namespace ast::recording {

class Output {
public:
    explicit Output(int file) : file_(file) {}

    // Writes all of it, unless a write has failed: nothing is written behind a gap.
    void write(std::string_view text);

    // The reason why a write has failed, as errno numbers it; 0 when none has.
    int error() const { return error_; }
    uint64_t written() const { return written_; }

private:
    int file_;
    int error_ = 0;
    uint64_t written_ = 0; // octets
};

} // namespace ast::recording
