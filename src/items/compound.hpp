// The frame around the subfields of a compound item. A kind of subfield is a struct of
//
//     struct Runlength {
//         using Value = decltype(ast_dataitem_048_130_t::srl);                  // opens with `present`
//         static void read(Value &value, const uint8_t *octets);
//         static void summarize(TextWriter &out, const Value &value);
//         static void show(ViewWriter &view, const Value &value);
//     };
//
// and a subfield is one row, with the member of the item's value record that it fills:
//
//     constexpr SubfieldRow kPlotSubfields[] = {
//         subfield<&Plot::srl, Runlength>("SRL", "SSR Plot Runlength", fixed<1>), ...
//         {"APD", "Difference in Azimuth between PSR and SSR plot", fixed<1>},  // its octets alone
//     };
//
// A kind may leave summarize and show out, and may have rows (see rows.hpp) in place of read and show; it is shown if
// it says in which columns. `read` may take the subfield in place of its octets where its size matters, `show` the
// whole item behind the value where the application asks for it.
#pragma once

#include "items/frame.hpp"
#include "view/subfield_view.hpp"

namespace ast {

// The value of one subfield, all zero when its octets are not all there.
template <typename Kind>
typename Kind::Value read_subfield(const ast_subfield_t &subfield) {
    typename Kind::Value value{};
    if (!is_whole(subfield)) return value;
    value.present = true;
    if constexpr (requires { Kind::read(value, subfield.data); })
        Kind::read(value, subfield.data);
    else if constexpr (requires { Kind::read(value, subfield); })
        Kind::read(value, subfield);
    else
        read_rows<Kind>(value, subfield.data);
    return value;
}

template <typename Member>
struct OwnerOf;

template <typename Owner, typename Value>
struct OwnerOf<Value Owner::*> {
    using Type = Owner;
};

template <auto Member, typename Kind>
struct SubfieldOf {
    using ItemValue = typename OwnerOf<decltype(Member)>::Type;

    static void read(void *item_value, const ast_subfield_t &subfield) {
        static_cast<ItemValue *>(item_value)->*Member = read_subfield<Kind>(subfield);
    }
    static constexpr auto summary() {
        if constexpr (requires(TextWriter & out, const typename Kind::Value &value) { Kind::summarize(out, value); })
            return +[](TextWriter &out, const ast_subfield_t &subfield) {
                Kind::summarize(out, read_subfield<Kind>(subfield));
            };
        else
            return nullptr;
    }
    static void show(ViewWriter &view, const ast_subfield_t &subfield, const ast_dataitem_t &item) {
        if constexpr (requires { Kind::show(view, read_subfield<Kind>(subfield), item); })
            Kind::show(view, read_subfield<Kind>(subfield), item);
        else if constexpr (requires { Kind::show(view, read_subfield<Kind>(subfield)); })
            Kind::show(view, read_subfield<Kind>(subfield));
        else if constexpr (requires { Kind::kColumns; })
            show_rows<Kind>(view, read_subfield<Kind>(subfield), item);
    }
    static constexpr SubfieldHandlers kHandlers = {read, summary(), show};
};

template <auto Member, typename Kind>
constexpr SubfieldRow subfield(const char *id, const char *name, const SizeRule &size) {
    return {id, name, size, &SubfieldOf<Member, Kind>::kHandlers, sizeof(typename SubfieldOf<Member, Kind>::ItemValue)};
}

// Fills the members of a compound item's value record. Value has a member `subfields`.
template <typename Value, size_t N>
Value decode_compound(const Compound &compound, const SubfieldRow (&rows)[N], const ast_dataitem_t *item) {
    Value value{};
    if (!is_readable(item) || item->type != compound.type) return value;
    value.subfields = ast_dataitem_subfields_decode(item);
    if (!value.subfields.valid) return {};
    for (uint64_t i = 0; i < N && i < value.subfields.subfield_count; ++i)
        if (rows[i].handlers && is_whole(value.subfields.subfields[i]))
            rows[i].handlers->read(&value, value.subfields.subfields[i]);
    value.valid = true;
    return value;
}

// Whether every subfield that is read fills a member of Value, as far as its size tells.
template <typename Value, size_t N>
constexpr bool fill(const SubfieldRow (&rows)[N]) {
    for (const SubfieldRow &row : rows)
        if (row.filled_octets != 0 && row.filled_octets != sizeof(Value)) return false;
    return true;
}

// Fills the member of one subfield alone, by its number, where the item has it.
void read_subfield_of(const Compound &compound, const ast_dataitem_t *item, uint32_t number, void *item_value);

} // namespace ast

// Each defines one exported function of a compound item, by its full name.
#define AST_DEFINE_COMPOUND_DECODE(compound, rows, item_value, function)                                               \
    static_assert(ast::fill<item_value>(rows));                                                                        \
    item_value function(const ast_dataitem_t *item) { return ast::decode_compound<item_value>(compound, rows, item); }

#define AST_DEFINE_SUBFIELD_SUMMARY(compound, function)                                                                \
    void function(char *text, uint64_t capacity, const ast_dataitem_t *item, uint32_t subfield_type) {                 \
        ast::summarize_subfield(compound, text, capacity, item, subfield_type);                                        \
    }

#define AST_DEFINE_SUBFIELD_DETAIL(compound, function)                                                                 \
    void function(char *text, uint64_t capacity, const ast_dataitem_t *item, uint32_t subfield_type) {                 \
        ast::HtmlView view(text, capacity);                                                                            \
        ast::show_subfield(view, compound, item, subfield_type);                                                       \
    }

// For subfields that are shown as nothing.
#define AST_DEFINE_EMPTY_SUBFIELD_VIEW(function)                                                                       \
    void function(char *text, uint64_t capacity, const ast_dataitem_t *, uint32_t) {                                   \
        ast::set_text(text, capacity, "");                                                                             \
    }

// A compound item with a value record and with views of its subfields, whose functions are named by its reference.
#define AST_DEFINE_COMPOUND_ITEM(compound, item_type, rows, item_value, reference, ...)                                \
    AST_DEFINE_COMPOUND(compound, item_type, rows, ast_dataitem_##reference##_get_size,                                \
                        ast_subfield_##reference##_get_size, ast_subfield_##reference##_get_id,                        \
                        ast_subfield_##reference##_get_name, ast_subfield_##reference##_get_summary,                   \
                        ast_subfield_##reference##_get_detail_html __VA_OPT__(, ) __VA_ARGS__)                         \
    AST_DEFINE_COMPOUND_DECODE(compound, rows, item_value, ast_dataitem_##reference##_decode)                          \
    AST_DEFINE_SUBFIELD_SUMMARY(compound, ast_subfield_##reference##_get_summary)                                      \
    AST_DEFINE_SUBFIELD_DETAIL(compound, ast_subfield_##reference##_get_detail_html)
