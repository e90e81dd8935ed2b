// pcapng: blocks of several kinds, in sections with a byte order each, with packets of several interfaces.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "capture/byte_order.hpp"
#include "capture/packet_reader.hpp"

namespace ast::recording {

class Pcapng {
public:
    static constexpr const char *kFraming = "pcapng";
    static constexpr const char *kPiece = "block";
    static constexpr size_t kAlignment = 4;
    static constexpr size_t kShift = 0;
    static constexpr size_t kDoubtOctets = 2048;

    static constexpr size_t kMagicOctets = 12;

    // Whether a capture begins so. The type of its first block, its first four octets, could be a block of category
    // 010.
    static bool may_begin(Octets head);
    static bool begins(Octets head);

    Piece::Kind read(Octets rest, Piece &piece) const;
    bool is_doubtful(Octets rest) const;
    void take(Octets block);

    // Blocks are missing from now on, up to where reading goes on.
    void begin_in_midst() { is_in_midst_ = true; }
    std::string complaint(Octets rest) const;
    bool is_sound(Octets rest) const { return is_sound(rest, order_); }

private:
    struct Interface {
        uint16_t link_type = 0;
        uint32_t most_octets = 0;    // of a packet; 0 for any number
        uint64_t units = 1000000;    // of its times, in a second
        uint64_t units_at_once = 1;  // that its times are read in, where they are finer than they can be told
        uint64_t offset_s = 0;       // of its times, as two's complement
        const char *fault = nullptr; // why its packets cannot be read; null if they can

        Time time(uint64_t count) const;
    };

    struct Block {
        ByteOrder order;
        uint32_t type;
        uint32_t octets;
    };

    // What is wrong with a block, or that it is not whole.
    enum class Fault : uint8_t { none, part, byte_order, length, version, second_length };

    static Block block_at(Octets rest, ByteOrder order);
    static Fault check(const Block &block, Octets rest);
    static bool leads_on(const Block &block, Octets rest);
    static bool may_lead_on(const Block &block, Octets rest);
    static bool is_sound(Octets rest, ByteOrder order);
    void describe_interface(Octets block);
    void set_option(Interface &interface, uint16_t code, Octets value) const;
    static void set_resolution(Interface &interface, uint8_t resolution);
    Packet read_packet(const Block &block, Octets rest) const;
    Packet read_simple_packet(const Block &block, Octets rest) const;

    ByteOrder order_;
    std::vector<Interface> interfaces_; // of the section
    bool is_in_midst_ = false;          // of a section of which not all has been read
};

} // namespace ast::recording
