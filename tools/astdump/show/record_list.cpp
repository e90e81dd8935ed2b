#include "show/record_list.hpp"

#include <algorithm>
#include <limits>
#include <utility>

#include "ask/answerer.hpp"
#include "show/list_values.hpp"

namespace ast::recording::astdump {

namespace {

// Lines that are held back to see what they hold.
constexpr size_t kDecidingLines = 1000;

// Stands before lines of one layout, with the widths of its columns behind it. No line holds it.
constexpr char kLayoutMark = '\0';
constexpr size_t kMarkOctets = 1 + sizeof(ListWidths);

constexpr size_t kNoLimit = std::numeric_limits<size_t>::max();

// The values of one record after the other.
class Row {
public:
    // What is common to the records that follow.
    void set_block(const DecodedBlock &decoded) {
        answerer_.set_block(decoded);
        subject_.file = decoded.datagram->file;
        subject_.keywords = listed_keywords_of(decoded.block->category);
    }

    // What is shown next.
    void set_record(const ast_datarecord_t &record) {
        subject_.record = &record;
        answerer_.set_record(record);
        subject_.answers = &answerer_.answers();
    }

    // Puts the line of the record, unless it does not fit the layout.
    bool put(TextBuffer &out, const ListLayout &layout) const {
        return layout.put(out, kListValueRoom,
                          [&](char *text, size_t column) { return write_list_value(text, subject_, column); });
    }

    // Good until the next call.
    ListValues read() {
        ListValues values;
        for (size_t i = 0; i < kListColumns; ++i)
            values[i] = {texts_[i].data(), write_list_value(texts_[i].data(), subject_, i)};
        return values;
    }

private:
    Answerer answerer_;
    ListedRecord subject_;
    std::array<std::array<char, kListValueRoom>, kListColumns> texts_{};
};

void put_mark(TextBuffer &out, const ListWidths &widths) {
    out.put(kLayoutMark);
    out.put({reinterpret_cast<const char *>(widths.data()), widths.size()});
}

class ListRenderer : public Renderer {
public:
    explicit ListRenderer(const RecordList::Expected &expected) : expected_(expected), layout_(kNoLimit) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        if (out.size() == 0) begin(out, expected_.get());
        row_.set_block(decoded);
        for (uint64_t i = 0; i < decoded.block->record_count; ++i) {
            if (!decoded.shown[i]) continue;
            row_.set_record(decoded.block->records[i]);
            if (row_.put(out, layout_)) continue;
            layout_.grow(row_.read());
            begin(out, layout_.columns());
            row_.put(out, layout_);
        }
    }

private:
    void begin(TextBuffer &out, const ListColumns &columns) {
        layout_.set(columns);
        put_mark(out, columns.widths);
    }

    const RecordList::Expected &expected_;
    ListLayout layout_;
    Row row_;
};

// Takes the first line, without its end.
std::string_view take_line(std::string_view &lines) {
    const size_t size = lines.find('\n');
    const std::string_view line = lines.substr(0, size);
    lines.remove_prefix(size + 1);
    return line;
}

} // namespace

RecordList::RecordList(Output &out, const Form &form)
    : out_(out), style_(form.color), name_files_(form.name_files), given_(kNoLimit), layout_(form.columns) {}

std::unique_ptr<Renderer> RecordList::renderer() const { return std::make_unique<ListRenderer>(expected_); }

void RecordList::file(const std::string &name) {
    flush();
    if (name_files_)
        out_.write(std::string(written_ ? "\n" : "") + style_.on(Color::heading) + "==> " + name +
                   " <==" + style_.off() + '\n');
    written_ = is_decided_ = false;
    headed_ = widest_ = {};
    expected_.set({usual_list_widths()});
}

// What columns will hold cannot be known.
void RecordList::live() {
    widest_ = usual_list_widths();
    decide();
}

void RecordList::flush() {
    if (held_lines_ != 0) decide();
}

void RecordList::take(std::string_view rendered) {
    while (!rendered.empty()) {
        if (rendered.front() == kLayoutMark) {
            ListWidths widths;
            std::copy_n(rendered.begin() + 1, widths.size(), widths.begin());
            given_.set({widths});
            rendered.remove_prefix(kMarkOctets);
        }
        const std::string_view alike = rendered.substr(0, rendered.find(kLayoutMark));
        rendered.remove_prefix(alike.size());
        lines(alike);
    }
    expected_.set(is_decided_ ? layout_.columns() : ListColumns{usual_list_widths()});
}

void RecordList::lines(std::string_view lines) {
    if (!is_decided_) hold(lines);
    text_.clear();
    while (!lines.empty() && given_.widths() != layout_.widths()) again(lines);
    if (!lines.empty()) header();
    out_.write(text_.text());
    out_.write(lines);
}

// Lays a line out again.
void RecordList::again(std::string_view &lines) {
    const ListValues values = given_.read(take_line(lines));
    layout_.grow(values);
    header();
    layout_.line(text_, values);
}

// Takes the lines that are still to be seen; when they have been, the columns are decided.
void RecordList::hold(std::string_view &lines) {
    put_mark(held_, given_.widths());
    while (!lines.empty() && held_lines_ < kDecidingLines) {
        const std::string_view line = take_line(lines);
        widen(widest_, given_.read(line));
        held_.put(line);
        held_.put('\n');
        ++held_lines_;
    }
    if (held_lines_ == kDecidingLines) decide();
}

void RecordList::decide() {
    is_decided_ = true;
    held_lines_ = 0;
    layout_.choose(widest_);
    const ListWidths given = given_.widths();
    const TextBuffer held = std::exchange(held_, {});
    take(held.text());
    given_.set({given});
}

// Where columns have joined.
void RecordList::header() {
    const auto is_there = [](uint8_t width) { return width != 0; };
    const bool is_headed = std::ranges::equal(headed_, layout_.widths(), {}, is_there, is_there);
    headed_ = layout_.widths();
    if (is_headed) return;
    text_.put(style_.on(Color::heading));
    layout_.titles(text_);
    text_.cut(text_.size() - 1);
    text_.put(style_.off());
    text_.put('\n');
    written_ = true;
}

} // namespace ast::recording::astdump
