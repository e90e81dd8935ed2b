#include "new_file.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace astdump {

namespace {

// What a name leads to through all links; nothing where there is nothing.
std::optional<struct stat> status_of(const std::string &path) {
    struct stat status {};
    const int result = path == "-" ? ::fstat(STDIN_FILENO, &status) : ::stat(path.c_str(), &status);
    return result == 0 ? std::optional(status) : std::nullopt;
}

bool is_same(const struct stat &a, const struct stat &b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

void check_target(const std::string &path, const std::vector<std::string> &inputs) {
    const auto target = status_of(path);
    if (!target) return;
    if (!S_ISREG(target->st_mode)) throw std::runtime_error(path + ": is no regular file");
    const bool is_input = std::ranges::any_of(inputs, [&](const std::string &input) {
        const auto status = status_of(input);
        return status && is_same(*status, *target);
    });
    if (is_input) throw std::runtime_error(path + ": is read, so that it cannot be written");
}

// What a new file is granted, less what the user's mask takes away.
mode_t usual_mode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

NewFile::NewFile(const std::string &path, const std::vector<std::string> &inputs)
    : path_(path), descriptor_(-1), out_(-1) {
    check_target(path, inputs);
    std::error_code unknown;
    target_ = std::filesystem::weakly_canonical(path, unknown).string();
    if (unknown) target_ = path;
    temporary_ = target_ + ".XXXXXX";
    descriptor_ = ::mkostemp(temporary_.data(), O_CLOEXEC);
    if (descriptor_ < 0) fail(errno);
    const auto older = status_of(target_);
    ::fchmod(descriptor_, older ? older->st_mode & 07777 : usual_mode());
    out_ = Output(descriptor_);
}

NewFile::~NewFile() {
    ::close(descriptor_);
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void NewFile::write(std::string_view octets) {
    out_.write(octets);
    if (out_.error() != 0) fail(out_.error());
}

void NewFile::keep() {
    if (::fsync(descriptor_) != 0 || ::rename(temporary_.c_str(), target_.c_str()) != 0) fail(errno);
    temporary_.clear();
}

void NewFile::fail(int error) const { throw std::runtime_error(path_ + ": " + std::strerror(error)); }

} // namespace astdump
