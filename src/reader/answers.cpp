// What a record answers: its items once through the table of its category, then what several of them say together.

#include <algorithm>
#include <string_view>

#include "core/limits.hpp"
#include "reader/answer_tables.hpp"

namespace ast::reader {

namespace {

constexpr int64_t kSecondNs = 1'000'000'000;
constexpr int64_t kDayNs = 24 * 60 * 60 * kSecondNs;

constexpr uint32_t kTruncatedTimes = 1; // the category that has them

// Days since 1970, before it below 0.
int64_t day_of(int64_t time_ns) { return time_ns / kDayNs - (time_ns % kDayNs < 0 ? 1 : 0); }

// The moment at a time of day that is the closest to reception: on its day, or the one before or after.
int64_t closest(int64_t reception_ns, double time_of_day_s) {
    const auto time_of_day_ns = static_cast<int64_t>(time_of_day_s * static_cast<double>(kSecondNs) + 0.5);
    return day_of(reception_ns - time_of_day_ns + kDayNs / 2) * kDayNs + time_of_day_ns;
}

// Completes a truncated time of day, again to the closest moment. It starts from 0 at midnight.
[[gnu::noinline]] double complete(double truncated_s, int64_t reception_ns) {
    const int64_t since_midnight_ns = reception_ns - day_of(reception_ns) * kDayNs;
    const double reception_s = static_cast<double>(since_midnight_ns) / static_cast<double>(kSecondNs);
    const double last = std::ceil((kDayS - truncated_s) / kTruncatedTimeS) - 1; // times that it starts anew in a day
    double nearest_s = 0;
    double distance_s = 2 * kDayS;
    for (const double midnight_s : {0.0, -kDayS, kDayS}) {
        const double times = std::floor((reception_s - midnight_s - truncated_s) / kTruncatedTimeS + 0.5);
        const double time_s = truncated_s + std::clamp(times, 0.0, last) * kTruncatedTimeS;
        const double away_s = std::abs(midnight_s + time_s - reception_s);
        if (away_s < distance_s) distance_s = away_s, nearest_s = time_s;
    }
    return nearest_s;
}

// Not so far from 1970 that a day more or less would not fit.
bool knows_reception(const ast_answer_context_t *context) {
    constexpr int64_t kFarthestNs = INT64_MAX - 2 * kDayNs;
    return context && context->has_reception && context->reception_ns > -kFarthestNs &&
           context->reception_ns < kFarthestNs;
}

void settle_time(Answering &answering, uint32_t category, const ast_answer_context_t *context) {
    ast_answers_t &out = answering.out;
    const bool has_reception = knows_reception(context);
    const bool is_truncated = category == kTruncatedTimes;
    if (is_truncated && has_reception) out.time_of_day_s = complete(out.time_of_day_s, context->reception_ns);
    if (out.time_of_day_s >= kDayS || (is_truncated && !has_reception)) {
        answering.forget(AST_ANSWER_TIME);
        out.time_of_day_s = 0;
    } else if (has_reception) {
        answering.given[0] |= AST_ANSWER_TIMESTAMP;
        out.timestamp_ns = closest(context->reception_ns, out.time_of_day_s);
    }
}

bool is_on_globe(const ast_answers_t &answers) {
    return std::abs(answers.latitude_deg) <= kMaxLatitudeDeg && std::abs(answers.longitude_deg) <= kMaxLongitudeDeg;
}

void settle_position(Answering &answering) {
    ast_answers_t &out = answering.out;
    if (is_on_globe(out)) return;
    answering.forget(AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE);
    out.latitude_deg = out.longitude_deg = 0;
}

// In pieces that compilers make a few stores of: of the whole they make a loop.
[[gnu::always_inline]] inline void clear(ast_answers_t &answers) {
    constexpr size_t kPiece = 32;
    constexpr size_t kPieces = sizeof answers / kPiece;
    char *const first = reinterpret_cast<char *>(&answers);
    [&]<size_t... pieces>(std::index_sequence<pieces...>) { (std::memset(first + pieces * kPiece, 0, kPiece), ...); }
    (std::make_index_sequence<kPieces>());
    std::memset(first + kPieces * kPiece, 0, sizeof answers % kPiece);
}

constexpr uint32_t kUnlawfulInterference = 07500;
constexpr uint32_t kNoRadio = 07600;
constexpr uint32_t kEmergency = 07700;

// A code that is garbled or not validated says nothing.
void settle_emergency(Answering &answering, uint64_t present) {
    ast_answers_t &out = answering.out;
    const bool is_doubtful = (present & AST_ANSWER_SQUAWK_VALIDATED) != 0 && !out.squawk_validated;
    if (is_doubtful || out.squawk_garbled) return;
    answering.given[0] |= AST_ANSWER_EMERGENCY;
    out.emergency |= out.squawk == kUnlawfulInterference || out.squawk == kNoRadio || out.squawk == kEmergency;
}

void settle_type(Answering &answering, uint64_t present) {
    ast_answers_t &out = answering.out;
    if (out.type == kPlotOrTrack)
        out.type = (present & AST_ANSWER_TRACK_NUMBER) != 0 ? AST_MESSAGE_TRACK : AST_MESSAGE_PLOT;
    if (out.type != 0) answering.given[0] |= AST_ANSWER_TYPE;
}

// In registers of its own: what comes after it needs as many.
[[gnu::noinline]] void read_items(Answering &answering, const ast_datarecord_t &record, const AnswerTable &table) {
    const ast_dataitem_type_t first = AST_DATAITEM_TYPE(record.category, 0);
    const ast_dataitem_t *const end = record.items + std::min<uint64_t>(record.item_count, std::size(record.items));
    const uint8_t *const places = table.places;
    const Read *const reads = table.reads;
    const uint32_t item_count = table.item_count;
    for (const ast_dataitem_t *item = record.items; item != end; ++item) {
        const uint32_t number = item->type - first;
        if (number < item_count && item->valid) reads[places[number]](answering, item->data, item->size);
    }
}

constexpr const char *kMessages[AST_MESSAGES] = {
    "",
    "plot",
    "track",
    "report",
    "north marker",
    "south marker",
    "sector crossing",
    "update cycle",
    "status",
    "statistics",
    "configuration",
    "filtering",
    "interference",
    "weather",
    "video",
    "alert",
    "flight plan",
    "coordination",
    "data link",
    "interrogation",
    "direction",
};

} // namespace

} // namespace ast::reader

using namespace ast;
using namespace ast::reader;

uint64_t ast_datarecord_get_answers(const ast_datarecord_t *record, const ast_answer_context_t *context,
                                    ast_answers_t *answers) {
    if (!answers) return 0;
    clear(*answers);
    const AnswerTable *const table = record && record->valid ? find_answers(record->category, record->uap) : nullptr;
    if (!table) return 0;
    Answering answering{*answers, {AST_ANSWER_CATEGORY}};
    answers->category = record->category;
    answers->type = table->type;
    answers->frame = table->frame;
    read_items(answering, *record, *table);
    const uint64_t present = answering.present();
    settle_type(answering, present);
    if ((present & AST_ANSWER_TIME) != 0) settle_time(answering, record->category, context);
    if ((present & AST_ANSWER_LATITUDE) != 0) settle_position(answering);
    if ((present & AST_ANSWER_SQUAWK) != 0) settle_emergency(answering, present);
    return answers->present = answering.present();
}

bool ast_datarecord_is_implausible(const ast_datarecord_t *record) {
    const AnswerTable *const table = record && record->valid ? find_answers(record->category, record->uap) : nullptr;
    if (!table) return false;
    ast_answers_t answers{}; // those that are not there are 0, which can be
    Answering answering{answers, {}};
    read_items(answering, *record, *table);
    return answers.time_of_day_s >= kDayS || !is_on_globe(answers) || answers.fl < kLowestLevelFl ||
           answers.fl > kHighestLevelFl || answers.groundspeed_kt > kHighestSpeedKt;
}

const char *ast_answer_to_str(uint64_t answer) {
    for (size_t i = 0; i < std::size(kMembers); ++i)
        if (answer == UINT64_C(1) << i) return kMembers[i].name;
    return "";
}

uint64_t ast_answer_from_str(const char *name) {
    if (!name) return 0;
    for (size_t i = 0; i < std::size(kMembers); ++i)
        if (std::string_view(name) == kMembers[i].name) return UINT64_C(1) << i;
    return 0;
}

const char *ast_message_to_str(uint32_t type) { return type < AST_MESSAGES ? kMessages[type] : ""; }
