#include "decode.hpp"

#include <utility>
#include <vector>

namespace astdump {

namespace {

constexpr uint32_t kMonoradarTargets = 1; // category 001

struct Way {
    const ast_uap_t *uap;
    bool mixed; // plots and tracks of category 001, `uap` being that of the record at the fault
};

std::vector<Way> ways_to_decode(uint32_t category) {
    std::vector<Way> ways;
    if (category == kMonoradarTargets) ways = {{&AST_UAP_STANDARD, true}, {&AST_UAP_CAT001_PLOT, true}};
    for (const ast_uap_info_t &profile : profiles()) ways.push_back({profile.uap, false});
    return ways;
}

} // namespace

Decoder::Decoder(const ast_uap_info_t *profile)
    : profile_(profile), block_(std::make_unique<ast_datablock_t>()), attempt_(std::make_unique<ast_datablock_t>()) {
    keep_library_log();
}

DecodedBlock Decoder::decode(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
    if (profile_)
        ast_datablock_decode_into(block_.get(), octets.data(), octets.size(), *profile_->uap);
    else
        ast_datablock_smart_decode_into(block_.get(), octets.data(), octets.size());
    std::optional<Fault> fault;
    if (!block_->valid) fault = profile_ ? find_fault(*block_, octets, *profile_->uap) : keep_furthest(octets);
    return {.datagram = &datagram,
            .number = number,
            .offset = offset,
            .octets = octets,
            .block = block_.get(),
            .profile = profile_name(block_->uap, block_->category),
            .fault = fault,
            .shown = {}};
}

// The library returns what the last profile that it tried makes of a block; here the attempt that got furthest counts,
// the first of equals.
Fault Decoder::keep_furthest(Octets octets) {
    Fault furthest;
    for (const Way &way : ways_to_decode(octets[0])) {
        if (way.mixed)
            ast_datablock_001_mixuap_decode_into(attempt_.get(), octets.data(), octets.size());
        else
            ast_datablock_decode_into(attempt_.get(), octets.data(), octets.size(), *way.uap);
        const Fault fault = find_fault(*attempt_, octets, *way.uap);
        if (fault.octets <= furthest.octets) continue;
        furthest = fault;
        std::swap(block_, attempt_);
    }
    return furthest;
}

} // namespace astdump
