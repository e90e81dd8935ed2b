// Which records of two recordings are the same report.
#pragma once

#include <optional>
#include <vector>

#include "compare/kept_records.hpp"

namespace ast::recording::astdump {

// The places of a record in both; one that only one of them has is without the other.
struct Match {
    std::optional<size_t> first;
    std::optional<size_t> second;
};

// Records of the same category and source are the same report when they have the same aircraft address, or else track
// number, or else kind of message, and their times of day are no further apart than that; several of one time by their
// octets first, then by their order. Those without a time follow each other as they do in the other recording. In the
// order of the first recording, with what only the second has behind what it follows there.
std::vector<Match> match_records(const KeptRecords &first, const KeptRecords &second, double within_s);

} // namespace ast::recording::astdump
