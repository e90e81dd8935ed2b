// pcap captures read in place, as long as nothing about them is odd.
#pragma once

#include <optional>

#include "window.hpp"

namespace astdump {

struct Packet {
    Time time;
    Octets frame;
};

class PlainCapture {
public:
    // Looks at the header of the file and takes it, unless it is one that is left to libpcap.
    static std::optional<PlainCapture> open(OctetStream &stream);

    int link_type() const { return link_type_; }

    // Starts on an empty chunk; false when no whole packet follows.
    bool open(Chunk &chunk);

    // The next packet of the chunk, or nothing when no other one is whole, or when it is an odd one.
    std::optional<Packet> next(const Chunk &chunk);

    // Leaves the rest for the next chunk.
    void close(const Chunk &chunk) { window_.leave(chunk, position_); }

    // Puts back what has not been taken, behind the header of the file.
    void give_up(OctetStream &stream) const;

private:
    explicit PlainCapture(OctetStream &stream) : window_(stream) {}

    bool read_header();
    uint32_t number(const uint8_t *octets) const;
    std::optional<Packet> packet(Octets rest) const;

    Window window_;
    std::vector<uint8_t> header_; // of the file
    bool little_endian_ = false;
    uint32_t nanoseconds_ = 0; // that a fraction of a second counts
    uint32_t max_octets_ = 0;  // of a packet
    int link_type_ = 0;
    size_t position_ = 0; // in the chunk
};

} // namespace astdump
