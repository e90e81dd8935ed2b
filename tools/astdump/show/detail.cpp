#include "show/detail.hpp"

#include <algorithm>

#include "base/printable.hpp"

namespace ast::recording::astdump {

namespace {

constexpr size_t kIndent = 14; // below the names of the items
constexpr size_t kIndentStep = 2;
constexpr size_t kGapChars = 2;

// The column that tells whether a subfield is there.
constexpr std::string_view kExisting = "Existing";

// A summary stands behind its length in an octet.
constexpr size_t kMostSummaryChars = 255;

// As the library cuts them in its tables of subfields. A number of two digits shows its first.
constexpr size_t kNumberChars = 1;
constexpr size_t kSizeChars = 3;

std::string_view summary_at(std::string_view text) { return text.substr(1, static_cast<uint8_t>(text.front())); }

} // namespace

void Detail::item(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading) {
    if (const SubfieldNames &names = names_of(item.type); !names.empty() && compound(out, item, reading, names)) return;
    fragment(out, views_.detail(item, reading), item.type);
}

const Detail::SubfieldNames &Detail::names_of(ast_dataitem_type_t type) {
    Compound &compound = compounds_[type];
    if (!compound.is_known) {
        compound.is_known = true;
        const uint64_t count = ItemViews::is_compound(type) ? ast_dataitem_subfields_get_number(type) : 0;
        for (uint32_t number = 1; number <= count; ++number) {
            const uint32_t subfield = AST_SUBFIELD_TYPE(type, number);
            compound.names.push_back({ast_subfield_get_id(subfield), ast_subfield_get_name(subfield)});
        }
    }
    return compound.names;
}

// Puts together what the library's view of a compound item shows: a table of the subfields that are there, then the
// fields of each. Many subfields are those of items before, though the items are not. A summary with markup is left to
// the reader of views.
bool Detail::compound(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading, const SubfieldNames &names) {
    const ast_subfields_t decoded = ast_dataitem_subfields_decode(&item);
    if (!decoded.valid) return false;
    texts_.clear();
    subfields_.clear();
    for (uint64_t i = 0; i < decoded.subfield_count; ++i) {
        const ast_subfield_t &present = decoded.subfields[i];
        if (!present.present) continue;
        const size_t begin = texts_.size();
        memo_.put(texts_, present.type, {present.data, present.size}, reading.number,
                  [&](TextBuffer &to) { subfield(to, item, reading, static_cast<uint32_t>(i + 1)); });
        if (summary_at(texts_.text().substr(begin)).find('<') != std::string_view::npos) return false;
        subfields_.push_back({i + 1, present.size, &names[i], begin});
    }
    title(out, "Primary Subfield");
    if (!subfields_.empty()) overview(out);
    put_lines(out);
    return true;
}

void Detail::overview(TextBuffer &out) const {
    constexpr std::string_view kNumber = "Subfield";
    constexpr std::string_view kId = "ID";
    constexpr std::string_view kName = "Name";
    constexpr std::string_view kSize = "Size";
    size_t id_width = kId.size();
    size_t name_width = kName.size();
    for (const Subfield &present : subfields_) {
        id_width = std::max(id_width, present.name->id.size());
        name_width = std::max(name_width, present.name->name.size());
    }
    const auto put_row = [&](std::string_view number, const SubfieldName &name, std::string_view size,
                             std::string_view existing) {
        out.left(number, kNumber.size() + kGapChars);
        out.left(name.id, id_width + kGapChars);
        out.left(name.name, name_width + kGapChars);
        out.left(size, kSize.size() + kGapChars);
        out.left(existing, kExisting.size() + kGapChars);
    };
    indent(out);
    out.put(style_.on(Color::dim));
    put_row(kNumber, {kId, kName}, kSize, kExisting);
    out.put("Summary");
    out.put(style_.off());
    out.put('\n');
    for (const Subfield &present : subfields_) {
        indent(out);
        const size_t begin = out.size();
        put_row(std::to_string(present.number).substr(0, kNumberChars), *present.name,
                std::to_string(present.size).substr(0, kSizeChars), "1");
        const std::string_view summary = summary_at(texts_.text().substr(present.begin));
        if (summary != kNoSummary) put_printable(out, summary);
        out.trim(begin);
        out.put('\n');
    }
}

// What stands behind the summaries.
void Detail::put_lines(TextBuffer &out) const {
    for (size_t i = 0; i < subfields_.size(); ++i) {
        const size_t end = i + 1 < subfields_.size() ? subfields_[i + 1].begin : texts_.size();
        const std::string_view text = texts_.text().substr(subfields_[i].begin, end - subfields_[i].begin);
        out.put(text.substr(1 + summary_at(text).size()));
    }
}

// The summary behind its length in one octet, then the lines.
void Detail::subfield(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    const std::string summary = views_.subfield_summary(item, reading, number).substr(0, kMostSummaryChars);
    out.put(static_cast<char>(summary.size()));
    out.put(summary);
    html_ = "<h4>Subfield #" + std::to_string(number) + " - " +
            ast_subfield_get_name(AST_SUBFIELD_TYPE(item.type, number)) + "</h4>";
    html_ += views_.subfield_detail(item, reading, number);
    fragment(out, html_, AST_SUBFIELD_TYPE(item.type, number));
}

// Most views are nearly those of the last item of the kind.
void Detail::fragment(TextBuffer &out, std::string_view html, uint32_t kind) {
    ViewPattern &pattern = patterns_[kind];
    if (pattern.put(out, html)) return;
    const size_t begin = out.size();
    pattern_ = &pattern;
    pattern_->begin(html);
    pattern_begin_ = begin;
    read_fragment(out, html);
    for (const std::string_view table : reader_.left_out()) pattern_->add(ViewPattern::Kind::table, table, 0);
    pattern_->end(out.text().substr(begin));
    pattern_ = nullptr;
}

void Detail::read_fragment(TextBuffer &out, std::string_view html) {
    below_title_ = false;
    choose_parts(reader_.read(html));
    for (const ViewPart *const part : parts_) {
        switch (part->kind) {
        case ViewPart::Kind::title:
            title(out, part->text);
            break;
        case ViewPart::Kind::paragraph:
            indent(out);
            put_kept(out, part->text);
            out.put('\n');
            break;
        case ViewPart::Kind::table:
            table(out, *part);
            break;
        }
    }
}

// Subfields without any view have a title alone; the table of subfields names them, too.
void Detail::choose_parts(std::span<const ViewPart> parts) {
    parts_.clear();
    bool nothing_follows = true; // below a title, up to the next one
    for (size_t i = parts.size(); i-- > 0;) {
        const bool is_title = parts[i].kind == ViewPart::Kind::title;
        if (!is_title || !nothing_follows) parts_.push_back(&parts[i]);
        nothing_follows = is_title;
    }
    std::ranges::reverse(parts_);
}

// Subfields that are absent have no value, and rows without cells nothing at all.
void Detail::choose_rows(const ViewPart &table) {
    const ViewPart::Row header = table.header();
    const auto existing = static_cast<size_t>(std::ranges::find(header, kExisting) - header.begin());
    rows_.clear();
    for (size_t i = table.is_headed ? 1 : 0; i < table.rows(); ++i) {
        const ViewPart::Row row = table.row(i);
        if (!row.empty() && !(existing < row.size() && row[existing] == "0")) rows_.push_back(row);
    }
}

void Detail::title(TextBuffer &out, std::string_view text) {
    below_title_ = false;
    indent(out);
    out.put(style_.on(Color::heading));
    put_kept(out, text);
    out.put(style_.off());
    out.put('\n');
    below_title_ = true;
}

// Columns of ranges, items and values explain themselves.
void Detail::table(TextBuffer &out, const ViewPart &table) {
    choose_rows(table);
    const ViewPart::Row header = table.header();
    const bool has_existing = std::ranges::find(header, kExisting) != header.end();
    const bool headed = !header.empty() && header.back() != "Value" && !rows_.empty();
    widths_.clear();
    const auto widen = [&](ViewPart::Row row) {
        widths_.resize(std::max(widths_.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i)
            if (row[i] != kNoSummary) widths_[i] = std::max(widths_[i], row[i].size());
    };
    if (headed) widen(header);
    std::ranges::for_each(rows_, widen);
    if (headed) {
        indent(out);
        out.put(style_.on(Color::dim));
        row(out, header);
        out.put(style_.off());
        out.put('\n');
    }
    for (const ViewPart::Row cells : rows_) {
        indent(out);
        const size_t begin = out.size();
        row(out, cells);
        if (!has_existing) keep_row(cells, begin, out.size());
        out.put('\n');
    }
}

void Detail::put_kept(TextBuffer &out, std::string_view text) {
    keep(text, out.size(), 0);
    put_printable(out, text);
}

// Of a row that was not trimmed. One that ends before the last column is not filled up to it.
void Detail::keep_row(ViewPart::Row row, size_t begin, size_t end) {
    size_t at = begin;
    for (size_t i = 0; i + 1 < row.size(); ++i) at += widths_[i] + kGapChars;
    if (!pattern_ || at + row.back().size() != end) return;
    for (size_t i = 0; i < row.size() && (i + 1 < row.size() || row.size() == widths_.size()); ++i) {
        keep(row[i], begin, i + 1 < widths_.size() ? widths_[i] : 0);
        begin += widths_[i] + kGapChars;
    }
}

// Notes what is put at a place, which may be another text in the next view.
void Detail::keep(std::string_view text, size_t place, size_t width) {
    if (!pattern_) return;
    const size_t shown_at = place - pattern_begin_;
    const std::string_view address = reader_.address_in(text);
    if (address.empty())
        pattern_->add(ViewPattern::Kind::text, text, shown_at, width);
    else if (width == 0)
        pattern_->add(ViewPattern::Kind::address, address, shown_at + text.size() - address.size());
}

// Summaries that the library has not are left blank.
void Detail::row(TextBuffer &out, ViewPart::Row row) const {
    const size_t begin = out.size();
    for (size_t i = 0; i < row.size(); ++i) {
        const std::string_view cell = row[i] == kNoSummary ? std::string_view() : row[i];
        put_printable(out, cell);
        out.pad(widths_[i] - cell.size() + kGapChars);
    }
    out.trim(begin);
}

void Detail::indent(TextBuffer &out) const { out.pad(below_title_ ? kIndent + kIndentStep : kIndent); }

} // namespace ast::recording::astdump
