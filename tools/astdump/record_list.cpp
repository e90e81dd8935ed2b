#include "record_list.hpp"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "keywords.hpp"
#include "text.hpp"

namespace astdump {

namespace {

// Lines that are held back to see what they hold.
constexpr size_t kDecidingLines = 1000;

// Stands before lines of one layout, with the widths of its columns behind it. No line holds it.
constexpr char kLayoutMark = '\0';
constexpr size_t kMarkOctets = 1 + sizeof(ListWidths);

constexpr size_t kNoLimit = std::numeric_limits<size_t>::max();

constexpr uint32_t bit(uint32_t keyword) { return UINT32_C(1) << keyword; }

// The values of one record after the other.
class Row {
public:
    // The file that the records come from, where several are merged; else null.
    void set_file(const std::string *file) { file_ = file; }

    // Puts the line of a record, unless it does not fit the layout.
    bool put(TextBuffer &out, const ListLayout &layout, const ast_datarecord_t &record) {
        look_at(record);
        return layout.put(out, kKeywordRoom,
                          [&](char *text, size_t column) { return kWrite[column](*this, record, text); });
    }

    // Good until the next call.
    ListValues read(const ast_datarecord_t &record) {
        look_at(record);
        ListValues values;
        for (size_t i = 0; i < kListColumns; ++i)
            values[i] = {texts_[i].data(), kWrite[i](*this, record, texts_[i].data())};
        return values;
    }

private:
    void look_at(const ast_datarecord_t &record) {
        if (record.category == category_) return;
        category_ = record.category;
        keywords_ = keywords_of(category_);
    }

    // The first of several quantities that a record has.
    template <uint32_t... keywords>
    static size_t value(const Row &row, const ast_datarecord_t &record, char *text) {
        size_t size = 0;
        static_cast<void>(
            (... || ((row.keywords_ & bit(keywords)) != 0 && (size = write_keyword(text, record, keywords)) != 0)));
        return size;
    }

    static size_t category(const Row &, const ast_datarecord_t &record, char *text) {
        for (uint32_t i = 3, rest = record.category; i-- > 0; rest /= 10) text[i] = static_cast<char>('0' + rest % 10);
        return 3;
    }

    static size_t octets(const Row &, const ast_datarecord_t &record, char *text) {
        return static_cast<size_t>(std::to_chars(text, text + kKeywordRoom, record.size).ptr - text);
    }

    static size_t file(const Row &row, const ast_datarecord_t &, char *text) {
        return row.file_ ? readable(*row.file_).copy(text, kKeywordRoom) : 0;
    }

    // In the order of the columns.
    static constexpr std::array<size_t (*)(const Row &row, const ast_datarecord_t &record, char *text), kListColumns>
        kWrite = {
            value<AST_KEYWORD_TIMEOFDAY>,
            value<AST_KEYWORD_SACSIC>,
            category,
            octets,
            value<AST_KEYWORD_MSGTYPE>,
            value<AST_KEYWORD_TRACKNUM>,
            value<AST_KEYWORD_SQUAWK>,
            value<AST_KEYWORD_CALLSIGN>,
            value<AST_KEYWORD_ICAOADDR>,
            value<AST_KEYWORD_FLIGHTLEVEL>,
            value<AST_KEYWORD_SELALTITUDE>,
            value<AST_KEYWORD_WGS84COORD, AST_KEYWORD_POLARCOORD>,
            value<AST_KEYWORD_SPEED>,
            value<AST_KEYWORD_HEADING>,
            value<AST_KEYWORD_VRATE>,
            value<AST_KEYWORD_CARTESIANVEL>,
            file,
    };

    std::array<std::array<char, kKeywordRoom>, kListColumns> texts_{};
    uint32_t category_ = std::numeric_limits<uint32_t>::max();
    uint32_t keywords_ = 0;
    const std::string *file_ = nullptr;
};

void put_mark(TextBuffer &out, const ListWidths &widths) {
    out.put(kLayoutMark);
    out.put({reinterpret_cast<const char *>(widths.data()), widths.size()});
}

class ListRenderer : public Renderer {
public:
    ListRenderer(const RecordList::Expected &expected, size_t limit) : expected_(expected), layout_(limit) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        if (out.size() == 0) begin(out, expected_.get());
        row_.set_file(decoded.datagram->file);
        for (uint64_t i = 0; i < decoded.block->record_count; ++i) {
            if (!decoded.shown[i]) continue;
            const ast_datarecord_t &record = decoded.block->records[i];
            if (row_.put(out, layout_, record)) continue;
            layout_.grow(row_.read(record));
            begin(out, layout_.widths());
            row_.put(out, layout_, record);
        }
    }

private:
    void begin(TextBuffer &out, const ListWidths &widths) {
        layout_.set(widths);
        put_mark(out, widths);
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
    : out_(out),
      style_(form.color),
      limit_(form.columns),
      name_files_(form.name_files),
      given_(kNoLimit),
      layout_(form.columns) {}

std::unique_ptr<Renderer> RecordList::renderer() const { return std::make_unique<ListRenderer>(expected_, limit_); }

void RecordList::file(const std::string &name) {
    flush();
    if (name_files_)
        out_.write(std::string(written_ ? "\n" : "") + style_.on(Color::heading) + "==> " + name +
                   " <==" + style_.off() + '\n');
    written_ = is_decided_ = false;
    headed_ = widest_ = {};
    expected_.set(usual_list_widths());
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
            given_.set(widths);
            rendered.remove_prefix(kMarkOctets);
        }
        const std::string_view alike = rendered.substr(0, rendered.find(kLayoutMark));
        rendered.remove_prefix(alike.size());
        lines(alike);
    }
    expected_.set(is_decided_ ? layout_.widths() : usual_list_widths());
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
    given_.set(given);
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

} // namespace astdump
