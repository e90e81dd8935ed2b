#include "base/interruption.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace ast::recording {

namespace {

constexpr int kGrowthInterval_ms = 100;
constexpr int kMeanwhileInterval_ms = 200;
constexpr int kNoLimit = -1;
constexpr int kNoDescriptor = -1; // which poll passes over

} // namespace

Interruption::Interruption() : event_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (event_ < 0) throw std::system_error(errno, std::generic_category());
}

Interruption::~Interruption() { close(event_); }

void Interruption::interrupt() noexcept {
    const int error = errno;
    ended_ = true;
    constexpr uint64_t kOnce = 1;
    [[maybe_unused]] const ssize_t written = write(event_, &kOnce, sizeof kOnce);
    errno = error;
}

void Interruption::do_meanwhile() const {
    for (const auto &what : meanwhile_) what();
}

// Whether one of the descriptors is ready, waiting for that up to a limit, or for a while at least. The first of them
// is that of the interruption.
bool Interruption::is_ready(std::span<pollfd> files, int limit_ms) {
    files.front() = {.fd = event_, .events = POLLIN, .revents = 0};
    const bool is_endless = limit_ms == kNoLimit;
    if (poll(files.data(), files.size(), !meanwhile_.empty() && is_endless ? kMeanwhileInterval_ms : limit_ms) < 0)
        return false;
    if (limit_ms != 0) do_meanwhile();
    return std::ranges::any_of(files.subspan(1), [](const pollfd &file) { return file.revents != 0; });
}

bool Interruption::is_ready(int descriptor, short event, int limit_ms) {
    pollfd files[] = {{}, {.fd = descriptor, .events = event, .revents = 0}};
    return is_ready(files, limit_ms);
}

bool Interruption::for_input(int descriptor) {
    if (is_ready(descriptor, POLLIN, 0)) return !ended();
    while (!ended() && !is_ready(descriptor, POLLIN, kNoLimit)) {
    }
    return !ended();
}

bool Interruption::for_output(int descriptor) {
    while (!ended() && !is_ready(descriptor, POLLOUT, kNoLimit)) {
    }
    return !ended();
}

std::optional<size_t> Interruption::for_any_input(std::span<const int> descriptors, size_t first) {
    std::vector<pollfd> files(1);
    for (const int descriptor : descriptors) files.push_back({.fd = descriptor, .events = POLLIN, .revents = 0});
    while (!ended()) {
        if (!is_ready(files, kNoLimit)) continue;
        for (size_t i = 0; i < descriptors.size() && !ended(); ++i) {
            const size_t place = (first + i) % descriptors.size();
            if (files[place + 1].revents != 0) return place;
        }
    }
    return std::nullopt;
}

bool Interruption::has_input(int descriptor, int limit_ms) { return is_ready(descriptor, POLLIN, limit_ms); }

bool Interruption::for_growth() {
    is_ready(kNoDescriptor, POLLIN, kGrowthInterval_ms);
    return !ended();
}

// By the clock each time anew: a wait is late by what the system takes to wake up, and that does not add up.
bool Interruption::until(std::chrono::steady_clock::time_point when) {
    using namespace std::chrono;
    while (!ended()) {
        auto left = duration_cast<nanoseconds>(when - steady_clock::now());
        if (left <= nanoseconds::zero()) break;
        if (!meanwhile_.empty()) left = std::min<nanoseconds>(left, milliseconds(kMeanwhileInterval_ms));
        const auto whole = duration_cast<seconds>(left);
        const timespec limit{static_cast<time_t>(whole.count()), static_cast<long>((left - whole).count())};
        pollfd event{.fd = event_, .events = POLLIN, .revents = 0};
        ppoll(&event, 1, &limit, nullptr);
        do_meanwhile();
    }
    return !ended();
}

} // namespace ast::recording
