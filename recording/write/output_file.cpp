#include "write/output_file.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace ast::recording {

namespace {

constexpr mode_t kMode = 0666; // less what the user's mask takes away

mode_t usual_mode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return kMode & ~mask;
}

// What a link leads to, also where that is not there as yet.
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

bool is_same(const struct stat &one, const std::string &input) {
    struct stat other {};
    const int result = input == "-" ? ::fstat(STDIN_FILENO, &other) : ::stat(input.c_str(), &other);
    return result == 0 && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

} // namespace

OutputFile::OutputFile(const std::string &path, std::span<const std::string> inputs)
    : path_(path), descriptor_(-1), out_(-1) {
    struct stat status {};
    const bool exists = ::stat(path.c_str(), &status) == 0;
    const bool is_regular = !exists || S_ISREG(status.st_mode);
    if (exists && is_regular)
        for (const std::string &input : inputs)
            if (is_same(status, input)) throw std::runtime_error(path + ": is an input, and not overwritten");
    descriptor_ = is_regular ? open_beside() : ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor_ < 0) fail(errno);
    if (is_regular) ::fchmod(descriptor_, exists ? status.st_mode & 07777 : usual_mode());
    out_ = Output(descriptor_);
}

int OutputFile::open_beside() {
    target_ = behind_links(path_);
    if (::access(target_.c_str(), W_OK) != 0 && errno != ENOENT) return -1;
    temporary_ = target_ + ".XXXXXX";
    const int descriptor = ::mkostemp(temporary_.data(), O_CLOEXEC);
    if (descriptor < 0) temporary_.clear();
    return descriptor;
}

OutputFile::~OutputFile() {
    ::close(descriptor_);
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void OutputFile::write(std::string_view octets) {
    out_.write(octets);
    if (out_.error() != 0) fail(out_.error());
}

void OutputFile::replace() {
    if (temporary_.empty()) return;
    if (::fsync(descriptor_) != 0 || ::rename(temporary_.c_str(), target_.c_str()) != 0) fail(errno);
    temporary_.clear();
}

std::string OutputFile::keep_part() {
    if (temporary_.empty()) return {};
    std::string part = target_ + ".part";
    if (::link(temporary_.c_str(), part.c_str()) != 0)
        part = temporary_; // there is one already
    else
        ::unlink(temporary_.c_str());
    temporary_.clear();
    return part;
}

void OutputFile::fail(int error) const { throw std::runtime_error(path_ + ": " + std::strerror(error)); }

} // namespace ast::recording
