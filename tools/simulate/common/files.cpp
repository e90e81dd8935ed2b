// Recordings: captures as a network card would have seen the datagrams, and their blocks one after the other.

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <pcap/pcap.h>
#include <system_error>
#include <tins/ethernetII.h>
#include <tins/ip.h>
#include <tins/rawpdu.h>
#include <tins/udp.h>

#include "output.hpp"

namespace simulation {

namespace {

[[noreturn]] void fail(const std::string &what) { throw std::system_error(errno, std::generic_category(), what); }

std::FILE *open_file(const std::string &path) {
    std::FILE *const file = path == "-" ? stdout : std::fopen(path.c_str(), "wb");
    if (!file) fail(path);
    return file;
}

// The datagram in a multicast packet, from an address to a group that both end in the number of the station; libtins
// computes lengths and checksums.
Octets frame(const Datagram &datagram, uint8_t station, uint16_t packet_number) {
    constexpr uint16_t kPort = 8600;
    constexpr uint8_t kHops = 16;
    const uint8_t source_mac[] = {0x02, 0x00, 0x00, 0x00, 0x19, station}; // locally administered
    const uint8_t group_mac[] = {0x01, 0x00, 0x5e, 0x40, 0x19, station};  // the low 23 bits of the group address
    const std::string number = std::to_string(station);
    Tins::IP ip("239.192.25." + number, "192.0.2." + number);
    ip.ttl(kHops);
    ip.id(packet_number);
    auto packet = Tins::EthernetII(Tins::HWAddress<6>(group_mac), Tins::HWAddress<6>(source_mac)) / ip /
                  Tins::UDP(kPort, kPort) / Tins::RawPDU(datagram.blocks.begin(), datagram.blocks.end());
    return packet.serialize();
}

class Capture final : public Output {
public:
    Capture(const std::string &path, uint8_t station)
        : station_(station),
          pcap_(pcap_open_dead(DLT_EN10MB, kSnapshotOctets), pcap_close),
          dumper_(pcap_dump_fopen(pcap_.get(), open_file(path)), pcap_dump_close) {
        if (!dumper_) throw std::runtime_error(pcap_geterr(pcap_.get()));
        count(kFileHeaderOctets);
    }

    void write(const Datagram &datagram) override {
        const Octets octets = frame(datagram, station_, ++packets_);
        pcap_pkthdr header{};
        header.ts = timestamp(datagram.time_s);
        header.caplen = header.len = static_cast<bpf_u_int32>(octets.size());
        pcap_dump(reinterpret_cast<u_char *>(dumper_.get()), &header, octets.data());
        if (std::ferror(pcap_dump_file(dumper_.get()))) fail("capture");
        count(kPacketHeaderOctets + octets.size());
    }

    void finish() override {
        if (pcap_dump_flush(dumper_.get()) != 0) fail("capture");
    }

private:
    static constexpr int kSnapshotOctets = 65535;
    static constexpr uint64_t kFileHeaderOctets = 24;
    static constexpr uint64_t kPacketHeaderOctets = 16;

    // The recording begins on 1 June 2024.
    static timeval timestamp(double time_s) {
        constexpr time_t kFirstDay = 1717200000;
        constexpr double kMicrosecondsPerS = 1e6;
        const double whole_s = std::floor(time_s);
        return {.tv_sec = kFirstDay + static_cast<time_t>(whole_s),
                .tv_usec = static_cast<suseconds_t>((time_s - whole_s) * kMicrosecondsPerS)};
    }

    uint8_t station_;
    std::unique_ptr<pcap_t, decltype(&pcap_close)> pcap_;
    std::unique_ptr<pcap_dumper_t, decltype(&pcap_dump_close)> dumper_;
    uint16_t packets_ = 0;
};

class RawFile final : public Output {
public:
    explicit RawFile(const std::string &path) : file_(open_file(path), std::fclose) {}

    void write(const Datagram &datagram) override {
        const Octets &octets = datagram.blocks;
        if (std::fwrite(octets.data(), 1, octets.size(), file_.get()) != octets.size()) fail("recording");
        count(octets.size());
    }

    void finish() override {
        if (std::fflush(file_.get()) != 0) fail("recording");
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> file_;
};

} // namespace

std::unique_ptr<Output> open_capture(const std::string &path, uint8_t station) {
    return std::make_unique<Capture>(path, station);
}

std::unique_ptr<Output> open_raw_file(const std::string &path) { return std::make_unique<RawFile>(path); }

} // namespace simulation
