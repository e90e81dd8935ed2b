// pcap and pcapng captures: the UDP datagrams and TCP streams in their packets.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "dissect.hpp"
#include "input.hpp"
#include "payload.hpp"
#include "pcap.hpp"
#include "pcapng.hpp"
#include "routes.hpp"
#include "tcp_streams.hpp"

namespace astdump {

class Capture : public Source {
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

} // namespace astdump
