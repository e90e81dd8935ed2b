// How a radar detected a target: the eight types of plots and tracks that carry one.
#pragma once

namespace ast {

constexpr const char *kReportTypes[] = {
    "NO_DETECTION", "PSR", "SSR", "PSR+SSR", "ALL_CALL", "ROLL_CALL", "PSR+ALL_CALL", "PSR+ROLL_CALL",
};

// The same in detail views.
constexpr const char *kReportTypeTitles[] = {
    "NO_DETECTION",           "PSR", "SSR", "PSR + SSR", "MODE-S ALL CALL", "MODE-S ROLL CALL", "PSR + MODE-S ALL CALL",
    "PSR + MODE-S ROLL CALL",
};

} // namespace ast
