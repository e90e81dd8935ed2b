// Runs the tool on a terminal, of which the test is the screen and the keyboard.
#pragma once

#include <string>
#include <sys/types.h>

#include "command.hpp"

class PseudoTerminal {
public:
    // Starts `ENVIRONMENT astdump ARGUMENTS` in the directory of a command.
    PseudoTerminal(const Command &command, const std::string &arguments, unsigned columns = 80, unsigned rows = 24,
                   const std::string &environment = "TERM=xterm");
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal &) = delete;
    PseudoTerminal &operator=(const PseudoTerminal &) = delete;

    // Waits until a text appears that has not been waited for, and returns all that has been written by then.
    const std::string &wait_for(const std::string &text);
    void type(const std::string &keys) const;

    // Waits until the tool ends, and returns its exit status.
    int wait();

    // What has been written; and the lines that stand on the screen then, without colours.
    const std::string &written() const { return written_; }
    std::string screen() const;

private:
    bool read();

    int terminal_ = -1;
    pid_t process_ = -1;
    std::string written_;
    size_t waited_for_ = 0; // of what has been written
};
