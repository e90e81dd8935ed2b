// Reports on standard error of what cannot be read or decoded.
#pragma once

#include <string>

#include "decode.hpp"
#include "losses.hpp"
#include "split.hpp"

namespace astdump {

class Damage {
public:
    explicit Damage(bool color) : color_(color) {}

    // The file that the reports that follow are about.
    void set_file(const std::string &name) { file_ = name; }

    // The input is not read to its end.
    void input(const std::string &what);

    // Datagrams of which a capture lacks fragments, and those that a socket lost.
    void incomplete(uint64_t datagrams);
    void dropped(uint64_t datagrams);

    // A datagram of which only the first octets are at hand.
    void truncated(uint64_t packet, uint64_t octets);

    void packet(uint64_t number, const std::string &what);

    // Octets of a datagram, from `offset` on, that do not start a whole block.
    void framing(const Datagram &datagram, uint64_t offset, const Frame &frame);

    void block(const DecodedBlock &decoded);

    // One line on all that was lost, if anything was.
    void summary() const;

    bool any() const { return !losses_.text().empty(); }

private:
    void report(const std::string &text);

    bool color_;
    std::string file_;
    Losses losses_;
};

} // namespace astdump
