// Fields that are to have other values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ask/filter.hpp"
#include "ask/formula.hpp"
#include "write/block_rewriter.hpp"

namespace ast::recording {

// What came of settings, added up over blocks.
class SettingCounts {
public:
    SettingCounts take();
    SettingCounts &operator+=(const SettingCounts &other);

private:
    friend class Settings;

    struct Count {
        uint64_t absent = 0;  // records that have no such field
        uint64_t unknown = 0; // records that lack what the value is worked out from
        uint64_t unfit = 0;   // records with a value that does not fit
    };
    std::vector<Count> counts_; // by setting
};

// Good for several threads at once.
class Settings {
public:
    // "I010/SIC=99", "I140=I140+3600", "I010/SIC=99 if I010/SAC=25". Throws std::invalid_argument with what is wrong.
    void add(std::string_view text);

    bool empty() const { return settings_.empty(); }

    // Writes the fields of a record, by what it had before, into its octets or a copy.
    void write(Answerer &answerer, uint8_t *octets, SettingCounts &counts) const;

    // "12 records have no I010/SIC", a line each.
    std::vector<std::string> complaints(const SettingCounts &counts) const;

private:
    struct Setting {
        std::string name;
        FieldPath path;
        Formula formula;
        Filter condition;
    };

    std::vector<Setting> settings_;
};

} // namespace ast::recording
