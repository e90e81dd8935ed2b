// What one record says that figures are made of.
#pragma once

#include <array>
#include <ast.h>
#include <optional>
#include <string_view>
#include <vector>

#include "ask/answerer.hpp"
#include "ask/field_path.hpp"

namespace ast::recording::astdump {

// Categories that are of one sensor or system: a radar sends 034 beside 048.
struct Family {
    std::string_view name;
    std::array<uint32_t, 6> categories; // 0 for no more
    bool has_turns;                     // its antenna turns
};

// Of a category that is of no family, one with that category alone and without a name.
const Family &family_of(uint32_t category);

struct FamilySource {
    uint32_t family = 0; // its first category
    uint32_t sac = 0;
    uint32_t sic = 0;
    bool has_source = false; // SAC and SIC are sent

    auto operator<=>(const FamilySource &) const = default;
};

constexpr uint32_t kNoSector = UINT32_MAX;
constexpr uint32_t kWarnings = 128; // codes of seven bits

// Passed on as it is.
struct Fact {
    FamilySource source{};
    uint32_t category = 0;
    uint64_t present = 0; // AST_ANSWER_...
    double time_of_day_s = 0;
    double range_nm = 0;
    int64_t reception_ns = 0; // since 1970, or midnight
    uint64_t octets = 0;      // a digest of the record
    uint64_t warnings[kWarnings / 64] = {};
    uint32_t type = 0; // AST_MESSAGE_...
    uint32_t track_number = 0;
    uint32_t squawk = 0;
    uint32_t icao24 = 0;
    uint32_t sector = kNoSector;
    uint8_t with = 0; // what it was detected with
    bool has_reception = false;
    bool is_code_validated = false; // all of these only where `present` has them
    bool is_code_garbled = false;
    bool is_code_smoothed = false;
    bool is_emergency = false;
    bool is_extrapolated = false;
    bool is_last = false;
    bool is_implausible = false;

    bool has(uint64_t answer) const { return (present & answer) != 0; }

    // A plot, a track or a report, not a service message.
    bool is_target() const { return type >= AST_MESSAGE_PLOT && type <= AST_MESSAGE_REPORT; }

    // A code that neither its sensor nor its sender doubts.
    bool has_sound_code() const {
        return has(AST_ANSWER_SQUAWK) && !is_code_garbled && (is_code_validated || !has(AST_ANSWER_SQUAWK_VALIDATED));
    }
};

class FactReader {
public:
    FactReader();

    // The source of a record and what else it says.
    static FamilySource source_of(const ast_answers_t &answers);
    Fact read(Answerer &answerer, const DecodedBlock &decoded) const;

private:
    // How a category says what its targets were detected with: by a code, of which each has a row.
    struct With {
        FieldPath path;
        std::vector<uint8_t> by_code;
    };

    std::vector<With> with_;
    std::vector<FieldPath> warnings_;
    std::vector<FieldPath> sectors_;
};

// The words of a warning of a category: "Split plot"; empty where it has none.
std::string warning_text(uint32_t category, uint32_t code);

} // namespace ast::recording::astdump
