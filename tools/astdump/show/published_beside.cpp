#include "show/published_beside.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "show/item_values.hpp"

namespace ast::recording::astdump {

namespace {

// How the two readings are held against each other: as numbers, by what the published one is times to be in the unit of
// the row; or, of a code that the row shows as a text, from which code on they differ.
struct Comparison {
    double factor = 1;
    uint64_t from = 0;
};

// A row of a described view, and the field that it shows.
struct Field {
    ast_dataitem_type_t type;
    std::string_view row;
    std::string_view path;
    Comparison comparison{};
};

// In the order of their types.
constexpr Field kFields[] = {
    {16405, "HEIGHT LSB=M", "I016/405"},
    {19550, "TEST_TARGET_FAILURE", "I019/550/TTF"},
    {19610, "HEIGHT (LSB=M)", "I019/610"},
    {19620, "UNDULATION (LSB=M)", "I019/620"},
    {20230, "COM", "I020/230/COM", {.from = 5}},
    {20230, "STAT", "I020/230/STAT", {.from = 6}},
    {21020, "Value", "I021/020"},
    {21040, "ALTITUDE_REPORT_CAPABILITY", "I021/040/ARC", {.from = 3}},
    {21040, "INDEPENDENT_PONSITION_CHECK_FAILED", "I021/040/IPC"},
    {21040, "CPR_VALIDATION_FAILED", "I021/040/CPR"},
    {21040, "RANGE_CHECK_FAILED", "I021/040/RCF"},
    {21140, "GEO_ALTITUDE LSB=FT", "I021/140"},
    {21145, "FLIGHT_LEVEL LSB=FL", "I021/145"},
    {21146, "FLIGHT_LEVEL LSB=FL", "I021/146/ALT", {.factor = 0.01}},
    {21160, "GROUND_SPEED LSB=KNOTS", "I021/160/GS", {.factor = 3600}},
    {21210, "LINK_TYPE", "I021/210/LTT", {.from = 5}},
    {23015, "STYP", "I023/015/STYP", {.from = 10}},
    {48020, "MIL_EMERGENCY", "I048/020/ME"},
    {48020, "MIL_IDENTIFICATION", "I048/020/MI"},
    {48020, "FRIEND_OR_ENEMY", "I048/020/FOEFRI", {.from = 1}},
    {48042, "X LSB:NM", "I048/042/X"},
    {48042, "Y LSB:NM", "I048/042/Y"},
    {48110, "HEIGHT (LSB=FT)", "I048/110/3DH"},
    {48210, "SIGMA(V) LSB:Knot", "I048/210/SIGV", {.factor = 3600}},
    {48210, "SIGMA(H) LSB:Deg", "I048/210/SIGH"},
    {48230, "COM", "I048/230/COM", {.from = 5}},
    {48230, "STAT", "I048/230/STAT", {.from = 6}},
    {62130, "LEVEL LSB:FT", "I062/130"},
    {62135, "ALTITUDE LSB:FT", "I062/135/CTB", {.factor = 100}},
    {62136, "LEVEL LSB:FT", "I062/136", {.factor = 100}},
    {62210, "ACCERATION_X LSB:M/S^2", "I062/210/AX"},
    {62210, "ACCERATION_Y LSB:M/S^2", "I062/210/AY"},
    {62220, "CLIMB_DESCENT_RATE LSB:FT/MIN", "I062/220"},
    {62300, "VEHICLE_FLEET_ID", "I062/300", {.from = 17}},
    {62380, "COMMUNICATION_CAPABILITY", "I062/380/COM/COM", {.from = 5}},
    {62380, "FLIGHT_STATUS", "I062/380/COM/STAT", {.from = 6}},
    {62380, "EMITTER_CATEGORY", "I062/380/EMC", {.from = 25}},
    {62380, "BPS LSB=MB", "I062/380/BPS/BPS"},
};
static_assert(std::ranges::is_sorted(kFields, {}, &Field::type));

// Whether a number is that which is shown, as far as its decimals go.
bool is_shown_as(double number, const std::string &shown) {
    char *end = nullptr;
    const double described = std::strtod(shown.c_str(), &end);
    const size_t point = shown.find('.');
    const auto decimals =
        point == std::string::npos ? 0 : static_cast<int>(static_cast<size_t>(end - shown.c_str()) - point - 1);
    return std::abs(described - number) <= 0.501 * std::pow(10, -decimals);
}

bool differ(const ast_field_value_t &value, const Comparison &comparison, const std::string &shown) {
    if (comparison.from != 0) return value.raw >= comparison.from;
    return !is_shown_as(value.number * comparison.factor, shown);
}

} // namespace

bool PublishedBeside::concerns(ast_dataitem_type_t type) {
    return std::ranges::binary_search(kFields, type, {}, &Field::type);
}

void PublishedBeside::row(DetailTexts cells) {
    const Field *const end = std::ranges::upper_bound(kFields, item_.type, {}, &Field::type);
    const Field *const begin = std::ranges::lower_bound(kFields, item_.type, {}, &Field::type);
    const Field *const field = std::find_if(begin, end, [&](const Field &each) {
        return std::ranges::any_of(cells, [&](const DetailText &cell) { return text_of(cell) == each.row; });
    });
    if (field == end) return sink_.row(cells);
    const std::string shown(text_of(cells.back()));
    const std::string published = ItemValues::find(item_, reading_, field->path, [&](const ast_field_value_t &value) {
        return differ(value, field->comparison, shown);
    });
    if (published.empty()) return sink_.row(cells);
    const std::string both = shown + " (published: " + published + ')';
    cells_.assign(cells.begin(), cells.end() - 1);
    cells_.push_back(plain(both));
    sink_.row(cells_);
}

} // namespace ast::recording::astdump
