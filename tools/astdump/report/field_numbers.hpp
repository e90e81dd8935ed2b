// The least, mean and greatest number of published fields, by data source.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "report/facts.hpp"

namespace ast::recording::astdump {

struct NumberRange {
    uint64_t count = 0;
    double least = 0;
    double greatest = 0;
    double sum = 0;

    void add(double value);
    NumberRange &operator+=(const NumberRange &other);
    double mean() const { return count == 0 ? 0 : sum / static_cast<double>(count); }
};

// "048/I040/RHO" with its unit in plain characters, and how many decimals tell its steps apart.
struct NumberField {
    std::string path;
    std::string unit;
    uint32_t decimals = 0;

    auto operator<=>(const NumberField &) const = default;
};

using NumberRanges = std::map<NumberField, NumberRange>;

// Of the records of a thread.
class FieldNumbers {
public:
    void add(const FamilySource &source, const ast_datarecord_t &record);

    // Calls take(source, field, range) for all that has been added, and begins anew.
    template <typename Take>
    void take_all(Take take) {
        for (auto &[source, ranges] : ranges_)
            for (size_t i = 0; i < ranges.size(); ++i)
                if (ranges[i].count != 0) take(source, fields_[i], std::exchange(ranges[i], {}));
    }

private:
    // What a path meant when it was last met, with the element of a list in it: editions and registers differ.
    struct Known {
        const char *unit = nullptr;
        uint64_t numerator = 0;
        uint64_t denominator = 0;
        size_t field = 0;
    };
    struct Hash {
        using is_transparent = void;
        size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };

    void add(const ast_field_value_t &value);
    size_t number_of(const ast_field_t &field);

    std::vector<NumberField> fields_;
    std::map<NumberField, size_t> numbers_; // of these
    std::unordered_map<std::string, Known, Hash, std::equal_to<>> known_;
    std::map<FamilySource, std::vector<NumberRange>> ranges_; // by the number of the field
    std::vector<NumberRange> *now_ = nullptr;                 // those of the source at hand
};

} // namespace ast::recording::astdump
