#include "waiting.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
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

Time now() {
    using namespace std::chrono;
    const auto since_1970 = system_clock::now().time_since_epoch();
    const auto whole = duration_cast<seconds>(since_1970);
    return {whole.count(), static_cast<uint32_t>(duration_cast<nanoseconds>(since_1970 - whole).count())};
}

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

// Whether one of the descriptors is ready, waiting for that up to a limit, or for a while at least; notices the end on
// the way. The first of them is that of the signals.
bool Waiting::is_ready(std::span<pollfd> files, int limit_ms) {
    files.front() = {.fd = signals_, .events = POLLIN, .revents = 0};
    const bool is_endless = limit_ms == kNoLimit;
    if (poll(files.data(), files.size(), meanwhile_ && is_endless ? kMeanwhileInterval_ms : limit_ms) < 0) return false;
    if (meanwhile_ && limit_ms != 0) meanwhile_();
    ended_ = ended_ || files.front().revents != 0;
    return std::ranges::any_of(files.subspan(1), [](const pollfd &file) { return file.revents != 0; });
}

bool Waiting::is_ready(int descriptor, short event, int limit_ms) {
    pollfd files[] = {{}, {.fd = descriptor, .events = event, .revents = 0}};
    return is_ready(files, limit_ms);
}

bool Waiting::for_input(int descriptor) {
    if (is_ready(descriptor, POLLIN, 0)) return !ended_;
    while (!ended_ && !is_ready(descriptor, POLLIN, kNoLimit)) {
    }
    return !ended_;
}

bool Waiting::for_output(int descriptor) {
    while (!ended_ && !is_ready(descriptor, POLLOUT, kNoLimit)) {
    }
    return !ended_;
}

std::optional<size_t> Waiting::for_any_input(std::span<const int> descriptors, size_t first) {
    std::vector<pollfd> files(1);
    for (const int descriptor : descriptors) files.push_back({.fd = descriptor, .events = POLLIN, .revents = 0});
    while (!ended_) {
        if (!is_ready(files, kNoLimit)) continue;
        for (size_t i = 0; i < descriptors.size() && !ended_; ++i) {
            const size_t place = (first + i) % descriptors.size();
            if (files[place + 1].revents != 0) return place;
        }
    }
    return std::nullopt;
}

bool Waiting::has_input(int descriptor, int limit_ms) { return is_ready(descriptor, POLLIN, limit_ms); }

bool Waiting::for_growth() {
    is_ready(kNoDescriptor, POLLIN, kGrowthInterval_ms);
    return !ended_;
}

} // namespace astdump
