// Warning and error conditions of a report: one code for each octet of a chain.
#pragma once

#include "items/octet_chain.hpp"

namespace ast {

// By the descriptions of its codes. Their cells hold so many digits.
template <ast_dataitem_type_t Type, uint16_t MaximumOctets, const char *(*Describe)(uint32_t code),
          uint64_t CodeDigits = 3>
struct WarningConditions : Item<Type, ast_dataitem_048_030_t, extended<MaximumOctets>> {
    using Value = ast_dataitem_048_030_t;

    static void read(Value &warnings, const ast_dataitem_t &item) { warnings.count = read_chain(warnings.codes, item); }

    static void summarize(TextWriter &out, const Value &warnings) {
        out.print("ERRCODE:%u%s", warnings.codes[0], shown_if(warnings.count >= 2, "+"));
    }

    static void show(ViewWriter &view, const Value &warnings) {
        DetailTable table(view, "Error Code", "Description");
        for (uint32_t i = 0; i < warnings.count; ++i)
            table.row(Cell<CodeDigits + 1>("%u", warnings.codes[i]), Describe(warnings.codes[i]));
    }

    static uint64_t write(uint8_t *octets, const Value &warnings) {
        return write_chain(octets, warnings.codes, warnings.count);
    }
};

constexpr char kUnknownWarning[] = "Not defined; unknown";

// The conditions of category 048, which category 020 shares.
inline const char *describe_warning(uint32_t code) {
    static constexpr const char *kConditions[] = {
        "Not defined; never used",
        "Multipath Reply (Reflection)",
        "Reply due to sidelobe interrogation/reception",
        "Split plot",
        "Second time around reply",
        "Angel",
        "Slow moving target correlated with road infrastructure (terrestrial vehicle)",
        "Fixed PSR plot",
        "Slow PSR target",
        "Low quality PSR plot",
        "Phantom SSR plot",
        "Non-Matching Mode-3/A Code",
        "Mode C code / Mode S altitude code abnormal value compared to the track",
        "Target in Clutter Area",
        "Maximum Doppler Response in Zero Filter",
        "Transponder anomaly detected",
        "Duplicated or Illegal Mode S Aircraft Address",
        "Mode S error correction applied",
        "Undecodable Mode C code / Mode S altitude code",
        "Birds",
        "Flock of Birds",
        "Mode 1 was present in original reply",
        "Mode 2 was present in original reply",
        "Plot potentially caused by Wind Turbine",
    };
    return text_of(kConditions, code, kUnknownWarning);
}

} // namespace ast
