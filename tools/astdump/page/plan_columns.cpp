#include "page/plan_columns.hpp"

#include <algorithm>
#include <cmath>

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
constexpr int64_t kSecondsOfDay = 86400;
constexpr uint32_t kHasSource = uint32_t{1} << 24;

// Signed in two's complement, held at the ends of 32 bits.
uint32_t to_word(double value) {
    return static_cast<uint32_t>(static_cast<int32_t>(std::clamp(std::round(value), -2147483648.0, 2147483647.0)));
}

uint32_t one_more(const std::optional<uint32_t> &value) { return value ? *value + 1 : 0; }

uint32_t level_word(const std::optional<double> &level) {
    return level ? static_cast<uint32_t>(std::clamp(std::round(*level * kLevel) + kLevelZero, 1.0, 65535.0)) : 0;
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
    for (uint64_t i = 0; i < decoded.block->record_count; ++i)
        if (decoded.shown[i]) record(decoded, decoded.block->records[i]);
    blocks_.push_back(static_cast<uint32_t>(rows_[source].size() - before));
}

void PlanColumns::record(const DecodedBlock &decoded, const ast_datarecord_t &record) {
    const PlanValues values = plan_values(record);
    const auto &received_at = decoded.datagram->time;
    put_shapes(shapes_, static_cast<uint32_t>(rows_[source].size()), record);
    put(source, source_of(record.category, values));
    if (values.time_s)
        put(time, time_word(own_time, *values.time_s));
    else if (values.truncated_time_s)
        put(time, time_word(truncated_time, *values.truncated_time_s));
    else if (received_at)
        put(time, time_word(received, static_cast<double>(received_at->seconds % kSecondsOfDay) +
                                          received_at->nanoseconds / 1e9));
    else
        put(time, no_time);
    put_position(values);
    put(callsign, text_of(values.callsign));
    put(code, one_more(values.code));
    put(address, one_more(values.address));
    put(track, one_more(values.track));
    put(level, level_word(values.level));
}

uint32_t PlanColumns::source_of(uint32_t category, const PlanValues &values) {
    const uint32_t word = category << 16 | (values.source ? kHasSource | *values.source : 0);
    const auto [known, is_new] = source_places_.try_emplace(word, static_cast<uint32_t>(sources_.size()));
    if (is_new) sources_.push_back(word);
    return known->second;
}

uint32_t PlanColumns::text_of(const std::string &text) {
    if (text.empty()) return 0;
    const auto [known, is_new] = text_places_.try_emplace(text, static_cast<uint32_t>(text_places_.size() + 1));
    if (is_new) texts_.append(text).append("\n");
    return known->second;
}

void PlanColumns::put_position(const PlanValues &values) {
    struct Way {
        PositionKind kind;
        const PlanPair &pair;
        double first_unit;
        double second_unit;
    };
    const Way ways[] = {
        {wgs84, values.wgs84, kDegree, kDegree},
        {polar, values.polar, kNauticalMile, kAzimuth},
        {cartesian, values.cartesian, kNauticalMile, kNauticalMile},
        {station, values.station, kDegree, kDegree},
    };
    for (const Way &way : ways) {
        if (!way.pair.is_whole()) continue;
        put(position, way.kind);
        put(first, to_word(*way.pair.first * way.first_unit));
        put(second, to_word(*way.pair.second * way.second_unit));
        return;
    }
    for (const Column column : {position, first, second}) put(column, no_position);
}

std::string PlanColumns::pack() const {
    std::string octets;
    put_planes(octets, {static_cast<uint32_t>(blocks_.size()), static_cast<uint32_t>(rows_[source].size()),
                        static_cast<uint32_t>(sources_.size()), static_cast<uint32_t>(shapes_.size())});
    put_planes(octets, blocks_);
    for (const auto &column : rows_) put_planes(octets, column);
    put_planes(octets, sources_);
    put_planes(octets, shapes_);
    return astdump::pack(octets + texts_);
}

} // namespace ast::recording::astdump
