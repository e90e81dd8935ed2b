#include "text_buffer.hpp"

#include <charconv>

namespace astdump {

void TextBuffer::number(uint64_t value, size_t width, char fill) {
    constexpr size_t kMostDigits = 20;
    char *const out = room(std::max(width, kMostDigits));
    auto count = static_cast<size_t>(std::to_chars(out, out + kMostDigits, value).ptr - out);
    if (count < width) {
        std::memmove(out + width - count, out, count);
        std::memset(out, fill, width - count);
        count = width;
    }
    size_ += count;
}

namespace {

constexpr char kDigits[] = "0123456789abcdef";

} // namespace

void TextBuffer::hex(Octets octets) {
    constexpr size_t kCharacters = 3; // of one octet and the blank behind it
    if (octets.empty()) return;
    char *out = room(octets.size() * kCharacters);
    for (const uint8_t octet : octets) {
        *out++ = kDigits[octet >> 4];
        *out++ = kDigits[octet & 15];
        *out++ = ' ';
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

} // namespace astdump
