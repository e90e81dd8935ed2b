#include "capture/tcp_streams.hpp"

#include <algorithm>
#include <utility>

namespace ast::recording {

namespace {

// Of all connections together, with what it takes to know them.
constexpr size_t kMostHeldOctets = size_t{32} * 1024 * 1024;
constexpr size_t kStreamOctets = 512;
constexpr size_t kSegmentOctets = 64;

// A segment that is missing is waited for until so much stands behind it, or for so long.
constexpr size_t kMostUnorderedOctets = size_t{1} * 1024 * 1024;
constexpr int64_t kPatience_s = 10;

// No window is so large: a segment further away shows that most of a stream is missing, or that another one has begun.
constexpr int32_t kFarthestOctets = 1 << 26;

// A SYN counts as an octet.
uint32_t first_sequence(const TcpHeader &header) { return header.sequence + (header.syn ? 1 : 0); }

void put_endpoint_key(const Endpoint &endpoint, uint8_t *key) {
    std::ranges::copy(endpoint.address.octets, key);
    key[16] = static_cast<uint8_t>(endpoint.port >> 8);
    key[17] = static_cast<uint8_t>(endpoint.port);
}

} // namespace

TcpStreams::Stream::Stream(const Datagram &first_stamp, uint32_t sequence, bool is_from_start)
    : stamp(first_stamp), first(sequence), order(sequence), blocks(is_from_start) {}

size_t TcpStreams::Stream::octets() const {
    return kStreamOctets + order.held_octets() + order.waiting_segments() * kSegmentOctets + blocks.held_octets();
}

void TcpStreams::Stream::skip_to(uint32_t sequence, Chunk &chunk) {
    blocks.skip(sequence - order.next(), stamp, chunk);
    blocks.add(order.skip_to(sequence), stamp, chunk);
}

void TcpStreams::Stream::take(const TcpHeader &header, Octets octets, Chunk &chunk) {
    if (has_ended || blocks.is_other()) return;
    const uint32_t begin = first_sequence(header);
    const uint32_t before = order.next();
    const bool was_in_order = !order.is_waiting();
    if (distance(before, begin) > kFarthestOctets) {
        skip_gaps(chunk);
        skip_to(begin, chunk);
    }
    blocks.add(order.add(begin, octets), stamp, chunk);
    const uint32_t behind = begin + static_cast<uint32_t>(header.length);
    const uint32_t captured = begin + static_cast<uint32_t>(octets.size());
    if (captured != behind && order.next() == captured) skip_to(behind, chunk);
    if (was_in_order || order.next() != before) gap_since = *stamp.time;
    while (has_waited_enough()) skip_to(order.first_waiting(), chunk);
    if (header.fin) fin = behind;
    if (fin == order.next()) end(false, chunk);
}

void TcpStreams::Stream::skip_gaps(Chunk &chunk) {
    while (order.is_waiting()) skip_to(order.first_waiting(), chunk);
}

bool TcpStreams::Stream::has_waited_enough() const {
    return order.is_waiting() &&
           (order.waiting_octets() + order.waiting_segments() * kSegmentOctets > kMostUnorderedOctets ||
            stamp.time->seconds - gap_since.seconds > kPatience_s);
}

void TcpStreams::Stream::end(bool is_cut, Chunk &chunk) {
    if (has_ended) return;
    has_ended = true;
    skip_gaps(chunk);
    blocks.end(is_cut, stamp, chunk);
}

TcpStreams::Key TcpStreams::key_of(const Endpoints &endpoints) {
    Key key{};
    put_endpoint_key(endpoints.source, key.data());
    put_endpoint_key(endpoints.destination, key.data() + key.size() / 2);
    return key;
}

void TcpStreams::close(Streams::iterator place, bool is_cut, Chunk &chunk) {
    place->end(is_cut, chunk);
    if (place->blocks.is_other()) chunk.reports().foreign_stream(*place->stamp.endpoints);
    held_octets_ -= place->held_octets;
    places_.erase(key_of(*place->stamp.endpoints));
    streams_.erase(place);
}

// Null for a segment that begins nothing.
TcpStreams::Stream *TcpStreams::find_or_open(const Transported &segment, const Datagram &stamp, Chunk &chunk) {
    const TcpHeader &header = *segment.tcp;
    const uint32_t begin = first_sequence(header);
    const Key key = key_of(*segment.endpoints);
    if (const auto found = places_.find(key); found != places_.end()) {
        Stream &stream = *found->second;
        const bool is_far_back = distance(stream.order.next(), begin) < -kFarthestOctets;
        if (!is_far_back && (!header.syn || stream.first == begin)) {
            streams_.splice(streams_.end(), streams_, found->second);
            stream.stamp = stamp;
            return &stream;
        }
        close(found->second, false, chunk);
    }
    if (segment.payload.empty() && !header.syn) return nullptr;
    places_.emplace(key, streams_.emplace(streams_.end(), stamp, begin, header.syn));
    return &streams_.back();
}

// Neither side sends any more.
void TcpStreams::end_by_reset(const Endpoints &endpoints, Chunk &chunk) {
    for (const Endpoints &route : {endpoints, Endpoints{endpoints.destination, endpoints.source}})
        if (const auto found = places_.find(key_of(route)); found != places_.end()) found->second->end(false, chunk);
}

void TcpStreams::make_room(Chunk &chunk) {
    while (held_octets_ > kMostHeldOctets && streams_.size() > 1) close(streams_.begin(), false, chunk);
}

void TcpStreams::add(const Transported &segment, uint64_t packet, const Time &time, Chunk &chunk) {
    Datagram stamp{.octets = segment.payload, .packet = packet, .time = time, .endpoints = segment.endpoints};
    if (!chunk.is_wanted(stamp)) return;
    stamp.octets = {};
    if (segment.tcp->rst) return end_by_reset(*segment.endpoints, chunk);
    if (!takes_rests_ && is_rest(segment)) {
        has_met_rest_ = true;
        return;
    }
    Stream *const stream = find_or_open(segment, stamp, chunk);
    if (!stream) return;
    stream->take(*segment.tcp, segment.payload, chunk);
    held_octets_ += stream->octets() - stream->held_octets;
    stream->held_octets = stream->octets();
    make_room(chunk);
}

bool TcpStreams::is_rest(const Transported &segment) const {
    return !segment.tcp->syn && !segment.payload.empty() && !places_.contains(key_of(*segment.endpoints));
}

void TcpStreams::tell(Chunk &chunk) const {
    for (const Stream &stream : streams_)
        if (stream.blocks.is_other()) chunk.reports().foreign_stream(*stream.stamp.endpoints);
}

void TcpStreams::end(Chunk &chunk) {
    while (!streams_.empty()) close(streams_.begin(), true, chunk);
}

} // namespace ast::recording
