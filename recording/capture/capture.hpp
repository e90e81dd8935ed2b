// pcap and pcapng captures: the UDP datagrams and TCP streams in their packets.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "capture/dissect.hpp"
#include "capture/pcap.hpp"
#include "capture/pcapng.hpp"
#include "capture/routes.hpp"
#include "capture/tcp_streams.hpp"
#include "datagram/datagram_source.hpp"
#include "datagram/payload.hpp"

namespace ast::recording {

class Capture : public DatagramSource {
public:
    // What a stream that begins as captures do is called; null for any other. Looks no further than that needs.
    static const char *form_of(OctetStream &stream);

    explicit Capture(OctetStream &stream) : stream_(stream) {}
    bool fill(Chunk &chunk) override;
    std::string nothing() const override;

private:
    void open(Chunk &chunk);
    void open_pcap(Octets header);
    template <typename Form>
    void fill_from(PacketReader<Form> &packets, Chunk &chunk);
    void dissect(const Packet &packet, Chunk &chunk);
    void end(Chunk &chunk);

    OctetStream &stream_;
    std::variant<std::monostate, PacketReader<Pcap>, PacketReader<Pcapng>> packets_;
    Dissector dissector_;
    Routes routes_;
    Payloads payloads_;
    TcpStreams streams_;
    uint64_t packet_ = 0;
    bool has_ended_ = false;
};

} // namespace ast::recording
