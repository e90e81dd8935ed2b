#include "capture/pcapng.hpp"

#include <iterator>

#include "base/counted.hpp"

namespace ast::recording {

namespace {

// A block has its type and its length before what it holds, and its length again behind that.
constexpr uint32_t kHeaderOctets = 8;
constexpr uint32_t kLengthOctets = 4;
constexpr uint32_t kLeastOctets = kHeaderOctets + kLengthOctets;

// No writer makes greater ones. Of great ones, so much is looked at, which has the most of a packet in it.
constexpr uint32_t kMostOctets = 16 * 1024 * 1024;
constexpr uint32_t kMostOctetsAtHand = 96 * 1024;

enum Type : uint32_t {
    kInterface = 1,
    kOldPacket = 2, // with 16 bits for its interface, and 16 for what has been lost
    kSimplePacket = 3,
    kEnhancedPacket = 6,
    kSection = 0x0A0D0D0A, // in either byte order
};

struct Kind {
    uint32_t type;
    uint32_t least_octets; // that it holds before any options
};

// Those by which the place is found again; names and statistics of interfaces are the others.
constexpr Kind kKinds[] = {{kInterface, 8}, {kOldPacket, 20},      {kSimplePacket, 4}, {4, 0},
                           {5, 12},         {kEnhancedPacket, 20}, {kSection, 16}};

constexpr size_t kMostInterfaces = 65536; // no host has more, whatever a damaged capture says

constexpr uint32_t kByteOrderMagic = 0x1A2B3C4D;
constexpr uint16_t kMajorVersion = 1;
constexpr size_t kMajorVersionOffset = 12;

constexpr const char *kUndescribed = "its interface is not described";
constexpr const char *kTooShort = "its block is too short for one";

constexpr uint64_t kNanosecondsPerSecond = 1000000000;

const Kind *find_kind(uint32_t type) {
    const auto found = std::ranges::find(kKinds, type, &Kind::type);
    return found == std::end(kKinds) ? nullptr : found;
}

bool is_too_short(uint32_t type, uint32_t octets) {
    const Kind *const kind = find_kind(type);
    return kind && octets < kLeastOctets + kind->least_octets;
}

bool is_length(uint32_t octets) { return octets >= kLeastOctets && octets % 4 == 0 && octets <= kMostOctets; }

std::optional<ByteOrder> order_of_section(Octets rest) {
    for (const ByteOrder order : {ByteOrder{false}, ByteOrder{true}})
        if (order.u32(&rest[kHeaderOctets]) == kByteOrderMagic) return order;
    return std::nullopt;
}

uint64_t power(uint64_t base, unsigned exponent) {
    uint64_t result = 1;
    while (exponent-- > 0) result *= base;
    return result;
}

} // namespace

bool Pcapng::may_begin(Octets head) {
    return head.size() >= sizeof(uint32_t) && ByteOrder().u32(head.data()) == kSection;
}

bool Pcapng::begins(Octets head) { return head.size() >= kLeastOctets && may_begin(head) && order_of_section(head); }

// There are as many octets as a block has at least.
Pcapng::Block Pcapng::block_at(Octets rest, ByteOrder order) {
    Block block{order, order.u32(rest.data()), 0};
    if (block.type == kSection) block.order = order_of_section(rest).value_or(order);
    block.octets = block.order.u32(&rest[kLengthOctets]);
    return block;
}

Pcapng::Fault Pcapng::check(const Block &block, Octets rest) {
    const bool is_section = block.type == kSection;
    if (is_section && !order_of_section(rest)) return Fault::byte_order;
    if (!is_length(block.octets) || (is_section && is_too_short(block.type, block.octets))) return Fault::length;
    if (rest.size() < std::min(block.octets, kMostOctetsAtHand)) return Fault::part;
    if (is_section && block.order.u16(&rest[kMajorVersionOffset]) != kMajorVersion) return Fault::version;
    if (block.octets > kMostOctetsAtHand) return Fault::none;
    return block.order.u32(&rest[block.octets - kLengthOctets]) == block.octets ? Fault::none : Fault::second_length;
}

std::string Pcapng::complaint(Octets rest) const {
    const Block block = block_at(rest, order_);
    const std::string claim = "a block claims " + counted(block.octets, "octet");
    switch (check(block, rest)) {
    case Fault::byte_order:
        return "a section does not tell its byte order";
    case Fault::version:
        return "a section of pcapng version " + std::to_string(block.order.u16(&rest[kMajorVersionOffset])) +
               " is not supported";
    case Fault::second_length:
        return claim + ", and " + std::to_string(block.order.u32(&rest[block.octets - kLengthOctets])) + " at its end";
    default:
        return claim;
    }
}

Piece::Kind Pcapng::read(Octets rest, Piece &piece) const {
    if (rest.size() < kLeastOctets) return Piece::Kind::part;
    const Block block = block_at(rest, order_);
    const Fault fault = check(block, rest);
    if (fault == Fault::part || (fault == Fault::second_length && may_lead_on(block, rest))) return Piece::Kind::part;
    if (fault != Fault::none && !(fault == Fault::second_length && leads_on(block, rest))) return Piece::Kind::damaged;
    piece.octets = block.octets;
    if (block.type == kEnhancedPacket || block.type == kOldPacket)
        piece.packet = read_packet(block, rest);
    else if (block.type == kSimplePacket)
        piece.packet = read_simple_packet(block, rest);
    else
        return Piece::Kind::other;
    return block.octets > rest.size() ? Piece::Kind::long_packet : Piece::Kind::packet;
}

// A block of a kind that is known, the same length at its either end.
bool Pcapng::is_sound(Octets rest, ByteOrder order) {
    if (rest.size() < kLeastOctets) return false;
    const Block block = block_at(rest, order);
    return find_kind(block.type) && !is_too_short(block.type, block.octets) && block.octets <= kMostOctetsAtHand &&
           check(block, rest) == Fault::none;
}

// Whether another block shows that the first length of a block is right, whatever the second is.
bool Pcapng::leads_on(const Block &block, Octets rest) { return is_sound(rest.subspan(block.octets), block.order); }

// Whether more octets may yet do so.
bool Pcapng::may_lead_on(const Block &block, Octets rest) {
    const Octets behind = rest.subspan(block.octets);
    if (behind.size() < kLeastOctets) return true;
    const Block next = block_at(behind, block.order);
    return find_kind(next.type) && !is_too_short(next.type, next.octets) && next.octets <= kMostOctetsAtHand &&
           check(next, behind) == Fault::part;
}

bool Pcapng::is_doubtful(Octets rest) const {
    return rest.size() >= kLeastOctets && check(block_at(rest, order_), rest) == Fault::second_length;
}

void Pcapng::take(Octets octets) {
    const Block block = block_at(octets, order_);
    if (block.type == kInterface && is_in_midst_)
        return interfaces_.clear(); // its number is not known, nor which it follows
    if (block.type == kInterface) describe_interface(octets.first(octets.size() - kLengthOctets));
    if (block.type != kSection) return;
    is_in_midst_ = false;
    order_ = block.order;
    interfaces_.clear();
}

// It has its number by its place, so that one that tells too little counts, too.
void Pcapng::describe_interface(Octets block) {
    constexpr size_t kLinkType = 8, kMostPacketOctets = 12, kOptions = 16, kOptionHeaderOctets = 4;
    if (interfaces_.size() == kMostInterfaces) return;
    Interface &interface = interfaces_.emplace_back();
    if (block.size() < kOptions) {
        interface.fault = kUndescribed;
        return;
    }
    interface.link_type = order_.u16(&block[kLinkType]);
    interface.most_octets = order_.u32(&block[kMostPacketOctets]);
    for (Octets rest = block.subspan(kOptions); rest.size() >= kOptionHeaderOctets;) {
        const uint16_t code = order_.u16(&rest[0]);
        const size_t length = order_.u16(&rest[2]);
        rest = rest.subspan(kOptionHeaderOctets);
        if (code == 0 || length > rest.size()) return;
        set_option(interface, code, rest.first(length));
        rest = rest.subspan(std::min((length + 3) / 4 * 4, rest.size()));
    }
}

void Pcapng::set_option(Interface &interface, uint16_t code, Octets value) const {
    constexpr uint16_t kResolution = 9, kOffset = 14;
    if (code == kResolution && value.size() == 1) set_resolution(interface, value[0]);
    if (code != kOffset || value.size() != sizeof(uint64_t)) return;
    const uint64_t first = order_.u32(&value[0]);
    const uint64_t second = order_.u32(&value[4]);
    interface.offset_s = order_.is_little_endian ? second << 32 | first : first << 32 | second;
}

// A negative power of ten, or, with the first bit, of two.
void Pcapng::set_resolution(Interface &interface, uint8_t resolution) {
    constexpr unsigned kBinary = 0x80, kMostBinary = 63, kMostDecimal = 19;
    constexpr unsigned kBinaryAtHand = 34, kDecimalAtHand = 9; // of which a fraction times 10^9 fits 64 bits
    const bool is_binary = (resolution & kBinary) != 0;
    const unsigned exponent = resolution & ~kBinary;
    const unsigned at_hand = is_binary ? kBinaryAtHand : kDecimalAtHand;
    if (exponent > (is_binary ? kMostBinary : kMostDecimal)) interface.fault = "its time is too fine to be read";
    if (interface.fault) return;
    const uint64_t base = is_binary ? 2 : 10;
    interface.units = power(base, exponent);
    interface.units_at_once = power(base, exponent - std::min(exponent, at_hand));
}

Time Pcapng::Interface::time(uint64_t count) const {
    const uint64_t fraction = count % units / units_at_once;
    return {static_cast<int64_t>(count / units + offset_s),
            static_cast<uint32_t>(fraction * kNanosecondsPerSecond / (units / units_at_once))};
}

// The least that a packet's block has, it has; but what it says of the packet may be wrong.
Packet Pcapng::read_packet(const Block &block, Octets rest) const {
    constexpr size_t kInterfaceNumber = 8, kTime = 12, kCaptured = 20, kFrame = 28;
    if (is_too_short(block.type, block.octets)) return {.fault = kTooShort};
    const uint8_t *const octets = rest.data();
    const size_t number =
        block.type == kOldPacket ? order_.u16(octets + kInterfaceNumber) : order_.u32(octets + kInterfaceNumber);
    if (number >= interfaces_.size()) return {.fault = kUndescribed};
    const Interface &interface = interfaces_[number];
    const size_t captured = order_.u32(octets + kCaptured);
    if (captured > block.octets - kFrame - kLengthOctets) return {.fault = "it claims more octets than its block has"};
    const uint64_t time = uint64_t{order_.u32(octets + kTime)} << 32 | order_.u32(octets + kTime + 4);
    return {.time = interface.time(time),
            .link_type = interface.link_type,
            .frame = rest.subspan(kFrame, std::min(captured, kMostFrameOctets)),
            .fault = interface.fault};
}

// Of the first interface, without a time. It tells how long the packet was; how much of that there is follows from what
// the interface captures at most.
Packet Pcapng::read_simple_packet(const Block &block, Octets rest) const {
    constexpr size_t kLength = 8, kFrame = 12;
    if (is_too_short(block.type, block.octets)) return {.fault = kTooShort};
    if (interfaces_.empty()) return {.fault = kUndescribed};
    const Interface &interface = interfaces_.front();
    size_t octets = std::min<size_t>(order_.u32(&rest[kLength]), block.octets - kFrame - kLengthOctets);
    if (interface.most_octets != 0) octets = std::min<size_t>(octets, interface.most_octets);
    return {.link_type = interface.link_type,
            .frame = rest.subspan(kFrame, std::min(octets, kMostFrameOctets)),
            .fault = interface.fault};
}

} // namespace ast::recording
