#include "show/source_counts.hpp"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "ask/answerer.hpp"
#include "base/cell_writer.hpp"

namespace ast::recording::astdump {

SourceCounts &SourceCounts::operator+=(const SourceCounts &other) {
    blocks += other.blocks;
    records += other.records;
    damaged += other.damaged;
    unsupported += other.unsupported;
    profile = other.profile;
    if (other.received) received = std::max(received.value_or(*other.received), *other.received);
    if (other.time_of_day[0] != '\0') std::ranges::copy(other.time_of_day, time_of_day);
    return *this;
}

namespace {

// What a block, or those of its records that are of one source, add.
struct Addition {
    char source[8] = "";
    uint32_t category = 0;
    SourceCounts counts;
};
static_assert(std::is_trivially_copyable_v<Addition>);

// Puts what write(CellWriter) writes, and a terminator.
template <size_t capacity, typename Write>
void set_text(char (&text)[capacity], Write write) {
    CellWriter writer(text);
    write(writer);
    text[writer.size()] = '\0';
}

class SourceCounter : public Renderer {
    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        if (decoded.fault && decoded.fault->kind == FaultKind::not_asterix) return;
        const SplitBlock &block = *decoded.block;
        Addition addition = start(decoded);
        addition.counts.blocks = 1;
        if (decoded.fault)
            ++(decoded.fault->kind == FaultKind::damaged ? addition.counts.damaged : addition.counts.unsupported);
        answerer_.set_block(decoded);
        if (decoded.shown.none() && decoded.fault) {
            ast_datarecord_t incomplete = decoded.fault->record;
            incomplete.valid = true; // as far as it goes
            answerer_.set_record(incomplete);
            set_source(addition);
        }
        for (uint64_t i = 0; i < block.record_count; ++i)
            if (decoded.shown[i]) record(decoded, block.records[i], addition, out);
        put(addition, out);
    }

    // A record of another source than those before it starts an addition of its own.
    void record(const DecodedBlock &decoded, const ast_datarecord_t &record, Addition &addition, TextBuffer &out) {
        Addition next = start(decoded);
        answerer_.set_record(record);
        set_source(next);
        if (addition.counts.records == 0)
            std::ranges::copy(next.source, addition.source);
        else if (std::strcmp(next.source, addition.source) != 0)
            put(std::exchange(addition, next), out);
        ++addition.counts.records;
        const ast_answers_t &answers = answerer_.answers();
        if (addition.counts.received || (answers.present & AST_ANSWER_TIME) == 0) return;
        set_text(addition.counts.time_of_day, [&](CellWriter &text) { text.clock(answers.time_of_day_s); });
    }

    static Addition start(const DecodedBlock &decoded) {
        Addition addition{};
        addition.category = decoded.block->category;
        addition.counts.profile = decoded.block->profile;
        addition.counts.received = decoded.datagram->time;
        return addition;
    }

    void set_source(Addition &addition) {
        const ast_answers_t &answers = answerer_.answers();
        if ((answers.present & AST_ANSWER_SAC) == 0) return;
        set_text(addition.source, [&](CellWriter &text) { text.source(answers.sac, answers.sic); });
    }

    static void put(const Addition &addition, TextBuffer &out) {
        out.put({reinterpret_cast<const char *>(&addition), sizeof addition});
    }

    Answerer answerer_;
};

} // namespace

std::unique_ptr<Renderer> make_source_counter() { return std::make_unique<SourceCounter>(); }

double Span::seconds() const {
    constexpr double kSecondsPerNanosecond = 1e-9;
    return static_cast<double>(last.seconds - first.seconds) +
           (static_cast<double>(last.nanoseconds) - static_cast<double>(first.nanoseconds)) * kSecondsPerNanosecond;
}

void add_rendered(Sources &sources, std::optional<Span> &span, std::string_view rendered) {
    for (Addition addition; !rendered.empty(); rendered.remove_prefix(sizeof addition)) {
        std::memcpy(&addition, rendered.data(), sizeof addition);
        sources[{addition.source, addition.category}] += addition.counts;
        const auto &received = addition.counts.received;
        if (!received) continue;
        if (!span) span = {*received, *received};
        span->first = std::min(span->first, *received);
        span->last = std::max(span->last, *received);
    }
}

} // namespace ast::recording::astdump
