#include "traffic.hpp"

#include "framing/framing.hpp"

namespace astdump {

namespace {

// Of memory, and of patience.
constexpr size_t kMostDestinations = 1024;
constexpr size_t kMostUnknown = 8; // datagrams to one destination

// A block that breaks off is damage wherever it is sent to. By its header alone a good deal of other traffic is one:
// its records have to read up to where it breaks off.
bool begins_block(Octets octets) {
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

} // namespace

Traffic::Key Traffic::key_of(const Datagram &datagram) {
    if (!datagram.endpoints) return {};
    const Endpoint &to = datagram.endpoints->destination;
    return {to.address.is_ipv6, to.address.octets, to.port};
}

// Forgets everything when there is too much of it.
Traffic::Destination &Traffic::find(const Datagram &datagram, Damage &damage) {
    const Key key = key_of(datagram);
    if (destinations_.size() == kMostDestinations && !destinations_.contains(key)) {
        tell(damage);
        destinations_.clear();
        last_.reset();
    }
    return destinations_[key];
}

void Traffic::settle(Destination &destination, State state, Damage &damage) {
    destination.state = state;
    const Damage &told = state == State::blocks ? destination.as_damage : destination.as_other;
    for (const Report &report : told.reports()) damage.pass_on(report);
    destination.as_damage = {};
    destination.as_other = {};
}

void Traffic::blocks(const Datagram &datagram, Damage &damage) {
    if (datagram.endpoints && last_ == datagram.endpoints->destination) return;
    if (datagram.endpoints) last_ = datagram.endpoints->destination;
    Destination &destination = find(datagram, damage);
    if (destination.state != State::blocks) settle(destination, State::blocks, damage);
}

bool Traffic::no_blocks(const Datagram &datagram, Damage &damage) {
    Destination &destination = find(datagram, damage);
    if (destination.state == State::blocks || begins_block(datagram.octets)) return false;
    destination.as_damage.framing(datagram, 0, frame_block(datagram.octets));
    destination.as_other.foreign(datagram);
    const bool is_settled = destination.state == State::other || destination.as_other.reports().size() == kMostUnknown;
    if (is_settled) settle(destination, State::other, damage);
    return true;
}

bool Traffic::tell(Damage &damage) {
    const size_t before = damage.reports().size();
    for (auto &[key, destination] : destinations_)
        if (destination.state == State::unknown) settle(destination, State::other, damage);
    return damage.reports().size() != before;
}

} // namespace astdump
