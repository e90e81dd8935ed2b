#include "waiting.hpp"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <poll.h>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace astdump {

namespace {

constexpr int kGrowthInterval_ms = 100;
constexpr int kNoLimit = -1;
constexpr int kNoDescriptor = -1; // which poll passes over

sigset_t ending_signals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

} // namespace

Waiting::Waiting() {
    const sigset_t signals = ending_signals();
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    signals_ = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    if (signals_ < 0) throw std::system_error(errno, std::generic_category());
}

Waiting::~Waiting() { close(signals_); }

// Whether the descriptor can be read, waiting for that up to a limit; notices the end on the way.
bool Waiting::is_ready(int descriptor, int limit_ms) {
    pollfd files[] = {{.fd = signals_, .events = POLLIN, .revents = 0},
                      {.fd = descriptor, .events = POLLIN, .revents = 0}};
    if (poll(files, 2, limit_ms) < 0) return false;
    ended_ = ended_ || files[0].revents != 0;
    return files[1].revents != 0;
}

bool Waiting::for_input(int descriptor) {
    if (is_ready(descriptor, 0)) return !ended_;
    std::fflush(stdout);
    while (!ended_ && !is_ready(descriptor, kNoLimit)) {
    }
    return !ended_;
}

bool Waiting::for_growth() {
    std::fflush(stdout);
    is_ready(kNoDescriptor, kGrowthInterval_ms);
    return !ended_;
}

} // namespace astdump
