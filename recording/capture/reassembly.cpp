#include "capture/reassembly.hpp"

#include <algorithm>
#include <functional>
#include <iterator>

namespace ast::recording {

namespace {

// Of what is in flight. Bookkeeping counts, too, so that small pieces are bounded as well.
constexpr size_t kMostHeldOctets = size_t{32} * 1024 * 1024;
constexpr size_t kPartialOctets = 384;
constexpr size_t kPieceOctets = 96;

constexpr uint64_t kMaxDatagramOctets = 65535;
constexpr int64_t kPatience_s = 30;

size_t hash(const Fragment &fragment) {
    const auto *const octets = reinterpret_cast<const char *>(fragment.octets.data());
    return std::hash<std::string_view>()({octets, fragment.octets.size()}) ^ static_cast<size_t>(fragment.offset);
}

size_t hash(uint64_t offset, const std::vector<uint8_t> &octets) {
    return hash(Fragment{.key = {}, .offset = offset, .more = false, .octets = octets});
}

bool is_too_late(const Time &since, const Time &time) {
    return time.seconds > since.seconds + kPatience_s || time.seconds < since.seconds - kPatience_s;
}

} // namespace

size_t Reassembler::octets_of(const Partial &partial) {
    return kPartialOctets + partial.key.size() + static_cast<size_t>(partial.received) +
           partial.pieces.size() * kPieceOctets + partial.repeatable.size() * sizeof(size_t);
}

void Reassembler::restart(Partial &partial) {
    partial.pieces.clear();
    partial.total.reset();
    partial.received = 0;
    partial.is_lost = false;
    partial.is_repeated = true;
}

// Its key stays, so that the pieces that are still to come do not make it another datagram.
void Reassembler::give_up(Partial &partial) {
    if (counts(partial)) ++given_up_;
    restart(partial);
    partial.is_lost = true;
}

// The oldest go first, with their keys when nothing else is left of them.
void Reassembler::make_room() {
    while (held_octets_ > kMostHeldOctets) {
        Partial &oldest = partials_.front();
        held_octets_ -= octets_of(oldest);
        if (oldest.pieces.empty()) {
            places_.erase(oldest.key);
            partials_.pop_front();
            continue;
        }
        give_up(oldest);
        held_octets_ += octets_of(oldest);
        partials_.splice(partials_.end(), partials_, partials_.begin());
    }
}

Reassembler::Partial &Reassembler::find_or_open(const Fragment &fragment, const Time &time) {
    const auto found = places_.find(fragment.key);
    if (found == places_.end()) {
        Partial &partial =
            partials_.emplace_back(Partial{.key = fragment.key, .since = time, .is_counted = counts_incomplete_});
        places_.emplace(partial.key, std::prev(partials_.end()));
        held_octets_ += octets_of(partial);
        return partial;
    }
    Partial &partial = *found->second;
    const auto piece = partial.pieces.find(fragment.offset);
    const bool is_other = piece != partial.pieces.end() && !std::ranges::equal(piece->second, fragment.octets);
    const bool is_new = partial.is_lost && fragment.offset == 0;
    if (is_new || is_other || is_too_late(partial.since, time)) {
        held_octets_ -= octets_of(partial);
        give_up(partial);
        restart(partial);
        partial.repeatable.clear();
        held_octets_ += octets_of(partial);
    }
    if (partial.pieces.empty()) {
        partial.since = time;
        partial.is_counted = counts_incomplete_;
    }
    return partial;
}

// False when the fragment contradicts the pieces that are here.
bool Reassembler::insert(Partial &partial, const Fragment &fragment) {
    const uint64_t end = fragment.offset + fragment.octets.size();
    const bool is_repeated = std::ranges::count(partial.repeatable, hash(fragment)) != 0;
    if (!is_repeated && partial.is_repeated) restart(partial);
    const auto next = partial.pieces.lower_bound(fragment.offset);
    if (next != partial.pieces.end() && next->first == fragment.offset) return true;
    const bool past_next = next != partial.pieces.end() && end > next->first;
    const bool before_last =
        next != partial.pieces.begin() && std::prev(next)->first + std::prev(next)->second.size() > fragment.offset;
    partial.is_repeated = partial.is_repeated && is_repeated;
    if (past_next || before_last || end > kMaxDatagramOctets) return false;
    if (!fragment.more && partial.total) return false;
    if (!fragment.more) partial.total = end;
    partial.pieces.emplace_hint(next, fragment.offset, std::vector(fragment.octets.begin(), fragment.octets.end()));
    partial.received += fragment.octets.size();
    return true;
}

// Pieces do not overlap, so that as many octets as the total leave no gap, if none lies behind the last piece.
bool Reassembler::is_complete(const Partial &partial) {
    if (partial.pieces.empty()) return false;
    const auto &[offset, octets] = *partial.pieces.rbegin();
    return partial.received == partial.total && offset + octets.size() == partial.total;
}

std::optional<std::vector<uint8_t>> Reassembler::add(const Fragment &fragment, const Time &time) {
    if (fragment.offset == 0 && !fragment.more) return std::vector(fragment.octets.begin(), fragment.octets.end());
    Partial &partial = find_or_open(fragment, time);
    if (partial.is_lost) return std::nullopt;
    std::optional<std::vector<uint8_t>> whole;
    held_octets_ -= octets_of(partial);
    if (!insert(partial, fragment)) {
        give_up(partial);
    } else if (is_complete(partial)) {
        whole.emplace();
        partial.repeatable.clear();
        for (const auto &[offset, octets] : partial.pieces) {
            whole->insert(whole->end(), octets.begin(), octets.end());
            partial.repeatable.push_back(hash(offset, octets));
        }
        restart(partial);
    }
    held_octets_ += octets_of(partial);
    make_room();
    return whole;
}

uint64_t Reassembler::incomplete() const {
    return given_up_ + static_cast<uint64_t>(std::ranges::count_if(partials_, counts));
}

} // namespace ast::recording
