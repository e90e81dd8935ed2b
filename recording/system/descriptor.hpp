// What is read, written or waited for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace ast::recording::system {

struct Descriptor {
    enum class Kind : uint8_t { none, file, socket, event };

    Kind kind = Kind::none;
    intptr_t number = -1; // as the C library numbers files, and the system all else

    explicit operator bool() const { return kind != Kind::none; }
};

// Also a pipe or a terminal.
constexpr Descriptor file_descriptor(int file) { return {Descriptor::Kind::file, file}; }
template <typename Handle>
constexpr Descriptor socket_descriptor(Handle socket) {
    return {Descriptor::Kind::socket, static_cast<intptr_t>(socket)};
}

constexpr int kStandardInput = 0;
constexpr int kStandardOutput = 1;
constexpr int kStandardError = 2;

// Up to so many octets, 0 at the end; nothing when there are none as yet after all. Throws std::system_error.
std::optional<size_t> read(Descriptor descriptor, std::span<uint8_t> octets);

// Nothing is done to standard input.
void close(Descriptor descriptor);

} // namespace ast::recording::system
