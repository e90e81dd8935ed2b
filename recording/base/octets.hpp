// Octets that belong to someone else.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ast::recording {

using Octets = std::span<const uint8_t>;

// As packets have numbers, with the most significant octet first.
inline uint16_t read_u16(Octets octets, size_t offset) {
    return static_cast<uint16_t>(octets[offset] << 8 | octets[offset + 1]);
}

} // namespace ast::recording
