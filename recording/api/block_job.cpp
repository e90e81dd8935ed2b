#include "api/block_job.hpp"

#include <utility>

#include "block/fault.hpp"
#include "datagram/walk_chunk.hpp"

namespace ast::recording {

namespace {

uint32_t state_of(uint32_t report_kind) {
    if (report_kind == AST_REPORT_OTHER_TRAFFIC) return AST_BLOCK_OTHER_TRAFFIC;
    return report_kind == AST_REPORT_UNSUPPORTED ? AST_BLOCK_UNSUPPORTED : AST_BLOCK_DAMAGED;
}

} // namespace

uint64_t BlockJob::number_datagrams(uint64_t next) {
    const std::vector<Datagram> &datagrams = chunk.datagrams();
    datagram_numbers.clear();
    for (size_t i = 0; i < datagrams.size(); ++i) {
        if (i != 0 && datagrams[i].is_same_as(datagrams[i - 1])) --next;
        datagram_numbers.push_back(next++);
    }
    return next;
}

struct BlockReader::Walk {
    BlockReader &reader;
    BlockJob &job;

    bool has_enough() const { return reader.interruption_.ended(); }
    static Blocks skip(Octets) { return {0, 0}; }

    void add(Report report) {
        job.reports.place = job.blocks.size();
        job.reports.add(std::move(report));
    }
    void report(const Report &report) { add(report); }

    void no_block(const Datagram &datagram, uint64_t offset, const Frame &frame) {
        if (!datagram.is_told) add(framing_report(datagram, offset, frame));
    }

    void block(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
        if (!reader.categories_.test(octets[0])) return;
        SplitBlock &block = reader.block_;
        block.read(reader.editions_, octets);
        const auto place = static_cast<size_t>(&datagram - job.chunk.datagrams().data());
        HandedBlock &handed = job.blocks.emplace_back(HandedBlock{.datagram = &datagram,
                                                                  .datagram_number = job.datagram_numbers[place],
                                                                  .number = number,
                                                                  .offset = offset,
                                                                  .octets = octets,
                                                                  .records = block.record_count,
                                                                  .read = block.result,
                                                                  .state = AST_BLOCK_WHOLE});
        if (block.valid) return;
        Report report = fault_report(find_fault(block, datagram), block, datagram, offset);
        report.data.block = number;
        handed.state = state_of(report.data.kind);
        add(std::move(report));
    }
};

void BlockReader::read(BlockJob &job) {
    job.blocks.clear();
    job.reports.clear();
    editions_ = job.editions;
    Walk walk{*this, job};
    walk_chunk(job.chunk, walk);
}

} // namespace ast::recording
