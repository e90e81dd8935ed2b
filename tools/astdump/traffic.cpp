#include "traffic.hpp"

#include "framing/framing.hpp"

namespace astdump {

namespace {

// Of memory, and of patience.
constexpr size_t kMostDestinations = 1024;
constexpr uint64_t kMostUnknown = 8; // datagrams to one destination

// A block that breaks off: its records read up to there. One datagram in a thousand of random octets looks like that.
bool breaks_off(Octets octets) {
    constexpr uint64_t kMostOctets = 1500; // what a datagram holds that was not meant to be broken up
    const Frame frame = frame_block(octets);
    if (frame.framing != Framing::past_end || frame.length > kMostOctets) return false;
    std::vector<uint8_t> rest(octets.begin(), octets.end());
    set_block_length(rest);
    ast_reader_t reader{};
    ast_reader_result_t result{};
    ast_reader_learn(&reader, rest.data(), rest.size(), &result);
    return chain_of_blocks(rest) == rest.size() &&
           (result.valid || result.reason == AST_SPLIT_ITEM_CUT || result.reason == AST_SPLIT_FSPEC_CUT);
}

// One in thirty thousand is a block of which most is there, too, and which names its source.
bool is_nearly_whole(Octets octets) {
    constexpr uint8_t kFirstItem = 0x80;
    return octets.size() > kBlockHeaderOctets && frame_block(octets).length <= 2 * octets.size() &&
           (octets[kBlockHeaderOctets] & kFirstItem) != 0;
}

} // namespace

// A few datagrams of a long stream of other traffic look like blocks.
bool Traffic::Destination::has_blocks() const {
    constexpr uint64_t kMostPerBlock = 16;
    return is_damaged || (with != 0 && without <= with * kMostPerBlock);
}

void Traffic::Destination::settle(bool as_blocks, Damage &damage) {
    for (const Report &report : (as_blocks ? as_damage : as_other).reports()) damage.pass_on(report);
    as_damage.clear();
    as_other.clear();
    is_other = !as_blocks;
}

// Where nothing came but what may have been blocks, blocks were sent.
void Traffic::Destination::judge(Damage &damage) {
    is_damaged = broken_off * 2 > without && (broken_off > 1 || nearly_whole == without);
    settle(is_damaged, damage);
}

// Forgets everything when there is too much of it.
Traffic::Destination &Traffic::open(const Endpoint &to, Damage &damage) {
    const Key key{to.address.is_ipv6, to.address.octets, to.port};
    if (destinations_.size() == kMostDestinations && !destinations_.contains(key)) {
        tell(damage);
        destinations_.clear();
        recent_.fill({});
    }
    return destinations_[key];
}

Traffic::Destination &Traffic::find(const Datagram &datagram, Damage &damage) {
    static constexpr Endpoint kNowhere{};
    const Endpoint &to = datagram.endpoints ? datagram.endpoints->destination : kNowhere;
    Recent &recent = recent_[(to.port + to.address.octets[3]) % recent_.size()];
    if (!recent.destination || recent.to != to) {
        Destination &destination = open(to, damage);
        recent = {to, &destination};
    }
    return *recent.destination;
}

void Traffic::blocks(const Datagram &datagram, Damage &damage) {
    Destination &destination = find(datagram, damage);
    ++destination.with;
    if (destination.is_open() && destination.has_blocks()) destination.settle(true, damage);
}

bool Traffic::no_blocks(const Datagram &datagram, Damage &damage) {
    Destination &destination = find(datagram, damage);
    ++destination.without;
    if (destination.has_blocks()) return false;
    const bool is_cut = breaks_off(datagram.octets);
    destination.broken_off += is_cut ? 1U : 0U;
    destination.nearly_whole += is_cut && is_nearly_whole(datagram.octets) ? 1U : 0U;
    destination.as_damage.framing(datagram, 0, frame_block(datagram.octets));
    destination.as_other.foreign(datagram);
    if (destination.is_other)
        destination.settle(false, damage);
    else if (destination.without >= kMostUnknown)
        destination.judge(damage);
    return true;
}

bool Traffic::tell(Damage &damage) {
    const size_t before = damage.reports().size();
    for (auto &[key, destination] : destinations_)
        if (!destination.as_other.reports().empty()) destination.judge(damage);
    return damage.reports().size() != before;
}

} // namespace astdump
