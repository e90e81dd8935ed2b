#include "background.hpp"

#include <cerrno>
#include <chrono>
#include <functional>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>

namespace {

constexpr auto kPatience = std::chrono::seconds(30); // of a loaded machine, with sanitizers
constexpr auto kInterval = std::chrono::milliseconds(5);

// Whether something becomes true in good time.
bool comes_true(const std::function<bool()> &condition) {
    const auto limit = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) return false;
        std::this_thread::sleep_for(kInterval);
    }
    return true;
}

std::string wait_for(const std::string &file, const std::string &text) {
    std::string octets;
    comes_true([&] { return (octets = read_file(file)).find(text) != std::string::npos; });
    return octets;
}

} // namespace

Background::Background(const Command &command, const std::string &arguments) : directory_(command.directory()) {
    // The files are there before the tool starts, so that they can be read at once.
    command.write(".out", "");
    command.write(".err", "");
    std::string shell = "cd " + directory_ + " && exec " ASTDUMP " " + arguments + " >.out 2>.err";
    std::string name = "sh";
    std::string option = "-c";
    char *const words[] = {name.data(), option.data(), shell.data(), nullptr};
    if (posix_spawn(&process_, "/bin/sh", nullptr, nullptr, words, environ) != 0)
        throw std::runtime_error("cannot start a shell");
}

Background::~Background() {
    if (process_ > 0) end(SIGKILL);
}

std::string Background::wait_for_output(const std::string &text) const { return wait_for(directory_ + "/.out", text); }
std::string Background::wait_for_report(const std::string &text) const { return wait_for(directory_ + "/.err", text); }

void Background::send(int signal) const { kill(process_, signal); }

// Leaves the exit status to be collected.
bool Background::runs() const {
    siginfo_t info{};
    waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOHANG | WNOWAIT);
    return info.si_pid == 0;
}

Result Background::end(int signal) {
    send(signal);
    return wait();
}

Result Background::wait() {
    int status = 0;
    if (!comes_true([&] { return waitpid(process_, &status, WNOHANG) == process_; })) {
        send(SIGKILL);
        waitpid(process_, &status, 0);
    }
    process_ = -1;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_file(directory_ + "/.out"),
            read_file(directory_ + "/.err")};
}
