// Whether what data sources send can be what it was read as.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include "block/split_block.hpp"

namespace ast::recording {

// What is judged by itself: a source in a category.
struct JudgedSource {
    uint32_t category;
    std::optional<std::pair<uint32_t, uint32_t>> source; // SAC and SIC, where they are sent

    bool operator==(const JudgedSource &other) const = default;
    bool operator<(const JudgedSource &other) const {
        return std::tie(category, source) < std::tie(other.category, other.source);
    }

    // "025/012", empty without SAC and SIC.
    std::string source_text() const;
};

struct Judgement {
    uint64_t records = 0;
    uint64_t implausible = 0; // of these

    // Whether most records, and not just of a few, say what cannot be.
    bool is_implausible() const { return records >= kFewestRecords && implausible > records / 2; }

    Judgement &operator+=(const Judgement &other);

private:
    static constexpr uint64_t kFewestRecords = 8;
};

using Judgements = std::map<JudgedSource, Judgement>;

// Of so many blocks at the beginning of an input.
constexpr uint64_t kJudgedBlocks = 2000;

// Adds the records of a block, whatever is shown of them.
void judge(Judgements &judgements, const SplitBlock &block);

// "source 025/100, category 062: 12 of 13 records cannot be: probably another edition or another format".
std::string judgement_text(const JudgedSource &source, const Judgement &judgement);

} // namespace ast::recording
