// What a category is: constant tables of its items and subfields. The codec, the views and the queries know categories
// only through these; src/cat defines one Category per source and the list of all of them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <span>

#include "ast.h"
#include "codec/fspec.hpp"
#include "codec/size_rules.hpp"

namespace ast {

using SummaryView = void(char *text, uint64_t capacity, const ast_dataitem_t *item);
using DetailView = void(char *text, uint64_t capacity, const ast_dataitem_t *item);
class ViewWriter;
using DetailsView = void(ViewWriter &view, const ast_dataitem_t *item);

// A detail view as HTML, and as pieces for whoever takes them; without these it is empty.
struct DetailViews {
    DetailView *html = nullptr;
    DetailsView *pieces = nullptr;
};

// The pieces of the detail view of a layout, found by its function that is exported.
template <DetailView *Html>
void show_pieces(ViewWriter &view, const ast_dataitem_t *item);

template <DetailView *Html>
constexpr DetailViews kDetailViews = {Html, show_pieces<Html>};

using Encoder = void(ast_dataitem_t *result, uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source);

// What can be done with an item. Whoever has a size is registered; the others may be missing.
struct Handlers {
    SizeRule size{};
    SummaryView *get_summary = nullptr;
    DetailViews detail{};
    Encoder *encode = nullptr;
};

// How a subfield's value is read and shown; only the floors above know.
struct SubfieldHandlers;

struct SubfieldRow {
    const char *id;
    const char *name;
    SizeRule size;
    const SubfieldHandlers *handlers = nullptr;
    size_t filled_octets = 0; // of the item's value record, where the handlers fill a member of it
};

constexpr uint32_t kItemNumbers = 1000;

// The number of an item within its category, from its type.
constexpr uint16_t item_number(ast_dataitem_type_t type) { return static_cast<uint16_t>(type % kItemNumbers); }

constexpr uint32_t kSubfieldNumbers = 1000;

// The number of a subfield within its item, from its type.
constexpr uint32_t subfield_number(uint32_t subfield_type) { return subfield_type % kSubfieldNumbers; }

// What the subfields that one octet of a primary subfield announces take, that octet included; by its presence bits.
// All octets of the primary subfield in turn.
using SubfieldSums = std::array<uint8_t, 128>;

// One of them is not of a fixed size, or not known, or all take more than this.
constexpr uint8_t kNoSum = UINT8_MAX;

constexpr uint8_t sum_of(const SubfieldRow *rows, size_t count, uint32_t presence) {
    uint32_t sum = 1;
    for (unsigned i = 0; i < kFrnsPerOctet; ++i) {
        if (!bit(static_cast<uint8_t>(presence), kFrnsPerOctet - i)) continue;
        if (i >= count || rows[i].size.kind != SizeRule::Kind::Fixed || rows[i].size.is_disputed) return kNoSum;
        sum += rows[i].size.octets;
    }
    return static_cast<uint8_t>(std::min<uint32_t>(sum, kNoSum));
}

template <const auto &Rows>
constexpr auto kSubfieldSums = [] {
    constexpr size_t kCount = std::size(Rows);
    std::array<SubfieldSums, (kCount + kFrnsPerOctet - 1) / kFrnsPerOctet> sums{};
    for (size_t octet = 0; octet < sums.size(); ++octet)
        for (uint32_t presence = 0; presence < sums[octet].size(); ++presence)
            sums[octet][presence] = sum_of(Rows + octet * kFrnsPerOctet, kCount - octet * kFrnsPerOctet, presence);
    return sums;
}();

constexpr char kNoSubfieldId[] = "---";
constexpr char kNoSubfieldName[] = "UNKNOWN_SUBFIELD_NAME";

// A compound item's subfields, in the order of the bits of its primary subfield.
struct Compound {
    ast_dataitem_type_t type;
    const SubfieldRow *rows;
    size_t count;
    const SubfieldSums *sums = nullptr; // by the octets of the primary subfield that have rows
    size_t sums_count = 0;
    SizeFunction *get_size = nullptr;
    ast_subfield_func_t func{};
    const char *unknown_id = kNoSubfieldId;
    bool reports_unknown_subfields = false;    // when asked for the size of one
    bool shows_subfields = true;               // false: their detail views are empty
    bool summarizes_unknown_subfields = false; // as not implemented, though the item does not announce them
};

// The row of a subfield by its number, or null.
constexpr const SubfieldRow *find_subfield(const Compound &compound, uint32_t number) {
    return number >= 1 && number <= compound.count ? &compound.rows[number - 1] : nullptr;
}

// The size of a compound item all of whose subfields are of fixed sizes, by its sums for so many octets of the primary
// subfield, given that an octet is available. 0 for any other, and where the octets do not hold the primary subfield.
inline uint64_t summed_size(const SubfieldSums *sums, uint64_t count, const uint8_t *data, uint64_t available) {
    const uint64_t limit = std::min<uint64_t>(available, count);
    uint64_t size = 0;
    uint64_t i = 0;
    do {
        const uint8_t sum = sums[i][bits(data[i], 8, 2)];
        if (sum == kNoSum) return 0;
        size += sum;
        if (!has_fx(data[i++])) return size > i ? size : 0; // nothing announced is not for here to judge
    } while (i < limit);
    return 0;
}

struct ItemRow {
    uint16_t number = 0;
    const char *name = nullptr; // null: reads as the category's unknown items do
    Handlers handlers{};        // without a size: known by name only
    const Compound *compound = nullptr;
    uint16_t variant_of = 0; // the item that this one stands for in some editions or systems
};

// How long the item of an FRN is: all that the decoding of records asks of its row, in eight octets.
struct Slot {
    ast_dataitem_type_t type = AST_DATAITEM_NONE;
    int16_t octets = 0; // of the rule; one's complement unless they are fixed
    SizeRule::Kind kind = SizeRule::Kind::None;
    uint8_t place = 0; // of the row

    // Longer than all that there is for an item that is not fixed, so that one comparison tells both.
    constexpr uint64_t fixed_octets() const { return static_cast<uint64_t>(int64_t{octets}); }
    constexpr uint64_t other_octets() const { return static_cast<uint64_t>(~int64_t{octets}); }
};
static_assert(sizeof(Slot) == 8);

// What is available to a record, at most; beyond it no length would be longer.
constexpr uint64_t kMaxAvailable = INT64_MAX;

// The slots of a layout by the bits of an FspecWord.
struct SlotsByBit {
    std::array<Slot, 64> slots{};
    uint64_t unknown = UINT64_MAX; // the bits that announce no item
    bool is_open = false;          // other FRNs announce what they do in the base
};

inline constexpr SlotsByBit kNoSlots{};

// In place of an item number: an FRN that announces nothing, and one that announces what it does in the base.
constexpr uint16_t kSpareFrn = UINT16_MAX;
constexpr uint16_t kFrnOfBase = UINT16_MAX - 1;

// The layouts of a category, a list of item numbers by FRN for each edition; items/layouts.hpp has them all.
template <uint32_t Category>
constexpr int kLayoutsOf = 0;

template <typename... Lists>
constexpr std::array<std::span<const uint16_t>, sizeof...(Lists)> listed(const Lists &...lists) {
    return {std::span<const uint16_t>(lists)...};
}

// A category's rows behind an empty one, and for each item number the place of its row; place 0 is the empty row's, so
// that every number has a row.
template <size_t N>
struct ItemTable {
    std::array<uint8_t, kItemNumbers> places{};
    std::array<ItemRow, N + 1> rows{};
};

template <size_t N>
constexpr ItemTable<N> index_rows(const ItemRow (&rows)[N]) {
    static_assert(N < 256);
    ItemTable<N> table;
    for (size_t i = 0; i < N; ++i) {
        table.rows[i + 1] = rows[i];
        table.places[rows[i].number] = static_cast<uint8_t>(i + 1);
    }
    return table;
}

template <size_t N>
constexpr Slot slot_of(const ItemTable<N> &table, uint32_t category, uint16_t number) {
    const uint8_t place = table.places[number];
    const SizeRule &rule = table.rows[place].handlers.size;
    const bool is_fixed = rule.kind == SizeRule::Kind::Fixed;
    const auto octets = static_cast<int16_t>(is_fixed ? rule.octets : ~rule.octets);
    return {AST_DATAITEM_TYPE(category, number), octets, rule.is_disputed ? SizeRule::Kind::None : rule.kind, place};
}

// The slots of each edition of a category.
template <uint32_t Category, const auto &Table>
constexpr auto kSlotsOf = [] {
    std::array<SlotsByBit, kLayoutsOf<Category>.size()> editions{};
    for (size_t i = 0; i < editions.size(); ++i) {
        uint32_t frn = 0;
        for (const uint16_t number : kLayoutsOf<Category>[i]) {
            const unsigned bit = bit_of_frn(++frn);
            editions[i].is_open = editions[i].is_open || number == kFrnOfBase;
            if (number >= kItemNumbers) continue;
            editions[i].slots[bit] = slot_of(Table, Category, number);
            editions[i].unknown &= ~(uint64_t{1} << bit);
        }
    }
    return editions;
}();

template <size_t N>
constexpr bool ascending(const ItemRow (&rows)[N]) {
    for (size_t i = 1; i < N; ++i)
        if (rows[i - 1].number >= rows[i].number) return false;
    return rows[N - 1].number < kItemNumbers;
}

// The profile of one record, where the records of a block may differ in theirs; null for a record that none fits.
using ProfileChoice = const ast_uap_t *(const uint8_t *record, uint64_t available);

struct Category {
    uint32_t number;
    const char *unknown_name; // of items that it does not know
    const char *(*get_name)(ast_dataitem_type_t type);
    const uint8_t *places; // of an ItemTable, as the rows are
    const ItemRow *rows;
    const SlotsByBit *slots;            // one for each edition
    bool reports_unknown_names = false; // when asked for the name of one
    ast_datarecord_func_t accessors{};
    ProfileChoice *choose_profile = nullptr; // tried first on a block of unknown origin
    ProfileChoice *choose_profile_as_published = nullptr;
};

// By category number; numbers without a category, and the place behind them, have one without items.
constexpr size_t kCategoryNumbers = 256;
extern const std::array<const Category *, kCategoryNumbers + 1> kCategories;

inline const Category &find_category(uint32_t number) {
    return *kCategories[number < kCategoryNumbers ? number : kCategoryNumbers];
}

inline const ItemRow &find_item(const Category &category, uint32_t number) {
    return category.rows[category.places[number]];
}

// The row of an item type. One without a size is known by name only; one without a name either is not known at all.
inline const ItemRow &find_item(ast_dataitem_type_t type) {
    return find_item(find_category(type / kItemNumbers), type % kItemNumbers);
}

// Reports an item type that cannot be handled, unless it is 0.
void report_unsupported(ast_dataitem_type_t type);

// The handlers of an item type, none for one that is not registered, which is reported.
const Handlers &handlers_of(ast_dataitem_type_t type);

// The title of an item as its category gives it.
const char *item_name(const Category &category, ast_dataitem_type_t type);

// The compound item that an item type is, or null.
inline const Compound *find_compound(ast_dataitem_type_t type) { return find_item(type).compound; }

// What the exported functions of one compound item are made of.
uint64_t compound_size(const Compound &compound, const uint8_t *data, uint64_t available);
uint64_t subfield_size(const Compound &compound, const uint8_t *data, uint64_t available, uint32_t subfield_type);
const char *subfield_id(const Compound &compound, uint32_t number);
const char *subfield_name(const Compound &compound, uint32_t number);

// A subfield of an item of that kind by its number, as ast_dataitem_subfields_decode has it; not present where the
// primary subfield does not announce it.
ast_subfield_t find_announced(const Compound &compound, const ast_dataitem_t &item, const ast_fspec_t &primary,
                              uint32_t number);

// Where the subfield of a number begins, when all that an item announces before it is of fixed sizes; else 0.
uint64_t summed_offset(const Compound &compound, const ast_fspec_t &primary, uint32_t number);

// How many subfields, from the first on, a list of them has, whether they are present or not.
uint64_t listed_subfields(const ast_dataitem_t &item, const ast_fspec_t &primary);

} // namespace ast

// Defines the compound item of a type over its rows, and its exported functions by their full names: the size of the
// item, then the size, id and name of a subfield. Its subfields' summary and detail view are named, or nullptr. `...`
// are further members of the Compound.
#define AST_DEFINE_COMPOUND(compound, item_type, subfield_rows, get_item_size, get_subfield_size, get_id, get_name,    \
                            get_summary, get_detail_html, ...)                                                         \
    namespace {                                                                                                        \
    constexpr ast::Compound compound = {.type = item_type,                                                             \
                                        .rows = subfield_rows,                                                         \
                                        .count = std::size(subfield_rows),                                             \
                                        .sums = ast::kSubfieldSums<subfield_rows>.data(),                              \
                                        .sums_count = ast::kSubfieldSums<subfield_rows>.size(),                        \
                                        .get_size = get_item_size,                                                     \
                                        .func = {get_subfield_size, get_id, get_name, get_summary, get_detail_html},   \
                                        __VA_ARGS__};                                                                  \
    }                                                                                                                  \
    uint64_t get_item_size(const uint8_t *data, uint64_t available) {                                                  \
        return ast::compound_size(compound, data, available);                                                          \
    }                                                                                                                  \
    uint64_t get_subfield_size(const uint8_t *data, uint64_t available, uint32_t subfield_type) {                      \
        return ast::subfield_size(compound, data, available, subfield_type);                                           \
    }                                                                                                                  \
    const char *get_id(uint32_t subfield_type) {                                                                       \
        return ast::subfield_id(compound, ast::subfield_number(subfield_type));                                        \
    }                                                                                                                  \
    const char *get_name(uint32_t subfield_type) {                                                                     \
        return ast::subfield_name(compound, ast::subfield_number(subfield_type));                                      \
    }

// Defines a category over its rows, and its exported name function. `...` are further members of the Category.
#define AST_DEFINE_CATEGORY(category, category_number, unknown, item_rows, get_item_name, ...)                         \
    static_assert(ast::ascending(item_rows));                                                                          \
    namespace {                                                                                                        \
    constexpr auto kItemTable = ast::index_rows(item_rows);                                                            \
    }                                                                                                                  \
    namespace ast {                                                                                                    \
    extern const Category category;                                                                                    \
    constinit const Category category = {.number = category_number,                                                    \
                                         .unknown_name = unknown,                                                      \
                                         .get_name = get_item_name,                                                    \
                                         .places = kItemTable.places.data(),                                           \
                                         .rows = kItemTable.rows.data(),                                               \
                                         .slots = ast::kSlotsOf<category_number, kItemTable>.data(),                   \
                                         __VA_ARGS__};                                                                 \
    }                                                                                                                  \
    const char *get_item_name(ast_dataitem_type_t type) { return ast::item_name(ast::category, type); }
