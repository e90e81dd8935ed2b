#include "capture.hpp"

#include <cstdio>
#include <stdexcept>
#include <sys/types.h>

#include "damage.hpp"

namespace astdump {

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

pcap_t *open_capture(OctetStream &stream, Damage &damage) {
    FILE *const file = fopencookie(&stream, "r", {.read = read_stream});
    if (!file) throw std::runtime_error("cannot open a stream");
    char error[PCAP_ERRBUF_SIZE] = "";
    pcap_t *const capture = pcap_fopen_offline_with_tstamp_precision(file, PCAP_TSTAMP_PRECISION_NANO, error);
    if (capture) return capture; // which owns the file from now on
    std::fclose(file);
    if (!stream.cut_off()) damage.input(error);
    return nullptr;
}

} // namespace

Capture::Capture(OctetStream &stream, Damage &damage)
    : stream_(stream), damage_(damage), capture_(open_capture(stream, damage)) {
    if (!capture_) return;
    try {
        dissector_.emplace(pcap_datalink(capture_.get()));
    } catch (const std::runtime_error &error) {
        damage_.input(error.what());
        capture_.reset();
    }
}

std::optional<Datagram> Capture::next() {
    while (capture_) {
        pcap_pkthdr *header = nullptr;
        const u_char *octets = nullptr;
        const int result = pcap_next_ex(capture_.get(), &header, &octets);
        if (result != 1) {
            end(result);
            break;
        }
        ++packet_;
        if (auto datagram = dissect(*header, {octets, header->caplen})) return datagram;
    }
    return std::nullopt;
}

std::optional<Datagram> Capture::dissect(const pcap_pkthdr &header, Octets frame) try {
    auto udp = dissector_->dissect(frame);
    if (!udp) return std::nullopt;
    payload_ = std::move(udp->payload);
    if (udp->truncated) damage_.truncated(packet_, payload_.size());
    // With nanosecond precision, tv_usec counts nanoseconds.
    return Datagram{.octets = payload_,
                    .packet = packet_,
                    .time = Time{header.ts.tv_sec, static_cast<uint32_t>(header.ts.tv_usec)},
                    .endpoints = std::move(udp->endpoints)};
} catch (const std::runtime_error &error) {
    damage_.packet(packet_, error.what());
    return std::nullopt;
}

void Capture::end(int result) {
    // A packet that was about to be written when the user had seen enough is no damage.
    if (result == PCAP_ERROR && !stream_.cut_off()) damage_.input(pcap_geterr(capture_.get()));
    if (const uint64_t count = dissector_->incomplete()) damage_.incomplete(count);
    capture_.reset();
}

} // namespace astdump
