// Reports of what cannot be read or decoded, in the order of the octets that they are about.
#pragma once

#include <ast_recording.h>
#include <string>
#include <string_view>
#include <vector>

#include "datagram/datagram.hpp"
#include "framing/block_header.hpp"

namespace ast::recording {

class Report {
public:
    Report(uint32_t kind, uint32_t reason);

    size_t place = 0; // among what else comes in order: whoever collects the reports says what it counts
    const std::string *file = nullptr; // that it is about; null for the one at hand

    // All but the texts and the file, which facts() adds.
    ast_recording_report_t data{};
    std::string detail;
    std::string path;

    // Good as long as the report.
    ast_recording_report_t facts() const;
};

ast_endpoint_t to_public(const Endpoint &endpoint);
Endpoint to_internal(const ast_endpoint_t &endpoint);

// Sets where the octets of a datagram from `offset` on stand, and the way that they took.
void set_place(ast_recording_report_t &data, const Datagram &datagram, uint64_t offset);

// Octets of a datagram, from `offset` on, that do not start a whole block.
Report framing_report(const Datagram &datagram, uint64_t offset, const Frame &frame);

// A datagram of other traffic.
Report foreign_report(const Datagram &datagram);

class Reports {
public:
    // Where the next report stands.
    size_t place = 0;

    const std::vector<Report> &list() const { return list_; }
    std::vector<Report> &list() { return list_; }
    bool empty() const { return list_.empty(); }
    void clear();

    void add(Report report);

    // Something worth knowing that is no damage.
    void note(std::string what);

    // The input is not read to its end.
    void unfinished(std::string what);

    // Datagrams of which a capture lacks fragments, and those that a socket lost.
    void incomplete(uint64_t datagrams);
    void dropped(uint64_t datagrams);

    // A datagram of which only the first octets are at hand, the last of them of a block that is not whole.
    void truncated(const Datagram &datagram, uint64_t octets_of_part);

    // Datagrams with octets behind the last block, so many in all, that a recorder has put there.
    void trailers(uint64_t datagrams, uint64_t octets);

    void packet(uint64_t number, std::string what);

    // Octets of a TCP stream that a capture lacks, noticed at a packet, and those behind them that are the rest of a
    // block.
    void missing(uint64_t packet, const Endpoints &endpoints, uint64_t octets);
    void fragment(uint64_t packet, const Endpoints &endpoints, uint64_t octets);

    // Octets of a file that are no frame of its framing.
    void skipped(uint64_t offset, uint64_t octets, std::string_view framing);

    // A line of an input that is no record; the path is that of what is wrong in it, if that is known.
    void line(uint64_t line, uint64_t character, std::string_view path, const char *what);

    // A TCP stream of other traffic.
    void foreign_stream(const Endpoints &endpoints);

private:
    void stream(uint32_t reason, uint64_t packet, const Endpoints &endpoints, uint64_t octets);

    std::vector<Report> list_;
};

} // namespace ast::recording
