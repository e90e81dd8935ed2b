// Texts of items and subfields, kept: what a view says of one depends on its type, its octets and how they are read
// alone, and many of a recording say what others have said before.
#pragma once

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "base/text_buffer.hpp"
#include "show/by_type.hpp"
#include "show/video.hpp"

namespace ast::recording::astdump {

class Memo {
public:
    Memo() : entries_(kEntries) {}

    // Puts the text of an item, which `write` puts if it is not known. `reading` is the number of its reading.
    template <typename Write>
    void put(TextBuffer &out, const ast_dataitem_t &item, uint32_t reading, Write write) {
        if (is_video(item)) return write(out);
        put(out, item.type, {item.data, item.size}, reading, write);
    }

    // The same for anything that its type and octets tell all about.
    template <typename Write>
    void put(TextBuffer &out, uint32_t type, Octets octets, uint32_t reading, Write write) {
        Use &use = uses_[type];
        if (octets.empty() || octets.size() > kMaxOctets || !use.is_worthwhile()) return write(out);
        const Key key(type, octets, reading);
        Entry &entry = entries_[key.hash() % kEntries];
        if (entry.key == key) {
            ++use.found;
            return out.put(entry.text);
        }
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

    // Whether items of a type repeat themselves. Those that hardly do, such as positions, are passed over for a while,
    // rather than that they take the place of others.
    struct Use {
        bool is_worthwhile() {
            if (pause != 0) {
                --pause;
                return false;
            }
            if (++asked == kTrials) {
                if (found < kTrials / 8) pause = kPause;
                asked = found = 0;
            }
            return true;
        }

        static constexpr uint16_t kTrials = 256;
        static constexpr uint16_t kPause = 16384;

        uint16_t asked = 0;
        uint16_t found = 0;
        uint16_t pause = 0; // items that are still passed over
    };

    // The octets are taken by words that overlap, since the size stands beside them, in eight bits.
    struct Key {
        Key() = default;
        Key(uint32_t type, Octets octets, uint32_t reading)
            : words{uint64_t{type} << 32 | uint64_t{reading} << 8 | octets.size()} {
            const uint8_t *const begin = octets.data();
            const uint8_t *const end = begin + octets.size();
            if (octets.size() >= 8) {
                words[1] = load<uint64_t>(begin);
                words[2] = load<uint64_t>(end - 8);
                if (octets.size() > 16) words[3] = load<uint64_t>(begin + 8);
            } else if (octets.size() >= 4) {
                words[1] = uint64_t{load<uint32_t>(begin)} << 32 | load<uint32_t>(end - 4);
            } else {
                words[1] = uint64_t{begin[0]} << 16 | uint64_t{begin[octets.size() / 2]} << 8 | end[-1];
            }
        }

        bool operator==(const Key &other) const {
            uint64_t different = 0;
            for (size_t i = 0; i < words.size(); ++i) different |= words[i] ^ other.words[i];
            return different == 0;
        }

        uint64_t hash() const {
            constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15;
            const uint64_t first = (words[0] ^ words[1]) * kMultiplier;
            const uint64_t second = (words[2] + (words[3] << 7 | words[3] >> 57)) * kMultiplier;
            return ((first ^ first >> 32 ^ second) * kMultiplier) >> 40;
        }

        template <typename Word>
        static Word load(const uint8_t *octets) {
            Word word;
            std::memcpy(&word, octets, sizeof word);
            return word;
        }

        std::array<uint64_t, 4> words{};
    };
    struct Entry {
        Key key;
        std::string text;
    };

    std::vector<Entry> entries_;
    ByType<Use> uses_;
};

} // namespace ast::recording::astdump
