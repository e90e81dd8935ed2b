#include "columns/table.hpp"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "ask/suggestion.hpp"
#include "columns/report_rows.hpp"

namespace ast::recording {

namespace {

constexpr uint64_t kPosition = AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE;

struct BesideColumn {
    const char *name;
    const char *title;
    ColumnType type;
    Beside what;
};

constexpr BesideColumn kBeside[] = {
    {"file", "Name of the input", ColumnType::text, Beside::file},
    {"block", "Number of the block", ColumnType::int64, Beside::block},
    {"record", "Number of the record in its block", ColumnType::int32, Beside::record},
    {"received", "Date and time of reception", ColumnType::time, Beside::received},
};

// Columns as readers of another library expect them.
struct OtherName {
    std::string_view name;
    std::string_view quantity;
    std::string_view unit{}; // where it is another one
    double factor = 1;
    bool has_small_letters = false;
};

constexpr double kFeetPerLevel = 100;

constexpr OtherName kTraffic[] = {
    {.name = "timestamp", .quantity = "timestamp"},
    {.name = "icao24", .quantity = "icao24", .has_small_letters = true},
    {.name = "callsign", .quantity = "callsign"},
    {.name = "latitude", .quantity = "latitude"},
    {.name = "longitude", .quantity = "longitude"},
    {.name = "altitude", .quantity = "fl", .unit = "ft", .factor = kFeetPerLevel},
    {.name = "geoaltitude", .quantity = "altitude_ft"},
    {.name = "groundspeed", .quantity = "groundspeed_kt"},
    {.name = "track", .quantity = "track_deg"},
    {.name = "vertical_rate", .quantity = "vertical_rate_ftmin"},
    {.name = "squawk", .quantity = "squawk"},
};

constexpr std::string_view kSeconds = "s";

ColumnType type_of(const Quantity &quantity) {
    switch (quantity.form) {
    case QuantityForm::decimal:
    case QuantityForm::clock:
        return ColumnType::float64;
    case QuantityForm::whole:
        return ColumnType::int32;
    case QuantityForm::flag:
        return ColumnType::boolean;
    case QuantityForm::moment:
        return ColumnType::time;
    default:
        return ColumnType::text;
    }
}

std::string in_quotes(std::string_view text) { return '\'' + std::string(text) + '\''; }

class Reader {
public:
    explicit Reader(const CategorySet &categories) : categories_(categories) {}

    Table list(std::string_view list) {
        while (true) {
            const size_t comma = std::min(list.find(','), list.size());
            word(list.substr(0, comma));
            if (comma == list.size()) return std::move(table_);
            list.remove_prefix(comma + 1);
        }
    }

    Table traffic() {
        for (const OtherName &each : kTraffic) {
            const Quantity &quantity = *find_quantity(each.quantity);
            ColumnHead head = head_of(quantity);
            head.name = each.name;
            if (!each.unit.empty()) head.unit = each.unit;
            add(std::move(head), QuantityColumn{&quantity, each.factor, each.has_small_letters});
        }
        return std::move(table_);
    }

    Table all() {
        constexpr uint32_t kCategories = 256;
        if (categories_.count() != 1)
            throw std::invalid_argument("'all' is a table of one category: give it as the only one");
        uint32_t category = 0;
        while (category < kCategories && !categories_.test(category)) ++category;
        for (const BesideColumn &each : kBeside) beside(each);
        for (ItemFields &item : items_of(category)) {
            ColumnHead head = item.head();
            add(std::move(head), std::move(item));
        }
        return std::move(table_);
    }

private:
    static ColumnHead head_of(const Quantity &quantity) {
        ColumnHead head{.name = std::string(quantity.name),
                        .type = type_of(quantity),
                        .unit = std::string(quantity.unit),
                        .title = std::string(quantity.title)};
        head.decimals = quantity.decimals;
        if (quantity.is_quoted()) head.form = CellForm::quoted;
        if (quantity.form != QuantityForm::clock) return head;
        head.form = CellForm::clock;
        head.unit = kSeconds;
        return head;
    }

    void word(std::string_view name) {
        if (name == "common") {
            for (const Quantity &each : kQuantities) add(head_of(each), QuantityColumn{&each});
            return;
        }
        const auto *const found = std::ranges::find(kBeside, name, &BesideColumn::name);
        if (found != std::end(kBeside)) return beside(*found);
        const QuantityName quantities = find_quantities(name);
        for (const Quantity *const each : quantities.quantities) add(head_of(*each), QuantityColumn{each});
        if (quantities.quantities.empty()) path(name);
    }

    void beside(const BesideColumn &column) {
        add({.name = column.name, .type = column.type, .title = column.title}, column.what);
    }

    static std::optional<FieldPath> read_path(std::string_view name) try {
        return FieldPath::read(name);
    } catch (const std::invalid_argument &error) {
        throw std::invalid_argument(error.what() + suggestion(name));
    }

    void path(std::string_view name) {
        auto path = read_path(name);
        if (!path)
            throw std::invalid_argument(in_quotes(name) + " is no quantity, nor a path such as I010/SIC" +
                                        suggestion(name));
        if (path->fields().empty())
            throw std::invalid_argument(in_quotes(name) + " has no value of its own but holds fields that have");
        std::optional<ColumnHead> head;
        for (size_t i = 0; i < path->fields().size(); ++i)
            if (categories_.test(path->categories_of_fields()[i])) take(head, path->fields()[i], name);
        if (!head) throw std::invalid_argument(in_quotes(name) + " is a field of no category that is asked for");
        head->name = name;
        const bool is_list = path->names_lists();
        if (is_list) {
            ColumnHead list{.name = head->name, .type = ColumnType::list, .title = head->title};
            head->name = "element";
            list.children.push_back(std::move(*head));
            head = std::move(list);
        }
        add(std::move(*head), PathColumn{std::move(*path), is_list});
    }

    // One column has one unit.
    static void take(std::optional<ColumnHead> &head, const ast_field_t &field, std::string_view name) {
        ColumnHead other = recording::head_of(field);
        if (!head) {
            head = std::move(other);
            return;
        }
        if (head->unit != other.unit)
            throw std::invalid_argument(
                in_quotes(name) + " has different units in different categories: ask for that of one, as in I048/140");
        widen(*head, other);
    }

    // What is named again adds no column.
    template <typename Source>
    void add(ColumnHead head, Source source) {
        if (std::ranges::find(table_.heads, head.name, &ColumnHead::name) != table_.heads.end()) return;
        table_.heads.push_back(std::move(head));
        table_.sources.emplace_back(std::move(source));
    }

    const CategorySet &categories_;
    Table table_;
};

} // namespace

bool Table::asks_position() const {
    return std::ranges::any_of(sources, [](const auto &source) {
        const auto *const quantity = std::get_if<QuantityColumn>(&source);
        return quantity && (quantity->quantity->answer & kPosition) != 0;
    });
}

Table read_table(std::string_view columns, std::string_view names, const CategorySet &categories) {
    Reader reader(categories);
    if (names == "traffic") {
        if (columns.empty()) return reader.traffic();
        throw std::invalid_argument("the names of traffic have columns of their own");
    }
    if (!names.empty()) throw std::invalid_argument(in_quotes(names) + " is no set of names; traffic is one");
    if (columns == "all") return reader.all();
    if (columns == "reports") return {.heads = report_heads(), .sources = {}};
    return reader.list(columns.empty() ? "common" : columns);
}

} // namespace ast::recording
