#include "system/waiting.hpp"

#include <cerrno>
#include <ctime>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace ast::recording::system {

namespace {

short events_of(Awaited::For what) {
    return what == Awaited::For::input ? POLLIN : what == Awaited::For::output ? POLLOUT : 0;
}

} // namespace

Event::Event() : descriptor_{Descriptor::Kind::event, eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)} {
    if (descriptor_.number < 0) throw std::system_error(errno, std::generic_category());
}

Event::~Event() { close(descriptor_); }

void Event::set() const noexcept {
    const int error = errno;
    constexpr uint64_t kOnce = 1;
    [[maybe_unused]] const ssize_t written = ::write(static_cast<int>(descriptor_.number), &kOnce, sizeof kOnce);
    errno = error;
}

void Event::reset() const noexcept {
    uint64_t taken = 0;
    [[maybe_unused]] const ssize_t got = ::read(static_cast<int>(descriptor_.number), &taken, sizeof taken);
}

// Poll passes over a negative number.
void wait(std::span<Awaited> awaited, std::chrono::nanoseconds limit) {
    using namespace std::chrono;
    std::vector<pollfd> files;
    files.reserve(awaited.size());
    for (const Awaited &each : awaited)
        files.push_back({.fd = static_cast<int>(each.descriptor.number), .events = events_of(each.what), .revents = 0});
    const auto whole = duration_cast<seconds>(limit);
    const timespec time{static_cast<time_t>(whole.count()), static_cast<long>((limit - whole).count())};
    const bool is_any = ppoll(files.data(), files.size(), limit < nanoseconds::zero() ? nullptr : &time, nullptr) > 0;
    for (size_t i = 0; i < files.size(); ++i) awaited[i].is_ready = is_any && files[i].revents != 0;
}

} // namespace ast::recording::system
