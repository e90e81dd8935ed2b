#include "write/output.hpp"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace ast::recording {

void Output::write(std::string_view text) {
    while (error_ == 0 && !text.empty()) {
        const ssize_t count = ::write(descriptor_, text.data(), text.size());
        if (count >= 0) {
            written_ += static_cast<uint64_t>(count);
            text.remove_prefix(static_cast<size_t>(count));
        } else if (errno == EAGAIN) {
            wait();
        } else if (errno != EINTR) {
            error_ = errno;
        }
    }
}

// Whoever shares a terminal or pipe may have made it one that does not block.
void Output::wait() const {
    constexpr int kNoLimit = -1;
    pollfd file{.fd = descriptor_, .events = POLLOUT, .revents = 0};
    ::poll(&file, 1, kNoLimit);
}

} // namespace ast::recording
