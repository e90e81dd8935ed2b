// Reports on standard error of what cannot be read or decoded.
#pragma once

#include <string>

#include "decode.hpp"
#include "split.hpp"

namespace astdump {

class Damage {
public:
    explicit Damage(bool color) : color_(color) {}

    // The file that the reports that follow are about.
    void set_file(const std::string &name) { file_ = name; }

    void input(const std::string &what);
    void packet(uint64_t number, const std::string &what);

    // Octets of a datagram, from `offset` on, that do not start a whole block.
    void framing(const Datagram &datagram, uint64_t offset, const Frame &frame);

    void block(const DecodedBlock &decoded);

    uint64_t count() const { return count_; }

private:
    void report(const std::string &text);

    bool color_;
    std::string file_;
    uint64_t count_ = 0;
};

} // namespace astdump
