#include "reassembly.hpp"

#include <algorithm>
#include <iterator>

namespace astdump {

namespace {

constexpr size_t kMaxOpenDatagrams = 64;
constexpr uint64_t kMaxDatagramOctets = 65535;

} // namespace

Reassembler::Partial &Reassembler::find_or_open(const std::string &key) {
    const auto found = std::ranges::find(open_, key, &Partial::key);
    if (found != open_.end()) return *found;
    if (open_.size() == kMaxOpenDatagrams) {
        open_.pop_front();
        ++given_up_;
    }
    return open_.emplace_back(Partial{.key = key});
}

// False when the fragment contradicts the pieces that are here.
bool Reassembler::insert(Partial &partial, const Fragment &fragment) {
    const uint64_t end = fragment.offset + fragment.octets.size();
    const auto next = partial.pieces.lower_bound(fragment.offset);
    if (next != partial.pieces.end() && next->first == fragment.offset)
        return std::ranges::equal(next->second, fragment.octets);
    const bool past_next = next != partial.pieces.end() && end > next->first;
    const bool before_last =
        next != partial.pieces.begin() && std::prev(next)->first + std::prev(next)->second.size() > fragment.offset;
    if (past_next || before_last || end > kMaxDatagramOctets) return false;
    if (!fragment.more && partial.total) return false;
    if (!fragment.more) partial.total = end;
    partial.pieces.emplace_hint(next, fragment.offset, std::vector(fragment.octets.begin(), fragment.octets.end()));
    partial.received += fragment.octets.size();
    return true;
}

// Pieces do not overlap, so that as many octets as the total leave no gap, if none lies behind the last piece.
bool Reassembler::is_complete(const Partial &partial) {
    const auto &[offset, octets] = *partial.pieces.rbegin();
    return partial.received == partial.total && offset + octets.size() == partial.total;
}

std::optional<std::vector<uint8_t>> Reassembler::add(const Fragment &fragment) {
    Partial &partial = find_or_open(fragment.key);
    const auto close = [&] { open_.remove_if([&](const Partial &other) { return &other == &partial; }); };
    if (!insert(partial, fragment)) {
        close();
        ++given_up_;
        return std::nullopt;
    }
    if (!is_complete(partial)) return std::nullopt;
    std::vector<uint8_t> whole;
    for (const auto &[offset, octets] : partial.pieces) whole.insert(whole.end(), octets.begin(), octets.end());
    close();
    return whole;
}

} // namespace astdump
