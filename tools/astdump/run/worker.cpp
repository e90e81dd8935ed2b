#include "run/worker.hpp"

#include <algorithm>
#include <optional>

#include "datagram/report_words.hpp"
#include "datagram/walk_chunk.hpp"
#include "framing/soundness.hpp"
#include "show/video.hpp"

namespace ast::recording::astdump {

Worker::Worker(const Options &options, const Sinks &sinks) : options_(options), converter_(options.convert) {
    if (options.shifts) shift_.emplace();
    if (options.dedup_window_ns) repeats_.emplace(*options.dedup_window_ns);
    if (!sinks.empty()) first_ = sinks.front().get();
    for (const auto &sink : sinks) {
        renderers_.push_back(sink->renderer());
        counts_ = counts_ || sink->counts();
    }
    const bool shows_none = std::ranges::none_of(renderers_, [](const auto &renderer) { return renderer != nullptr; });
    only_counts_ = shows_none && options.categories.all() && options.where.empty() && options.convert.none() &&
                   !options.count && !options.changes();
}

// What becomes of a chunk, piece by piece.
struct Worker::Walk {
    Worker &worker;
    uint64_t most;
    Rendered &rendered;
    bool only_counts;

    bool has_enough() const { return rendered.shown >= most; }
    void report(const Report &report) { rendered.reports.add(report); }
    Blocks skip(Octets blocks) { return only_counts ? worker.count(blocks, rendered) : Blocks{0, 0}; }
    void no_block(const Datagram &datagram, uint64_t offset, const Frame &frame) {
        worker.no_block(datagram, offset, frame, rendered);
    }
    void block(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
        if (worker.options_.categories.test(octets[0]))
            worker.block(datagram, number, offset, octets, most, rendered);
        else
            worker.decoder_.pass(octets);
    }
};

void Worker::render(const Job &job, uint64_t most, Rendered &rendered) {
    rendered.texts.resize(renderers_.size());
    for (TextBuffer &text : rendered.texts) text.clear();
    rendered.reports.clear();
    rendered.shown = 0;
    rendered.unconverted = 0;
    rendered.judgements.clear();
    constexpr uint64_t kFirst = 1;
    if (shift_ && job.chunk.first_number == kFirst) shift_->restart();
    if (repeats_ && job.chunk.first_number == kFirst) repeats_->restart();
    decoder_.set_known(job.known, job.later);
    Walk walk{*this, most, rendered, only_counts(job.chunk)};
    walk_chunk(job.chunk, walk);
    for (size_t i = 0; i < renderers_.size(); ++i)
        if (renderers_[i]) renderers_[i]->end(rendered.texts[i]);
    rendered.tally = counter_.take();
    for (const Report &made : rendered.reports.list()) rendered.tally.losses.add(made);
    rendered.coverage = coverage_.take();
    rendered.settings = settings_.take();
    rendered.repeats = repeat_counts_.take();
}

// As many blocks as there is no need to take apart.
Blocks Worker::count(Octets blocks, Rendered &rendered) {
    const Blocks counted = counter_.add(decoder_.editions(), blocks);
    rendered.shown += counted.count;
    return counted;
}

// Octets that are no block are of the category that they begin with.
void Worker::no_block(const Datagram &datagram, uint64_t offset, const Frame &frame, Rendered &rendered) {
    const Report report = framing_report(datagram, offset, frame);
    if (!datagram.is_told) rendered.reports.add(report);
    if (!options_.categories.test(datagram.octets[offset]) || options_.anonymizer) return; // which may hold anything
    const std::string reason = framing_text(report.facts());
    for (size_t i = 0; i < renderers_.size(); ++i)
        if (renderers_[i])
            renderers_[i]->no_block(shift_ ? shift_->move(datagram) : datagram, offset, reason, rendered.texts[i]);
    if (frame.framing == Framing::past_end && datagram.may_hold_blocks() && options_.keeps_remainders())
        show_part(datagram, offset, frame.length, rendered);
    if (!rendered.texts.empty()) rendered.reports.place = rendered.texts.front().size();
}

// Of a block that breaks off, what is there, as if its LEN counted no more; of one that may be any octets, nothing.
void Worker::show_part(const Datagram &datagram, uint64_t offset, uint64_t announced, Rendered &rendered) {
    const Octets octets = datagram.octets.subspan(offset);
    if (!has_published_category(octets)) return;
    part_.assign(octets.begin(), octets.end());
    set_block_length(part_);
    DecodedBlock &decoded = decoder_.decode(datagram, 0, offset, part_);
    const bool is_any_read =
        decoded.block->record_count != 0 || (decoded.fault && decoded.fault->record.item_count != 0);
    if (!is_any_read) return;
    decoded.shown.set_all(decoded.block->record_count);
    for (size_t i = 0; i < renderers_.size(); ++i)
        if (renderers_[i]) renderers_[i]->part_of_block(decoded, announced, rendered.texts[i]);
}

void Worker::block(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets, uint64_t most,
                   Rendered &rendered) {
    DecodedBlock &decoded = decoder_.decode(datagram, number, offset, octets);
    std::optional<Report> report;
    if (decoded.fault) report = fault_report(*decoded.fault, *decoded.block, datagram, offset);
    if (number <= kJudgedBlocks) judge(rendered.judgements, *decoded.block);
    select_records(decoded, options_.where);
    if (!options_.where.empty()) coverage_.look(decoded, options_.where);
    if (repeats_) repeats_->leave_out(decoded, repeat_counts_);
    change(decoded, datagram);
    const bool is_wanted = options_.keeps_remainders() || decoded.shown.any();
    if (is_wanted && options_.convert.any())
        show_converted(decoded, most, rendered);
    else if (is_wanted)
        show(decoded, most, rendered);
    if (report) rendered.reports.add(*report);
}

// What is asked for as it is to be.
void Worker::change(DecodedBlock &decoded, const Datagram &datagram) {
    if (!options_.settings.empty()) {
        answerer_.set_block(decoded);
        rewriter_.rewrite(decoded, decoder_.editions(),
                          [&](const ast_datarecord_t &record, uint64_t index, uint8_t *octets) {
                              if (!decoded.shown[index]) return;
                              answerer_.set_record(record);
                              options_.settings.write(answerer_, octets, settings_);
                          });
    }
    if (options_.anonymizer) {
        anonymous_.rewrite(decoded, decoder_.editions(),
                           [&](const ast_datarecord_t &record, uint64_t, uint8_t *octets) {
                               options_.anonymizer->write(record, octets);
                           });
        anonymous_.keep_records(decoded, decoder_.editions());
    }
    if (shift_) {
        shift_->move(decoded, decoder_.editions());
        decoded.datagram = &shift_->move(datagram);
    }
}

// How much of a block is shown, as the first sink counts it: no more than so much.
uint64_t Worker::cut(DecodedBlock &decoded, uint64_t most) const {
    const uint64_t count = first_ ? first_->shows(decoded) : 1;
    if (count <= most) return count;
    decoded.shown.keep_first(most);
    decoded.is_cut = true;
    return most;
}

// As what it converts to, if it does; a block of which nothing is left is not shown.
void Worker::show_converted(DecodedBlock decoded, uint64_t most, Rendered &rendered) {
    const auto left_out = converter_.convert(decoded);
    rendered.unconverted += left_out.value_or(0);
    if (!left_out || decoded.shown.any()) show(decoded, most, rendered);
}

void Worker::show(DecodedBlock &decoded, uint64_t most, Rendered &rendered) {
    rendered.shown += cut(decoded, most - rendered.shown);
    if (counts_) counter_.add(decoded);
    for (size_t i = 0; i < renderers_.size(); ++i) {
        const VideoTurn turn(decoded.block->category);
        if (renderers_[i]) renderers_[i]->block(decoded, rendered.texts[i]);
    }
    if (!rendered.texts.empty()) rendered.reports.place = rendered.texts.front().size();
}

} // namespace ast::recording::astdump
