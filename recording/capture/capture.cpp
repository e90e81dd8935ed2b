#include "capture/capture.hpp"

#include <stdexcept>
#include <vector>

#include "base/counted.hpp"
#include "base/unreadable_input.hpp"

namespace ast::recording {

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
    if (Pcapng::begins(stream_.peek(Pcapng::kMagicOctets))) {
        packets_.emplace<PacketReader<Pcapng>>(stream_, Pcapng());
        return;
    }
    const Octets header = stream_.peek(Pcap::kFileHeaderOctets);
    const std::string complaint = Pcap::header_complaint(header);
    if (complaint.empty()) return open_pcap(header);
    if (!stream_.cut_off() && stream_.damage().empty()) chunk.reports().unfinished(complaint);
    has_ended_ = true;
}

// All of its packets are of one link type, without which nothing can be read.
void Capture::open_pcap(Octets header) {
    const Pcap pcap(header);
    const std::string complaint = link_type_complaint(pcap.link_type());
    if (!complaint.empty()) throw UnreadableInput("captures of " + complaint);
    std::vector<uint8_t> taken(header.size());
    stream_.read(taken.data(), taken.size());
    packets_.emplace<PacketReader<Pcap>>(stream_, pcap);
}

template <typename Form>
void Capture::fill_from(PacketReader<Form> &packets, Chunk &chunk) {
    packets.open(chunk);
    while (const Packet *const packet = packets.next(chunk)) dissect(*packet, chunk);
    if (!packets.close(chunk)) end(chunk);
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

void Capture::end(Chunk &chunk) {
    has_ended_ = true;
    streams_.end(chunk);
    if (const uint64_t count = dissector_.incomplete()) chunk.reports().incomplete(count);
    payloads_.tell(chunk.reports());
}

} // namespace ast::recording
