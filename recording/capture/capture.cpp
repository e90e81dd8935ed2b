#include "capture/capture.hpp"
#include "base/counted.hpp"

#include <cstdio>
#include <stdexcept>
#include <sys/types.h>

namespace ast::recording {

namespace {

// libpcap reads from a FILE; this one draws on the stream, whose first octets have been looked at already.
ssize_t read_stream(void *stream, char *buffer, size_t count) {
    try {
        const size_t got = static_cast<OctetStream *>(stream)->read(reinterpret_cast<uint8_t *>(buffer), count);
        return static_cast<ssize_t>(got);
    } catch (const std::exception &) {
        return -1;
    }
}

// A packet that was about to be written when the user had seen enough is no damage, and a stream that is damaged itself
// says so.
bool is_cut_short(const OctetStream &stream) { return !stream.cut_off() && stream.damage().empty(); }

// Of what is at rest, much is read at a time.
pcap_t *open_capture(OctetStream &stream, std::vector<char> &buffer, Reports &reports) {
    constexpr size_t kOctetsAtATime = size_t{64} * 1024;
    FILE *const file = fopencookie(&stream, "r", {.read = read_stream});
    if (!file) throw std::runtime_error("cannot open a stream");
    if (stream.is_at_rest()) {
        buffer.resize(kOctetsAtATime);
        std::setvbuf(file, buffer.data(), _IOFBF, buffer.size());
    }
    char error[PCAP_ERRBUF_SIZE] = "";
    pcap_t *const capture = pcap_fopen_offline_with_tstamp_precision(file, PCAP_TSTAMP_PRECISION_NANO, error);
    if (capture) return capture; // which owns the file from now on
    std::fclose(file);
    if (is_cut_short(stream)) reports.unfinished(error);
    return nullptr;
}

} // namespace

bool Capture::fill(Chunk &chunk) {
    if (plain_) {
        if (fill_in_place(chunk)) return true;
        plain_->give_up(stream_);
        plain_.reset();
        chunk.clear();
    }
    return fill_by_libpcap(chunk) || payloads_.tell(chunk.reports());
}

std::string Capture::nothing() const { return packet_ == 0 ? "packets" : "blocks in " + counted(packet_, "packet"); }

bool Capture::fill_in_place(Chunk &chunk) {
    if (!dissector_) open(plain_->link_type());
    if (!plain_->open(chunk)) return false;
    while (const auto packet = plain_->next(chunk)) dissect(*packet, chunk);
    plain_->close(chunk);
    return true;
}

bool Capture::fill_by_libpcap(Chunk &chunk) {
    if (!ended_ && !capture_) {
        capture_.reset(open_capture(stream_, buffer_, chunk.reports()));
        ended_ = !capture_;
        if (capture_ && !dissector_) open(pcap_datalink(capture_.get()));
    }
    while (!ended_ && !chunk.is_full()) {
        pcap_pkthdr *header = nullptr;
        const u_char *octets = nullptr;
        const int result = pcap_next_ex(capture_.get(), &header, &octets);
        if (result != 1) {
            end(result, chunk);
            break;
        }
        // With nanosecond precision, tv_usec counts nanoseconds. libpcap uses its buffer again.
        const Time time{header->ts.tv_sec, static_cast<uint32_t>(header->ts.tv_usec)};
        dissect({time, chunk.keep({octets, header->caplen})}, chunk);
        if (!stream_.is_at_rest() && !stream_.is_ready()) break;
    }
    return !ended_ || !chunk.datagrams().empty() || !chunk.reports().empty();
}

// Prepares for a link type.
void Capture::open(int link_type) try { dissector_.emplace(link_type); } catch (const std::runtime_error &error) {
    throw UnreadableInput(error.what());
}

void Capture::dissect(const Packet &packet, Chunk &chunk) try {
    ++packet_;
    if (const auto plain = dissector_->find_plain(packet.frame)) {
        Datagram &datagram = routes_.datagram(plain.route());
        datagram.octets = plain.payload();
        datagram.packet = packet_;
        datagram.time = packet.time;
        return payloads_.add(chunk, datagram, false);
    }
    const auto found = dissector_->dissect(packet.frame, packet.time);
    if (!found) return;
    if (found->tcp) return streams_.add(*found, packet_, packet.time, chunk);
    payloads_.add(chunk,
                  {.octets = found->rebuilt.empty() ? found->payload : chunk.keep(found->rebuilt),
                   .packet = packet_,
                   .time = packet.time,
                   .endpoints = found->endpoints},
                  found->truncated);
} catch (const std::runtime_error &error) {
    chunk.reports().packet(packet_, error.what());
}

void Capture::end(int result, Chunk &chunk) {
    if (result == PCAP_ERROR && is_cut_short(stream_)) chunk.reports().unfinished(pcap_geterr(capture_.get()));
    streams_.end(chunk);
    if (const uint64_t count = dissector_->incomplete()) chunk.reports().incomplete(count);
    ended_ = true;
}

} // namespace ast::recording
