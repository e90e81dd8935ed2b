#include "datagram/other_traffic.hpp"

#include "framing/soundness.hpp"

namespace ast::recording {

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
bool OtherTraffic::Destination::has_blocks() const {
    constexpr uint64_t kMostPerBlock = 16;
    return is_damaged || (with != 0 && without <= with * kMostPerBlock);
}

void OtherTraffic::Destination::settle(bool as_blocks, Reports &reports) {
    for (const Report &report : (as_blocks ? as_damage : as_other).list()) reports.add(report);
    as_damage.clear();
    as_other.clear();
    is_other = !as_blocks;
}

// Where nothing came but what may have been blocks, blocks were sent.
void OtherTraffic::Destination::judge(Reports &reports) {
    is_damaged = broken_off * 2 > without && (broken_off > 1 || nearly_whole == without);
    settle(is_damaged, reports);
}

// Forgets everything when there is too much of it.
OtherTraffic::Destination &OtherTraffic::open(const Endpoint &to, Reports &reports) {
    const Key key{to.address.is_ipv6, to.address.octets, to.port};
    if (destinations_.size() == kMostDestinations && !destinations_.contains(key)) {
        tell(reports);
        destinations_.clear();
        recent_.fill({});
    }
    return destinations_[key];
}

OtherTraffic::Destination &OtherTraffic::find(const Datagram &datagram, Reports &reports) {
    static constexpr Endpoint kNowhere{};
    const Endpoint &to = datagram.endpoints ? datagram.endpoints->destination : kNowhere;
    Recent &recent = recent_[(to.port + to.address.octets[3]) % recent_.size()];
    if (!recent.destination || recent.to != to) {
        Destination &destination = open(to, reports);
        recent = {to, &destination};
    }
    return *recent.destination;
}

void OtherTraffic::blocks(const Datagram &datagram, Reports &reports) {
    Destination &destination = find(datagram, reports);
    ++destination.with;
    if (destination.is_open() && destination.has_blocks()) destination.settle(true, reports);
}

bool OtherTraffic::no_blocks(const Datagram &datagram, Reports &reports) {
    Destination &destination = find(datagram, reports);
    ++destination.without;
    if (destination.has_blocks()) return false;
    const bool is_cut = breaks_off(datagram.octets);
    destination.broken_off += is_cut ? 1U : 0U;
    destination.nearly_whole += is_cut && is_nearly_whole(datagram.octets) ? 1U : 0U;
    destination.as_damage.add(framing_report(datagram, 0, frame_block(datagram.octets)));
    destination.as_other.add(foreign_report(datagram));
    if (destination.is_other)
        destination.settle(false, reports);
    else if (destination.without >= kMostUnknown)
        destination.judge(reports);
    return true;
}

bool OtherTraffic::tell(Reports &reports) {
    const size_t before = reports.list().size();
    for (auto &[key, destination] : destinations_)
        if (!destination.as_other.empty()) destination.judge(reports);
    return reports.list().size() != before;
}

} // namespace ast::recording
