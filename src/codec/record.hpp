// Reading one record: its FSPEC, and an item for each bit of it. Who reads says what becomes of an item.
#pragma once

#include <iterator>

#include "ast.h"
#include "codec/category.hpp"
#include "codec/fspec.hpp"
#include "codec/item.hpp"
#include "codec/profile.hpp"

namespace ast {

// LEN of a block has two octets, so no record is longer either.
constexpr uint64_t kMaxBlockOctets = 65535;

// Sizes an item that its slot does not, in place of its row; 0 when the octets do not hold all of it.
using ItemSizer = uint64_t(const ItemRow &row, ast_dataitem_type_t type, const ast_uap_t &uap, const uint8_t *data,
                           uint64_t left);

// What the records of a block are read by, found once for all of them.
struct Reading {
    Reading(uint32_t category_number, const ast_uap_t &profile, ItemSizer *sizer = nullptr)
        : category(category_number),
          uap(&profile),
          own(&find_category(category_number)),
          slots(find_slots(profile, *own, category_number)),
          size_item(sizer) {}

    uint32_t category;
    const ast_uap_t *uap;
    const Category *own;
    const SlotsByBit *slots; // kNoSlots: the profile has to be asked for every item
    ItemSizer *size_item;    // null: the rule of the row
};

// A record that was read; no octets when it broke off.
struct RecordSize {
    uint64_t octets = 0;
    uint64_t fspec_octets = 0;
};

// The size of an item that is neither fixed nor compound, where octets alone tell it and there is nothing to report. An
// octet is available. 0 otherwise.
inline uint64_t plain_size(SizeRule::Kind kind, uint64_t octets, const uint8_t *data, uint64_t available) {
    if (kind == SizeRule::Kind::Extended) return plain_extended_size(data, available, octets);
    if (kind == SizeRule::Kind::Repetitive) return 1 + octets * data[0];
    return kind == SizeRule::Kind::Explicit ? data[0] : 0;
}

// The same of any item that is not fixed.
inline uint64_t plain_size(const Slot &slot, const Reading &reading, const uint8_t *data, uint64_t available) {
    if (available == 0) return 0;
    if (slot.kind != SizeRule::Kind::Subfields) return plain_size(slot.kind, slot.other_octets(), data, available);
    const Compound &compound = *reading.own->rows[slot.place].compound;
    return summed_size(compound.sums, compound.sums_count, data, available);
}

// Why an item of that size, which is 0 or more than there is, breaks a record off.
uint32_t reason_of(const ItemRow &row, ast_dataitem_type_t type, uint64_t size, uint64_t left);

// Sizes one item by its row, with the reports that belong to it, or as the reading does. Returns 0 when the record
// breaks off.
template <typename Store>
uint64_t reported_size(const Reading &reading, const ItemRow &row, ast_dataitem_type_t type, uint32_t frn,
                       const uint8_t *data, uint64_t left, Store &store) {
    const uint64_t size =
        reading.size_item ? reading.size_item(row, type, *reading.uap, data, left) : item_size(row, type, data, left);
    // Explicit lengths and composed track numbers do not look at what is available; here they have to fit it.
    if (size != 0 && size <= left) return size;
    store.break_off(reason_of(row, type, size, left), data, frn, type);
    return 0;
}

// The same of an item that the bit of an FspecWord announces.
template <typename Store>
uint64_t reported_size(const Reading &reading, unsigned bit, const uint8_t *data, uint64_t left, Store &store) {
    const Slot &slot = reading.slots->slots[bit];
    return reported_size(reading, reading.own->rows[slot.place], slot.type, frn_of_bit(bit), data, left, store);
}

// The items of an FSPEC of which every bit is known, sized without a call wherever that can be done. Returns their end,
// or null when the record broke off.
template <typename Store>
const uint8_t *read_known_items(const Reading &reading, uint64_t announced, const uint8_t *data, uint64_t left,
                                Store &store) {
    const Slot *const slots = reading.slots->slots.data();
    auto next = store.next();
    do {
        const auto bit = static_cast<unsigned>(std::countr_zero(announced));
        const Slot &slot = slots[bit];
        uint64_t size = slot.fixed_octets();
        if (size > left) {
            size = plain_size(slot, reading, data, left);
            if (size - 1 >= left) [[unlikely]] { // 0, or more than there is
                store.take(next);
                size = reported_size(reading, bit, data, left, store);
                if (size == 0) return nullptr;
            }
        }
        left -= size;
        store.put(next, data, size, slot.type, left);
        data += size;
        announced &= announced - 1;
    } while (announced);
    store.take(next);
    return data;
}

// The type that an FRN announces, as the profile answers, and its row.
struct Announced {
    ast_dataitem_type_t type;
    const ItemRow *row;
};
Announced ask(const Reading &reading, uint32_t frn);

// The items of any FSPEC, the profile being asked for each. The same result.
template <typename Store>
const uint8_t *read_asked_items(const Reading &reading, const ast_fspec_t &fspec, uint64_t available, Store &store) {
    const uint8_t *data = fspec.data + fspec.length;
    uint64_t left = available - fspec.length;
    const bool is_whole = each_frn(fspec, [&](uint32_t frn) {
        const Announced item = ask(reading, frn);
        const uint64_t size = reported_size(reading, *item.row, item.type, frn, data, left, store);
        if (size == 0) return false;
        if (store.room() == 0) {
            store.break_off(AST_SPLIT_NO_ROOM, data, frn, item.type);
            return false;
        }
        left -= size;
        auto next = store.next();
        store.put(next, data, size, item.type, left);
        store.take(next);
        data += size;
        return true;
    });
    return is_whole ? data : nullptr;
}

// Whether the word holds all of an FSPEC, everything that it announces is known, and the store takes that many items.
template <typename Store>
bool is_known(const Reading &reading, const FspecWord &fspec, const Store &store) {
    if (fspec.announced == 0 || (fspec.announced & reading.slots->unknown)) return false;
    const uint64_t frns = fspec.octets * kFrnsPerOctet;
    return frns <= store.room() || static_cast<uint64_t>(std::popcount(fspec.announced)) <= store.room();
}

// Reads a record the general way.
template <typename Store>
[[gnu::noinline]] RecordSize read_record_by_asking(const Reading &reading, const uint8_t *data, uint64_t available,
                                                   Store &store) {
    const ast_fspec_t fspec = decode_fspec(data, available);
    if (!fspec.valid || !reading.uap->get_dataitem) {
        const uint32_t reason = fspec.length == 0 ? AST_SPLIT_FSPEC_CUT : AST_SPLIT_FSPEC_EMPTY;
        store.break_off(fspec.valid ? AST_SPLIT_NO_ITEM : reason, data, 0, AST_DATAITEM_NONE);
        return {};
    }
    const uint8_t *const end = read_asked_items(reading, fspec, available, store);
    return end ? RecordSize{static_cast<uint64_t>(end - data), fspec.length} : RecordSize{};
}

// A store has `room()` for items. The next one goes where `next()` says: `put(next, data, size, type, left_behind)`
// writes it and moves on, and `take(next)` takes what was written. Where and why a record broke off it is told by
// `break_off(reason, at, frn, type)`.
template <typename Store>
RecordSize read_record(const Reading &reading, const uint8_t *data, uint64_t available, Store &store) {
    const FspecWord fspec = read_fspec_word(data, available);
    if (!is_known(reading, fspec, store)) [[unlikely]]
        return read_record_by_asking(reading, data, available, store);
    const uint8_t *const end =
        read_known_items(reading, fspec.announced, data + fspec.octets, available - fspec.octets, store);
    return end ? RecordSize{static_cast<uint64_t>(end - data), fspec.octets} : RecordSize{};
}

// Decodes a record in place, whatever the record held before. What lies behind its items is left as it is.
void decode_record(ast_datarecord_t &record, const uint8_t *data, uint64_t available, const Reading &reading);

} // namespace ast
