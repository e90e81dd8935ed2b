#include "base/text_buffer.hpp"

#include <array>

namespace ast::recording {

// Most numbers here are small, and most widths.
void TextBuffer::number(uint64_t value, size_t width, char fill) {
    size_t count = 1;
    for (uint64_t rest = value; rest >= 10; rest /= 10) ++count;
    const size_t digits = count;
    count = std::max(digits, width);
    char *const begin = room(count);
    char *at = begin + count;
    for (char *const first = at - digits; at != first; value /= 10) *--at = static_cast<char>('0' + value % 10);
    while (at != begin) *--at = fill;
    size_ += count;
}

namespace {

constexpr char kDigits[] = "0123456789abcdef";

// Of each octet, and the blank behind it; four characters that are copied at once.
constexpr auto kHex = [] {
    std::array<std::array<char, 4>, 256> texts{};
    for (size_t i = 0; i < texts.size(); ++i) texts[i] = {kDigits[i >> 4], kDigits[i & 15], ' ', ' '};
    return texts;
}();

} // namespace

void TextBuffer::hex(Octets octets) {
    constexpr size_t kCharacters = 3; // of one octet and the blank behind it
    if (octets.empty()) return;
    char *out = room(octets.size() * kCharacters + 1);
    for (const uint8_t octet : octets) {
        std::memcpy(out, kHex[octet].data(), kHex[octet].size());
        out += kCharacters;
    }
    size_ += octets.size() * kCharacters - 1;
}

void TextBuffer::hex_digits(Octets octets) {
    char *out = room(2 * octets.size());
    for (const uint8_t octet : octets) {
        *out++ = kDigits[octet >> 4];
        *out++ = kDigits[octet & 15];
    }
    size_ += 2 * octets.size();
}

void TextBuffer::grow(size_t count) {
    capacity_ = std::max(2 * capacity_, size_ + count + 256);
    auto larger = std::make_unique_for_overwrite<char[]>(capacity_);
    std::copy_n(characters_.get(), size_, larger.get());
    characters_ = std::move(larger);
}

} // namespace ast::recording
