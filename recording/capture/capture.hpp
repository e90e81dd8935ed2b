// pcap and pcapng captures: the UDP datagrams and TCP streams in their packets.
#pragma once

#include <memory>
#include <optional>
#include <pcap/pcap.h>

#include "base/octet_stream.hpp"
#include "capture/dissect.hpp"
#include "capture/plain_capture.hpp"
#include "capture/tcp_streams.hpp"
#include "datagram/datagram_source.hpp"
#include "datagram/payload.hpp"

namespace ast::recording {

class Capture : public DatagramSource {
public:
    explicit Capture(OctetStream &stream) : stream_(stream), plain_(PlainCapture::open(stream)) {}
    bool fill(Chunk &chunk) override;
    std::string nothing() const override;

private:
    struct Close {
        void operator()(pcap_t *capture) const { pcap_close(capture); }
    };

    bool fill_in_place(Chunk &chunk);
    bool fill_by_libpcap(Chunk &chunk);
    void open(int link_type);
    void dissect(const Packet &packet, Chunk &chunk);
    void end(int result, Chunk &chunk);

    OctetStream &stream_;
    std::optional<PlainCapture> plain_; // until something is left to libpcap
    std::vector<char> buffer_;          // that libpcap reads through
    std::unique_ptr<pcap_t, Close> capture_;
    std::optional<Dissector> dissector_;
    Routes routes_;
    Payloads payloads_;
    TcpStreams streams_;
    uint64_t packet_ = 0;
    bool ended_ = false;
};

} // namespace ast::recording
