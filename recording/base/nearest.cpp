#include "base/nearest.hpp"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

#include "base/letters.hpp"

namespace ast::recording {

size_t edit_distance(std::string_view one, std::string_view other) {
    std::array<std::vector<size_t>, 3> rows; // the one at hand and the two before it
    for (auto &row : rows) row.resize(other.size() + 1);
    std::iota(rows[0].begin(), rows[0].end(), size_t{0});
    const auto is_same = [](char a, char b) { return to_small(a) == to_small(b); };
    for (size_t i = 1; i <= one.size(); ++i) {
        auto &row = rows[i % 3];
        const auto &above = rows[(i + 2) % 3];
        const auto &two_above = rows[(i + 1) % 3];
        row[0] = i;
        for (size_t j = 1; j <= other.size(); ++j) {
            const size_t changed = above[j - 1] + (is_same(one[i - 1], other[j - 1]) ? 0 : 1);
            row[j] = std::min({changed, above[j] + 1, row[j - 1] + 1});
            const bool is_exchanged =
                i > 1 && j > 1 && is_same(one[i - 1], other[j - 2]) && is_same(one[i - 2], other[j - 1]);
            if (is_exchanged) row[j] = std::min(row[j], two_above[j - 2] + 1);
        }
    }
    return rows[one.size() % 3][other.size()];
}

void Nearest::offer(std::string_view candidate) {
    const size_t longer = std::max(candidate.size(), written_.size());
    const size_t shorter = std::min(candidate.size(), written_.size());
    if (longer - shorter >= distance_) return;
    const size_t distance = edit_distance(written_, candidate);
    if (distance >= distance_ || distance >= shorter) return;
    distance_ = distance;
    found_ = candidate;
}

} // namespace ast::recording
