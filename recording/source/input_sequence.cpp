#include "source/input_sequence.hpp"

#include <algorithm>
#include <utility>

#include "base/counted.hpp"
#include "framing/block_header.hpp"
#include "source/look_through.hpp"
#include "source/merged_source.hpp"

namespace ast::recording {

InputSequence::InputSequence(std::vector<Origin> origins, const ReadOptions &options, Interruption *interruption,
                             InputObserver &observer)
    : origins_(std::move(origins)), options_(options), interruption_(interruption), observer_(observer) {}

bool InputSequence::open_next() {
    input_.reset();
    measuring_ = {};
    stations_ = {};
    if (options_.merge && next_ == 0 && !origins_.empty()) open_merged();
    while (!input_ && next_ < origins_.size()) {
        const Origin &origin = origins_[next_++];
        attempt(origin.path, [&] { open_one(origin); });
    }
    return input_ != nullptr;
}

void InputSequence::open_one(const Origin &origin) {
    name_ = origin.name;
    path_ = origin.path;
    known_ = look_through({&origin, 1}, options_, interruption_);
    input_ = std::make_unique<Input>(origin, options_, interruption_,
                                     [this](const std::string &what) { observer_.announced(what); });
    observer_.opened(name_, *input_);
}

// What is chosen is chosen of all of them, by the times that they have together.
void InputSequence::open_merged() {
    known_ = look_through(origins_, options_, interruption_);
    ReadOptions all = options_;
    all.datagrams = {};
    auto source = std::make_unique<MergedSource>();
    for (const Origin &origin : origins_)
        attempt(origin.path, [&] {
            auto input = std::make_unique<Input>(origin, all, interruption_, Announce());
            observer_.opened(origin.name, *input);
            source->add(origin.name, std::move(input));
        });
    next_ = origins_.size();
    name_ = counted(origins_.size(), "file");
    input_ = std::make_unique<Input>(std::move(source), options_.datagrams);
}

size_t InputSequence::place_of(const std::string &name) const {
    const auto found = std::ranges::find_if(origins_, [&](const Origin &origin) { return &origin.name == &name; });
    return static_cast<size_t>(found - origins_.begin());
}

// What cannot be looked through beforehand is learnt from in its order, here as where it is decoded.
bool InputSequence::fill(Job &job) {
    const bool is_filled = input_->fill(job.chunk);
    job.known = known_;
    job.later.clear();
    if (!known_.grows() && !options_.locates) return is_filled;
    for (const Datagram &datagram : job.chunk.datagrams())
        if (datagram.may_hold_blocks()) each_block(datagram.octets, [&](Octets block) { learn(job, block); });
    return is_filled;
}

void InputSequence::learn(Job &job, Octets block) {
    if (options_.locates) measuring_.add(block);
    // Editions are still learnt where nothing could be looked through.
    const bool seeks_stations = options_.locates && known_.editions.grows();
    if (seeks_stations && stations_.wants(block, measuring_, known_.sites)) {
        const bool is_any_found = stations_.learn(learner_.split(known_, block), known_.sites);
        if (is_any_found) job.later.push_back({block.data(), known_.sites});
    } else if (known_.grows() && (options_.categories.test(block[0]) || known_.sites.learns_from(block))) {
        learner_.learn(known_, block);
    }
}

} // namespace ast::recording
