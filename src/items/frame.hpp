// The frame around an item. An item states only what is its own, as a struct named by its reference:
//
//     struct I048_040 : Item<48040, ast_dataitem_048_040_t, fixed<4>> {         // type, value record, size
//         static void read(Value &value, const uint8_t *octets);                // octets into the value
//         static void summarize(TextWriter &out, const Value &value);           // one line
//         static void show(ViewWriter &view, const Value &value);               // the detail view
//         static bool write(uint8_t *octets, Value &value);                     // the value into octets; false refuses
//         it
//     };
//
// and the frame checks what may be read and written, makes the exported functions, and binds them to a row:
//
//     AST_DEFINE_ENCODED_ITEM(I048_040, ast_dataitem_048_040)
//     constexpr ItemRow kItems[] = {own<I048_040>("Measured Position in Polar Co-ordinates"), ...};
//
// An item that has `kRows` needs no `read`, `show` and `write`; rows.hpp tells how they say it all. `read` gets octets
// that the size rule accepts, and may return false for others that are no such item; summarize and show get valid
// values only, and an item that `kShowsUnread` has a table without rows for others. Where the octets and the value do
// not say all, they may take the item (its size, its type) as a further argument, and `read` takes it in place of the
// octets. `write` may take the type, and returns how many octets it wrote where that varies.
#pragma once

#include <type_traits>

#include "codec/category.hpp"
#include "codec/item.hpp"
#include "items/rows.hpp"
#include "view/html.hpp"

namespace ast {

// An item of one type alone.
template <ast_dataitem_type_t Type, typename ItemValue, SizeRule Rule>
struct Item {
    using Value = ItemValue;
    static constexpr ast_dataitem_type_t kType = Type;
    static constexpr SizeRule kSize = Rule;
};

// A layout that items of several types share; its decoder does not look at the type.
template <typename ItemValue, SizeRule Rule>
using SharedLayout = Item<AST_DATAITEM_NONE, ItemValue, Rule>;

// ---- Reading ----

// What a decoder returns for other items: all zero, or the item's `kDefault`.
template <typename I>
constexpr typename I::Value default_value() {
    if constexpr (requires { I::kDefault; })
        return I::kDefault;
    else
        return {};
}

// Whether an item can be read: of the type, and of the size where that is fixed. An item may say so itself.
template <typename I>
bool accepts(const ast_dataitem_t *item) {
    if (!is_readable(item)) return false;
    if constexpr (requires { I::accepts(*item); })
        return I::accepts(*item);
    else if constexpr (I::kSize.kind == SizeRule::Kind::Fixed)
        return (I::kType == AST_DATAITEM_NONE || item->type == I::kType) && item->size == I::kSize.octets;
    else
        return (I::kType == AST_DATAITEM_NONE || item->type == I::kType) && item->size > 0;
}

template <typename I>
void read_rows(typename I::Value &value, const ast_dataitem_t &item) {
    if constexpr (I::kSize.kind == SizeRule::Kind::Fixed)
        read_rows<I>(value, item.data);
    else
        read_rows<I>(value, item.data, item.size);
}

template <typename I>
typename I::Value decode(const ast_dataitem_t *item) {
    typename I::Value value = default_value<I>();
    if (!accepts<I>(item)) return value;
    const auto read = [&] {
        if constexpr (requires { I::read(value, item->data); })
            return I::read(value, item->data);
        else if constexpr (requires { I::read(value, *item); })
            return I::read(value, *item);
        else
            return read_rows<I>(value, *item);
    };
    if constexpr (std::is_same_v<decltype(read()), bool>) {
        if (!read()) return default_value<I>();
    } else {
        read();
    }
    value.valid = true;
    return value;
}

// ---- Showing ----

template <typename I>
void show_rows(ViewWriter &view, const typename I::Value &value, const ast_dataitem_t &item) {
    DetailTable table = table_of_rows<I>(view);
    show_rows<I>(table, value, item.data, item.size);
}

template <typename I>
void summarize(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto value = decode<I>(item);
    if (!value.valid) return;
    if constexpr (requires { I::summarize(out, value, *item); })
        I::summarize(out, value, *item);
    else
        I::summarize(out, value);
}

template <typename I>
void show(ViewWriter &view, const ast_dataitem_t *item) {
    const auto value = decode<I>(item);
    if constexpr (requires { I::kShowsUnread; })
        if (!value.valid) table_of_rows<I>(view);
    if (!value.valid) return;
    if constexpr (requires { I::show(view, value, *item); })
        I::show(view, value, *item);
    else if constexpr (requires { I::show(view, value); })
        I::show(view, value);
    else
        show_rows<I>(view, value, *item);
}

template <typename I>
void show_as_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlView view(text, capacity);
    show<I>(view, item);
}

// A detail view of nothing, for items whose summary says all.
inline void show_nothing_as_html(char *text, uint64_t capacity, const ast_dataitem_t *) {
    set_text(text, capacity, "");
}
inline constexpr DetailViews show_nothing = {show_nothing_as_html};

// ---- Writing ----

// The octets of an item before its value is known: all of a fixed one, the first part of others.
template <typename I>
constexpr uint64_t kLeastOctets = I::kSize.kind == SizeRule::Kind::Fixed ? I::kSize.octets : 1;

// The room that an encoder asks for before it looks at the value.
template <typename I>
constexpr uint64_t needed_room() {
    if constexpr (requires { I::kNeededRoom; })
        return I::kNeededRoom;
    else
        return kLeastOctets<I>;
}

// The most octets that an encoder writes: those of its size rule, unless it repeats elements and says so.
template <typename I>
constexpr uint64_t most_octets() {
    if constexpr (requires { I::kMostOctets; })
        return I::kMostOctets;
    else
        return I::kSize.octets;
}

// Writes the octets of a valid value and returns how many they are, 0 when the value is refused.
template <typename I>
uint64_t write(uint8_t *octets, typename I::Value &value, ast_dataitem_type_t type) {
    const auto write = [&] {
        if constexpr (requires { I::write(octets, value, type); })
            return I::write(octets, value, type);
        else if constexpr (requires { I::write(octets, value); })
            return I::write(octets, value);
        else
            return write_rows<I>(octets, value);
    };
    if constexpr (std::is_same_v<decltype(write()), bool>)
        return write() ? kLeastOctets<I> : 0;
    else
        return write();
}

// Describes in result what is to be written, and writes it when there is a valid value and room for it. Nothing is
// written otherwise. An item may have a `prepare` that sees its value even when that is not valid.
template <typename I>
void encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source) {
    auto *const value = source ? static_cast<typename I::Value *>(source->value) : nullptr;
    if constexpr (requires { I::prepare(*value); })
        if (value) I::prepare(*value);
    if (!result) return;
    *result = {};
    result->data = buffer;
    if (!source) return;
    result->type = source->type;
    result->size = kLeastOctets<I>;
    if (!value || !value->valid || !buffer || length < needed_room<I>()) return;
    uint8_t octets[most_octets<I>()];
    const uint64_t size = write<I>(octets, *value, source->type);
    if (size == 0 || size > length) return;
    copy_octets(buffer, octets, size);
    result->size = size;
    result->valid = true;
}

// ---- Rows ----

// The exported functions of an item, as far as it has them.
template <typename I>
constexpr SummaryView *kSummaryOf = nullptr;
template <typename I>
constexpr DetailViews kDetailOf{};
template <typename I>
constexpr Encoder *kEncoderOf = nullptr;

// One that has a summary but no detail view has an empty one.
constexpr DetailViews detail_beside(SummaryView *summary, const DetailViews &detail) {
    return summary && !detail.html ? show_nothing : detail;
}

// The row of an item of its own.
template <typename I>
constexpr ItemRow own(const char *name, uint16_t variant_of = 0) {
    const Handlers handlers = {I::kSize, kSummaryOf<I>, detail_beside(kSummaryOf<I>, kDetailOf<I>), kEncoderOf<I>};
    return {item_number(I::kType), name, handlers, nullptr, variant_of};
}

} // namespace ast

// Each defines one exported function of an item, by its full name.
#define AST_DEFINE_DECODE(item_layout, function)                                                                       \
    item_layout::Value function(const ast_dataitem_t *item) { return ast::decode<item_layout>(item); }

#define AST_DEFINE_SUMMARY(item_layout, function)                                                                      \
    void function(char *text, uint64_t capacity, const ast_dataitem_t *item) {                                         \
        ast::summarize<item_layout>(text, capacity, item);                                                             \
    }                                                                                                                  \
    template <>                                                                                                        \
    [[maybe_unused]] constexpr ast::SummaryView *ast::kSummaryOf<item_layout> = function;

#define AST_DEFINE_DETAIL(item_layout, function)                                                                       \
    template <>                                                                                                        \
    void ast::show_pieces<function>(ast::ViewWriter & view, const ast_dataitem_t *item) {                              \
        ast::show<item_layout>(view, item);                                                                            \
    }                                                                                                                  \
    void function(char *text, uint64_t capacity, const ast_dataitem_t *item) {                                         \
        ast::show_as_html<item_layout>(text, capacity, item);                                                          \
    }                                                                                                                  \
    template <>                                                                                                        \
    [[maybe_unused]] constexpr ast::DetailViews ast::kDetailOf<item_layout> = ast::kDetailViews<function>;

#define AST_DEFINE_VIEWS(item_layout, summary, detail)                                                                 \
    AST_DEFINE_SUMMARY(item_layout, summary)                                                                           \
    AST_DEFINE_DETAIL(item_layout, detail)

#define AST_DEFINE_ENCODE(item_layout, function)                                                                       \
    void function(ast_dataitem_t *result, uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source) {        \
        ast::encode<item_layout>(result, buffer, length, source);                                                      \
    }                                                                                                                  \
    template <>                                                                                                        \
    [[maybe_unused]] constexpr ast::Encoder *ast::kEncoderOf<item_layout> = function;

// The functions of an item by what their names begin with: its decoder and views, these without a detail view, and all
// with its encoder.
#define AST_DEFINE_ITEM(item_layout, name)                                                                             \
    AST_DEFINE_DECODE(item_layout, name##_decode)                                                                      \
    AST_DEFINE_VIEWS(item_layout, name##_get_summary, name##_get_detail_html)

#define AST_DEFINE_SUMMARIZED_ITEM(item_layout, name)                                                                  \
    AST_DEFINE_DECODE(item_layout, name##_decode)                                                                      \
    AST_DEFINE_SUMMARY(item_layout, name##_get_summary)

#define AST_DEFINE_ENCODED_ITEM(item_layout, name)                                                                     \
    AST_DEFINE_ITEM(item_layout, name)                                                                                 \
    AST_DEFINE_ENCODE(item_layout, name##_encode)
