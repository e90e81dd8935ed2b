#include "module/row_columns.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "base/time.hpp"
#include "module/plan_shapes.hpp"

namespace ast::viewer {

namespace {

constexpr double kDegree = 1e7;
constexpr double kAzimuth = 1e6;
constexpr double kNauticalMile = 65536;

int32_t to_word(double value) {
    return static_cast<int32_t>(std::clamp(std::round(value), -2147483648.0, 2147483647.0));
}

bool has(const ast_answers_t &answers, uint64_t wanted) { return (answers.present & wanted) == wanted; }

float number_of(const ast_answers_t &answers, uint64_t answer, double value) {
    return has(answers, answer) ? static_cast<float>(value) : std::numeric_limits<float>::quiet_NaN();
}

template <typename Word>
Word code_of(const ast_answers_t &answers, uint64_t answer, uint32_t value) {
    return has(answers, answer) ? static_cast<Word>(value) : std::numeric_limits<Word>::max();
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

uint16_t flags_of(const ast_answers_t &answers) {
    uint32_t flags = 0;
    const auto set = [&](bool is_set, uint32_t flag) { flags |= is_set ? flag : 0; };
    set(answers.spi, VIEWER_FLAG_SPI);
    set(answers.emergency, VIEWER_FLAG_EMERGENCY);
    set(answers.on_ground, VIEWER_FLAG_ON_GROUND);
    set(answers.simulated, VIEWER_FLAG_SIMULATED);
    set(answers.test, VIEWER_FLAG_TEST);
    set(answers.coasted, VIEWER_FLAG_COASTED);
    set(answers.ended, VIEWER_FLAG_ENDED);
    set(answers.squawk_garbled, VIEWER_FLAG_CODE_GARBLED);
    set(has(answers, AST_ANSWER_SQUAWK_VALIDATED) && !answers.squawk_validated, VIEWER_FLAG_CODE_NOT_VALIDATED);
    set(answers.frame == AST_FRAME_SYSTEM, VIEWER_FLAG_SYSTEM);
    return static_cast<uint16_t>(flags);
}

template <typename... Columns>
void clear_all(Columns &...columns) {
    (columns.clear(), ...);
}

template <typename Column>
RowColumns::View view_of(const Column &column) {
    return {column.data(), column.size()};
}

} // namespace

void RowColumns::clear() {
    first_row_ = rows_;
    clear_all(block_, callsign_, address_, track_, shapes_, block_row_, source_, code_, flags_, block_file_,
              block_octets_, time_kind_, position_kind_, type_, block_state_, block_category_, time_, first_, second_,
              level_, height_, speed_, angle_, rate_, texts_);
}

RowColumns::View RowColumns::column(uint32_t which) const {
    switch (which) {
    case VIEWER_BLOCK:
        return view_of(block_);
    case VIEWER_SOURCE:
        return view_of(source_);
    case VIEWER_TIME:
        return view_of(time_);
    case VIEWER_TIME_KIND:
        return view_of(time_kind_);
    case VIEWER_POSITION_KIND:
        return view_of(position_kind_);
    case VIEWER_FIRST:
        return view_of(first_);
    case VIEWER_SECOND:
        return view_of(second_);
    case VIEWER_LEVEL:
        return view_of(level_);
    case VIEWER_HEIGHT:
        return view_of(height_);
    case VIEWER_CALLSIGN:
        return view_of(callsign_);
    case VIEWER_CODE:
        return view_of(code_);
    case VIEWER_ADDRESS:
        return view_of(address_);
    case VIEWER_TRACK:
        return view_of(track_);
    case VIEWER_SPEED:
        return view_of(speed_);
    case VIEWER_ANGLE:
        return view_of(angle_);
    case VIEWER_RATE:
        return view_of(rate_);
    case VIEWER_TYPE:
        return view_of(type_);
    case VIEWER_FLAGS:
        return view_of(flags_);
    case VIEWER_BLOCK_ROW:
        return view_of(block_row_);
    case VIEWER_BLOCK_STATE:
        return view_of(block_state_);
    case VIEWER_BLOCK_CATEGORY:
        return view_of(block_category_);
    case VIEWER_BLOCK_FILE:
        return view_of(block_file_);
    case VIEWER_BLOCK_OCTETS:
        return view_of(block_octets_);
    case VIEWER_SHAPES:
        return view_of(shapes_);
    default:
        return {};
    }
}

void RowColumns::block(const DecodedBlock &decoded, uint32_t number, uint8_t state, uint16_t file) {
    block_row_.push_back(rows_);
    block_state_.push_back(state);
    block_category_.push_back(decoded.octets[0]);
    block_file_.push_back(file);
    block_octets_.push_back(static_cast<uint16_t>(decoded.octets.size()));
    answerer_.set_block(decoded);
    for (uint64_t i = 0; i < decoded.block->record_count; ++i) record(decoded, decoded.block->records[i], number);
}

void RowColumns::record(const DecodedBlock &decoded, const ast_datarecord_t &record, uint32_t block) {
    answerer_.set_record(record);
    const ast_answers_t &answers = answerer_.answers();
    const bool is_implausible = ast_datarecord_is_implausible(&record);
    recording::astdump::put_shapes(shapes_, rows_, record);
    block_.push_back(block);
    source_.push_back(source_of(record.category, answers));
    put_time(decoded, record, answers);
    if (is_implausible)
        put_position(VIEWER_POSITION_NONE, 0, 0);
    else
        put_position(answers);
    level_.push_back(number_of(answers, AST_ANSWER_FL, answers.fl));
    height_.push_back(number_of(answers, AST_ANSWER_ALTITUDE, answers.altitude_ft));
    callsign_.push_back(text_of(answers));
    code_.push_back(code_of<uint16_t>(answers, AST_ANSWER_SQUAWK, answers.squawk));
    address_.push_back(code_of<uint32_t>(answers, AST_ANSWER_ICAO24, answers.icao24));
    track_.push_back(code_of<uint32_t>(answers, AST_ANSWER_TRACK_NUMBER, answers.track_number));
    speed_.push_back(number_of(answers, AST_ANSWER_GROUNDSPEED, answers.groundspeed_kt));
    angle_.push_back(number_of(answers, AST_ANSWER_TRACK, answers.track_deg));
    rate_.push_back(number_of(answers, AST_ANSWER_VERTICAL_RATE, answers.vertical_rate_ftmin));
    type_.push_back(static_cast<uint8_t>(has(answers, AST_ANSWER_TYPE) ? answers.type : 0));
    flags_.push_back(static_cast<uint16_t>(flags_of(answers) | (is_implausible ? VIEWER_FLAG_IMPLAUSIBLE : 0)));
    ++rows_;
}

// A time of day without a timestamp is one of a day that nobody knows.
void RowColumns::put_time(const DecodedBlock &decoded, const ast_datarecord_t &record, const ast_answers_t &answers) {
    constexpr double kSecondsPerNanosecond = 1e-9;
    const auto &received_at = decoded.datagram->time;
    if (has(answers, AST_ANSWER_TIMESTAMP))
        return put_time(static_cast<double>(answers.timestamp_ns) * kSecondsPerNanosecond, VIEWER_TIME_DATED);
    if (has(answers, AST_ANSWER_TIME)) return put_time(answers.time_of_day_s, VIEWER_TIME_OF_DAY);
    if (const auto truncated_s = truncated_time_s(record)) return put_time(*truncated_s, VIEWER_TIME_TRUNCATED);
    if (!received_at) return put_time(0, VIEWER_TIME_NONE);
    put_time(static_cast<double>(received_at->seconds) + received_at->nanoseconds * kSecondsPerNanosecond,
             has_date(*received_at) ? VIEWER_TIME_RECEIVED : VIEWER_TIME_SINCE);
}

void RowColumns::put_time(double time_s, uint8_t kind) {
    time_.push_back(time_s);
    time_kind_.push_back(kind);
}

// As it was sent: the page itself finds out where what is measured is. What a system draws is not around the sensor
// that it names.
void RowColumns::put_position(const ast_answers_t &answers) {
    const bool is_sent = answers.located == 0;
    const bool is_of_sensor = answers.frame != AST_FRAME_SYSTEM;
    if (is_sent && has(answers, AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE))
        put_position(VIEWER_POSITION_WGS84, answers.latitude_deg * kDegree, answers.longitude_deg * kDegree);
    else if (is_of_sensor && has(answers, AST_ANSWER_RANGE | AST_ANSWER_AZIMUTH))
        put_position(VIEWER_POSITION_POLAR, answers.range_nm * kNauticalMile, answers.azimuth_deg * kAzimuth);
    else if (has(answers, AST_ANSWER_X | AST_ANSWER_Y))
        put_position(VIEWER_POSITION_CARTESIAN, answers.x_nm * kNauticalMile, answers.y_nm * kNauticalMile);
    else
        put_position(VIEWER_POSITION_NONE, 0, 0);
}

void RowColumns::put_position(uint8_t kind, double first, double second) {
    position_kind_.push_back(kind);
    first_.push_back(to_word(first));
    second_.push_back(to_word(second));
}

uint16_t RowColumns::source_of(uint32_t category, const ast_answers_t &answers) {
    constexpr uint32_t kHasSource = uint32_t{1} << 24;
    const bool is_known = has(answers, AST_ANSWER_SAC | AST_ANSWER_SIC);
    const uint32_t key = category << 16 | (is_known ? kHasSource | answers.sac << 8 | answers.sic : 0);
    const auto [known, is_new] = source_places_.try_emplace(key, static_cast<uint16_t>(sources_.size()));
    if (is_new)
        sources_.push_back({.category = static_cast<uint8_t>(category),
                            .is_known = is_known,
                            .sac = static_cast<uint8_t>(key >> 8),
                            .sic = static_cast<uint8_t>(key)});
    return known->second;
}

// A callsign of nothing but what is not printable says nothing.
uint32_t RowColumns::text_of(const ast_answers_t &answers) {
    if (!has(answers, AST_ANSWER_CALLSIGN)) return 0;
    const std::string_view callsign = answers.callsign;
    if (callsign.find_first_not_of("? ") == std::string_view::npos) return 0;
    const auto [known, is_new] =
        text_places_.try_emplace(std::string(callsign), static_cast<uint32_t>(text_places_.size() + 1));
    if (is_new) texts_.append(callsign).append("\n");
    return known->second;
}

} // namespace ast::viewer
