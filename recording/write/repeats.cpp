#include "write/repeats.hpp"

#include <cstdlib>

#include "base/counted.hpp"

namespace ast::recording {

namespace {

constexpr int64_t kNanosecondsPerS = 1'000'000'000;

// What is reported, of whom and when; empty where any of these is not told.
std::string report_of(uint32_t category, const ast_answers_t &answers) {
    constexpr uint64_t kNeeded = AST_ANSWER_SAC | AST_ANSWER_SIC | AST_ANSWER_TIME;
    const bool has_address = (answers.present & AST_ANSWER_ICAO24) != 0;
    const bool has_track = (answers.present & AST_ANSWER_TRACK_NUMBER) != 0;
    if ((answers.present & kNeeded) != kNeeded || !(has_address || has_track)) return {};
    std::string text = "report";
    for (const uint64_t number : {uint64_t{category}, uint64_t{answers.sac}, uint64_t{answers.sic},
                                  uint64_t{has_address}, uint64_t{has_address ? answers.icao24 : answers.track_number},
                                  static_cast<uint64_t>(answers.time_of_day_s * static_cast<double>(kNanosecondsPerS))})
        text.append(" ").append(std::to_string(number));
    return text;
}

std::string octets_of_record(const ast_datarecord_t &record) {
    std::string text(1, static_cast<char>(record.category));
    text.append(reinterpret_cast<const char *>(record.data), static_cast<size_t>(record.size));
    return text;
}

} // namespace

RepeatCounts &RepeatCounts::operator+=(const RepeatCounts &other) {
    same_octets += other.same_octets;
    other_ways += other.other_ways;
    return *this;
}

std::string RepeatCounts::text() const {
    if (same_octets + other_ways == 0) return {};
    std::string text = counted(same_octets + other_ways, "record") + " that came twice left out";
    if (other_ways != 0) text += ", " + std::to_string(other_ways) + " of them in other octets";
    return text;
}

// What came without a time of its own came when its record was made, or else when the one before it did.
int64_t Repeats::came_ns(const Datagram &datagram) {
    if (const auto received = datagram.time ? nanoseconds_of(*datagram.time) : std::nullopt) return *received;
    const ast_answers_t &answers = answerer_.answers();
    if ((answers.present & AST_ANSWER_TIME) == 0) return last_ns_;
    return static_cast<int64_t>(answers.time_of_day_s * static_cast<double>(kNanosecondsPerS));
}

// Also what lies far ahead, once times have gone back.
void Repeats::forget(int64_t now_ns) {
    while (!order_.empty() && std::abs(now_ns - order_.front().first) > window_ns_) {
        seen_.erase(seen_.find(*order_.front().second));
        order_.pop_front();
    }
}

const Repeats::Seen *Repeats::find_or_add(const std::string &key, const Seen &seen) {
    const auto [found, is_new] = seen_.try_emplace(key, seen);
    if (!is_new) return &found->second;
    order_.emplace_back(seen.at_ns, &found->first);
    return nullptr;
}

bool Repeats::is_repeated(const DecodedBlock &decoded, const ast_datarecord_t &record, RepeatCounts &counts) {
    answerer_.set_record(record);
    const Datagram &datagram = *decoded.datagram;
    const Seen seen{came_ns(datagram), {datagram.endpoints, datagram.file}};
    forget(last_ns_ = seen.at_ns);
    const std::string report = report_of(record.category, answerer_.answers());
    const bool has_same_octets = find_or_add(octets_of_record(record), seen) != nullptr;
    const Seen *const other = report.empty() ? nullptr : find_or_add(report, seen);
    const bool has_same_report = !has_same_octets && other && other->way != seen.way;
    counts.same_octets += has_same_octets ? 1 : 0;
    counts.other_ways += has_same_report ? 1 : 0;
    return has_same_octets || has_same_report;
}

void Repeats::leave_out(DecodedBlock &decoded, RepeatCounts &counts) {
    const SplitBlock &block = *decoded.block;
    answerer_.set_block(decoded);
    chosen_.assign(static_cast<size_t>(block.record_count), false);
    for (uint64_t i = 0; i < block.record_count; ++i)
        chosen_[static_cast<size_t>(i)] = decoded.shown[i] && !is_repeated(decoded, block.records[i], counts);
    decoded.shown.set(block.record_count, [&](size_t i) { return chosen_[i]; });
}

} // namespace ast::recording
