// Writes FlatBuffers, as much of them as Arrow needs: tables, texts, vectors of tables and of structs of 64-bit words.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ast::recording {

// What is referred to is written before what refers to it: a buffer grows from its end to its beginning.
class FlatBuffer {
public:
    using Place = uint32_t; // in octets from the end of the buffer

    Place text(std::string_view text) {
        align(sizeof(uint32_t), text.size() + 1);
        put(uint8_t{0});
        backwards(text);
        put(static_cast<uint32_t>(text.size()));
        return size();
    }

    Place tables(std::span<const Place> places) {
        align(sizeof(uint32_t), places.size() * sizeof(uint32_t));
        for (size_t i = places.size(); i-- > 0;) put(distance_to(places[i]));
        put(static_cast<uint32_t>(places.size()));
        return size();
    }

    // Structs of so many words each.
    Place structs(std::span<const int64_t> words, size_t words_each) {
        align(sizeof(int64_t), words.size() * sizeof(int64_t));
        backwards(words);
        put(static_cast<uint32_t>(words.size() / words_each));
        return size();
    }

    // A table is begun, its slots are set, and it is ended; what they refer to is written before.
    void begin() {
        slots_.clear();
        table_end_ = size();
    }
    template <typename Scalar>
    void set(unsigned slot, Scalar value) {
        align(sizeof value, 0);
        put(value);
        slots_.emplace_back(slot, size());
    }
    void refer(unsigned slot, Place place) {
        align(sizeof place, 0);
        put(distance_to(place));
        slots_.emplace_back(slot, size());
    }
    Place end() {
        align(sizeof(int32_t), 0);
        put(int32_t{0}); // the way to the list of slots, which is known below
        const Place table = size();
        unsigned count = 0;
        for (const auto &[slot, place] : slots_) count = std::max(count, slot + 1);
        std::vector<uint16_t> offsets(count);
        for (const auto &[slot, place] : slots_) offsets[slot] = static_cast<uint16_t>(table - place);
        backwards(offsets);
        put(static_cast<uint16_t>(table - table_end_));
        put(static_cast<uint16_t>((count + 2) * sizeof(uint16_t)));
        const Place way = size() - table;
        for (unsigned i = 0; i < sizeof way; ++i) reversed_[table - 1 - i] = static_cast<char>(way >> 8 * i);
        return table;
    }

    // The buffer with this table as its root, a multiple of 8 octets.
    std::string finish(Place root) {
        align(sizeof(int64_t), sizeof root);
        put(distance_to(root));
        return {reversed_.rbegin(), reversed_.rend()};
    }

private:
    Place size() const { return static_cast<Place>(reversed_.size()); }
    uint32_t distance_to(Place place) const { return size() + static_cast<uint32_t>(sizeof place) - place; }

    // What is put behind `more` octets is then aligned.
    void align(size_t octets, size_t more) {
        while ((reversed_.size() + more) % octets != 0) reversed_ += '\0';
    }

    template <typename Scalar>
    void put(Scalar value) {
        for (size_t i = sizeof value; i-- > 0;) reversed_ += static_cast<char>(static_cast<uint64_t>(value) >> 8 * i);
    }

    template <typename Scalars>
    void backwards(const Scalars &scalars) {
        for (size_t i = scalars.size(); i-- > 0;) put(scalars[i]);
    }

    std::string reversed_;
    std::vector<std::pair<unsigned, Place>> slots_;
    Place table_end_ = 0;
};

} // namespace ast::recording
