// Flat records: taking a record apart into one value per item, and putting it together again. A category lists the
// members of its flat record; the rest is the same for all.
#pragma once

#include <algorithm>
#include <iterator>

#include "items/frame.hpp"

namespace ast {

// One member: the item that it holds, how it is filled, and, when it is put together again, the value to encode (null
// when it is not valid).
template <typename Flat>
struct FlatMember {
    ast_dataitem_type_t type;
    void (*fill)(Flat &flat, const ast_dataitem_t *item);
    void *(*value)(Flat &flat);
};

template <auto Member>
struct FlatOf;

template <typename Flat, typename Value, Value Flat::*Member>
struct FlatOf<Member> {
    template <auto Decode>
    static void fill(Flat &flat, const ast_dataitem_t *item) {
        flat.*Member = Decode(item);
    }
    static void *value(Flat &flat) { return (flat.*Member).valid ? &(flat.*Member) : nullptr; }
    using Record = Flat;
};

// A member that is taken apart only.
template <auto Member, auto Decode>
constexpr auto taken_apart(ast_dataitem_type_t type) {
    using Of = FlatOf<Member>;
    return FlatMember<typename Of::Record>{type, Of::template fill<Decode>, nullptr};
}

// A member that is also put together.
template <auto Member, auto Decode>
constexpr auto both_ways(ast_dataitem_type_t type) {
    using Of = FlatOf<Member>;
    return FlatMember<typename Of::Record>{type, Of::template fill<Decode>, Of::value};
}

// The same for items that have a frame of their own.
template <auto Member, typename Own>
constexpr auto taken_apart() {
    return taken_apart<Member, decode<Own>>(Own::kType);
}

template <auto Member, typename Own>
constexpr auto both_ways() {
    return both_ways<Member, decode<Own>>(Own::kType);
}

// Reports an item that a flat record has no member for, in one of two forms.
inline void report_quietly(ast_dataitem_type_t type) {
    ast_log(AST_LOG_DEBUG, "Failed to disassemble dataitem %s.", ast_dataitem_type_to_str(type));
}

inline void report_as_warning(ast_dataitem_type_t type) {
    ast_log(AST_LOG_WARNING, "Failed to disassemble dataitem : %s.", ast_dataitem_type_to_str(type));
}

// Fills a flat record that is all zero. Of several items of a type the last one stays.
template <typename Flat, size_t N>
void disassemble(Flat &flat, const ast_datarecord_t *record, uint32_t category, const FlatMember<Flat> (&members)[N],
                 void (*report)(ast_dataitem_type_t)) {
    if (!record || !record->valid || record->category != category) return;
    const uint64_t count = std::min<uint64_t>(record->item_count, std::size(record->items));
    for (uint64_t i = 0; i < count; ++i) {
        const ast_dataitem_t &item = record->items[i];
        const auto *const member =
            std::find_if(members, members + N, [&](const FlatMember<Flat> &each) { return each.type == item.type; });
        if (member != members + N)
            member->fill(flat, &item);
        else
            report(item.type);
    }
    flat.valid = true;
}

// The same by value.
template <typename Flat, size_t N>
Flat disassembled(const ast_datarecord_t *record, uint32_t category, const FlatMember<Flat> (&members)[N],
                  void (*report)(ast_dataitem_type_t)) {
    Flat flat{};
    disassemble(flat, record, category, members, report);
    return flat;
}

// The same into a caller's record, as whatever it was before; null for none.
template <typename Flat, size_t N>
Flat *disassemble_into(Flat *flat, const ast_datarecord_t *record, uint32_t category,
                       const FlatMember<Flat> (&members)[N], void (*report)(ast_dataitem_type_t)) {
    if (flat) *flat = disassembled(record, category, members, report);
    return flat;
}

// Encodes the valid members in the order of their list.
template <typename Flat, size_t N>
ast_datarecord_t assemble(uint8_t *buffer, uint64_t length, Flat *flat, uint32_t category, const ast_uap_t &uap,
                          const FlatMember<Flat> (&members)[N]) {
    ast_datarecord_src_t source{};
    source.category = category;
    source.uap = uap;
    for (const FlatMember<Flat> &member : members) {
        void *const value = flat && member.value ? member.value(*flat) : nullptr;
        if (value) source.items[source.item_count++] = {member.type, value};
    }
    return ast_datarecord_encode(buffer, length, &source);
}

} // namespace ast
