// What users may have meant.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ast::recording {

// How many characters of one word are to be changed, added, left out, or exchanged with their neighbour to make it the
// other one; small and capital letters are the same.
size_t edit_distance(std::string_view one, std::string_view other);

// Looks for the word that is the least away from what was written, if that is near enough to be meant: one change in
// three characters.
class Nearest {
public:
    explicit Nearest(std::string_view written) : written_(written), distance_(written.size() / 3 + 2) {}

    // The first one of those that are equally near stays.
    void offer(std::string_view candidate);

    // Empty where none is near enough.
    const std::string &found() const { return found_; }

private:
    std::string_view written_;
    size_t distance_; // less than this is near enough
    std::string found_;
};

} // namespace ast::recording
