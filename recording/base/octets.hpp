// Octets that belong to someone else.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ranges>
#include <span>
#include <string_view>

namespace ast::recording {

// A span that takes counts and places of 64 bits, as the library gives them, also where the memory has fewer: what is
// within the octets fits.
class Octets : public std::span<const uint8_t> {
public:
    using Span = std::span<const uint8_t>;

    using Span::Span;
    constexpr Octets(Span octets) : Span(octets) {}
    constexpr Octets(const uint8_t *data, uint64_t count) : Span(data, static_cast<size_t>(count)) {}

    constexpr Octets first(uint64_t count) const { return Span::first(static_cast<size_t>(count)); }
    constexpr Octets last(uint64_t count) const { return Span::last(static_cast<size_t>(count)); }
    constexpr Octets subspan(uint64_t offset) const { return Span::subspan(static_cast<size_t>(offset)); }
    constexpr Octets subspan(uint64_t offset, uint64_t count) const {
        return Span::subspan(static_cast<size_t>(offset), static_cast<size_t>(count));
    }
    constexpr const uint8_t &operator[](uint64_t place) const { return Span::operator[](static_cast<size_t>(place)); }
};

// The characters of a text, good as long as that.
inline Octets octets_of(std::string_view text) { return {reinterpret_cast<const uint8_t *>(text.data()), text.size()}; }

// As packets have numbers, with the most significant octet first.
inline uint16_t read_u16(Octets octets, size_t offset) {
    return static_cast<uint16_t>(octets[offset] << 8 | octets[offset + 1]);
}

} // namespace ast::recording

template <>
inline constexpr bool std::ranges::enable_borrowed_range<ast::recording::Octets> = true;
template <>
inline constexpr bool std::ranges::enable_view<ast::recording::Octets> = true;
