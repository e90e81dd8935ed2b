#include "show/detail.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

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

std::string_view summary_at(std::string_view text) { return text.substr(1, static_cast<uint8_t>(text.front())); }

} // namespace

void Detail::item(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading) {
    if (const SubfieldNames &names = names_of(item.type); !names.empty() && compound(out, item, reading, names)) return;
    begin(out, item.type);
    views_.detail(*this, item, reading);
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
// fields of each. Many subfields are those of items before, though the items are not.
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
        subfields_.push_back({i + 1, present.size, &names[static_cast<size_t>(i)], begin});
    }
    below_title_ = false;
    put_title(out, "Primary Subfield");
    below_title_ = true;
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
    out.pad(indent());
    out.put(style_.on(Color::dim));
    put_row(kNumber, {kId, kName}, kSize, kExisting);
    out.put("Summary");
    out.put(style_.off());
    out.put('\n');
    for (const Subfield &present : subfields_) {
        out.pad(indent());
        const size_t begin = out.size();
        put_row(std::to_string(present.number).substr(0, kSubfieldNumberChars), *present.name,
                std::to_string(present.size).substr(0, kSubfieldSizeChars), "1");
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
    begin(out, AST_SUBFIELD_TYPE(item.type, number));
    title(texts("Subfield #", std::to_string(number), " - ",
                ast_subfield_get_name(AST_SUBFIELD_TYPE(item.type, number))));
    views_.subfield_detail(*this, item, reading, number);
}

size_t Detail::indent() const { return below_title_ ? kIndent + kIndentStep : kIndent; }

void Detail::begin(TextBuffer &out, uint32_t kind) {
    out_ = &out;
    widths_of_view_ = &widths_[kind];
    table_ = 0;
    has_title_ = below_title_ = false;
}

// Subfields without any view have a title alone; the table of subfields names them, too.
void Detail::title(DetailTexts pieces) {
    title_.clear();
    for (const DetailText &piece : pieces) title_ += text_of(piece);
    has_title_ = true;
}

void Detail::put_title(TextBuffer &out, std::string_view text) const {
    out.pad(kIndent);
    out.put(style_.on(Color::heading));
    put_printable(out, text);
    out.put(style_.off());
    out.put('\n');
}

void Detail::begin_part() {
    if (!has_title_) return;
    put_title(*out_, title_);
    has_title_ = false;
    below_title_ = true;
}

void Detail::paragraph(DetailTexts pieces) {
    if (pieces.size() == 1 && pieces[0].size == 0) return;
    begin_part();
    out_->pad(indent());
    for (const DetailText &piece : pieces) put_printable(*out_, text_of(piece));
    out_->put('\n');
}

// Columns of ranges, items and values explain themselves.
void Detail::table_begin(DetailTexts header) {
    begin_part();
    if (widths_of_view_->size() == table_) widths_of_view_->emplace_back();
    table_begin_ = out_->size();
    needed_.assign(header.size(), 0); // the last one is not filled up
    cells_.clear();
    lines_.clear();
    is_headed_ = text_of(header.back()) != "Value";
    if (is_headed_) row(header);
    rows_begin_ = out_->size();
}

// Summaries that the library has not are left blank.
void Detail::row(DetailTexts cells) {
    line_.clear();
    for (const DetailText &cell : cells)
        line_.push_back(text_of(cell) == kNoSummary ? std::string_view("") : text_of(cell));
    const size_t filled = std::min(line_.size(), needed_.size() - 1);
    for (size_t i = 0; i < filled; ++i) needed_[i] = std::max(needed_[i], line_[i].size());
    put_line((*widths_of_view_)[table_]);
}

void Detail::link_row(DetailTexts cells, const ast_detail_link_t &link) {
    link_ = link.title;
    link_ += ' ';
    link_ += link.url;
    linked_.assign(cells.begin(), cells.end());
    linked_.push_back(plain(link_));
    row(linked_);
}

void Detail::table_end() {
    Widths &widths = (*widths_of_view_)[table_++];
    if (out_->size() == rows_begin_) return out_->cut(table_begin_);
    if (widths == needed_) return;
    align();
    widths = needed_;
}

// The last cell of a line is not filled up, and blanks at its end are left out.
void Detail::put_line(Widths &widths) {
    const bool is_header = is_headed_ && lines_.empty();
    out_->pad(indent());
    if (is_header) out_->put(style_.on(Color::dim));
    widths.resize(std::max(widths.size(), line_.size()));
    size_t most = 0;
    for (size_t i = 0; i < line_.size(); ++i) most += std::max(widths[i], line_[i].size()) + kGapChars;
    const size_t line_begin = out_->size() - table_begin_;
    out_->put_with(most, [&](char *const line) {
        std::memset(line, ' ', most);
        char *to = line;
        for (size_t i = 0; i < line_.size(); ++i) {
            const std::string_view cell = line_[i];
            cells_.push_back({line_begin + static_cast<size_t>(to - line), cell.size()});
            std::memcpy(to, cell.data(), cell.size());
            to += std::max(widths[i], cell.size()) + kGapChars;
        }
        while (to != line && to[-1] == ' ') --to;
        const auto size = static_cast<size_t>(to - line);
        make_printable({line, size});
        lines_.push_back({line_.size(), line_begin + size});
        return size;
    });
    if (is_header) out_->put(style_.off());
    out_->put('\n');
}

// Puts the lines of the table anew, in columns that are as wide as they have to be.
void Detail::align() {
    unaligned_.clear();
    unaligned_.put(out_->text().substr(table_begin_));
    out_->cut(table_begin_);
    const std::vector<Place> cells = std::exchange(cells_, {});
    auto cell = cells.begin();
    for (const Line &line : std::exchange(lines_, {})) {
        const std::string_view text = unaligned_.text().substr(0, line.end);
        line_.clear();
        for (size_t i = 0; i < line.cells; ++i, ++cell)
            line_.push_back(text.substr(std::min(cell->begin, text.size()), cell->size));
        put_line(needed_);
    }
}

} // namespace ast::recording::astdump
