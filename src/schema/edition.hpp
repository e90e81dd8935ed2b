// Where the tables are: the items of each edition of each category, and which FRN announces them.
#pragma once

#include "schema/judgement.hpp"
#include "schema/piece.hpp"

namespace ast::schema {

// What a table of items is written in: the number of the item type within the category, and its rows.
struct Item {
    uint16_t number = 0;
    const Field *field = nullptr;
};

template <size_t N>
consteval Item item(unsigned number, const Rows<N> &rows) {
    const Kind kind = rows[0].kind;
    const bool is_sized =
        rows[0].bits != 0 || (kind >= Kind::Extended && kind <= Kind::Random) || kind == Kind::Explicit;
    must(number < 1000 && rows[0].is_named() && rows[0].bits % 8 == 0 && is_sized);
    return {static_cast<uint16_t>(number), rows.data()};
}

// In place of an item number: an FRN that announces nothing.
constexpr uint16_t kSpare = UINT16_MAX;

// Item numbers by FRN, from FRN 1.
struct Profile {
    const uint16_t *items = nullptr;
    uint32_t count = 0;

    constexpr uint16_t at(uint32_t frn) const { return frn - 1 < count ? items[frn - 1] : kSpare; }
};

struct Edition {
    uint32_t category = 0;
    const char *number = nullptr; // "1.32"
    const char *title = nullptr;
    const Item *items = nullptr;
    uint32_t item_count = 0;
    const Writer *writers = nullptr; // of the items
    const Judgement *judgements = nullptr;
    Profile profile;                    // none for an edition that the profiles of the codec cover
    Profile other_profile;              // of a category that has two: plots of category 001, uplink of category 007
    std::array<uint8_t, 1000> places{}; // of an item number in items, counted from 1

    uint32_t place_of(uint32_t item_number) const {
        return item_number < places.size() ? places[item_number] : uint8_t{0};
    }
    const Field *find(uint32_t item_number) const {
        const uint32_t place = place_of(item_number);
        return place == 0 ? nullptr : items[place - 1].field;
    }
};

// The fields of an item, and how its JSON is written.
struct Found {
    const Field *field = nullptr; // null: no edition describes it
    const Writer *writer = nullptr;
};

inline Found found_at(const Edition &edition, uint32_t place) {
    return {edition.items[place - 1].field, &edition.writers[place - 1]};
}
inline Found found_in(const Edition &edition, uint32_t item_number) {
    const uint32_t place = edition.place_of(item_number);
    return place == 0 ? Found{} : found_at(edition, place);
}

template <size_t N>
consteval Profile profile(const uint16_t (&numbers)[N]) {
    return {numbers, N};
}

// The newest edition of a category, or null.
const Edition *newest_edition(uint32_t category);

// The edition that a record of that profile is likeliest of; null for a category that is not published.
const Edition *find_edition(uint32_t category, const ast_uap_t &uap);

// An item type as a record of that profile carries it.
Found find_with_writer(ast_dataitem_type_t type, const ast_uap_t &uap);

// Its fields, or null where no edition describes them.
inline const Field *find_item(ast_dataitem_type_t type, const ast_uap_t &uap) {
    return find_with_writer(type, uap).field;
}
// The same with the edition at hand, for those who ask for many items of one category.
inline const Field *find_item(ast_dataitem_type_t type, const ast_uap_t &uap, const Edition *edition) {
    if (edition && type - AST_DATAITEM_TYPE(edition->category, 0) < 1000) [[likely]]
        if (const Field *const field = edition->find(type - AST_DATAITEM_TYPE(edition->category, 0))) return field;
    return find_item(type, uap);
}

// The fields of a Mode S register by its number, BDS 4,0 is 0x40; null for one without a table.
const Field *find_register(uint32_t number);

// The same with what writes it.
Found find_register_writer(uint32_t number);

} // namespace ast::schema
