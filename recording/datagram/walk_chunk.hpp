// Going over what a chunk holds, in its order.
#pragma once

#include <cstddef>
#include <cstdint>

#include "datagram/chunk.hpp"
#include "framing/block_header.hpp"

namespace ast::recording {

// A walker has
//     bool has_enough()                                    nothing further is wanted
//     void report(const Report &)
//     Blocks skip(Octets)                                  whole blocks at the start that it is done with unseen
//     void block(const Datagram &, uint64_t number, uint64_t offset, Octets)
//     void no_block(const Datagram &, uint64_t offset, const Frame &)    octets that start no whole block
// where offsets count from the beginning of the datagram, and numbers are those of blocks in their file.
template <typename Walker>
void walk_chunk(const Chunk &chunk, Walker &walker) {
    uint64_t number = chunk.first_number;
    const auto walk_datagram = [&](const Datagram &datagram) {
        uint64_t offset = 0;
        while (offset < datagram.octets.size() && !walker.has_enough()) {
            if (datagram.may_hold_blocks()) {
                const Blocks skipped = walker.skip(datagram.octets.subspan(offset));
                number += skipped.count;
                offset += skipped.octets;
            }
            if (offset == datagram.octets.size()) break;
            const Octets rest = datagram.octets.subspan(offset);
            const Frame frame = frame_block(rest);
            if (frame.framing != Framing::block || !datagram.may_hold_blocks())
                return walker.no_block(datagram, offset, frame);
            walker.block(datagram, number, offset, rest.first(frame.length));
            ++number;
            offset += frame.length;
        }
    };
    const std::vector<Report> &reports = chunk.reports().list();
    auto report = reports.begin();
    for (size_t i = 0; !walker.has_enough(); ++i) {
        for (; report != reports.end() && report->place <= i; ++report) walker.report(*report);
        if (i == chunk.datagrams().size()) break;
        walk_datagram(chunk.datagrams()[i]);
    }
}

} // namespace ast::recording
