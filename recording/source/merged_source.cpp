#include "source/merged_source.hpp"
#include "base/time.hpp"
#include "base/unreadable_input.hpp"

#include <algorithm>
#include <limits>
#include <utility>

namespace ast::recording {

namespace {

constexpr size_t kChunkOctets = size_t{32} * 1024; // of each input

} // namespace

void MergedSource::add(const std::string &name, std::unique_ptr<Input> input) {
    parts_.push_back(
        std::make_unique<Part>(Part{.name = name, .input = std::move(input), .chunk = Chunk(kChunkOctets)}));
}

// The next datagram of a part, whatever that takes. Reports that come behind the last one stay to be passed on.
void MergedSource::advance(Part &part) {
    ++part.next;
    if (!part.has_begun || part.next >= part.chunk.datagrams().size()) {
        part.has_begun = true;
        part.is_open = part.input->fill(part.chunk);
        part.next = part.reported = 0;
    }
    if (part.is_open && part.next < part.chunk.datagrams().size()) read_time(part);
}

void MergedSource::read_time(Part &part) {
    const std::optional<Time> &time = part.chunk.datagrams()[part.next].time;
    if (!time && part.time == Time{}) throw UnreadableInput(part.name + " has no times by which it could be merged");
    if (time) part.time = std::max(part.time, Time{time->seconds + part.days * kSecondsPerDay, time->nanoseconds});
}

// What has no date is taken to begin within half a day of what has one.
void MergedSource::start() {
    for (const auto &part : parts_) advance(*part);
    const auto is_dated = [](const auto &part) { return has_date(part->time); };
    const auto dated = std::ranges::find_if(parts_, is_dated);
    if (dated == parts_.end()) return;
    for (const auto &part : parts_) {
        if (is_dated(part)) continue;
        constexpr int64_t kHalfDay = kSecondsPerDay / 2;
        part->days = ((*dated)->time.seconds - part->time.seconds + kHalfDay) / kSecondsPerDay;
        part->time.seconds += part->days * kSecondsPerDay;
    }
}

void MergedSource::pass_reports(Part &part, size_t up_to, Chunk &chunk) {
    const std::vector<Report> &reports = part.chunk.reports().list();
    for (; part.reported < reports.size() && reports[part.reported].place <= up_to; ++part.reported) {
        Report report = reports[part.reported];
        report.file = &part.name;
        chunk.reports().add(report);
    }
}

// With all reports of a chunk, when this is its last datagram.
void MergedSource::take(Part &part, Chunk &chunk) {
    pass_reports(part, part.next, chunk);
    const std::vector<Datagram> &datagrams = part.chunk.datagrams();
    if (part.next < datagrams.size()) {
        Datagram datagram = datagrams[part.next];
        datagram.octets = chunk.keep(datagram.octets);
        if (!datagram.trailer.empty()) datagram.trailer = chunk.keep(datagram.trailer);
        datagram.file = &part.name;
        chunk.add(datagram);
    }
    if (part.next + 1 >= datagrams.size()) pass_reports(part, std::numeric_limits<size_t>::max(), chunk);
    advance(part);
}

MergedSource::Part *MergedSource::earliest() {
    Part *first = nullptr;
    for (const auto &part : parts_)
        if (part->is_open && (!first || part->time < first->time)) first = part.get();
    return first;
}

bool MergedSource::fill(Chunk &chunk) {
    if (!std::exchange(has_started_, true)) start();
    while (!chunk.is_full()) {
        Part *const part = earliest();
        if (!part) break;
        take(*part, chunk);
    }
    chunk.consumed = 0;
    for (const auto &part : parts_) chunk.consumed += part->chunk.consumed;
    return !chunk.datagrams().empty() || !chunk.reports().empty();
}

} // namespace ast::recording
