// Which records of a block are wanted.
#pragma once

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
};

// "NAME" or "NAME=VALUE", with any of the operators. Throws std::invalid_argument for an unknown name and for a value
// that none can have.
Condition read_condition(const std::string &text);

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

    bool operator[](uint64_t index) const { return is_all_ || chosen_[index]; }
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
