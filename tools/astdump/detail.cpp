#include "detail.hpp"

#include <algorithm>

#include "text.hpp"

namespace astdump {

namespace {

constexpr size_t kIndent = 14; // below the names of the items
constexpr size_t kIndentStep = 2;
constexpr size_t kGapChars = 2;

} // namespace

void Detail::item(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading) {
    below_title_ = false;
    choose_parts(reader_.read(views_.detail(item, reading)));
    for (const ViewPart *const part : parts_) {
        switch (part->kind) {
        case ViewPart::Kind::title:
            title(out, part->text);
            break;
        case ViewPart::Kind::paragraph:
            indent(out);
            put_printable(out, part->text);
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
    const auto existing = static_cast<size_t>(std::ranges::find(header, "Existing") - header.begin());
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
    put_printable(out, text);
    out.put(style_.off());
    out.put('\n');
    below_title_ = true;
}

// Columns of ranges, items and values explain themselves.
void Detail::table(TextBuffer &out, const ViewPart &table) {
    choose_rows(table);
    const ViewPart::Row header = table.header();
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
        row(out, cells);
        out.put('\n');
    }
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

} // namespace astdump
