// Some of the records of a block.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace ast::recording {

// By their index.
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
        chosen_.resize(static_cast<size_t>(count));
        count_ = 0;
        for (size_t i = 0; i < chosen_.size(); ++i) count_ += (chosen_[i] = choose(i)) ? 1U : 0U;
    }

    // Leaves out those behind so many.
    void keep_first(uint64_t most) {
        if (is_all_) chosen_.assign(static_cast<size_t>(count_), true);
        is_all_ = false;
        count_ = std::min(most, count_);
        uint64_t left = count_;
        for (size_t i = 0; i < chosen_.size(); ++i)
            if (chosen_[i]) chosen_[i] = left != 0 && left-- != 0;
    }

    bool operator[](uint64_t index) const { return is_all_ || chosen_[static_cast<size_t>(index)]; }
    uint64_t count() const { return count_; }
    bool any() const { return count_ != 0; }
    bool none() const { return count_ == 0; }

private:
    uint64_t count_ = 0;
    bool is_all_ = false;
    std::vector<bool> chosen_; // unless it is all
};

} // namespace ast::recording
