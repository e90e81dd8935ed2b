#include "page/item_texts.hpp"

#include "show/markup.hpp"
#include "show/video.hpp"

namespace ast::recording::astdump {

namespace {

// Between the ids and the names of subfields. No text holds it.
constexpr char kGap = '\1';

// Whether a compound item is its primary subfield and the others, one behind the other: the page takes their octets
// from its own.
bool is_whole(const ast_dataitem_t &item, const ast_subfields_t &split) {
    if (!split.valid) return false;
    const uint8_t *at = item.data + split.primary.length;
    for (uint64_t i = 0; i < split.subfield_count; ++i) {
        const ast_subfield_t &subfield = split.subfields[i];
        if (!subfield.present) continue;
        if (subfield.data != at || subfield.size == 0) return false;
        at += subfield.size;
    }
    return at == item.data + item.size;
}

} // namespace

void ItemTexts::Numbers::clear() {
    known_.clear();
    count_ = 0;
}

ItemTexts::Numbers::Entry ItemTexts::Numbers::enter(uint32_t type, Octets octets, uint32_t reading) {
    key_.assign(reinterpret_cast<const char *>(&type), sizeof type);
    key_.append(reinterpret_cast<const char *>(&reading), sizeof reading);
    key_.append(reinterpret_cast<const char *>(octets.data()), octets.size());
    const auto [known, is_new] = known_.try_emplace(key_, count_);
    if (is_new) ++count_;
    return {known->second, is_new};
}

void ItemTexts::clear() {
    items_.clear();
    subfields_.clear();
    types_.clear();
    shapes_.clear();
}

std::optional<size_t> ItemTexts::find_or_put(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading) {
    if (is_video(item)) {
        items_.add();
    } else {
        const auto [number, is_new] = items_.enter(item.type, {item.data, item.size}, reading.number);
        if (!is_new) return number;
    }
    const Type &type = find_or_put_type(out, item.type, reading.uap);
    fields_.clear();
    const bool is_split = type.is_compound && put_compound(out, item, reading);
    if (!is_split) {
        shapes_.begin();
        views_.detail(shapes_, item, reading);
        shapes_.put(out, fields_, item.type);
    }
    out.put(is_split ? "C\t" : "D\t");
    out.number(type.number);
    out.put('\t');
    out.hex_digits({item.data, item.size});
    out.put('\t');
    put_shown(out, views_.summary(item, reading));
    out.put(fields_.text());
    out.put('\n');
    return std::nullopt;
}

const ItemTexts::Type &ItemTexts::find_or_put_type(TextBuffer &out, ast_dataitem_type_t type, const ast_uap_t &uap) {
    const auto [known, is_new] = types_.try_emplace(type, Type{types_.size(), ItemViews::is_compound(type)});
    if (!is_new) return known->second;
    out.put("T\t");
    out.put(ast_dataitem_type_to_str(type));
    out.put('\t');
    out.put(escape(item_name(type, uap)));
    const uint64_t subfields = known->second.is_compound ? ast_dataitem_subfields_get_number(type) : 0;
    for (uint32_t number = 1; number <= subfields; ++number) {
        const uint32_t subfield = AST_SUBFIELD_TYPE(type, number);
        out.put(number == 1 ? '\t' : kGap);
        put_shown(out, ast_subfield_get_id(subfield));
        out.put(kGap);
        put_shown(out, ast_subfield_get_name(subfield));
    }
    out.put('\n');
    return known->second;
}

// The page makes the library's view of a compound item from those of its subfields: many are those of items before,
// though the items are not. Not of one that is not whole.
bool ItemTexts::put_compound(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading) {
    const ast_subfields_t split = ast_dataitem_subfields_decode(&item);
    if (!is_whole(item, split)) return false;
    fields_.put('\t');
    fields_.number(split.subfield_count);
    char before = '\t';
    for (uint32_t number = 1; number <= split.subfield_count; ++number) {
        const ast_subfield_t &subfield = split.subfields[number - 1];
        if (!subfield.present) continue;
        fields_.put(before);
        before = ',';
        fields_.number(number);
        fields_.put(':');
        const auto known = subfields_.enter(subfield.type, {subfield.data, subfield.size}, reading.number);
        if (known.is_new)
            put_subfield(out, item, subfield, number, reading);
        else
            fields_.number(known.number);
    }
    return true;
}

void ItemTexts::put_subfield(TextBuffer &out, const ast_dataitem_t &item, const ast_subfield_t &subfield,
                             uint32_t number, const Reading &reading) {
    subfield_.clear();
    shapes_.begin();
    views_.subfield_detail(shapes_, item, reading, number);
    shapes_.put(out, subfield_, subfield.type);
    out.put("P\t");
    out.number(subfield.size);
    out.put('\t');
    put_shown(out, views_.subfield_summary(item, reading, number));
    out.put(subfield_.text());
    out.put('\n');
}

} // namespace ast::recording::astdump
