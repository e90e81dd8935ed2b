#include "system/waiting.hpp"

#include <algorithm>
#include <io.h>
#include <system_error>
#include <vector>
#include <winsock2.h>

#include "system/windows/last_failure.hpp"

namespace ast::recording::system {

namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using Kind = Descriptor::Kind;

// Nothing waits for a pipe, nor for events and sockets at once: these are looked at so often.
constexpr milliseconds kInterval{10};

HANDLE handle_of(Descriptor event) { return reinterpret_cast<HANDLE>(event.number); }

bool is_pipe(Descriptor descriptor) {
    return descriptor.kind == Kind::file &&
           GetFileType(reinterpret_cast<HANDLE>(::_get_osfhandle(static_cast<int>(descriptor.number)))) ==
               FILE_TYPE_PIPE;
}

SHORT events_of(Awaited::For what) {
    return what == Awaited::For::input ? POLLRDNORM : what == Awaited::For::output ? POLLWRNORM : 0;
}

// A pipe that fails is at its end.
bool holds_any(Descriptor pipe) {
    DWORD octets = 0;
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(static_cast<int>(pipe.number)));
    return !PeekNamedPipe(handle, nullptr, 0, nullptr, &octets, nullptr) || octets != 0;
}

// What sockets and events are waited for by, as the system has them.
class Waiting {
public:
    explicit Waiting(std::span<Awaited> awaited) : awaited_(awaited) {
        for (const Awaited &each : awaited) add(each);
    }

    // Whether any is ready by now.
    bool look() {
        look_at_sockets(milliseconds(0));
        auto socket = sockets_.begin();
        for (Awaited &each : awaited_)
            each.is_ready = each.descriptor.kind == Kind::socket ? (socket++)->revents != 0 : is_ready(each);
        return std::ranges::any_of(awaited_, &Awaited::is_ready);
    }

    // Up to a time, or less.
    void sleep(nanoseconds limit) {
        const bool is_shortened = has_pipes_ || (!sockets_.empty() && !events_.empty());
        const auto most = std::chrono::ceil<milliseconds>(limit);
        const auto time = is_shortened && (limit < nanoseconds::zero() || most > kInterval) ? kInterval : most;
        const DWORD count_ms = time < milliseconds(0) ? INFINITE : static_cast<DWORD>(time.count());
        if (!sockets_.empty())
            look_at_sockets(time);
        else if (!events_.empty())
            WaitForMultipleObjects(static_cast<DWORD>(events_.size()), events_.data(), FALSE, count_ms);
        else
            Sleep(count_ms);
    }

private:
    void add(const Awaited &each) {
        const Descriptor &descriptor = each.descriptor;
        if (descriptor.kind == Kind::event) events_.push_back(handle_of(descriptor));
        if (descriptor.kind == Kind::socket)
            sockets_.push_back(
                {.fd = static_cast<SOCKET>(descriptor.number), .events = events_of(each.what), .revents = 0});
        has_pipes_ = has_pipes_ || is_pipe(descriptor);
    }

    // Files and terminals can always be read, and all files written.
    static bool is_ready(const Awaited &each) {
        if (each.descriptor.kind == Kind::none) return false;
        if (each.descriptor.kind == Kind::event)
            return WaitForSingleObject(handle_of(each.descriptor), 0) == WAIT_OBJECT_0;
        return each.what != Awaited::For::input || !is_pipe(each.descriptor) || holds_any(each.descriptor);
    }

    // One that somebody has closed meanwhile is ready, as all are then, and fails for whoever goes on to use it.
    void look_at_sockets(milliseconds limit) {
        if (sockets_.empty()) return;
        const auto limit_ms = static_cast<INT>(std::clamp<int64_t>(limit.count(), -1, INT_MAX));
        if (WSAPoll(sockets_.data(), static_cast<ULONG>(sockets_.size()), limit_ms) < 0)
            for (WSAPOLLFD &socket : sockets_) socket.revents = POLLNVAL;
    }

    std::span<Awaited> awaited_;
    std::vector<HANDLE> events_;
    std::vector<WSAPOLLFD> sockets_;
    bool has_pipes_ = false;
};

} // namespace

Event::Event() : descriptor_{Kind::event, reinterpret_cast<intptr_t>(CreateEventW(nullptr, TRUE, FALSE, nullptr))} {
    if (descriptor_.number == 0) throw std::system_error(last_failure());
}

Event::~Event() { CloseHandle(handle_of(descriptor_)); }

void Event::set() const noexcept { SetEvent(handle_of(descriptor_)); }

void Event::reset() const noexcept { ResetEvent(handle_of(descriptor_)); }

void wait(std::span<Awaited> awaited, nanoseconds limit) {
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    for (Waiting waiting(awaited); !waiting.look();) {
        const auto left = limit < nanoseconds::zero() ? limit : limit - (Clock::now() - begin);
        if (limit >= nanoseconds::zero() && left <= nanoseconds::zero()) break;
        waiting.sleep(left);
    }
}

} // namespace ast::recording::system
