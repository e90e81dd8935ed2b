#include "ask/shared_items.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>

namespace ast::recording {

namespace {

constexpr uint32_t kNone = 1000; // no item number

// Where categories have the items: their numbers, in the order of the keywords.
struct Numbers {
    uint32_t category;
    uint32_t items[3]; // data source, time of day, message type
};

constexpr Numbers kNumbers[] = {
    {2, {10, 30, 0}},          {4, {10, 20, 0}},   {7, {10, 140, 410}},   {8, {10, 90, 0}},      {9, {10, 70, 0}},
    {11, {10, 140, 0}},        {15, {10, 145, 0}}, {18, {36, 2, 0}},      {23, {10, 70, 0}},     {25, {10, 70, 0}},
    {32, {10, 20, 35}},        {34, {10, 30, 0}},  {62, {10, 70, kNone}}, {63, {10, 30, kNone}}, {65, {10, 30, 0}},
    {150, {kNone, kNone, 30}}, {205, {10, 30, 0}},
};
constexpr Numbers kUsual = {0, {10, 140, 0}};

const Numbers &numbers_of(uint32_t category) {
    const auto *const found = std::ranges::find(kNumbers, category, &Numbers::category);
    return found == std::end(kNumbers) ? kUsual : *found;
}

// Each takes the first values of an item.
struct Values {
    TextBuffer &out;
    unsigned count = 0;
    bool is_usual_time = false; // as most categories have it
};

void put_sac_sic(void *context, const ast_field_value_t *value) {
    auto &values = *static_cast<Values *>(context);
    if (values.count == 2) return;
    if (values.count++ == 1) values.out.put('/');
    values.out.number(value->raw, 3, '0');
}

void put_milliseconds(TextBuffer &out, uint64_t milliseconds) {
    out.number(milliseconds / 3'600'000, 2, '0');
    out.put(':');
    out.number(milliseconds / 60'000 % 60, 2, '0');
    out.put(':');
    out.number(milliseconds / 1000 % 60, 2, '0');
    out.put('.');
    out.number(milliseconds % 1000, 3, '0');
}

constexpr uint32_t kUsualTimeOctets = 3;
constexpr uint64_t kUsualTimeUnits = 128; // per second

void put_usual_time(TextBuffer &out, const uint8_t *octets) {
    const uint64_t raw = uint64_t{octets[0]} << 16 | uint64_t{octets[1]} << 8 | octets[2];
    put_milliseconds(out, raw * 1000 / kUsualTimeUnits);
}

void put_time_of_day(void *context, const ast_field_value_t *value) {
    auto &values = *static_cast<Values *>(context);
    if (values.count++ != 0 || !value->has_number) return;
    put_milliseconds(values.out, static_cast<uint64_t>(value->number * 1000));
    const ast_field_t &field = *value->field;
    values.is_usual_time = field.kind == AST_FIELD_UNSIGNED && field.bits == 8 * kUsualTimeOctets &&
                           field.numerator == 1 && field.denominator == kUsualTimeUnits && field.offset == 0;
}

// What goes without saying in a column of types, so that the markers read as those of category 002 do.
constexpr std::string_view kEndings[] = {" message", " Message", " marker", " crossing"};

void put_message_type(void *context, const ast_field_value_t *value) {
    auto &values = *static_cast<Values *>(context);
    if (values.count++ != 0) return;
    std::string_view text = value->text;
    for (const std::string_view ending : kEndings)
        if (text.ends_with(ending)) text.remove_suffix(ending.size());
    if (text.empty())
        values.out.number(value->raw);
    else
        values.out.put(text);
}

constexpr ast_field_value_visitor_t kPut[] = {put_sac_sic, put_time_of_day, put_message_type};
static_assert(AST_KEYWORD_SACSIC == 0 && AST_KEYWORD_TIMEOFDAY == 1 && AST_KEYWORD_MSGTYPE == 2);
static_assert(std::size(kPut) == AST_KEYWORD_MSGTYPE + 1);

// A record has most of what the last one had.
struct Last {
    static constexpr size_t kOctets = 8;

    bool is_alike(const ast_dataitem_t &item, const ast_uap_t &uap) const {
        return item.type == type && item.size == size && uap.get_dataitem == get_dataitem;
    }
    bool is_same(const ast_dataitem_t &item) const {
        return std::equal(item.data, item.data + item.size, octets.begin());
    }

    void keep(const ast_dataitem_t &item, const ast_uap_t &uap, std::string_view shown, const Values &values) {
        if (item.size > kOctets) return;
        is_usual_time = values.is_usual_time && item.size == kUsualTimeOctets;
        type = item.type;
        size = item.size;
        get_dataitem = uap.get_dataitem;
        std::copy_n(item.data, item.size, octets.begin());
        text = shown;
    }

    ast_dataitem_type_t type = AST_DATAITEM_NONE;
    uint64_t size = 0;
    ast_dataitem_type_t (*get_dataitem)(uint32_t category, uint32_t frn) = nullptr;
    bool is_usual_time = false;
    std::array<uint8_t, kOctets> octets{};
    std::string text;
};

constexpr size_t kCategories = 64; // that are kept apart, by the end of their numbers

} // namespace

bool put_shared_item(TextBuffer &out, const ast_datarecord_t &record, uint32_t keyword) {
    if (!is_shared(keyword)) return false;
    const ast_dataitem_type_t type = AST_DATAITEM_TYPE(record.category, numbers_of(record.category).items[keyword]);
    const auto *const end = record.items + record.item_count;
    const auto *const item = std::find_if(record.items, end, [&](const ast_dataitem_t &i) { return i.type == type; });
    if (item == end) return false;
    thread_local std::array<std::array<Last, std::size(kPut)>, kCategories> lasts;
    Last &last = lasts[record.category % kCategories][keyword];
    const size_t begin = out.size();
    const bool is_alike = last.is_alike(*item, record.uap);
    if (is_alike && last.is_usual_time) {
        put_usual_time(out, item->data);
    } else if (is_alike && last.is_same(*item)) {
        out.put(last.text);
    } else {
        Values values{out};
        ast_dataitem_walk(item, record.uap, 0, kPut[keyword], &values);
        last.keep(*item, record.uap, out.text().substr(begin), values);
    }
    return out.size() > begin;
}

} // namespace ast::recording
