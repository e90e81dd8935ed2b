// Runs the tool beside the test, for what has no end of its own.
#pragma once

#include <csignal>
#include <string>
#include <sys/types.h>

#include "command.hpp"

class Background {
public:
    // Starts `astdump ARGUMENTS` in the directory of a command.
    Background(const Command &command, const std::string &arguments);
    ~Background();
    Background(const Background &) = delete;
    Background &operator=(const Background &) = delete;

    // Wait for a text on standard output or standard error, and return all that stands there by then, without the text
    // when it does not come in good time.
    std::string wait_for_output(const std::string &text) const;
    std::string wait_for_report(const std::string &text) const;

    void send(int signal) const;
    bool runs() const;

    // Waits until the tool ends, by itself or by a signal. One that does not is killed, which is status -1.
    Result wait();
    Result end(int signal = SIGINT);

private:
    std::string directory_;
    pid_t process_ = -1;
};
