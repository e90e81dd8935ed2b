#include "show/published_beside.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>

#include "show/item_values.hpp"

namespace ast::recording::astdump {

namespace {

// How the two readings are held against each other: as numbers, by what the published one is times to be in the unit of
// the row; of a code that the row shows as a text, by the codes that differ; of a bit, by its text when clear.
struct Comparison {
    double factor = 1;
    uint64_t codes = 0; // as bits, the last one for all above
    std::string_view clear{};
};

constexpr unsigned kLastCode = 63;
constexpr uint64_t from(unsigned code) { return UINT64_MAX << code; }

// A row of a described view, or of the table of subfields, and the fields that it shows, with a bar between them. That
// of an element of a list begins with its number.
struct Field {
    ast_dataitem_type_t type;
    std::string_view row;
    std::string_view paths;
    Comparison comparison{};
};

// In the order of their types.
constexpr Field kFields[] = {
    {10245, "TARGET_ID_TYPE", "I010/245/STI", {.codes = from(1)}},
    {15626, "DV", "I015/626/DV"},
    {16405, "HEIGHT LSB=M", "I016/405"},
    {16410, "WGS-84 Coordinate", "I016/410[]/LAT|I016/410[]/LON"},
    {16410, "Altitude", "I016/410[]/ALT"},
    {16410, "Time Offset", "I016/410[]/TTO"},
    {16420, "WGS-84 Coordinate", "I016/420[]/LAT|I016/420[]/LON"},
    {16420, "Altitude", "I016/420[]/ALT"},
    {19550, "TEST_TARGET_FAILURE", "I019/550/TTF"},
    {19553, "RT1", "I019/553/REFTR1", {.codes = 1U << 1 | 1U << 3}},
    {19553, "RT2", "I019/553/REFTR2", {.codes = 1U << 1 | 1U << 3}},
    {19553, "RT3", "I019/553/REFTR3", {.codes = 1U << 1 | 1U << 3}},
    {19553, "RT4", "I019/553/REFTR4", {.codes = 1U << 1 | 1U << 3}},
    {19610, "HEIGHT (LSB=M)", "I019/610"},
    {19620, "UNDULATION (LSB=M)", "I019/620"},
    {20230, "COM", "I020/230/COM", {.codes = from(5)}},
    {20230, "STAT", "I020/230/STAT", {.codes = from(6)}},
    {21020, "Value", "I021/020"},
    {21040, "ADDRESS_TYPE", "I021/040/ATP", {.codes = from(4)}},
    {21040, "ALTITUDE_REPORT_CAPABILITY", "I021/040/ARC", {.codes = from(3)}},
    {21040, "INDEPENDENT_PONSITION_CHECK_FAILED", "I021/040/IPC"},
    {21040, "NOGO", "I021/040/NOGO", {.clear = "0"}},
    {21040, "CPR_VALIDATION_FAILED", "I021/040/CPR"},
    {21040, "LDPJ", "I021/040/LDPJ", {.clear = "0"}},
    {21040, "RANGE_CHECK_FAILED", "I021/040/RCF"},
    {21140, "GEO_ALTITUDE LSB=FT", "I021/140"},
    {21145, "FLIGHT_LEVEL LSB=FL", "I021/145"},
    {21146, "FLIGHT_LEVEL LSB=FL", "I021/146/ALT", {.factor = 0.01}},
    {21160, "GROUND_SPEED LSB=KNOTS", "I021/160/GS", {.factor = 3600}},
    {21210, "LINK_TYPE", "I021/210/LTT", {.codes = from(5)}},
    {21903, "ADDRESS_TYPE", "I021/040/ATP", {.codes = from(4)}},
    {21903, "ALTITUDE_REPORT_CAPABILITY", "I021/040/ARC", {.codes = from(0)}},
    {21905, "POSITION_ACCURACY", "I021/090/PA"},
    {23015, "STYP", "I023/015/STYP", {.codes = from(10)}},
    {34120, "WGS84_COORDINATES", "I034/120/LAT|I034/120/LON"},
    {48020, "MIL_EMERGENCY", "I048/020/ME"},
    {48020, "MIL_IDENTIFICATION", "I048/020/MI"},
    {48020, "FRIEND_OR_ENEMY", "I048/020/FOEFRI", {.codes = from(1)}},
    {48042, "X LSB:NM", "I048/042/X"},
    {48042, "Y LSB:NM", "I048/042/Y"},
    {48110, "HEIGHT (LSB=FT)", "I048/110/3DH"},
    {48130, "SAM", "I048/130/SAM"},
    {48210, "SIGMA(V) LSB:Knot", "I048/210/SIGV", {.factor = 3600}},
    {48210, "SIGMA(H) LSB:Deg", "I048/210/SIGH"},
    {48230, "COM", "I048/230/COM", {.codes = from(5)}},
    {48230, "STAT", "I048/230/STAT", {.codes = from(6)}},
    {62130, "LEVEL LSB:FT", "I062/130"},
    {62135, "ALTITUDE LSB:FT", "I062/135/CTB", {.factor = 100}},
    {62136, "LEVEL LSB:FT", "I062/136", {.factor = 100}},
    {62210, "ACCERATION_X LSB:M/S^2", "I062/210/AX"},
    {62210, "ACCERATION_Y LSB:M/S^2", "I062/210/AY"},
    {62220, "CLIMB_DESCENT_RATE LSB:FT/MIN", "I062/220"},
    {62300, "VEHICLE_FLEET_ID", "I062/300", {.codes = from(17)}},
    {62380, "COMMUNICATION_CAPABILITY", "I062/380/COM/COM", {.codes = from(5)}},
    {62380, "FLIGHT_STATUS", "I062/380/COM/STAT", {.codes = from(6)}},
    {62380, "EMITTER_CATEGORY", "I062/380/EMC", {.codes = from(25)}},
    {62380, "BPS LSB=MB", "I062/380/BPS/BPS"},
    {63060, "TSV", "I063/060/TSV", {.clear = "NO"}},
};
static_assert(std::ranges::is_sorted(kFields, {}, &Field::type));

// A number that is shown, as far as its decimals go.
struct Shown {
    double number = 0;
    double last_decimal = 1;

    bool is(double other) const { return std::abs(number - other) <= 0.501 * last_decimal; }
};

// Takes the next number of a text, past the comma behind it; nothing where there is none alone.
std::optional<Shown> take_number(std::string_view &text) {
    const std::string copy(text);
    char *end = nullptr;
    Shown shown{.number = std::strtod(copy.c_str(), &end)};
    const auto chars = static_cast<size_t>(end - copy.c_str());
    if (chars == 0 || (chars < text.size() && text[chars] != ',' && text[chars] != ' ')) return std::nullopt;
    if (const size_t point = text.find('.'); point < chars)
        shown.last_decimal = std::pow(10, -static_cast<double>(chars - point - 1));
    text.remove_prefix(std::min(text.size(), chars + std::string_view(", ").size()));
    return shown;
}

// Whether a published value is another one than the next that is shown; nothing where none is.
std::optional<bool> differs(const ast_field_value_t &value, const Comparison &comparison, std::string_view &shown) {
    if (comparison.codes != 0) return (comparison.codes >> std::min(value.raw, uint64_t{kLastCode}) & 1) != 0;
    if (!comparison.clear.empty()) return (shown != comparison.clear) != (value.raw != 0);
    const auto number = take_number(shown);
    if (!number) return std::nullopt;
    return !number->is(value.has_number ? value.number * comparison.factor : static_cast<double>(value.raw));
}

// "I016/410[1]/LAT" of the row of a second element.
std::string path_of_element(std::string_view path, DetailTexts cells) {
    std::string whole(path);
    if (const size_t place = path.find("[]"); place != std::string_view::npos)
        whole.insert(place + 1, std::to_string(std::strtoul(std::string(text_of(cells[0])).c_str(), nullptr, 10) - 1));
    return whole;
}

// The value of a row with the published one behind it; empty where both are the same.
std::string with_published(DetailTexts cells, const Field &field, const ast_dataitem_t &item, const Reading &reading) {
    std::string_view rest = text_of(cells.back());
    std::string both = std::string(rest) + " (published: ";
    bool is_other = false;
    for (std::string_view paths = field.paths; !paths.empty();) {
        const std::string_view path = paths.substr(0, paths.find('|'));
        const auto is_shown = [&](const ast_field_value_t &value) {
            const auto differs_here = differs(value, field.comparison, rest);
            is_other = is_other || differs_here.value_or(false);
            return differs_here.has_value();
        };
        const std::string text = ItemValues::find(item, reading, path_of_element(path, cells), is_shown);
        if (text.empty()) return {};
        paths.remove_prefix(std::min(paths.size(), path.size() + 1));
        both += paths.empty() ? text + ')' : text + ", ";
    }
    return is_other ? both : std::string();
}

} // namespace

bool PublishedBeside::concerns(ast_dataitem_type_t type) {
    return std::ranges::binary_search(kFields, type, {}, &Field::type);
}

std::string PublishedBeside::both(const ast_dataitem_t &item, const Reading &reading, DetailTexts cells) {
    const Field *const end = std::ranges::upper_bound(kFields, item.type, {}, &Field::type);
    const Field *const begin = std::ranges::lower_bound(kFields, item.type, {}, &Field::type);
    const Field *const field = std::find_if(begin, end, [&](const Field &each) {
        return std::ranges::any_of(cells, [&](const DetailText &cell) { return text_of(cell) == each.row; });
    });
    return field == end ? std::string() : with_published(cells, *field, item, reading);
}

void PublishedBeside::row(DetailTexts cells) {
    const std::string value = both(item_, reading_, cells);
    if (value.empty()) return sink_.row(cells);
    cells_.assign(cells.begin(), cells.end() - 1);
    cells_.push_back(plain(value));
    sink_.row(cells_);
}

} // namespace ast::recording::astdump
