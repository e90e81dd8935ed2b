// Texts of items, kept: what a view says of an item depends on its type and octets alone, and many items of a recording
// say what others have said before.
#pragma once

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "ast.h"
#include "text_buffer.hpp"

namespace astdump {

class Memo {
public:
    Memo() : entries_(kEntries) {}

    // Puts the text of an item, which `write` puts if it is not known.
    template <typename Write>
    void put(TextBuffer &out, const ast_dataitem_t &item, Write write) {
        if (item.size == 0 || item.size > kMaxOctets) return write(out);
        const Key key(item);
        Entry &entry = entries_[key.hash() % kEntries];
        if (entry.key == key) return out.put(entry.text);
        const size_t begin = out.size();
        write(out);
        const std::string_view text = out.text().substr(begin);
        if (text.size() > kMaxCharacters) return;
        entry.key = key;
        entry.text = text;
    }

private:
    static constexpr size_t kEntries = 8192; // a power of 2
    static constexpr size_t kMaxOctets = 24;
    static constexpr size_t kMaxCharacters = 4096;

    struct Key {
        Key() = default;
        explicit Key(const ast_dataitem_t &item) : words{uint64_t{item.type} << 32 | item.size} {
            std::memcpy(&words[1], item.data, item.size);
        }
        bool operator==(const Key &other) const {
            uint64_t different = 0;
            for (size_t i = 0; i < words.size(); ++i) different |= words[i] ^ other.words[i];
            return different == 0;
        }

        uint64_t hash() const {
            constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15;
            uint64_t hash = 0;
            for (const uint64_t word : words) hash = ((hash ^ word) * kMultiplier) ^ (hash >> 29);
            return hash >> 40;
        }

        std::array<uint64_t, 1 + kMaxOctets / 8> words{};
    };
    struct Entry {
        Key key;
        std::string text;
    };

    std::vector<Entry> entries_;
};

} // namespace astdump
