// Which records of a block are wanted.
#pragma once

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

#include "block.hpp"
#include "comparison.hpp"
#include "field_path.hpp"

namespace astdump {

// What a record must hold: a quantity by its keyword or a published field, of any value or of those given.
struct Condition {
    std::variant<uint32_t, FieldPath> what;
    Comparison comparison;
    std::string name;
    std::string text; // all of it
};

// "NAME" or "NAME=VALUE", with any of the operators. Throws std::invalid_argument for an unknown name and for a value
// that none can have.
Condition read_condition(const std::string &text);

// Whether a record has what a condition asks for, whatever its value is.
bool holds_what(const ast_datarecord_t &record, const Condition &condition);

// Whether a condition is about one category alone.
bool names_category(const Condition &condition);

// Some of the records of a block, by their index.
class RecordSet {
public:
    RecordSet() = default;

    static RecordSet all(uint64_t count) {
        RecordSet set;
        set.count_ = count;
        set.is_all_ = true;
        return set;
    }

    // The next record.
    void add(bool is_in) {
        chosen_.push_back(is_in);
        count_ += is_in ? 1U : 0U;
    }

    // The same records, but for those behind so many.
    RecordSet first(uint64_t most) const {
        RecordSet set;
        for (uint64_t i = 0; set.count_ < std::min(most, count_); ++i) set.add((*this)[i]);
        return set;
    }

    bool operator[](uint64_t index) const {
        return is_all_ ? index < count_ : index < chosen_.size() && chosen_[index];
    }
    uint64_t count() const { return count_; }
    bool any() const { return count_ != 0; }
    bool none() const { return count_ == 0; }

private:
    uint64_t count_ = 0;
    bool is_all_ = false;
    std::vector<bool> chosen_; // empty for all
};

// The records that meet all conditions; all records when there is none.
RecordSet select_records(const Block &block, const std::vector<Condition> &conditions);

} // namespace astdump
