// Runs the tool as a shell does, in a directory of its own.
#pragma once

#include <string>

// Octets written as pairs of hexadecimal digits; blanks count for nothing.
std::string hex(const std::string &digits);

std::string read_file(const std::string &path);

struct Result {
    int status;
    std::string out;
    std::string err;
};

class Command {
public:
    Command();
    ~Command();
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    const std::string &directory() const { return directory_; }

    void append(const std::string &file, const std::string &octets) const;
    void write(const std::string &file, const std::string &octets) const;

    // Runs `astdump ARGUMENTS`, which may use the shell's redirections.
    Result run(const std::string &arguments) const;

private:
    std::string directory_;
};
