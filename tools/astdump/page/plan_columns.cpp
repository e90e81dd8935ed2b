#include "page/plan_columns.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/time.hpp"
#include "page/pack.hpp"
#include "page/plan_shapes.hpp"

namespace ast::recording::astdump {

namespace {

constexpr double kTicksPerSecond = 128;
constexpr double kDegree = 1e7;
constexpr double kAzimuth = 1e6;
constexpr double kNauticalMile = 65536;
constexpr double kLevel = 4;
constexpr double kLevelZero = 32769;
constexpr uint32_t kHasSource = uint32_t{1} << 24;

// Signed in two's complement, held at the ends of 32 bits.
uint32_t to_word(double value) {
    return static_cast<uint32_t>(static_cast<int32_t>(std::clamp(std::round(value), -2147483648.0, 2147483647.0)));
}

bool has(const ast_answers_t &answers, uint64_t wanted) { return (answers.present & wanted) == wanted; }

uint32_t code_word(const ast_answers_t &answers, uint64_t answer, uint32_t value) {
    return has(answers, answer) ? value + 1 : 0;
}

uint32_t level_word(const ast_answers_t &answers) {
    constexpr double kFeetPerLevel = 100;
    if (!has(answers, AST_ANSWER_FL) && !has(answers, AST_ANSWER_ALTITUDE)) return 0;
    const double level = has(answers, AST_ANSWER_FL) ? answers.fl : answers.altitude_ft / kFeetPerLevel;
    return static_cast<uint32_t>(std::clamp(std::round(level * kLevel) + kLevelZero, 1.0, 65535.0));
}

// A callsign of nothing but what is not printable says nothing.
std::string callsign_of(const ast_answers_t &answers) {
    const std::string_view callsign = answers.callsign;
    return std::string(callsign.find_first_not_of("? ") == std::string_view::npos ? "" : callsign);
}

// The time of category 001 counts up to 512 s, from 0 at midnight; nothing else tells what it is without reception.
std::optional<double> truncated_time_s(const ast_datarecord_t &record) {
    constexpr uint32_t kTruncatedTimes = 1;
    constexpr double kTruncatedTimeS = 512;
    constexpr ast_answer_context_t kAnyDay = {.has_reception = true, .reception_ns = 0, .reserved = {}};
    ast_answers_t answers;
    if (record.category != kTruncatedTimes) return std::nullopt;
    if ((ast_datarecord_get_answers(&record, &kAnyDay, &answers) & AST_ANSWER_TIME) == 0) return std::nullopt;
    return std::fmod(answers.time_of_day_s, kTruncatedTimeS);
}

uint32_t time_word(uint32_t kind, double seconds) {
    constexpr double kMost = (1 << 24) - 1;
    return kind << 24 | static_cast<uint32_t>(std::clamp(std::round(seconds * kTicksPerSecond), 0.0, kMost));
}

void put_planes(std::string &octets, const std::vector<uint32_t> &words) {
    for (unsigned shift = 0; shift < 32; shift += 8)
        for (const uint32_t word : words) octets += static_cast<char>(word >> shift & 0xFF);
}

} // namespace

void PlanColumns::clear() {
    blocks_.clear();
    for (auto &column : rows_) column.clear();
    sources_.clear();
    source_places_.clear();
    shapes_.clear();
    text_places_.clear();
    texts_.clear();
}

void PlanColumns::block(const DecodedBlock &decoded) {
    const size_t before = rows_[source].size();
    answerer_.set_block(decoded);
    sites_ = decoded.sites;
    for (uint64_t i = 0; i < decoded.block->record_count; ++i)
        if (decoded.shown[i]) record(decoded, decoded.block->records[i]);
    blocks_.push_back(static_cast<uint32_t>(rows_[source].size() - before));
}

void PlanColumns::record(const DecodedBlock &decoded, const ast_datarecord_t &record) {
    answerer_.set_record(record);
    const ast_answers_t &answers = answerer_.answers();
    put_shapes(shapes_, static_cast<uint32_t>(rows_[source].size()), record);
    put(source, source_of(record.category, answers));
    put(time, time_of(decoded, record, answers));
    put_position(record, answers);
    put(callsign, text_of(callsign_of(answers)));
    put(code, code_word(answers, AST_ANSWER_SQUAWK, answers.squawk));
    put(address, code_word(answers, AST_ANSWER_ICAO24, answers.icao24));
    put(track, code_word(answers, AST_ANSWER_TRACK_NUMBER, answers.track_number));
    put(level, level_word(answers));
}

uint32_t PlanColumns::source_of(uint32_t category, const ast_answers_t &answers) {
    uint32_t word = category << 16;
    if (has(answers, AST_ANSWER_SAC | AST_ANSWER_SIC)) word |= kHasSource | answers.sac << 8 | answers.sic;
    const auto [known, is_new] = source_places_.try_emplace(word, static_cast<uint32_t>(sources_.size()));
    if (is_new) sources_.push_back(word);
    return known->second;
}

uint32_t PlanColumns::time_of(const DecodedBlock &decoded, const ast_datarecord_t &record,
                              const ast_answers_t &answers) const {
    constexpr double kSecondsPerNanosecond = 1e-9;
    if (has(answers, AST_ANSWER_TIME)) return time_word(own_time, answers.time_of_day_s);
    if (const auto truncated_s = truncated_time_s(record)) return time_word(truncated_time, *truncated_s);
    const auto &received_at = decoded.datagram->time;
    if (!received_at) return no_time;
    return time_word(received, static_cast<double>(received_at->seconds % kSecondsPerDay) +
                                   received_at->nanoseconds * kSecondsPerNanosecond);
}

uint32_t PlanColumns::text_of(const std::string &text) {
    if (text.empty()) return 0;
    const auto [known, is_new] = text_places_.try_emplace(text, static_cast<uint32_t>(text_places_.size() + 1));
    if (is_new) texts_.append(text).append("\n");
    return known->second;
}

// As it was sent: the page itself finds out where what is measured is. What a system draws is not around the sensor
// that it names. Of a record that says what cannot be, the position is no better.
void PlanColumns::put_position(const ast_datarecord_t &record, const ast_answers_t &answers) {
    const bool is_sent = answers.located == 0;
    const bool is_of_sensor = answers.frame != AST_FRAME_SYSTEM;
    if (ast_datarecord_is_implausible(&record))
        put_position(no_position, 0, 0);
    else if (is_sent && has(answers, AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE))
        put_position(wgs84, answers.latitude_deg * kDegree, answers.longitude_deg * kDegree);
    else if (is_of_sensor && has(answers, AST_ANSWER_RANGE | AST_ANSWER_AZIMUTH))
        put_position(polar, answers.range_nm * kNauticalMile, answers.azimuth_deg * kAzimuth);
    else if (has(answers, AST_ANSWER_X | AST_ANSWER_Y))
        put_position(cartesian, answers.x_nm * kNauticalMile, answers.y_nm * kNauticalMile);
    else
        put_position(no_position, 0, 0);
}

void PlanColumns::put_position(PositionKind kind, double first_value, double second_value) {
    put(position, kind);
    put(first, to_word(first_value));
    put(second, to_word(second_value));
}

// AST_SITE_... × 2^24, 0 for a source without a place, and the standard error of one that is worked out, in metres.
void PlanColumns::put_sites(std::string &octets) const {
    constexpr double kMostErrorM = (1 << 24) - 1;
    std::vector<uint32_t> known;
    std::vector<uint32_t> latitudes;
    std::vector<uint32_t> longitudes;
    for (const uint32_t word : sources_) {
        const ast_site_t *const site =
            sites_ && (word & kHasSource) != 0 ? sites_->find(word >> 8 & 0xFF, word & 0xFF) : nullptr;
        const ast_site_t shown = site ? *site : ast_site_t{};
        known.push_back(shown.known << 24 | to_word(std::min(shown.standard_error_m, kMostErrorM)));
        latitudes.push_back(to_word(shown.place.latitude_deg * kDegree));
        longitudes.push_back(to_word(shown.place.longitude_deg * kDegree));
    }
    for (const auto &column : {known, latitudes, longitudes}) put_planes(octets, column);
}

std::string PlanColumns::pack() const {
    std::string octets;
    put_planes(octets, {static_cast<uint32_t>(blocks_.size()), static_cast<uint32_t>(rows_[source].size()),
                        static_cast<uint32_t>(sources_.size()), static_cast<uint32_t>(shapes_.size())});
    put_planes(octets, blocks_);
    for (const auto &column : rows_) put_planes(octets, column);
    put_planes(octets, sources_);
    put_sites(octets);
    put_planes(octets, shapes_);
    return astdump::pack(octets + texts_);
}

} // namespace ast::recording::astdump
