#include "capture/capture.hpp"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "base/counted.hpp"
#include "base/unreadable_input.hpp"

namespace ast::recording {

Capture::Capture(OctetStream &stream, const OctetRange &range)
    : stream_(stream),
      range_(range),
      shown_from_(range.begin),
      is_in_range_(range.begin == 0),
      is_shown_(is_in_range_),
      is_sought_(range.start() != 0) {}

const char *Capture::form_of(OctetStream &stream) {
    const Octets head = stream.peek(Pcap::kMagicOctets);
    if (Pcap::begins(head)) return Pcap::kFraming;
    const bool may_be_pcapng = Pcapng::may_begin(head);
    return may_be_pcapng && Pcapng::begins(stream.peek(Pcapng::kMagicOctets)) ? Pcapng::kFraming : nullptr;
}

bool Capture::fill(Chunk &chunk) {
    if (has_ended_) return false;
    if (packets_.index() == 0) open(chunk);
    if (auto *const pcap = std::get_if<PacketReader<Pcap>>(&packets_)) fill_from(*pcap, chunk);
    if (auto *const pcapng = std::get_if<PacketReader<Pcapng>>(&packets_)) fill_from(*pcapng, chunk);
    return true;
}

std::string Capture::nothing() const { return packet_ == 0 ? "packets" : "blocks in " + counted(packet_, "packet"); }

void Capture::open(Chunk &chunk) {
    if (Pcapng::begins(stream_.peek(Pcapng::kMagicOctets))) return open_pcapng();
    const Octets header = stream_.peek(Pcap::kFileHeaderOctets);
    const std::string complaint = Pcap::header_complaint(header);
    if (complaint.empty()) return open_pcap(header);
    if (!stream_.cut_off() && stream_.damage().empty()) chunk.reports().unfinished(complaint);
    has_ended_ = true;
}

void Capture::open_pcapng() {
    Pcapng form;
    const auto first = is_sought_ ? read_interfaces(form) : std::nullopt;
    is_sought_ = first.has_value();
    if (first)
        form.begin_in_midst();
    else
        form = {};
    auto &packets = packets_.emplace<PacketReader<Pcapng>>(stream_, form);
    go_to_range(packets, std::max(range_.start() / Pcapng::kAlignment * Pcapng::kAlignment, first.value_or(0)));
}

// All of its packets are of one link type, without which nothing can be read.
void Capture::open_pcap(Octets header) {
    const Pcap pcap(header);
    const std::string complaint = link_type_complaint(pcap.link_type());
    if (!complaint.empty()) throw UnreadableInput("captures of " + complaint);
    std::vector<uint8_t> taken(header.size());
    stream_.read(taken.data(), taken.size());
    auto &packets = packets_.emplace<PacketReader<Pcap>>(stream_, pcap);
    go_to_range(packets, std::max<uint64_t>(range_.start(), Pcap::kFileHeaderOctets));
}

// Those of the first section that are described in front of its packets. Where the first of these begins; nothing where
// that is too far to look.
std::optional<uint64_t> Capture::read_interfaces(Pcapng &form) {
    constexpr size_t kHeadOctets = size_t{1} * 1024 * 1024;
    Piece piece;
    uint64_t place = 0;
    const Octets head = stream_.peek(kHeadOctets);
    for (;;) {
        const Piece::Kind kind = form.read(head.subspan(place), piece);
        if (kind == Piece::Kind::packet || kind == Piece::Kind::long_packet) return place;
        if (kind != Piece::Kind::other || piece.octets > head.size() - place) return std::nullopt;
        form.take(head.subspan(place, piece.octets));
        place += piece.octets;
    }
}

template <typename Form>
void Capture::go_to_range(PacketReader<Form> &packets, uint64_t offset) {
    if (!is_in_range_) dissector_.count_incomplete(false);
    if (!is_sought_) return;
    stream_.go_to(offset);
    packets.lose_place();
    streams_.take_no_rests();
}

template <typename Form>
void Capture::fill_from(PacketReader<Form> &packets, Chunk &chunk) {
    packets.open(chunk);
    if (range_.is_part()) return fill_part_from(packets, chunk);
    while (const Packet *const packet = packets.next(chunk)) dissect(*packet, chunk);
    if (!packets.close(chunk)) end(true, chunk);
}

// What the end of the file completes belongs to whoever reads its last octet.
template <typename Form>
void Capture::fill_part_from(PacketReader<Form> &packets, Chunk &chunk) {
    const Packet *packet = nullptr;
    while ((packet = packets.next(chunk)) && take(*packet, packets.begin_of_packet(chunk), chunk)) continue;
    if (needs_beginning_) return begin_anew(chunk);
    if (has_ended_) return;
    if (packets.is_at_end()) enter_range(chunk);
    if (!is_shown_) chunk.forget();
    if (packets.is_at_end() && !range_.holds(std::max<uint64_t>(*stream_.size(), 1) - 1)) return end(false, chunk);
    if (!packets.close(chunk)) end(true, chunk);
}

// False when no more packets are to be taken as things are.
bool Capture::take(const Packet &packet, uint64_t place, Chunk &chunk) {
    if (place >= range_.begin) enter_range(chunk);
    if (place >= shown_from_ && !is_shown_) {
        chunk.forget();
        is_shown_ = true;
    }
    if (place >= range_.end) return settle(packet, place, chunk);
    needs_beginning_ = is_sought_ && packet.fault;
    if (!needs_beginning_) dissect(packet, chunk);
    needs_beginning_ = needs_beginning_ || (is_sought_ && streams_.has_met_rest());
    if (needs_beginning_) shown_from_ = std::max(place, range_.begin);
    return !needs_beginning_;
}

// Behind the range, fragments are waited for that may yet complete what has begun in it.
bool Capture::settle(const Packet &packet, uint64_t place, Chunk &chunk) try {
    dissector_.count_incomplete(false);
    if (dissector_.incomplete() == 0 || place - range_.end >= range_.lead_octets) {
        end(false, chunk);
        return false;
    }
    dissector_.set_link_type(packet.link_type);
    if (!packet.fault && !dissector_.find_plain(packet.frame)) dissector_.dissect(packet.frame, packet.time);
    return true;
} catch (const Undissected &) {
    return true; // which is told where it stands
}

// What has been learnt of the traffic stays.
void Capture::enter_range(Chunk &chunk) {
    if (is_in_range_) return;
    is_in_range_ = true;
    payloads_.tell(chunk.reports());
    dissector_.count_incomplete(true);
    packet_ = 0;
}

// A stream that was open before, or an interface that is described elsewhere, is known from the beginning of the file
// alone. What has been handed out so far is passed over.
void Capture::begin_anew(Chunk &chunk) {
    if (!is_shown_) chunk.forget();
    needs_beginning_ = is_sought_ = is_shown_ = false;
    is_in_range_ = range_.begin == 0;
    packet_ = 0;
    stream_.go_to(0);
    packets_.emplace<std::monostate>();
    dissector_ = Dissector();
    payloads_ = Payloads();
    streams_ = TcpStreams();
}

void Capture::dissect(const Packet &packet, Chunk &chunk) try {
    ++packet_;
    if (packet.fault) return chunk.reports().packet(packet_, packet.fault);
    dissector_.set_link_type(packet.link_type);
    if (const auto plain = dissector_.find_plain(packet.frame)) {
        Datagram &datagram = routes_.datagram(plain.route());
        datagram.octets = plain.payload();
        datagram.packet = packet_;
        datagram.time = packet.time;
        return payloads_.add(chunk, datagram, false);
    }
    const auto found = dissector_.dissect(packet.frame, packet.time);
    if (!found) return;
    if (found->tcp) return streams_.add(*found, packet_, packet.time, chunk);
    payloads_.add(chunk,
                  {.octets = found->is_rebuilt ? chunk.keep(found->payload) : found->payload,
                   .packet = packet_,
                   .time = packet.time,
                   .endpoints = found->endpoints},
                  found->is_truncated);
} catch (const Undissected &error) {
    chunk.reports().packet(packet_, error.what());
}

void Capture::end(bool is_end_of_file, Chunk &chunk) {
    has_ended_ = true;
    if (is_end_of_file)
        streams_.end(chunk);
    else
        streams_.tell(chunk);
    if (const uint64_t count = dissector_.incomplete()) chunk.reports().incomplete(count);
    payloads_.tell(chunk.reports());
}

} // namespace ast::recording
