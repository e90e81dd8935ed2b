#include "record_list.hpp"

#include <algorithm>
#include <iterator>

#include "keywords.hpp"

namespace astdump {

namespace {

constexpr const char *kNoValue = "-";
constexpr const char *kGap = "  ";

std::string category(const ast_datarecord_t &record) {
    char text[8];
    std::snprintf(text, sizeof text, "%03u", record.category);
    return text;
}

std::string octets(const ast_datarecord_t &record) { return std::to_string(record.size); }

// The first of several quantities that a record has.
template <uint32_t... keywords>
std::string value(const ast_datarecord_t &record) {
    std::string text;
    static_cast<void>((... || !(text = keyword_text(record, keywords)).empty()));
    return text;
}

struct Column {
    const char *title;
    size_t width;
    std::string (*text)(const ast_datarecord_t &record);
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

void append_cell(std::string &line, const std::string &text, size_t width, bool right_aligned) {
    const std::string padding(width - text.size(), ' ');
    line += right_aligned ? padding + text : text + padding;
    line += kGap;
}

std::string without_trailing_blanks(std::string line) {
    line.resize(line.find_last_not_of(' ') + 1);
    return line;
}

} // namespace

RecordList::RecordList(std::FILE *out, bool color, bool name_files)
    : out_(out), style_(color), name_files_(name_files) {
    std::ranges::transform(kColumns, widths_.begin(), &Column::width);
}

void RecordList::file(const std::string &name) {
    if (!name_files_) return;
    std::fprintf(out_, "%s%s==> %s <==%s\n", headed_ ? "\n" : "", style_.on(Color::heading), name.c_str(),
                 style_.off());
    headed_ = false;
}

void RecordList::block(const DecodedBlock &decoded) {
    for (uint64_t i = 0; i < decoded.block->record_count; ++i)
        if (decoded.shown[i]) record(decoded.block->records[i]);
}

void RecordList::header() {
    std::string line;
    for (size_t i = 0; i < std::size(kColumns); ++i)
        append_cell(line, kColumns[i].title, widths_[i], kColumns[i].right_aligned);
    std::fprintf(out_, "%s%s%s\n", style_.on(Color::heading), without_trailing_blanks(line).c_str(), style_.off());
    headed_ = true;
}

void RecordList::record(const ast_datarecord_t &record) {
    if (!headed_) header();
    std::string line;
    for (size_t i = 0; i < std::size(kColumns); ++i) {
        std::string text = kColumns[i].text(record);
        if (text.empty()) text = kNoValue;
        widths_[i] = std::max(widths_[i], text.size());
        append_cell(line, text, widths_[i], kColumns[i].right_aligned);
    }
    std::fprintf(out_, "%s\n", without_trailing_blanks(line).c_str());
}

} // namespace astdump
