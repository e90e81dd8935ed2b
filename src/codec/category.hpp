// What a category is: constant tables of its items and subfields. The codec, the views and the queries know categories
// only through these; src/cat defines one Category per source and the list of all of them.
#pragma once

#include <array>
#include <cstddef>
#include <iterator>

#include "ast.h"
#include "codec/size_rules.hpp"

namespace ast {

using SummaryView = void(char *text, uint64_t capacity, const ast_dataitem_t *item);
using DetailView = void(char *text, uint64_t capacity, const ast_dataitem_t *item);
using Encoder = void(ast_dataitem_t *result, uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source);

// What can be done with an item. Whoever has a size is registered; the others may be missing.
struct Handlers {
    SizeRule size{};
    SummaryView *get_summary = nullptr;
    DetailView *get_detail_html = nullptr;
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

constexpr char kNoSubfieldId[] = "---";
constexpr char kNoSubfieldName[] = "UNKNOWN_SUBFIELD_NAME";

// A compound item's subfields, in the order of the bits of its primary subfield.
struct Compound {
    ast_dataitem_type_t type;
    const SubfieldRow *rows;
    size_t count;
    SizeFunction *get_size = nullptr;
    ast_subfield_func_t func{};
    const char *unknown_id = kNoSubfieldId;
    bool reports_unknown_subfields = false;    // when asked for the size of one
    bool summarizes_unknown_subfields = false; // as not implemented, though the item does not announce them
};

// The row of a subfield by its number, or null.
constexpr const SubfieldRow *find_subfield(const Compound &compound, uint32_t number) {
    return number >= 1 && number <= compound.count ? &compound.rows[number - 1] : nullptr;
}

struct ItemRow {
    uint16_t number = 0;
    const char *name = nullptr; // null: reads as the category's unknown items do
    Handlers handlers{};        // without a size: known by name only
    const Compound *compound = nullptr;
    uint16_t variant_of = 0; // the item that this one stands for in some editions or systems
};

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
    bool reports_unknown_names = false; // when asked for the name of one
    ast_datarecord_func_t accessors{};
    ProfileChoice *choose_profile = nullptr; // tried first on a block of unknown origin
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

// What the exported functions of one compound item are made of.
uint64_t compound_size(const Compound &compound, const uint8_t *data, uint64_t available);
uint64_t subfield_size(const Compound &compound, const uint8_t *data, uint64_t available, uint32_t subfield_type);
const char *subfield_id(const Compound &compound, uint32_t number);
const char *subfield_name(const Compound &compound, uint32_t number);

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
                                         __VA_ARGS__};                                                                 \
    }                                                                                                                  \
    const char *get_item_name(ast_dataitem_type_t type) { return ast::item_name(ast::category, type); }
