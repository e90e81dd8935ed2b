#include "report/sections.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "ask/quantities.hpp"
#include "base/cell_writer.hpp"
#include "base/time.hpp"

namespace ast::recording::astdump {

namespace {

constexpr unsigned kTimeDecimals = 3;
constexpr unsigned kRateDecimals = 2;

constexpr double kLow = 5;
constexpr double kHigh = 95;

Cell clock_cell(const std::optional<double> &time_s) {
    if (!time_s) return {};
    const auto day_s = static_cast<double>(kSecondsPerDay);
    char text[32];
    CellWriter writer(text);
    writer.clock(std::fmod(std::fmod(*time_s, day_s) + day_s, day_s));
    return text_cell({text, writer.size()});
}

Cell octal_cell(uint32_t code) {
    char text[8];
    CellWriter writer(text);
    writer.digits<8>(code, 4);
    return text_cell({text, writer.size()});
}

Cell category_cell(uint32_t category) {
    char text[8];
    CellWriter writer(text);
    writer.digits(category, 3);
    return text_cell({text, writer.size()});
}

Cell share_cell(uint64_t part, uint64_t all) {
    if (all == 0) return {};
    return number_cell(100 * static_cast<double>(part) / static_cast<double>(all), 2);
}

double length_s(const SourceFigures &figures) { return figures.first_s() ? *figures.last_s() - *figures.first_s() : 0; }

// How values are spread, in rows of their own.
constexpr Column kSpread[] = {
    {"of", ""},           {"number", "number"}, {"least", "least"}, {"p05", "5 %"},
    {"median", "median"}, {"mean", "mean"},     {"p95", "95 %"},    {"greatest", "greatest"},
};

std::vector<Cell> spread_row(std::string_view of, const Distribution &values, unsigned decimals) {
    return {text_cell(of),
            count_cell(values.count()),
            number_cell(values.least(), decimals),
            number_cell(values.percentile(kLow), decimals),
            number_cell(values.median(), decimals),
            number_cell(values.mean(), decimals),
            number_cell(values.percentile(kHigh), decimals),
            number_cell(values.greatest(), decimals)};
}

Table spread_table(std::string_view key) { return {key, {std::begin(kSpread), std::end(kSpread)}, {}}; }

void add_spread(Table &table, std::string_view of, const Distribution &values, unsigned decimals) {
    if (values.count() != 0) table.rows.push_back(spread_row(of, values, decimals));
}

std::string range_text(double low, double high, unsigned decimals, std::string_view unit) {
    char text[96];
    std::snprintf(text, sizeof text, "%.*f to %.*f ", static_cast<int>(decimals), low, static_cast<int>(decimals),
                  high);
    return text + std::string(unit);
}

Chart chart_of(std::string_view key, std::string title, const std::vector<uint64_t> &counts) {
    Chart chart{.key = key, .title = std::move(title), .values = {counts.begin(), counts.end()}};
    for (const double value : chart.values) chart.highest = std::max(chart.highest, value);
    return chart;
}

// ---- Sections ----

Section summary_of(const SourceFigures &figures) {
    Section section{.key = "summary", .title = "Records"};
    section.figures = {{"records", "records", "", count_cell(figures.records())},
                       {"first", "first", "", clock_cell(figures.first_s())},
                       {"last", "last", "", clock_cell(figures.last_s())},
                       {"length_s", "length", "s", number_cell(length_s(figures), kTimeDecimals)},
                       {"reports", "reports of targets", "", count_cell(figures.reports())},
                       {"duplicates", "duplicates", "", count_cell(figures.duplicates())},
                       {"implausible", "implausible", "", count_cell(figures.implausible())}};
    Table table{"messages",
                {{"category", "category"}, {"type", "message"}, {"records", "records"}, {"per_s", "per second"}},
                {}};
    for (const auto &[message, count] : figures.messages()) {
        const double length = length_s(figures);
        const char *const name = ast_message_to_str(message.second);
        table.rows.push_back({category_cell(message.first), text_cell(*name ? name : "other"), count_cell(count),
                              length > 0 ? number_cell(static_cast<double>(count) / length, kRateDecimals) : Cell()});
    }
    section.tables.push_back(std::move(table));
    const RateCurve &curve = figures.curve();
    if (curve.counts().size() > 1)
        section.charts.push_back(chart_of(
            "reports_over_time", "reports in each " + number_cell(curve.part_s(), 0).text + " s", curve.counts()));
    if (curve.counts().size() > 1)
        section.figures.push_back({"reports_over_time_s", "chart in parts of", "s", number_cell(curve.part_s(), 0)});
    return section;
}

std::string_view marks_text(TurnMarks marks) {
    constexpr std::string_view kTexts[] = {"nothing", "north markers", "sector crossings", "reports"};
    return kTexts[static_cast<size_t>(marks)];
}

Section turn_of(const SourceFigures &figures) {
    Section section{.key = "turn", .title = "Turn of the antenna"};
    const Turns &turns = figures.turns();
    const Distribution &durations = turns.durations();
    const auto period_s = turns.period_s();
    section.figures = {{"told_by", "told by", "", text_cell(marks_text(figures.marks()))}};
    if (figures.marks() == TurnMarks::reports)
        section.figures.push_back({"median_s", "median", "s", number_cell(*period_s, kTimeDecimals)});
    if (figures.marks() == TurnMarks::reports || figures.marks() == TurnMarks::none) return section;
    section.figures.push_back({"marks", "marks", "", count_cell(turns.marks())});
    section.figures.push_back({"missing", "missing", "", count_cell(turns.missing())});
    Table table = spread_table("spread");
    add_spread(table, "turn, s", durations, kTimeDecimals);
    add_spread(table, "reports per turn", turns.reports(), 1);
    add_spread(table, "tracks per turn", turns.tracks(), 1);
    section.tables.push_back(std::move(table));
    return section;
}

// "20-40", in NM.
std::string range_of(size_t ring) {
    constexpr auto kWidth = static_cast<size_t>(Detection::kRing_nm);
    return std::to_string(ring * kWidth) + '-' + std::to_string((ring + 1) * kWidth);
}

// All kinds up to the last ring in which anything is expected.
size_t rings_of(const Detection &detection) {
    size_t rings = 0;
    for (size_t kind = 0; kind < std::size(Detection::kKinds); ++kind)
        for (size_t ring = 0; ring < Detection::kRings; ++ring)
            if (detection.of(kind).rings[ring].expected != 0) rings = std::max(rings, ring + 1);
    return rings;
}

void add_rings(Section &section, Table &table, const Detection &detection, size_t kind) {
    const size_t rows_before = table.rows.size();
    const std::string_view with = Detection::kKinds[kind].title;
    Chart chart{.key = "",
                .title =
                    std::string(with) + ", % by range in rings of " + number_cell(Detection::kRing_nm, 0).text + " NM",
                .values = {},
                .highest = 100};
    for (size_t ring = 0; ring < rings_of(detection); ++ring) {
        const Passes &passes = detection.of(kind).rings[ring];
        const auto expected = static_cast<double>(std::max<uint64_t>(passes.expected, 1));
        chart.values.push_back(chart.highest * static_cast<double>(passes.detected) / expected);
        if (passes.expected == 0) continue;
        table.rows.push_back({text_cell(with), text_cell(range_of(ring)), count_cell(passes.expected),
                              count_cell(passes.detected), share_cell(passes.detected, passes.expected)});
    }
    if (table.rows.size() != rows_before) section.charts.push_back(std::move(chart));
}

Section detection_of(const SourceFigures &figures) {
    Section section{.key = "detection", .title = "Detection"};
    const Detection &detection = figures.detection();
    section.figures = {{"tracks", "tracks", "", count_cell(detection.tracks())},
                       {"untold", "reports of unknown targets", "", count_cell(detection.untold())}};
    Table table{
        "by_technology", {{"with", "with"}, {"turns", "turns"}, {"detected", "detected"}, {"percent", "%"}}, {}};
    for (size_t kind = 0; kind < std::size(Detection::kKinds); ++kind) {
        const Passes &passes = detection.of(kind).all;
        if (passes.expected == 0) continue;
        table.rows.push_back({text_cell(Detection::kKinds[kind].title), count_cell(passes.expected),
                              count_cell(passes.detected), share_cell(passes.detected, passes.expected)});
    }
    if (!table.rows.empty()) section.tables.push_back(std::move(table));
    Table intervals = spread_table("intervals");
    add_spread(intervals, "between reports, s", detection.intervals(), kTimeDecimals);
    if (!intervals.rows.empty()) section.tables.push_back(std::move(intervals));
    Table rings{
        "by_range",
        {{"with", "with"}, {"range_nm", "range, NM"}, {"turns", "turns"}, {"detected", "detected"}, {"percent", "%"}},
        {}};
    for (size_t kind = 0; kind < std::size(Detection::kKinds); ++kind) add_rings(section, rings, detection, kind);
    if (!rings.rows.empty()) section.tables.push_back(std::move(rings));
    return section;
}

// The clocks of the source and of the recorder may differ: that is part of every delay, and no more than the least one.
Section delay_of(const SourceFigures &figures) {
    constexpr size_t kParts = 32;
    Section section{.key = "delay", .title = "Delay from time of day to arrival"};
    const Distribution &delays = figures.delays();
    const double least = delays.least(), high = delays.percentile(kHigh);
    Table table = spread_table("spread");
    add_spread(table, "delay, s", delays, kTimeDecimals);
    section.tables.push_back(std::move(table));
    section.figures = {
        {"least_s", "least, what clocks differ by included", "s", number_cell(least, kTimeDecimals)},
        {"median_above_s", "median above that", "s", number_cell(delays.median() - least, kTimeDecimals)},
        {"p95_above_s", "95 % above that", "s", number_cell(high - least, kTimeDecimals)},
        {"greatest_above_s", "greatest above that", "s", number_cell(delays.greatest() - least, kTimeDecimals)}};
    if (high > least)
        section.charts.push_back(chart_of("", "number by delay, " + range_text(least, high, kTimeDecimals, "s"),
                                          delays.parts(least, high, kParts)));
    return section;
}

Section gaps_of(const SourceFigures &figures) {
    const Gaps &gaps = figures.gaps();
    Section section{.key = "gaps", .title = "Gaps"};
    section.figures = {{"gaps", "gaps", "", count_cell(gaps.count)}};
    if (gaps.count == 0) return section;
    section.figures.push_back({"sum_s", "together", "s", number_cell(gaps.sum_s, kTimeDecimals)});
    section.figures.push_back({"longest_s", "longest", "s", number_cell(gaps.longest_s, kTimeDecimals)});
    section.figures.push_back({"longest_from", "from", "", clock_cell(gaps.longest_from_s)});
    return section;
}

Section targets_of(const SourceFigures &figures) {
    Section section{.key = "targets", .title = "Codes and addresses"};
    const Identities &identities = figures.identities();
    section.figures = {{"codes", "codes", "", count_cell(identities.codes())},
                       {"addresses", "addresses", "", count_cell(identities.addresses())},
                       {"track_numbers", "track numbers", "", count_cell(identities.track_numbers())},
                       {"with_code", "reports with a code", "", count_cell(identities.coded())},
                       {"not_validated", "code not validated", "", count_cell(identities.not_validated())},
                       {"garbled", "code garbled", "", count_cell(identities.garbled())},
                       {"smoothed", "code smoothed or not extracted", "", count_cell(identities.smoothed())}};
    Table emergencies{
        "emergencies", {{"code", "code"}, {"name", "emergency"}, {"targets", "targets"}, {"reports", "reports"}}, {}};
    for (const auto &[code, emergency] : identities.emergencies())
        emergencies.rows.push_back({code == Identities::kOtherEmergency ? Cell() : octal_cell(code),
                                    text_cell(emergency_name(code)), count_cell(emergency.targets.size()),
                                    count_cell(emergency.reports)});
    if (!emergencies.rows.empty()) section.tables.push_back(std::move(emergencies));
    Table warnings{
        "warnings", {{"category", "category"}, {"code", "code"}, {"text", "warning"}, {"reports", "reports"}}, {}};
    for (const auto &[warning, count] : identities.warnings())
        warnings.rows.push_back({category_cell(warning.first), count_cell(warning.second),
                                 text_cell(warning_text(warning.first, warning.second)), count_cell(count)});
    if (!warnings.rows.empty()) section.tables.push_back(std::move(warnings));
    return section;
}

Section fields_of(const SourceFigures &figures) {
    Section section{.key = "fields", .title = "Fields"};
    Table table{"numbers",
                {{"path", "field"},
                 {"unit", "unit"},
                 {"number", "number"},
                 {"least", "least"},
                 {"mean", "mean"},
                 {"greatest", "greatest"}},
                {}};
    for (const auto &[field, range] : figures.numbers())
        table.rows.push_back({text_cell(field.path), text_cell(field.unit), count_cell(range.count),
                              number_cell(range.least, field.decimals), number_cell(range.mean(), field.decimals + 1),
                              number_cell(range.greatest, field.decimals)});
    section.tables.push_back(std::move(table));
    return section;
}

std::string family_text(const FamilySource &source) {
    const Family &family = family_of(source.family);
    return family.name.empty() ? "category " + category_cell(source.family).text : std::string(family.name);
}

} // namespace

Cell number_cell(double value, unsigned decimals) {
    constexpr double kMost = 1e9; // of whole numbers that have decimals, too
    char text[64];
    if (!std::isfinite(value)) return {};
    if (std::abs(value) >= kMost) {
        std::snprintf(text, sizeof text, "%.9g", value);
        return {text, true};
    }
    constexpr unsigned kMostDecimals = 9;
    CellWriter writer(text);
    writer.shortest(value, std::min(decimals, kMostDecimals));
    return {std::string(text, writer.size()), true};
}

Cell count_cell(uint64_t count) { return {std::to_string(count), true}; }

Cell text_cell(std::string_view text) { return {std::string(text), false}; }

SourceReport report_of(const FamilySource &source, const SourceFigures &figures) {
    char name[16];
    CellWriter writer(name);
    if (source.has_source) writer.source(source.sac, source.sic);
    SourceReport report{{name, writer.size()}, family_text(source), {}};
    report.sections.push_back(summary_of(figures));
    if (family_of(source.family).has_turns) report.sections.push_back(turn_of(figures));
    if (figures.detection().tracks() != 0) report.sections.push_back(detection_of(figures));
    if (figures.delays().count() != 0) report.sections.push_back(delay_of(figures));
    report.sections.push_back(gaps_of(figures));
    if (figures.reports() != 0) report.sections.push_back(targets_of(figures));
    if (!figures.numbers().empty()) report.sections.push_back(fields_of(figures));
    return report;
}

} // namespace ast::recording::astdump
