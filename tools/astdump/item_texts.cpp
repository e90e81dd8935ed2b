#include "item_texts.hpp"

#include "markup.hpp"
#include "video.hpp"

namespace astdump {

namespace {

// Between pieces, and behind the place of a text. Neither is printable, so that no text holds them.
constexpr char kGap = '\1';
constexpr char kBehindPlace = '\2';

std::string key_of(const ast_dataitem_t &item, const Reading &reading) {
    std::string key(reinterpret_cast<const char *>(&item.type), sizeof item.type);
    key.append(reinterpret_cast<const char *>(&reading.number), sizeof reading.number);
    return key.append(reinterpret_cast<const char *>(item.data), item.size);
}

} // namespace

void ItemTexts::clear() {
    items_.clear();
    types_.clear();
    shapes_.clear();
}

std::optional<size_t> ItemTexts::find_or_put(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading) {
    std::string key = key_of(item, reading);
    if (is_video(item)) key += std::to_string(items_.size());
    const auto [known, is_new] = items_.try_emplace(std::move(key), items_.size());
    if (!is_new) return known->second;
    const size_t type_number = type(out, item.type, reading.uap);
    read_detail(item, reading);
    const Shape *const detail = markup_.empty() ? nullptr : &shape(out);
    out.put("D\t");
    out.number(type_number);
    out.put('\t');
    out.hex_digits({item.data, item.size});
    out.put('\t');
    out.put(escape(printable(views_.summary(item, reading))));
    if (detail) {
        out.put('\t');
        out.number(detail->number);
        out.put('\t');
        put_changes(out, *detail);
    }
    out.put('\n');
    return std::nullopt;
}

size_t ItemTexts::type(TextBuffer &out, ast_dataitem_type_t type, const ast_uap_t &uap) {
    const auto [known, is_new] = types_.try_emplace(type, types_.size());
    if (is_new) {
        out.put("T\t");
        out.put(ast_dataitem_type_to_str(type));
        out.put('\t');
        out.put(escape(item_name(type, uap)));
        out.put('\n');
    }
    return known->second;
}

void ItemTexts::read_detail(const ast_dataitem_t &item, const Reading &reading) {
    markup_.clear();
    texts_.clear();
    read_fragment(
        views_.detail(item, reading), [&](std::string_view markup) { markup_ += markup; },
        [&](std::string_view text) {
            markup_ += kGap;
            texts_.push_back(escape(text));
        });
}

// Items of all types share the shapes: some views are those of several.
const ItemTexts::Shape &ItemTexts::shape(TextBuffer &out) {
    const auto [known, is_new] = shapes_.try_emplace(markup_, Shape{shapes_.size(), texts_});
    if (!is_new) return known->second;
    out.put("S\t");
    size_t text = 0;
    for (const char c : markup_) {
        out.put(c);
        if (c != kGap) continue;
        out.put(texts_[text++]);
        out.put(kGap);
    }
    out.put('\n');
    return known->second;
}

void ItemTexts::put_changes(TextBuffer &out, const Shape &shape) const {
    bool is_first = true;
    for (size_t i = 0; i < texts_.size(); ++i) {
        if (texts_[i] == shape.texts[i]) continue;
        if (!is_first) out.put(kGap);
        out.number(i);
        out.put(kBehindPlace);
        out.put(texts_[i]);
        is_first = false;
    }
}

} // namespace astdump
