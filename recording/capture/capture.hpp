// pcap and pcapng captures: the UDP datagrams and TCP streams in their packets.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "base/octet_range.hpp"
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

    // Of a range, what packets in it complete: packets before it are read as far as that needs.
    Capture(OctetStream &stream, const OctetRange &range);
    bool fill(Chunk &chunk) override;
    std::string nothing() const override;

private:
    void open(Chunk &chunk);
    void open_pcap(Octets header);
    void open_pcapng();
    std::optional<uint64_t> read_interfaces(Pcapng &form);
    template <typename Form>
    void go_to_range(PacketReader<Form> &packets, uint64_t offset);
    template <typename Form>
    void fill_from(PacketReader<Form> &packets, Chunk &chunk);
    template <typename Form>
    void fill_part_from(PacketReader<Form> &packets, Chunk &chunk);
    bool take(const Packet &packet, uint64_t place, Chunk &chunk);
    bool settle(const Packet &packet, uint64_t place, Chunk &chunk);
    void enter_range(Chunk &chunk);
    void begin_anew(Chunk &chunk);
    void dissect(const Packet &packet, Chunk &chunk);
    void end(bool is_end_of_file, Chunk &chunk);

    OctetStream &stream_;
    std::variant<std::monostate, PacketReader<Pcap>, PacketReader<Pcapng>> packets_;
    Dissector dissector_;
    Routes routes_;
    Payloads payloads_;
    TcpStreams streams_;
    uint64_t packet_ = 0;
    bool has_ended_ = false;

    OctetRange range_;
    uint64_t shown_from_;          // in the file: what packets before that give has been handed out, or is none of it
    bool is_in_range_;             // the place
    bool is_shown_;                // what its packets give
    bool is_sought_;               // reading begins near the range, instead of at the beginning
    bool needs_beginning_ = false; // what cannot be read otherwise has been met
};

} // namespace ast::recording
