#include "page/view_shapes.hpp"

#include <ast.h>
#include <charconv>
#include <cstdint>

#include "page/markup.hpp"
#include "show/view_pattern.hpp"

namespace ast::recording::astdump {

namespace {

// Between pieces, behind the place of a text, and before the octets of a table of bits. None is printable, so that no
// text holds them.
constexpr char kGap = '\1';
constexpr char kBehindPlace = '\2';
constexpr char kBits = '\3';

// Addresses of links hold positions.
constexpr std::string_view kLink = "<a ";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kNumber = "0123456789.";

constexpr std::string_view kBitTable = "<table class=\"bin_table\">";
constexpr std::string_view kTableEnd = "</table>";
constexpr std::string_view kBeforeOctet = " - ";

std::string_view bit_table_at(std::string_view html) {
    if (!html.starts_with(kBitTable)) return {};
    const size_t end = html.find(kTableEnd);
    return end == std::string_view::npos ? std::string_view() : html.substr(0, end + kTableEnd.size());
}

// What the captions of a table of bits say.
std::vector<uint8_t> octets_of(std::string_view table) {
    std::vector<uint8_t> octets;
    for (size_t at = table.find(kBeforeOctet); at != std::string_view::npos; at = table.find(kBeforeOctet, at + 1)) {
        uint8_t octet = 0;
        const char *const digits = table.data() + at + kBeforeOctet.size();
        if (std::from_chars(digits, digits + 2, octet, 16).ec == std::errc()) octets.push_back(octet);
    }
    return octets;
}

// Whether the library has made it, rather than that an item carried it as characters.
bool is_bit_table(std::string_view table, const std::vector<uint8_t> &octets) {
    std::string made(table.size() + 1, '\0');
    ast_html_gen_bin_table(made.data(), made.size(), octets.data(), octets.size());
    return made.c_str() == table;
}

// Of a text as below.
bool is_bits(std::string_view text) { return text.starts_with(kBitTable); }

// What is no markup but a text, or a table of bits; empty before markup.
std::string_view text_at(std::string_view html) {
    if (const std::string_view table = bit_table_at(html); !table.empty() && is_bit_table(table, octets_of(table)))
        return table;
    return markup_at(html).empty() ? html.substr(0, html.find('<', 1)) : std::string_view();
}

std::string_view piece_at(std::string_view html, bool is_number) {
    return is_number ? html.substr(0, html.find_first_not_of(kNumber)) : text_at(html);
}

void put_piece(TextBuffer &out, std::string_view piece) {
    if (!is_bits(piece)) return put_shown(out, piece);
    out.put(kBits);
    out.hex_digits(octets_of(piece));
}

} // namespace

void ViewShapes::clear() {
    shapes_.clear();
    last_.clear();
}

void ViewShapes::put(TextBuffer &lines, TextBuffer &fields, std::string_view html, uint32_t kind) {
    const Shape *&last = last_[kind];
    if (html.empty() || (last && put_fields(fields, html, *last))) return;
    last = &find_or_put(lines, html, kind);
    put_fields(fields, html, *last);
}

// False, and nothing put, for a view of another shape. Nearly all of a view is what its shape has, too.
bool ViewShapes::put_fields(TextBuffer &fields, std::string_view html, const Shape &shape) {
    const size_t begin = fields.size();
    fields.put('\t');
    fields.number(shape.number);
    char before = '\t';
    const auto piece_of = [](const Text &text, std::string_view rest) { return piece_at(rest, text.is_number); };
    const bool is_alike =
        each_change(html, shape.html, shape.texts, piece_of, [&](const Text &text, std::string_view piece) {
            fields.put(before);
            before = kGap;
            fields.number(static_cast<size_t>(&text - shape.texts.data()));
            fields.put(kBehindPlace);
            put_piece(fields, piece);
        });
    if (!is_alike) fields.cut(begin);
    return is_alike;
}

const ViewShapes::Shape &ViewShapes::find_or_put(TextBuffer &lines, std::string_view html, uint32_t kind) {
    read(html);
    markup_.append(reinterpret_cast<const char *>(&kind), sizeof kind);
    const auto [known, is_new] = shapes_.try_emplace(markup_, Shape{shapes_.size(), std::string(html), texts_});
    if (is_new) put_line(lines, known->second);
    return known->second;
}

void ViewShapes::read(std::string_view html) {
    markup_.clear();
    texts_.clear();
    for (size_t at = 0; at < html.size();) {
        const std::string_view rest = html.substr(at);
        const std::string_view text = text_at(rest);
        const std::string_view markup = text.empty() ? markup_at(rest) : std::string_view();
        if (!text.empty())
            add_text(at, text.size(), is_bits(text) ? kBits : kGap);
        else if (markup.starts_with(kLink))
            read_link(markup, at);
        else
            markup_ += markup;
        at += text.size() + markup.size();
    }
}

void ViewShapes::read_link(std::string_view link, size_t at) {
    while (!link.empty()) {
        const std::string_view other = link.substr(0, link.find_first_of(kDigits));
        const std::string_view number = piece_at(link.substr(other.size()), true);
        markup_ += other;
        at += other.size();
        if (!number.empty()) add_text(at, number.size(), kGap, true);
        at += number.size();
        link.remove_prefix(other.size() + number.size());
    }
}

void ViewShapes::add_text(size_t at, size_t size, char mark, bool is_number) {
    markup_ += mark;
    texts_.push_back({at, at + size, is_number});
}

void ViewShapes::put_line(TextBuffer &lines, const Shape &shape) {
    const std::string_view html = shape.html;
    lines.put("S\t");
    size_t at = 0;
    for (const Text &text : shape.texts) {
        lines.put(html.substr(at, text.begin - at));
        lines.put(kGap);
        put_piece(lines, html.substr(text.begin, text.end - text.begin));
        lines.put(kGap);
        at = text.end;
    }
    lines.put(html.substr(at));
    lines.put('\n');
}

} // namespace ast::recording::astdump
