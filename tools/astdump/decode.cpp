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
    : profile_(profile), block_(std::make_unique<ast_datablock_t>()), attempt_(std::make_unique<ast_datablock_t>()) {}

DecodedBlock Decoder::decode(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
    if (profile_)
        decode_by(*profile_->uap, octets);
    else
        look_for_profile(octets);
    DecodedBlock decoded{.datagram = &datagram, .number = number, .offset = offset, .octets = octets};
    if (!block_->valid) {
        decoded.fault = profile_ ? find_fault(*block_, octets, *profile_->uap) : keep_furthest(octets);
        decoded.fault->reason = fault_reason(*decoded.fault, octets);
    }
    decoded.block = block_.get();
    return decoded;
}

bool Decoder::decode_by(const ast_uap_t &profile, Octets octets) {
    ast_datablock_decode_into(block_.get(), octets.data(), octets.size(), profile);
    return block_->valid;
}

// As the library does by itself, but with a memory of its own for the current profile: that of the library is shared by
// all threads, and what they decode must not depend on who comes first.
void Decoder::look_for_profile(Octets octets) {
    if (octets[0] == kMonoradarTargets) {
        ast_datablock_001_mixuap_decode_into(block_.get(), octets.data(), octets.size());
        if (block_->valid) return;
    }
    if (decode_by(*current_, octets)) return;
    for (const ast_uap_info_t &profile : profiles()) {
        current_ = profile.uap;
        if (decode_by(*current_, octets)) return;
    }
}

// The library returns what the last profile that it tried makes of a block; here the attempt that got furthest counts,
// the first of equals.
Fault Decoder::keep_furthest(Octets octets) {
    Fault furthest{};
    for (const Way &way : ways_to_decode(octets[0])) {
        if (way.mixed)
            ast_datablock_001_mixuap_decode_into(attempt_.get(), octets.data(), octets.size());
        else
            ast_datablock_decode_into(attempt_.get(), octets.data(), octets.size(), *way.uap);
        Fault fault = find_fault(*attempt_, octets, *way.uap);
        if (fault.octets <= furthest.octets) continue;
        furthest = std::move(fault);
        std::swap(block_, attempt_);
    }
    return furthest;
}

} // namespace astdump
