#include "page/view_shapes.hpp"

#include <algorithm>
#include <cstdint>

#include "show/markup.hpp"

namespace ast::recording::astdump {

namespace {

// Between pieces, behind the place of a text, and before the octets of a table of bits. None is printable, so that no
// text holds them.
constexpr char kGap = '\1';
constexpr char kBehindPlace = '\2';
constexpr char kBits = '\3';

// Addresses of links hold positions.
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kNumber = "0123456789.";

// Octets are kept as they are.
void put_piece(TextBuffer &out, std::string_view piece, char mark) {
    if (mark == kGap) return put_shown(out, piece);
    out.put(kBits);
    out.hex_digits({reinterpret_cast<const uint8_t *>(piece.data()), piece.size()});
}

bool is_mark(char c) { return c == kGap || c == kBits; }

} // namespace

void ViewShapes::clear() {
    shapes_.clear();
    last_.clear();
}

void ViewShapes::begin() {
    view_.markup.clear();
    view_.texts.clear();
    view_.ends.clear();
}

void ViewShapes::put(TextBuffer &lines, TextBuffer &fields, uint32_t kind) {
    if (view_.markup.empty()) return;
    const Shape *&last = last_[kind];
    if (!last || last->view.markup != view_.markup) last = &find_or_put(lines, kind);
    put_fields(fields, *last);
}

void ViewShapes::title(DetailTexts pieces) { element("<h4>", pieces, "</h4>"); }
void ViewShapes::paragraph(DetailTexts pieces) { element("<p>", pieces, "</p>"); }

void ViewShapes::table_begin(DetailTexts header) {
    view_.markup += "<table class=\"detail_table\"><tr>";
    for (const DetailText &text : header) element("<th>", {&text, 1}, "</th>");
    view_.markup += "</tr>";
    is_even_ = false;
}

void ViewShapes::row(DetailTexts cells) {
    row_begin();
    for (const DetailText &text : cells) element("<td>", {&text, 1}, "</td>");
    view_.markup += "</tr>";
}

void ViewShapes::link_row(DetailTexts cells, const ast_detail_link_t &link) {
    row_begin();
    for (const DetailText &text : cells) element("<td>", {&text, 1}, "</td>");
    view_.markup += "<td><a href=\"";
    put_address(link.url);
    view_.markup += "\">";
    add_text(link.title, kGap);
    view_.markup += "</a></td></tr>";
}

void ViewShapes::table_end() { view_.markup += "</table><br/>"; }

void ViewShapes::bits(std::span<const uint8_t> octets) {
    add_text({reinterpret_cast<const char *>(octets.data()), octets.size()}, kBits);
}

void ViewShapes::row_begin() {
    view_.markup += is_even_ ? "<tr class=\"even_row\">" : "<tr>";
    is_even_ = !is_even_;
}

void ViewShapes::element(std::string_view begin, DetailTexts texts, std::string_view end) {
    view_.markup += begin;
    put_texts(texts);
    view_.markup += end;
}

// Neighbours are one text, but for what stands out.
void ViewShapes::put_texts(DetailTexts texts) {
    const size_t begin = view_.texts.size();
    const auto end_text = [&] {
        const size_t last = std::max(begin, view_.ends.empty() ? 0 : view_.ends.back());
        if (view_.texts.size() == last) return;
        view_.markup += kGap;
        view_.ends.push_back(view_.texts.size());
    };
    for (const DetailText &text : texts) {
        const bool is_strong = text.kind == AST_DETAIL_STRONG;
        if (is_strong) end_text();
        view_.markup += is_strong ? "<b>" : "";
        view_.texts += text_of(text);
        if (is_strong) end_text();
        view_.markup += is_strong ? "</b>" : "";
    }
    end_text();
}

void ViewShapes::put_address(std::string_view address) {
    while (!address.empty()) {
        const std::string_view other = address.substr(0, address.find_first_of(kDigits));
        view_.markup += other;
        address.remove_prefix(other.size());
        const std::string_view number = address.substr(0, address.find_first_not_of(kNumber));
        if (!number.empty()) add_text(number, kGap);
        address.remove_prefix(number.size());
    }
}

void ViewShapes::add_text(std::string_view text, char mark) {
    view_.markup += mark;
    view_.texts += text;
    view_.ends.push_back(view_.texts.size());
}

void ViewShapes::put_fields(TextBuffer &fields, const Shape &shape) const {
    fields.put('\t');
    fields.number(shape.number);
    char before = '\t';
    size_t number = 0;
    for (const char mark : view_.markup) {
        if (!is_mark(mark)) continue;
        if (const std::string_view text = view_.text(number); text != shape.view.text(number)) {
            fields.put(before);
            before = kGap;
            fields.number(number);
            fields.put(kBehindPlace);
            put_piece(fields, text, mark);
        }
        ++number;
    }
}

const ViewShapes::Shape &ViewShapes::find_or_put(TextBuffer &lines, uint32_t kind) {
    std::string key = view_.markup;
    key.append(reinterpret_cast<const char *>(&kind), sizeof kind);
    const auto [known, is_new] = shapes_.try_emplace(std::move(key), Shape{shapes_.size(), view_});
    if (is_new) put_line(lines, view_);
    return known->second;
}

void ViewShapes::put_line(TextBuffer &lines, const View &view) {
    lines.put("S\t");
    size_t number = 0;
    for (const char mark : view.markup) {
        if (!is_mark(mark)) {
            lines.put(mark);
            continue;
        }
        lines.put(kGap);
        put_piece(lines, view.text(number++), mark);
        lines.put(kGap);
    }
    lines.put('\n');
}

} // namespace ast::recording::astdump
