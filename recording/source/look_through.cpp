#include "source/look_through.hpp"

#include <algorithm>
#include <stdexcept>

#include "base/interruption.hpp"
#include "block/measuring_sources.hpp"
#include "block/station_finder.hpp"
#include "framing/block_header.hpp"
#include "source/input.hpp"
#include "system/files.hpp"

namespace ast::recording {

namespace {

// How much of a file is looked through: some blocks of each source, and not many more for those that send rarely.
constexpr uint64_t kBlocksOfSource = 10'000;
constexpr uint64_t kMostBlocks = 100'000;
constexpr size_t kChunkOctets = size_t{256} * 1024;

// A file on standard input is read again from where it stood.
class Place {
public:
    explicit Place(const std::string &path) : place_(path == "-" ? system::place_of(system::kStandardInput) : kNone) {}
    ~Place() {
        if (place_ >= 0) system::set_place(system::kStandardInput, place_);
    }
    Place(const Place &) = delete;
    Place &operator=(const Place &) = delete;

private:
    static constexpr int64_t kNone = -1;
    int64_t place_;
};

bool can_be_read_twice(const Origin &origin) {
    if (origin.octets) return true;
    const auto file = system::look_at_input(origin.path);
    return file && file->is_regular;
}

// Hands over the blocks at the beginning of an input as long as more of them are wanted. Whether that were all.
template <typename IsEnough, typename Take>
bool each_block_of(Input &input, const Interruption *interruption, IsEnough is_enough, Take take) {
    Chunk chunk(kChunkOctets);
    uint64_t blocks = 0;
    const auto is_cut_off = [&] { return interruption && interruption->ended(); };
    while (!is_enough(blocks) && !is_cut_off()) {
        if (!input.fill(chunk)) return true;
        for (const Datagram &datagram : chunk.datagrams())
            if (datagram.may_hold_blocks() && !is_cut_off()) each_block(datagram.octets, take);
        blocks = chunk.end_number;
    }
    return false;
}

// The same of all inputs.
template <typename IsEnough, typename Take>
bool each_block_of(std::span<const Origin> origins, const ReadOptions &options, Interruption *interruption,
                   IsEnough is_enough, Take take) {
    bool is_all = true;
    for (const Origin &origin : origins) {
        const Place place(origin.path);
        const ReadOptions all{.framing = options.framing, .categories = options.categories, .threads = options.threads};
        Input input(origin, all, interruption, {});
        is_all = each_block_of(input, interruption, is_enough, take) && is_all;
    }
    return is_all;
}

// Whether that was all of the inputs.
bool learn_from(std::span<const Origin> origins, const ReadOptions &options, Interruption *interruption, Known &known,
                MeasuringSources &measuring) {
    BlockLearner learner;
    const auto is_enough = [&](uint64_t blocks) {
        return blocks >= kMostBlocks || (blocks > kBlocksOfSource && known.editions.have_seen(kBlocksOfSource));
    };
    return each_block_of(origins, options, interruption, is_enough, [&](Octets block) {
        learner.learn(known, block);
        if (options.locates) measuring.add(block);
    });
}

void find_stations(std::span<const Origin> origins, const ReadOptions &options, Interruption *interruption,
                   Known &known) {
    StationFinder finder;
    SplitBlock split;
    const auto is_enough = [&](uint64_t blocks) { return blocks >= kMostBlocks || finder.is_full(); };
    each_block_of(origins, options, interruption, is_enough, [&](Octets block) {
        if (!StationFinder::looks_at(block)) return;
        split.read(known.editions, block);
        finder.look(split);
    });
    finder.find(known.sites);
}

} // namespace

Known look_through(std::span<const Origin> origins, const ReadOptions &options, Interruption *interruption) {
    Known known{EditionMemory(options.profile), options.locates ? SiteMemory(options.sites) : SiteMemory()};
    if (options.follow || !std::ranges::all_of(origins, can_be_read_twice)) return known;
    try {
        MeasuringSources measuring;
        const bool is_all = learn_from(origins, options, interruption, known, measuring);
        known.editions.freeze();
        if (measuring.can_be_worked_out(known.sites)) find_stations(origins, options, interruption, known);
        if (is_all) known.sites.freeze();
    } catch (const std::runtime_error &) {
        // Whoever reads it will find that, too.
    }
    return known;
}

} // namespace ast::recording
