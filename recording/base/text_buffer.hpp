// Text that grows. Cleared, it keeps its room.
#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

#include "base/octets.hpp"

namespace ast::recording {

class TextBuffer {
public:
    std::string_view text() const { return {characters_.get(), size_}; }
    size_t size() const { return size_; }
    void clear() { size_ = 0; }

    void put(std::string_view piece) {
        if (piece.empty()) return;
        std::memcpy(room(piece.size()), piece.data(), piece.size());
        size_ += piece.size();
    }

    void put(char character) {
        *room(1) = character;
        ++size_;
    }

    // What write(text, capacity) puts; it returns how many characters it needs, which are fewer than `likely` as a
    // rule.
    template <typename Write>
    void put_by(size_t likely, Write write) {
        auto count = static_cast<size_t>(write(room(likely), likely));
        if (count >= likely) count = static_cast<size_t>(write(room(count + 1), count + 1));
        size_ += count;
    }

    // Overwrites a character.
    void set(size_t place, char character) { characters_[place] = character; }

    // Lets `write` write behind the end, where there are so many characters of room, and return how many it has
    // written.
    template <typename Write>
    size_t put_with(size_t capacity, Write write) {
        const size_t count = write(room(capacity));
        size_ += count;
        return count;
    }

    void pad(size_t count, char character = ' ') {
        if (count == 0) return;
        std::memset(room(count), character, count);
        size_ += count;
    }

    // Left-aligned, in at least `width` characters.
    void left(std::string_view piece, size_t width) {
        put(piece);
        if (piece.size() < width) pad(width - piece.size());
    }

    void right(std::string_view piece, size_t width) {
        if (piece.size() < width) pad(width - piece.size());
        put(piece);
    }

    // Decimal, right-aligned in at least `width` characters.
    void number(uint64_t value, size_t width = 0, char fill = ' ') {
        if (value < 10 && width <= 1) return put(static_cast<char>('0' + value));
        long_number(value, width, fill);
    }

    // "0a 1b", and "0a1b".
    void hex(Octets octets);
    void hex_digits(Octets octets);

    // Takes off what stands behind a size.
    void cut(size_t size) { size_ = std::min(size_, size); }

    // Takes the blanks off the end, down to a size.
    void trim(size_t least) {
        while (size_ > least && characters_[size_ - 1] == ' ') --size_;
    }

private:
    void long_number(uint64_t value, size_t width, char fill);

    char *room(size_t count) {
        if (capacity_ - size_ < count) grow(count);
        return characters_.get() + size_;
    }
    void grow(size_t count);

    std::unique_ptr<char[]> characters_;
    size_t size_ = 0;
    size_t capacity_ = 0;
};

} // namespace ast::recording
