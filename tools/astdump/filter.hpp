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
    // All of so many.
    void set_all(uint64_t count) {
        count_ = count;
        is_all_ = true;
    }

    // Those of so many whose index is chosen.
    template <typename Choose>
    void set(uint64_t count, Choose choose) {
        is_all_ = false;
        chosen_.resize(count);
        count_ = 0;
        for (uint64_t i = 0; i < count; ++i) count_ += (chosen_[i] = choose(i)) ? 1U : 0U;
    }

    // Leaves out those behind so many.
    void keep_first(uint64_t most) {
        if (is_all_) chosen_.assign(count_, true);
        is_all_ = false;
        count_ = std::min(most, count_);
        uint64_t left = count_;
        for (size_t i = 0; i < chosen_.size(); ++i)
            if (chosen_[i]) chosen_[i] = left != 0 && left-- != 0;
    }

    bool operator[](uint64_t index) const { return is_all_ || chosen_[index]; }
    uint64_t count() const { return count_; }
    bool any() const { return count_ != 0; }
    bool none() const { return count_ == 0; }

private:
    uint64_t count_ = 0;
    bool is_all_ = false;
    std::vector<bool> chosen_; // unless it is all
};

// Sets the records that meet all conditions; all records when there is none.
void select_records(RecordSet &selected, const Block &block, const std::vector<Condition> &conditions);

} // namespace astdump
