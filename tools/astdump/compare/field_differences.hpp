// The published fields in which two records differ.
#pragma once

#include <string>
#include <vector>

#include "compare/kept_records.hpp"

namespace ast::recording::astdump {

// A value as text, as JSON has it; is_number says whether it is a number there.
struct FieldText {
    std::string text; // empty where the record has no such field
    bool is_number = false;

    bool operator==(const FieldText &) const = default;
};

struct FieldDifference {
    std::string path;
    std::string unit; // of both
    FieldText first;
    FieldText second;
};

// In the order of the first record, then of the second. What no document describes is compared octet by octet.
std::vector<FieldDifference> field_differences(const KeptRecords &first, size_t one, const KeptRecords &second,
                                               size_t other);

} // namespace ast::recording::astdump
