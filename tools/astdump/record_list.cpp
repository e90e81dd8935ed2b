#include "record_list.hpp"

#include <algorithm>
#include <iterator>

#include "keywords.hpp"
#include "text.hpp"

namespace astdump {

namespace {

constexpr std::string_view kNoValue = "-";
constexpr std::string_view kGap = "  ";

void category(const ast_datarecord_t &record, TextBuffer &out) { out.number(record.category, 3, '0'); }

void octets(const ast_datarecord_t &record, TextBuffer &out) { out.number(record.size); }

// The first of several quantities that a record has.
template <uint32_t... keywords>
void value(const ast_datarecord_t &record, TextBuffer &out) {
    static_cast<void>((... || put_keyword(out, record, keywords)));
}

struct Column {
    const char *title;
    size_t width;
    void (*put)(const ast_datarecord_t &record, TextBuffer &out);
    bool right_aligned = false;
};

constexpr Column kColumns[] = {
    {"Time", 12, value<AST_KEYWORD_TIMEOFDAY>},
    {"SAC/SIC", 7, value<AST_KEYWORD_SACSIC>},
    {"Cat", 3, category},
    {"Octets", 6, octets, true},
    {"Type", 6, value<AST_KEYWORD_MSGTYPE>},
    {"Track", 5, value<AST_KEYWORD_TRACKNUM>, true},
    {"Squawk", 6, value<AST_KEYWORD_SQUAWK>},
    {"Callsign", 8, value<AST_KEYWORD_CALLSIGN>},
    {"ICAO", 6, value<AST_KEYWORD_ICAOADDR>},
    {"Height ft", 9, value<AST_KEYWORD_FLIGHTLEVEL>, true},
    {"Selected ft", 11, value<AST_KEYWORD_SELALTITUDE>, true},
    {"Position", 21, value<AST_KEYWORD_WGS84COORD, AST_KEYWORD_POLARCOORD>},
    {"Speed kt", 8, value<AST_KEYWORD_SPEED>, true},
    {"Heading", 17, value<AST_KEYWORD_HEADING>},
    {"ft/min", 8, value<AST_KEYWORD_VRATE>, true},
    {"Velocity m/s", 12, value<AST_KEYWORD_CARTESIANVEL>},
};
static_assert(std::size(kColumns) == kRecordListColumns);

// A value stands behind its length in one octet: no value is longer.
std::string_view take_value(std::string_view &rendered) {
    const auto length = static_cast<uint8_t>(rendered.front());
    const std::string_view value = rendered.substr(1, length);
    rendered.remove_prefix(1 + size_t{length});
    return value;
}

class ListRenderer : public Renderer {
    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        for (uint64_t i = 0; i < decoded.block->record_count; ++i)
            if (decoded.shown[i]) {
                record(decoded.block->records[i], out);
                if (decoded.datagram->file) file(*decoded.datagram->file, out);
            }
    }

    // As values are: behind its length in one octet.
    static void file(std::string_view name, TextBuffer &out) {
        name = name.substr(0, 255);
        out.put(static_cast<char>(name.size()));
        put_printable(out, name);
    }

    static void record(const ast_datarecord_t &record, TextBuffer &out) {
        for (const Column &column : kColumns) {
            const size_t place = out.size();
            out.put('\0');
            column.put(record, out);
            if (out.size() == place + 1) out.put(kNoValue);
            out.set(place, static_cast<char>(out.size() - place - 1));
        }
    }
};

void put_cell(TextBuffer &line, std::string_view text, size_t width, bool right_aligned) {
    if (right_aligned)
        line.right(text, width);
    else
        line.left(text, width);
    line.put(kGap);
}

} // namespace

RecordList::RecordList(Output &out, bool color, bool name_files, bool merged)
    : out_(out), style_(color), name_files_(name_files && !merged), merged_(merged) {
    std::ranges::transform(kColumns, widths_.begin(), &Column::width);
}

std::unique_ptr<Renderer> RecordList::renderer() const { return std::make_unique<ListRenderer>(); }

void RecordList::file(const std::string &name) {
    if (!name_files_) return;
    out_.write(std::string(headed_ ? "\n" : "") + style_.on(Color::heading) + "==> " + name + " <==" + style_.off() +
               '\n');
    headed_ = false;
}

void RecordList::header() {
    lines_.put(style_.on(Color::heading));
    const size_t begin = lines_.size();
    for (size_t i = 0; i < std::size(kColumns); ++i)
        put_cell(lines_, kColumns[i].title, widths_[i], kColumns[i].right_aligned);
    if (merged_) lines_.put("File");
    lines_.trim(begin);
    lines_.put(style_.off());
    lines_.put('\n');
    headed_ = true;
}

void RecordList::take(std::string_view rendered) {
    lines_.clear();
    if (!headed_ && !rendered.empty()) header();
    while (!rendered.empty()) {
        const size_t begin = lines_.size();
        for (size_t i = 0; i < std::size(kColumns); ++i) {
            const std::string_view text = take_value(rendered);
            widths_[i] = std::max(widths_[i], text.size());
            put_cell(lines_, text, widths_[i], kColumns[i].right_aligned);
        }
        if (merged_) lines_.put(take_value(rendered));
        lines_.trim(begin);
        lines_.put('\n');
    }
    out_.write(lines_.text());
}

} // namespace astdump
