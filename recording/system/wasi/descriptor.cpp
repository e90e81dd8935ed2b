#include "system/descriptor.hpp"

#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace ast::recording::system {

std::optional<size_t> read(Descriptor descriptor, std::span<uint8_t> octets) {
    const ssize_t count = ::read(static_cast<int>(descriptor.number), octets.data(), octets.size());
    if (count >= 0) return static_cast<size_t>(count);
    if (errno == EINTR) return std::nullopt;
    throw std::system_error(errno, std::generic_category());
}

void close(Descriptor descriptor) {
    if (descriptor && descriptor.number != kStandardInput) ::close(static_cast<int>(descriptor.number));
}

} // namespace ast::recording::system
