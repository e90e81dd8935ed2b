#include "ask/quantities.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/time.hpp"

namespace ast::recording {

namespace {

constexpr int64_t kNanosecondsPerSecond = 1'000'000'000;

// Older names, and those of quantities that belong together.
constexpr struct {
    std::string_view name;
    std::string_view quantities[2];
} kOtherNames[] = {
    {"sacsic", {"sac", "sic"}},
    {"track", {"track_number"}},
    {"selalt", {"selected_altitude_ft"}},
    {"icao", {"icao24"}},
    {"position", {"latitude", "longitude"}},
    {"polar", {"range_nm", "azimuth_deg"}},
    {"speed", {"groundspeed_kt"}},
    {"heading", {"magnetic_heading_deg", "track_deg"}},
    {"velocity", {"groundspeed_kt", "track_deg"}},
    {"vrate", {"vertical_rate_ftmin"}},
};

// "altitude" of "altitude_ft"; empty where the name has no unit.
std::string_view name_without_unit(const Quantity &quantity) {
    constexpr std::string_view kUnits[] = {"_ft", "_nm", "_deg", "_kt", "_ftmin"};
    for (const std::string_view unit : kUnits)
        if (quantity.name.ends_with(unit)) return quantity.name.substr(0, quantity.name.size() - unit.size());
    return {};
}

struct ToNumber {
    const ast_answers_t &answers;

    double operator()(std::monostate) const { return 0; }
    double operator()(int64_t ast_answers_t::*member) const {
        return static_cast<double>(answers.*member) / static_cast<double>(kNanosecondsPerSecond);
    }
    template <typename Value>
    double operator()(Value ast_answers_t::*member) const {
        return static_cast<double>(answers.*member);
    }
};

} // namespace

void write_moment(CellWriter &out, int64_t time_ns) {
    constexpr int64_t kNanosecondsPerMicrosecond = 1000;
    constexpr int64_t kMicrosecondsPerSecond = 1'000'000;
    thread_local TextBuffer text;
    text.clear();
    const int64_t microseconds = (time_ns + kNanosecondsPerMicrosecond / 2) / kNanosecondsPerMicrosecond;
    put_iso_time(text, {microseconds / kMicrosecondsPerSecond,
                        static_cast<uint32_t>(microseconds % kMicrosecondsPerSecond * kNanosecondsPerMicrosecond)});
    out.put(text.text());
}

double Quantity::number(const ast_answers_t &answers) const { return std::visit(ToNumber{answers}, member); }

double Quantity::shown_number(const ast_answers_t &answers) const {
    constexpr double kMillisecondsPerSecond = 1000;
    const double value = number(answers);
    if (form == QuantityForm::clock) return std::floor(value * kMillisecondsPerSecond) / kMillisecondsPerSecond;
    if (form != QuantityForm::decimal) return value;
    const auto one = static_cast<double>(power_of_10(decimals));
    return std::round(value * one) / one;
}

double Quantity::step() const {
    constexpr double kMillisecond = 0.001;
    constexpr double kMicrosecond = 0.000'001;
    if (form == QuantityForm::clock) return kMillisecond;
    if (form == QuantityForm::moment) return kMicrosecond;
    return form == QuantityForm::decimal ? 1 / static_cast<double>(power_of_10(decimals)) : 0;
}

void Quantity::write(CellWriter &out, const ast_answers_t &answers) const {
    switch (form) {
    case QuantityForm::decimal:
        return out.shortest(answers.*std::get<double ast_answers_t::*>(member), decimals);
    case QuantityForm::whole:
        return out.digits(answers.*std::get<uint32_t ast_answers_t::*>(member), 1);
    case QuantityForm::octal:
        return out.digits<8>(answers.*std::get<uint32_t ast_answers_t::*>(member), 4);
    case QuantityForm::hexadecimal:
        return out.digits<16>(answers.*std::get<uint32_t ast_answers_t::*>(member), 6);
    case QuantityForm::characters:
        return out.put(answers.callsign);
    case QuantityForm::word:
        return out.put(ast_message_to_str(answers.*std::get<uint32_t ast_answers_t::*>(member)));
    case QuantityForm::flag:
        return out.put(answers.*std::get<bool ast_answers_t::*>(member) ? '1' : '0');
    case QuantityForm::clock:
        return out.clock(answers.*std::get<double ast_answers_t::*>(member));
    case QuantityForm::moment:
        return write_moment(out, answers.*std::get<int64_t ast_answers_t::*>(member));
    }
}

std::string_view short_type(std::string_view type) {
    constexpr std::string_view kEndings[] = {" message", " Message", " marker", " crossing"};
    for (const std::string_view ending : kEndings)
        if (type.ends_with(ending)) type.remove_suffix(ending.size());
    return type;
}

const Quantity *find_quantity(std::string_view name) {
    const auto *const found = std::ranges::find(kQuantities, name, &Quantity::name);
    return found == std::end(kQuantities) ? nullptr : found;
}

bool QuantityName::asks(uint64_t answers) const {
    return std::ranges::any_of(quantities, [&](const Quantity *each) { return (each->answer & answers) != 0; });
}

QuantityName find_quantities(std::string_view name) {
    if (const Quantity *const quantity = find_quantity(name)) return {quantity->name, {quantity}};
    QuantityName found;
    for (const auto &other : kOtherNames) {
        if (other.name != name) continue;
        found.name = other.name;
        for (const std::string_view each : other.quantities)
            if (const Quantity *const quantity = find_quantity(each)) found.quantities.push_back(quantity);
    }
    if (!found.quantities.empty() || name.empty()) return found;
    for (const Quantity &each : kQuantities)
        if (name_without_unit(each) == name) return {each.name, {&each}};
    return found;
}

std::vector<std::string_view> known_names() {
    std::vector<std::string_view> names;
    for (const Quantity &each : kQuantities) names.push_back(each.name);
    for (const auto &other : kOtherNames) names.push_back(other.name);
    for (const Quantity &each : kQuantities) {
        const std::string_view name = name_without_unit(each);
        if (!name.empty() && std::ranges::count(names, name) == 0) names.push_back(name);
    }
    return names;
}

} // namespace ast::recording
