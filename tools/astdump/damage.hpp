// Reports of what cannot be read or decoded, in the order of the octets that they are about.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "decode.hpp"
#include "losses.hpp"
#include "split.hpp"

namespace astdump {

struct Report {
    size_t place;     // among what else comes in order: whoever collects the reports says what it counts
    std::string text; // empty when it is left to the summary
    Losses losses;
};

// Why octets, of which so many are available, do not start a whole block.
std::string framing_text(const Frame &frame, uint64_t available);

class Damage {
public:
    // Where the next report stands.
    size_t place = 0;

    const std::vector<Report> &reports() const { return reports_; }
    void clear();

    // A report that has been made elsewhere.
    void pass_on(const Report &report);

    // Something worth knowing that is no damage.
    void note(const std::string &what) { report(what, {}); }

    // The input is not read to its end.
    void input(const std::string &what);

    // Datagrams of which a capture lacks fragments, and those that a socket lost.
    void incomplete(uint64_t datagrams);
    void dropped(uint64_t datagrams);

    // A datagram of which only the first octets are at hand.
    void truncated(uint64_t packet, uint64_t octets);

    void packet(uint64_t number, const std::string &what);

    // Octets of a TCP stream that a capture lacks, noticed at a packet, and those behind them that are the rest of a
    // block.
    void missing(uint64_t packet, const Endpoints &endpoints, uint64_t octets);
    void fragment(uint64_t packet, const Endpoints &endpoints, uint64_t octets);

    // Octets of a datagram, from `offset` on, that do not start a whole block.
    void framing(const Datagram &datagram, uint64_t offset, const Frame &frame);

    // Octets of a file that are no frame of its framing.
    void skipped(uint64_t offset, uint64_t octets, std::string_view framing);

    // A line of an input that is no record; the path is that of what is wrong in it, if that is known.
    void line(uint64_t line, uint64_t character, std::string_view path, const char *what);

    void block(const DecodedBlock &decoded);

private:
    void report(const std::string &text, const Losses &losses) { reports_.push_back({place, text, losses}); }

    std::vector<Report> reports_;
};

// Shows reports on standard error.
class DamageLog {
public:
    explicit DamageLog(bool color) : color_(color) {}

    // The file that the reports that follow are about.
    void set_file(const std::string &name) { file_ = name; }
    void show(const Report &report);

    // One line on all that was lost, if anything was.
    void summary() const;
    bool any() const { return !(losses_ == Losses{}); }

private:
    bool color_;
    std::string file_;
    Losses losses_;
};

} // namespace astdump
