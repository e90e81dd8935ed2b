#include "show/record_list.hpp"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "ask/keywords.hpp"
#include "base/printable.hpp"

namespace ast::recording::astdump {

namespace {

// Lines that are held back to see what they hold.
constexpr size_t kDecidingLines = 1000;

// Stands before lines of one layout, with the widths of its columns behind it. No line holds it.
constexpr char kLayoutMark = '\0';
constexpr size_t kMarkOctets = 1 + sizeof(ListWidths);

constexpr size_t kNoLimit = std::numeric_limits<size_t>::max();

constexpr uint32_t bit(uint32_t keyword) { return UINT32_C(1) << keyword; }

struct Subject {
    const ast_datarecord_t &record;
    uint32_t keywords;       // that records of its category can have, each a bit
    const std::string *file; // that it comes from, where several are merged; else null
};

// Writes a value, and returns of how many characters it is.
using Write = size_t(char *text, const Subject &subject);

// The first of several quantities that a record has.
template <uint32_t... keywords>
size_t write_first(char *text, const Subject &subject) {
    size_t size = 0;
    static_cast<void>((... || ((subject.keywords & bit(keywords)) != 0 &&
                               (size = write_keyword(text, subject.record, keywords)) != 0)));
    return size;
}

size_t write_category(char *text, const Subject &subject) {
    for (uint32_t i = 3, rest = subject.record.category; i-- > 0; rest /= 10)
        text[i] = static_cast<char>('0' + rest % 10);
    return 3;
}

size_t write_octets(char *text, const Subject &subject) {
    return static_cast<size_t>(std::to_chars(text, text + kKeywordRoom, subject.record.size).ptr - text);
}

size_t write_file(char *text, const Subject &subject) { return readable(*subject.file).copy(text, kKeywordRoom); }

// What the values of a column are, and the keywords that they are of, if they are of any.
struct Source {
    Write *write;
    uint32_t keywords = 0;
};

template <uint32_t... keywords>
constexpr Source kFirst = {write_first<keywords...>, (... | bit(keywords))};

// In the order of the columns.
constexpr std::array<Source, kListColumns> kSources = {{
    kFirst<AST_KEYWORD_TIMEOFDAY>,
    kFirst<AST_KEYWORD_SACSIC>,
    {write_category},
    {write_octets},
    kFirst<AST_KEYWORD_MSGTYPE>,
    kFirst<AST_KEYWORD_TRACKNUM>,
    kFirst<AST_KEYWORD_SQUAWK>,
    kFirst<AST_KEYWORD_CALLSIGN>,
    kFirst<AST_KEYWORD_ICAOADDR>,
    kFirst<AST_KEYWORD_FLIGHTLEVEL>,
    kFirst<AST_KEYWORD_SELALTITUDE>,
    kFirst<AST_KEYWORD_WGS84COORD, AST_KEYWORD_POLARCOORD>,
    kFirst<AST_KEYWORD_SPEED>,
    kFirst<AST_KEYWORD_HEADING>,
    kFirst<AST_KEYWORD_VRATE>,
    kFirst<AST_KEYWORD_CARTESIANVEL>,
    {write_file},
}};
constexpr uint32_t kFileColumn = kListColumns - 1;

// What records of a category may have, each as a bit.
struct Possible {
    explicit Possible(uint32_t category) : keywords(keywords_of(category)) {
        for (uint32_t i = 0; i < kListColumns; ++i)
            if (kSources[i].keywords == 0 || (kSources[i].keywords & keywords) != 0) columns |= bit(i);
    }
    Possible() = default;

    uint32_t keywords = 0;
    uint32_t columns = 0;
};

// The values of one record after the other.
class Row {
public:
    // What is common to the records that follow.
    void set_block(const DecodedBlock &decoded) {
        file_ = decoded.datagram->file;
        const uint32_t category = decoded.block->category;
        Possible &possible = by_category_[category % by_category_.size()];
        if (possible.columns == 0) possible = Possible(category);
        possible_ = possible;
        if (!file_) possible_.columns &= ~bit(kFileColumn);
    }

    // Puts the line of a record, unless it does not fit the layout.
    bool put(TextBuffer &out, const ListLayout &layout, const ast_datarecord_t &record) const {
        const Subject subject{record, possible_.keywords, file_};
        return layout.put(out, kKeywordRoom, possible_.columns,
                          [&](char *text, size_t column) { return kSources[column].write(text, subject); });
    }

    // Good until the next call.
    ListValues read(const ast_datarecord_t &record) {
        const Subject subject{record, possible_.keywords, file_};
        ListValues values;
        for (uint32_t i = 0; i < kListColumns; ++i)
            if ((possible_.columns & bit(i)) != 0)
                values[i] = {texts_[i].data(), kSources[i].write(texts_[i].data(), subject)};
        return values;
    }

private:
    const std::string *file_ = nullptr;
    Possible possible_;
    std::array<Possible, 256> by_category_{}; // nothing until it is met
    std::array<std::array<char, kKeywordRoom>, kListColumns> texts_{};
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
            const ast_datarecord_t &record = decoded.block->records[i];
            if (row_.put(out, layout_, record)) continue;
            layout_.grow(row_.read(record));
            begin(out, layout_.columns());
            row_.put(out, layout_, record);
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
