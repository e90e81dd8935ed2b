#include "base/text_buffer.hpp"

#include <array>
#include <iterator>

namespace ast::recording {

namespace {

// "00", "01" ... "99".
constexpr auto kPairs = [] {
    std::array<std::array<char, 2>, 100> pairs{};
    for (size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
    return pairs;
}();

// The digits of a number in front of a place.
template <typename Number>
char *digits_before(char *at, Number value) {
    for (; value >= kPairs.size(); value = static_cast<Number>(value / kPairs.size()))
        std::memcpy(at -= 2, kPairs[static_cast<size_t>(value % kPairs.size())].data(), 2);
    const auto &last = kPairs[static_cast<size_t>(value)];
    *--at = last[1];
    if (value >= 10) *--at = last[0];
    return at;
}

} // namespace

void TextBuffer::long_number(uint64_t value, size_t width, char fill) {
    char digits[20];
    char *const end = std::end(digits);
    const char *const first =
        value <= UINT32_MAX ? digits_before(end, static_cast<uint32_t>(value)) : digits_before(end, value);
    const auto count = static_cast<size_t>(end - first);
    const size_t filled = std::max(count, width) - count;
    char *const begin = room(filled + count);
    std::memset(begin, fill, filled);
    std::memcpy(begin + filled, first, count);
    size_ += filled + count;
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
