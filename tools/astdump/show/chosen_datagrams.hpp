// What is chosen, as blocks and datagrams once more.
#pragma once

#include <vector>

#include "show/sink.hpp"

namespace ast::recording::astdump {

// A block with the records that are asked for. What is damaged stays as it is where nothing is chosen.
class ChosenBlock {
public:
    explicit ChosenBlock(bool remainders) : remainders_(remainders) {}

    // Good until the next call.
    Octets of(const DecodedBlock &decoded);

private:
    bool remainders_;
    std::vector<uint8_t> octets_;
};

// Blocks that came in one datagram leave in one.
class DatagramRenderer : public Renderer {
public:
    // What leaves with the blocks: where all are there, what a recorder has put behind the last one; and octets that
    // begin no block, where everything does.
    enum class Behind { trailers, everything };

    DatagramRenderer(bool remainders, Behind behind) : chosen_(remainders), behind_(behind) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override;
    void no_block(const Datagram &datagram, uint64_t offset, const std::string &reason, TextBuffer &out) override;
    void end(TextBuffer &out) override;

protected:
    // A datagram that is whole.
    virtual void put(TextBuffer &out, const Datagram &datagram, Octets payload) = 0;

private:
    void begin(const Datagram &datagram, size_t octets, TextBuffer &out);
    void put_collected(TextBuffer &out);

    ChosenBlock chosen_;
    Behind behind_;
    Datagram datagram_;
    std::vector<uint8_t> payload_;
};

} // namespace ast::recording::astdump
