#include "system/files.hpp"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ast::recording::system {

namespace {

constexpr mode_t kAllRights = 07777;

std::error_code last_failure() { return {errno, std::generic_category()}; }
std::error_code failure_of(int result) { return result == 0 ? std::error_code() : last_failure(); }

int opened(int file) {
    if (file < 0) throw std::system_error(last_failure());
    return file;
}

std::optional<FileFacts> facts(int result, const struct stat &status) {
    if (result != 0) return std::nullopt;
    return FileFacts{.is_regular = S_ISREG(status.st_mode),
                     .octets = static_cast<uint64_t>(status.st_size),
                     .mode = status.st_mode & kAllRights,
                     .identity = {status.st_dev, status.st_ino}};
}

mode_t usual_mode() {
    constexpr mode_t kMode = 0666;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return kMode & ~mask;
}

// Whoever shares a terminal or pipe may have made it one that does not block.
void wait_for_room(int file) {
    constexpr int kNoLimit = -1;
    pollfd awaited{.fd = file, .events = POLLOUT, .revents = 0};
    ::poll(&awaited, 1, kNoLimit);
}

} // namespace

std::optional<FileFacts> look_at(int file) {
    struct stat status {};
    return facts(::fstat(file, &status), status);
}

std::optional<FileFacts> look_at(const std::string &path) {
    struct stat status {};
    return facts(::stat(path.c_str(), &status), status);
}

bool exists(const std::string &path) { return ::access(path.c_str(), F_OK) == 0; }

std::error_code check_readable(const std::string &path) { return failure_of(::access(path.c_str(), R_OK)); }

std::error_code check_writable(const std::string &path) { return failure_of(::access(path.c_str(), W_OK)); }

int open_to_read(const std::string &path, bool waits) {
    const int file = opened(::open(path.c_str(), O_RDONLY | O_CLOEXEC | (waits ? 0 : O_NONBLOCK)));
    if (!waits) ::fcntl(file, F_SETFL, 0);
    return file;
}

int open_to_write(const std::string &path) { return opened(::open(path.c_str(), O_WRONLY | O_CLOEXEC)); }

std::string behind_links(std::string path) {
    constexpr int kMostLinks = 40;
    char link[4096];
    for (int i = 0; i < kMostLinks; ++i) {
        const ssize_t size = ::readlink(path.c_str(), link, sizeof link);
        if (size <= 0) break;
        const std::string to(link, static_cast<size_t>(size));
        path = to.front() == '/' ? to : path.substr(0, path.rfind('/') + 1) + to;
    }
    return path;
}

NewFile create(const std::string &stem) {
    NewFile made{.file = -1, .path = stem + ".XXXXXX"};
    made.file = opened(::mkostemp(made.path.data(), O_CLOEXEC));
    return made;
}

void set_mode(int file, std::optional<uint32_t> mode) { ::fchmod(file, mode ? *mode : usual_mode()); }

Written write(int file, std::string_view text) {
    Written written{};
    while (written.error == 0 && written.count < text.size()) {
        const ssize_t count = ::write(file, text.data() + written.count, text.size() - written.count);
        if (count >= 0)
            written.count += static_cast<size_t>(count);
        else if (errno == EAGAIN)
            wait_for_room(file);
        else if (errno != EINTR)
            written.error = errno;
    }
    return written;
}

std::error_code flush(int file) { return failure_of(::fsync(file)); }

std::error_code replace(const std::string &from, const std::string &to) {
    return failure_of(::rename(from.c_str(), to.c_str()));
}

std::error_code rename(const std::string &from, const std::string &to) {
    const std::error_code failure = failure_of(::link(from.c_str(), to.c_str()));
    if (!failure) ::unlink(from.c_str());
    return failure;
}

void remove(const std::string &path) { ::unlink(path.c_str()); }

int64_t place_of(int file) { return ::lseek(file, 0, SEEK_CUR); }

void set_place(int file, int64_t place) { ::lseek(file, place, SEEK_SET); }

} // namespace ast::recording::system
