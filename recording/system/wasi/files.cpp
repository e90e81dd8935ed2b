// Files in the directories that whoever runs this has opened for it, to be read.
#include "system/files.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ast::recording::system {

namespace {

std::error_code last_failure() { return {errno, std::generic_category()}; }

std::optional<FileFacts> facts(int result, const struct stat &status) {
    if (result != 0) return std::nullopt;
    return FileFacts{.is_regular = S_ISREG(status.st_mode),
                     .octets = static_cast<uint64_t>(status.st_size),
                     .mode = 0,
                     .identity = {status.st_dev, status.st_ino}};
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

bool exists(const std::string &path) { return look_at(path).has_value(); }

std::error_code check_readable(const std::string &path) { return exists(path) ? std::error_code() : last_failure(); }

int open_to_read(const std::string &path, bool) {
    const int file = ::open(path.c_str(), O_RDONLY);
    if (file < 0) throw std::system_error(last_failure());
    return file;
}

int64_t place_of(int file) { return ::lseek(file, 0, SEEK_CUR); }

void set_place(int file, int64_t place) { ::lseek(file, place, SEEK_SET); }

} // namespace ast::recording::system
