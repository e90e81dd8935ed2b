#include "write/pseudonyms.hpp"

#include <algorithm>
#include <bit>
#include <iterator>
#include <utility>

#include "base/letters.hpp"

namespace ast::recording {

namespace {

constexpr unsigned kAddressBits = 24;
constexpr unsigned kCodeBits = 12;
constexpr uint32_t kNobodys[] = {0x000000, 0xFFFFFF};
constexpr uint32_t kKeptCodes[] = {07500, 07600, 07700, 02000, 07000}; // emergencies, and codes of many
constexpr uint64_t kLetters = 'Z' - 'A' + 1;
constexpr uint64_t kDigits = 10;

// SipHash-2-4 of two words.
class Sip {
public:
    explicit Sip(const std::array<uint64_t, 2> &key)
        : v_{key[0] ^ 0x736f6d6570736575, key[1] ^ 0x646f72616e646f6d, key[0] ^ 0x6c7967656e657261,
             key[1] ^ 0x7465646279746573} {}

    void add(uint64_t word) {
        v_[3] ^= word;
        rounds(2);
        v_[0] ^= word;
    }
    uint64_t end() {
        v_[2] ^= 0xFF;
        rounds(4);
        return v_[0] ^ v_[1] ^ v_[2] ^ v_[3];
    }

private:
    void rounds(unsigned count) {
        for (; count != 0; --count) {
            half(0, 1, 13, 2, 3, 16);
            v_[0] = std::rotl(v_[0], 32);
            half(2, 1, 17, 0, 3, 21);
            v_[2] = std::rotl(v_[2], 32);
        }
    }
    // As both halves of a round: a takes b, c takes d.
    void half(size_t a, size_t b, int b_bits, size_t c, size_t d, int d_bits) {
        v_[a] += v_[b];
        v_[c] += v_[d];
        v_[b] = std::rotl(v_[b], b_bits) ^ v_[a];
        v_[d] = std::rotl(v_[d], d_bits) ^ v_[c];
    }

    std::array<uint64_t, 4> v_;
};

template <size_t N>
bool is_one_of(const uint32_t (&values)[N], uint32_t value) {
    return std::ranges::find(values, value) != std::end(values);
}

} // namespace

Pseudonyms::Pseudonyms(std::string_view seed) : key_{} {
    Sip first({0, 0}), second({1, 1});
    for (const char c : seed) {
        first.add(static_cast<unsigned char>(c));
        second.add(static_cast<unsigned char>(c));
    }
    key_ = {first.end(), second.end()};
}

uint64_t Pseudonyms::mixed(Domain domain, uint64_t first, uint64_t second) const {
    Sip sip(key_);
    for (const uint64_t word : {static_cast<uint64_t>(domain), first, second}) sip.add(word);
    return sip.end();
}

// A Feistel network over two halves, which is one to one whatever it mixes in. Where the bits are odd the halves hold
// one more, and what does not fit is permuted on until it does.
uint32_t Pseudonyms::permuted(Domain domain, uint32_t value, unsigned bits) const {
    constexpr uint64_t kRounds = 8;
    const unsigned half = (bits + 1) / 2;
    const uint32_t mask = (uint32_t{1} << half) - 1;
    do {
        uint32_t left = value >> half, right = value & mask;
        for (uint64_t round = 0; round < kRounds; ++round) {
            const auto mixed_in = static_cast<uint32_t>(mixed(domain, uint64_t{bits} << 8 | round, right));
            left = std::exchange(right, (left ^ mixed_in) & mask);
        }
        value = left << half | right;
    } while (value >> bits != 0);
    return value;
}

uint32_t Pseudonyms::address(uint32_t address) const {
    if (is_one_of(kNobodys, address)) return address;
    do address = permuted(Domain::address, address, kAddressBits);
    while (is_one_of(kNobodys, address));
    return address;
}

uint32_t Pseudonyms::code(uint32_t code) const {
    if (is_one_of(kKeptCodes, code)) return code;
    do code = permuted(Domain::code, code, kCodeBits);
    while (is_one_of(kKeptCodes, code));
    return code;
}

uint32_t Pseudonyms::short_code(uint32_t code, unsigned bits) const { return permuted(Domain::short_code, code, bits); }

std::string Pseudonyms::callsign(std::string_view callsign) const {
    uint64_t text = 0;
    for (const char c : callsign) text = mixed(Domain::callsign, text, static_cast<unsigned char>(c));
    std::string result(callsign);
    for (size_t i = 0; i < result.size(); ++i) {
        const uint64_t random = mixed(Domain::callsign, text, (i + 1) << 8);
        const char c = result[i];
        if (is_digit(c)) result[i] = static_cast<char>('0' + (static_cast<uint64_t>(c - '0') + random) % kDigits);
        const char first = to_capital(c) == c ? 'A' : 'a';
        if (is_letter(c))
            result[i] =
                static_cast<char>(first + static_cast<char>((static_cast<uint64_t>(c - first) + random) % kLetters));
    }
    return result;
}

} // namespace ast::recording
