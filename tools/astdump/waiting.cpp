#include "waiting.hpp"

#include <cerrno>
#include <poll.h>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace astdump {

namespace {

constexpr int kGrowthInterval_ms = 100;
constexpr int kMeanwhileInterval_ms = 200;
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
    pthread_sigmask(SIG_BLOCK, &signals, &blocked_before_);
    signals_ = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    if (signals_ < 0) throw std::system_error(errno, std::generic_category());
}

// Takes the signals that have come, which the process outlives.
Waiting::~Waiting() {
    signalfd_siginfo signal{};
    while (read(signals_, &signal, sizeof signal) > 0) {
    }
    close(signals_);
    pthread_sigmask(SIG_SETMASK, &blocked_before_, nullptr);
}

// The signal still waits to be taken.
void Waiting::pass_on() const {
    signalfd_siginfo signal{};
    if (read(signals_, &signal, sizeof signal) != sizeof signal) return;
    const auto number = static_cast<int>(signal.ssi_signo);
    std::signal(number, SIG_DFL);
    raise(number);
    const sigset_t signals = ending_signals();
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

// Whether the descriptor can be read, waiting for that up to a limit, or for a while at least; notices the end on the
// way.
bool Waiting::is_ready(int descriptor, int limit_ms) {
    pollfd files[] = {{.fd = signals_, .events = POLLIN, .revents = 0},
                      {.fd = descriptor, .events = POLLIN, .revents = 0}};
    const bool is_endless = limit_ms == kNoLimit;
    if (poll(files, 2, meanwhile_ && is_endless ? kMeanwhileInterval_ms : limit_ms) < 0) return false;
    if (meanwhile_ && limit_ms != 0) meanwhile_();
    ended_ = ended_ || files[0].revents != 0;
    return files[1].revents != 0;
}

bool Waiting::for_input(int descriptor) {
    if (is_ready(descriptor, 0)) return !ended_;
    while (!ended_ && !is_ready(descriptor, kNoLimit)) {
    }
    return !ended_;
}

bool Waiting::for_growth() {
    is_ready(kNoDescriptor, kGrowthInterval_ms);
    return !ended_;
}

} // namespace astdump
