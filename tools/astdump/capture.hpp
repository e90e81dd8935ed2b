// pcap and pcapng captures: the UDP datagrams in their packets.
#pragma once

#include <memory>
#include <pcap/pcap.h>
#include <vector>

#include "dissect.hpp"
#include "input.hpp"

namespace astdump {

class Capture : public Source {
public:
    Capture(OctetStream &stream, Damage &damage);
    std::optional<Datagram> next() override;

private:
    struct Close {
        void operator()(pcap_t *capture) const { pcap_close(capture); }
    };

    std::optional<Datagram> dissect(const pcap_pkthdr &header, Octets frame);
    void end(int result);

    OctetStream &stream_;
    Damage &damage_;
    std::unique_ptr<pcap_t, Close> capture_; // null when it cannot be read, or not further
    std::optional<Dissector> dissector_;
    std::vector<uint8_t> payload_; // of the last datagram
    uint64_t packet_ = 0;
};

} // namespace astdump
