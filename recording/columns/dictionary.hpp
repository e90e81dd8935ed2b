// Values by the order in which they are first met.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ast::recording {

// Codes by the hash of what they stand for, which its owner keeps.
class CodeTable {
public:
    // The code of what has a hash and is_it(code); where there is none, the next one, and true.
    template <typename IsIt>
    std::pair<uint32_t, bool> code_of(uint32_t hash, IsIt is_it) {
        if (size_ * kSlotsPerCode >= slots_.size()) grow();
        for (size_t at = hash;; ++at) {
            Slot &slot = slots_[at & (slots_.size() - 1)];
            if (slot.number == 0) {
                slot = {.hash = hash, .number = ++size_};
                return {size_ - 1, true};
            }
            if (slot.hash == hash && is_it(slot.number - 1)) return {slot.number - 1, false};
        }
    }

    uint32_t size() const { return size_; }
    void clear();

private:
    static constexpr size_t kSlotsPerCode = 2;

    struct Slot {
        uint32_t hash;
        uint32_t number; // from 1; 0 for none
    };

    void grow();

    std::vector<Slot> slots_; // a power of two of them
    uint32_t size_ = 0;
};

constexpr uint32_t hash_of(uint64_t number) {
    constexpr uint64_t kGoldenRatio = 0x9E37'79B9'7F4A'7C15;
    return static_cast<uint32_t>(number * kGoldenRatio >> 32);
}

// Codes of numbers.
class NumberCodes {
public:
    std::pair<uint32_t, bool> code_of(uint64_t number) {
        const auto found = codes_.code_of(hash_of(number), [&](uint32_t code) { return numbers_[code] == number; });
        if (found.second) numbers_.push_back(number);
        return found;
    }

    const std::vector<uint64_t> &numbers() const { return numbers_; }
    void clear() {
        codes_.clear();
        numbers_.clear();
    }

private:
    CodeTable codes_;
    std::vector<uint64_t> numbers_; // by code
};

// Texts by their codes, as Arrow lays them out.
class Dictionary {
public:
    uint32_t code_of(std::string_view text);

    uint32_t size() const { return codes_.size(); }
    std::string_view operator[](uint32_t code) const {
        const auto begin = static_cast<size_t>(ends_[code]);
        return std::string_view(characters_).substr(begin, static_cast<size_t>(ends_[code + 1]) - begin);
    }

    const std::vector<int32_t> &ends() const { return ends_; } // where each text ends, behind a 0
    const std::string &characters() const { return characters_; }
    size_t octets() const { return characters_.size() + ends_.size() * sizeof ends_[0]; }

    void clear();

private:
    CodeTable codes_;
    std::vector<int32_t> ends_{0};
    std::string characters_;
};

} // namespace ast::recording
