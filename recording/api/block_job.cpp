#include "api/block_job.hpp"

#include "block/fault.hpp"
#include "datagram/walk_chunk.hpp"

namespace ast::recording {

namespace {

bool is_same_datagram(const Datagram &one, const Datagram &other) {
    return one.packet != 0 && one.packet == other.packet && one.file == other.file;
}

} // namespace

uint64_t BlockJob::number_datagrams(uint64_t next) {
    const std::vector<Datagram> &datagrams = chunk.datagrams();
    datagram_numbers.clear();
    for (size_t i = 0; i < datagrams.size(); ++i) {
        if (i != 0 && is_same_datagram(datagrams[i - 1], datagrams[i])) --next;
        datagram_numbers.push_back(next++);
    }
    return next;
}

struct BlockReader::Walk {
    BlockReader &reader;
    BlockJob &job;

    static bool has_enough() { return false; }
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
        job.blocks.push_back({&datagram, job.datagram_numbers[place], number, offset, octets, block.result});
        if (!block.valid) add(fault_report(find_fault(block, datagram), block, datagram, offset));
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
