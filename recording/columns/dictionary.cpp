#include "columns/dictionary.hpp"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace ast::recording {

namespace {

uint32_t hash_of(std::string_view text) {
    uint64_t hash = text.size();
    while (!text.empty()) {
        uint64_t piece = 0;
        const size_t count = std::min(text.size(), sizeof piece);
        std::memcpy(&piece, text.data(), count);
        hash = recording::hash_of(hash ^ piece) ^ hash << 32;
        text.remove_prefix(count);
    }
    return recording::hash_of(hash);
}

} // namespace

void CodeTable::clear() {
    std::ranges::fill(slots_, Slot{});
    size_ = 0;
}

void CodeTable::grow() {
    constexpr size_t kFirst = 64;
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(std::max(kFirst, 2 * slots_.size())));
    for (const Slot &slot : old) {
        if (slot.number == 0) continue;
        size_t at = slot.hash;
        while (slots_[at & (slots_.size() - 1)].number != 0) ++at;
        slots_[at & (slots_.size() - 1)] = slot;
    }
}

uint32_t Dictionary::code_of(std::string_view text) {
    constexpr size_t kMost = std::numeric_limits<int32_t>::max();
    const auto [code, is_new] = codes_.code_of(hash_of(text), [&](uint32_t known) { return (*this)[known] == text; });
    if (!is_new) return code;
    if (text.size() > kMost - characters_.size()) throw std::length_error("a column has too many different texts");
    characters_ += text;
    ends_.push_back(static_cast<int32_t>(characters_.size()));
    return code;
}

void Dictionary::clear() {
    codes_.clear();
    ends_.resize(1);
    characters_.clear();
}

} // namespace ast::recording
