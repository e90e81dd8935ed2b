#include "pseudo_terminal.hpp"

#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

PseudoTerminal::PseudoTerminal(const Command &command, const std::string &arguments, unsigned columns, unsigned rows,
                               const std::string &environment) {
    const std::string shell = "cd " + command.directory() + " && unset NO_COLOR COLUMNS && exec env " + environment +
                              " " ASTDUMP " " + arguments;
    winsize size{};
    size.ws_col = static_cast<unsigned short>(columns);
    size.ws_row = static_cast<unsigned short>(rows);
    process_ = forkpty(&terminal_, nullptr, nullptr, &size);
    if (process_ < 0) throw std::runtime_error("no pseudo terminal");
    if (process_ != 0) return;
    execl("/bin/sh", "sh", "-c", shell.c_str(), nullptr);
    _exit(127);
}

PseudoTerminal::~PseudoTerminal() {
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    close(terminal_);
}

// False when the tool has ended, or writes nothing in good time.
bool PseudoTerminal::read() {
    constexpr int kPatience_ms = 30'000; // of a loaded machine, with sanitizers
    pollfd file{.fd = terminal_, .events = POLLIN, .revents = 0};
    char characters[4096];
    if (poll(&file, 1, kPatience_ms) != 1) return false;
    const ssize_t count = ::read(terminal_, characters, sizeof characters);
    if (count > 0) written_.append(characters, static_cast<size_t>(count));
    return count > 0;
}

const std::string &PseudoTerminal::wait_for(const std::string &text) {
    size_t found = std::string::npos;
    while ((found = written_.find(text, waited_for_)) == std::string::npos)
        if (!read()) return written_;
    waited_for_ = found + text.size();
    return written_;
}

void PseudoTerminal::type(const std::string &keys) const {
    if (write(terminal_, keys.data(), keys.size()) < 0) throw std::runtime_error("nothing can be typed");
}

int PseudoTerminal::wait() {
    while (read()) {
    }
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// As far as the tool has a say in it: it returns to the start of a line, goes up, wipes the rest of a line or of the
// screen, and sets colours.
std::string PseudoTerminal::screen() const {
    std::vector<std::string> lines(1);
    size_t row = 0, column = 0;
    for (size_t i = 0; i < written_.size(); ++i) {
        if (written_[i] == '\r') {
            column = 0;
        } else if (written_[i] == '\n') {
            if (++row == lines.size()) lines.emplace_back();
        } else if (written_.compare(i, 2, "\033[") == 0) {
            const size_t end = written_.find_first_of("AJKm", i);
            const size_t count = std::strtoul(written_.c_str() + i + 2, nullptr, 10);
            if (written_.at(end) == 'A') row -= std::min(row, count);
            if (written_[end] == 'J') lines.resize(row + 1);
            if (written_[end] == 'J' || written_[end] == 'K') lines[row].resize(column, ' ');
            i = end;
        } else {
            lines[row].resize(std::max(lines[row].size(), column + 1), ' ');
            lines[row][column++] = written_[i];
        }
    }
    std::string text;
    for (const std::string &line : lines) text.append(line).append("\n");
    return text;
}
