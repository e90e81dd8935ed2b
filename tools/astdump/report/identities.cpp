#include "report/identities.hpp"

#include <algorithm>
#include <bit>

namespace ast::recording::astdump {

namespace {

constexpr struct {
    uint32_t code;
    std::string_view name;
} kEmergencies[] = {{07500, "unlawful interference"}, {07600, "radio failure"}, {07700, "emergency"}};

constexpr size_t kMostTargets = 4096; // kept of one emergency

uint64_t target_of(const Fact &fact) {
    if (fact.has(AST_ANSWER_ICAO24)) return uint64_t{1} << 32 | fact.icao24;
    if (fact.has(AST_ANSWER_TRACK_NUMBER)) return uint64_t{2} << 32 | fact.track_number;
    return uint64_t{3} << 32 | fact.squawk;
}

} // namespace

std::string_view emergency_name(uint32_t code) {
    const auto *const found = std::ranges::find_if(kEmergencies, [&](const auto &each) { return each.code == code; });
    return found == std::end(kEmergencies) ? "said without a code" : found->name;
}

void Identities::add_code(const Fact &fact) {
    if (!fact.has(AST_ANSWER_SQUAWK)) return;
    ++coded_;
    if (fact.has(AST_ANSWER_SQUAWK_VALIDATED) && !fact.is_code_validated) ++not_validated_;
    if (fact.is_code_garbled) ++garbled_;
    if (fact.is_code_smoothed) ++smoothed_;
    if (fact.has_sound_code()) codes_.set(fact.squawk % codes_.size());
}

void Identities::add_emergency(const Fact &fact) {
    if (!fact.is_emergency) return;
    const auto is_this = [&](const auto &each) { return each.code == fact.squawk; };
    const bool has_code = fact.has_sound_code() && std::ranges::any_of(kEmergencies, is_this);
    Emergency &emergency = emergencies_[has_code ? fact.squawk : kOtherEmergency];
    ++emergency.reports;
    if (emergency.targets.size() < kMostTargets) emergency.targets.insert(target_of(fact));
}

void Identities::add(const Fact &fact) {
    if (fact.is_target()) {
        add_code(fact);
        add_emergency(fact);
        if (fact.has(AST_ANSWER_ICAO24)) addresses_.insert(fact.icao24);
        if (fact.has(AST_ANSWER_TRACK_NUMBER)) tracks_.insert(fact.track_number);
    }
    for (uint32_t word = 0; word < std::size(fact.warnings); ++word)
        for (uint64_t left = fact.warnings[word]; left != 0; left &= left - 1)
            ++warnings_[{fact.category, word * 64 + static_cast<uint32_t>(std::countr_zero(left))}];
}

} // namespace ast::recording::astdump
