// Reports of what cannot be read or decoded, in the order of the octets that they are about.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "decode.hpp"
#include "losses.hpp"
#include "split.hpp"

namespace astdump {

enum class Kind {
    damaged,
    unsupported, // in order, as far as can be told, but of a category, an edition or an item that is not known
    foreign,     // other traffic in a capture
    note,        // worth knowing
};

struct Report {
    size_t place = 0; // among what else comes in order: whoever collects the reports says what it counts
    Kind kind = Kind::note;
    std::string text;           // empty when it is left to the summary
    std::string reason;         // what reports have in common that can be told together
    std::string example;        // where this one is, and what is its own; empty where there is no more to say
    uint64_t packet = 0;        // that it is about, where reports do not come in the order of packets
    const char *noun = nullptr; // for what is counted; null where a count says nothing
    uint64_t count = 1;
    Losses losses;
    const std::string *file = nullptr; // that it is about; null for the one at hand
};

// Why octets do not start a whole block.
std::string framing_text(const Frame &frame, Octets octets);

class Damage {
public:
    // Where the next report stands.
    size_t place = 0;

    const std::vector<Report> &reports() const { return reports_; }
    std::vector<Report> &reports() { return reports_; }
    void clear();

    // A report that has been made elsewhere.
    void pass_on(const Report &report) { add(report); }

    // Something worth knowing that is no damage.
    void note(const std::string &what);

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

    // A datagram of other traffic, and a TCP stream.
    void foreign(const Datagram &datagram);
    void foreign_stream(const Endpoints &endpoints);

    void block(const DecodedBlock &decoded);

private:
    void add(Report report);
    void stream(uint64_t packet, const Endpoints &endpoints, uint64_t octets, const char *what, const Losses &losses);

    std::vector<Report> reports_;
};

} // namespace astdump
