// Category 240: radar video, in blocks of cell amplitudes per azimuth sector.

#include <cmath>

#include "core/bits.hpp"
#include "items/accessors.hpp"
#include "items/message_type.hpp"
#include "items/repetitive.hpp"
#include "items/units.hpp"

using namespace ast;

// ---- What the items of a record tell each other ----

uint32_t g_video_resolution = 0;
uint32_t g_start_range = 0;
double g_cell_duration = 0;

// ---- Video cells ----

namespace {

constexpr double kLightMetresPerSecond = 299792458;
constexpr uint32_t kHighResolution = 4; // one octet per cell, which alone is read

double cell_range_m(uint64_t cells, double cell_duration_s) {
    return static_cast<double>(cells) * cell_duration_s * kLightMetresPerSecond * 0.5; // there and back
}

} // namespace

uint32_t ast_video_resolution_get_bits(uint32_t resolution) {
    static constexpr uint32_t kBits[] = {1, 1, 2, 4, 8, 16, 32};
    return resolution < std::size(kBits) ? kBits[resolution] : 1;
}

ast_videocells_t ast_videocell_decode(const uint8_t *octets, uint64_t octet_count, int32_t resolution,
                                      uint32_t start_range, double cell_duration_s) {
    ast_videocells_t cells{};
    cells.resolution = static_cast<uint32_t>(resolution);
    if (cells.resolution != kHighResolution) {
        ast_log(AST_LOG_CRITICAL, "Unsupported video resolution %d-bits.", resolution); // the code, not the bits
        return cells;
    }
    for (uint64_t i = 0; octets && i < octet_count; ++i) {
        if (octets[i] == 0) continue;
        ast_videocell_t &cell = cells.cells[cells.count++];
        cell.number = static_cast<uint32_t>(i + 1);
        cell.range_m = cell_range_m(start_range + i, cell_duration_s);
        cell.amplitude = octets[i];
        ast_log(AST_LOG_INFO, "Cell ID=%u, Range=.2f, Amp=%u.", cell.number, cell.amplitude); // known without its range
        if (cells.count < std::size(cells.cells)) continue;
        ast_log(AST_LOG_PANIC, "Number of videocells %zu exceeds the limit %u.", std::size(cells.cells),
                AST_VIDEO_MAX_CELLS);
        return cells;
    }
    cells.valid = true;
    return cells;
}

namespace {

void show_cells(ViewWriter &view, const ast_videocells_t *cells) {
    if (!cells || !cells->valid) return;
    const uint32_t bits_per_cell = ast_video_resolution_get_bits(cells->resolution);
    const double full_scale = std::ldexp(1, static_cast<int>(bits_per_cell));
    const auto count = static_cast<uint32_t>(std::min<uint64_t>(cells->count, std::size(cells->cells)));
    view.paragraph(Cell<12>("%u", count), " valid (non empty) video cells.");
    view.paragraph("Video resolution is ", Cell<12>("%u", bits_per_cell), "-bits.");
    if (count == 0) return;
    DetailTable table(view, "Number", "Range", "Amptitude Value", "Amptitude Relative"); // known with this spelling
    for (uint32_t i = 0; i < count; ++i) {
        const ast_videocell_t &cell = cells->cells[i];
        table.row(Cell<12>("%u", cell.number), Cell<32>("%.2f", cell.range_m), Cell<12>("%u", cell.amplitude),
                  Cell<32>("%.2f%%", cell.amplitude / full_scale * 100));
    }
}

} // namespace

void ast_videocells_get_detail_html(char *text, uint64_t capacity, const ast_videocells_t *cells) {
    HtmlView view(text, capacity);
    show_cells(view, cells);
}

// ---- I240/000 Message Type ----

struct I240_000 : MessageType<240000> {
    static constexpr uint32_t kVideoSummary = 1;
    static constexpr uint32_t kVideoMessage = 2;

    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {"UNDEFINED", "VIDEO_SUMMARY", "VIDEO_MESSAGE"};
        write_message_type(out, kTypes, type.value);
    }
};

AST_DEFINE_SUMMARY(I240_000, ast_dataitem_240_000_get_summary)

// ---- I240/020 Video Record Header ----

struct I240_020 : Item<240020, ast_dataitem_240_020_t, fixed<4>> {
    static constexpr Row<Value> kRows[] = {{&Value::message_index, 32}};

    static void summarize(TextWriter &out, const Value &header) { out.print("MSG_INDEX:%u", header.message_index); }
};

AST_DEFINE_SUMMARIZED_ITEM(I240_020, ast_dataitem_240_020)

// ---- I240/030 Video Summary ----

struct I240_030 : Item<240030, ast_dataitem_240_030_t, repetitive<1>> {
    static bool read(Value &summary, const ast_dataitem_t &item) {
        const auto read_one = [](char &character, const uint8_t *octets) { character = static_cast<char>(octets[0]); };
        return read_elements<I240_030>(summary.text, summary.length, item, read_one) && summary.length != 0;
    }

    static void summarize(TextWriter &out, const Value &summary) {
        constexpr uint32_t kShownChars = 16;
        if (summary.length > kShownChars)
            out.print("SUM:%.16s...[%u]", summary.text, summary.length);
        else
            out.print("SUM:%s", summary.text);
    }

    static void show(ViewWriter &view, const Value &summary) {
        const ReceivedText<sizeof summary.text - 1> text{std::string_view(summary.text)};
        view.paragraph("Video summary: \"", text.as(AST_DETAIL_STRONG), "\"");
    }
};

AST_DEFINE_ITEM(I240_030, ast_dataitem_240_030)

// ---- I240/040 and I240/041 Video Header Nano and Femto ----

namespace {

// The two differ in the unit of their cell duration alone.
template <ast_dataitem_type_t Type>
struct VideoHeader : Item<Type, ast_dataitem_240_040_t, fixed<12>> {
    using Value = ast_dataitem_240_040_t;
    static constexpr double kAzimuthLsbDeg = kFullCircleDeg / 65536;

    static void read_header(Value &header, const uint8_t *octets, double units_per_second) {
        header.start_azimuth_raw = read_u16(octets);
        header.end_azimuth_raw = read_u16(octets + 2);
        header.start_range = read_u32(octets + 4);
        header.cell_duration_raw = read_u32(octets + 8);
        header.start_azimuth_deg = header.start_azimuth_raw * kAzimuthLsbDeg;
        header.end_azimuth_deg = header.end_azimuth_raw * kAzimuthLsbDeg;
        header.cell_duration_s = header.cell_duration_raw / units_per_second;
    }

    static void summarize(TextWriter &out, const Value &header) {
        out.print("AZ:%.2f-%.2f RG:%.2f", header.start_azimuth_deg, header.end_azimuth_deg,
                  cell_range_m(header.start_range, header.cell_duration_s));
    }

    static void show_header(ViewWriter &view, const Value &header, const char *raw_duration) {
        DetailTable table(view, "Octet", "Item", "Value");
        const auto count = [&](const char *octets, const char *name, uint32_t value) {
            table.row(octets, name, Cell<12>("%u", value));
        };
        count("Octet[1-2]", "START_AZIMUTH LSB=360/2^16 DEG", header.start_azimuth_raw);
        table.row("Octet[1-2]", "START_AZIMUTH LSB=DEG", Cell<12>("%6.2f", header.start_azimuth_deg));
        count("Octet[3-4]", "END_AZIMUTH LSB=360/2^16 DEG", header.end_azimuth_raw);
        table.row("Octet[3-4]", "END_AZIMUTH LSB=DEG", Cell<12>("%6.2f", header.end_azimuth_deg));
        count("Octet[5-8]", "START_RANGE", header.start_range);
        table.row("Octet[5-8]", "START_RANGE LSB=M",
                  Cell<32>("%.2f", cell_range_m(header.start_range, header.cell_duration_s)));
        count("Octet[9-12]", raw_duration, header.cell_duration_raw);
        table.row("Octet[9-12]", "CELL_DURATION LSB=SEC", Cell<32>("%.15f", header.cell_duration_s));
    }
};

} // namespace

// It leaves the globals alone: after it, the blocks are shown with the values of the last header in femtoseconds.
struct I240_040 : VideoHeader<240040> {
    static constexpr double kNanosecondsPerSecond = 1e9;

    static void read(Value &header, const uint8_t *octets) { read_header(header, octets, kNanosecondsPerSecond); }
    static void show(ViewWriter &view, const Value &header) { show_header(view, header, "CELL_DURATION LSB=10^-9SEC"); }
};

AST_DEFINE_ITEM(I240_040, ast_dataitem_240_040)

struct I240_041 : VideoHeader<240041> {
    static constexpr double kFemtosecondsPerSecond = 1e15;

    static void read(Value &header, const uint8_t *octets) {
        read_header(header, octets, kFemtosecondsPerSecond);
        g_start_range = header.start_range;
        g_cell_duration = header.cell_duration_s;
    }
    static void show(ViewWriter &view, const Value &header) {
        show_header(view, header, "CELL_DURATION LSB=10^-15SEC");
    }
};

AST_DEFINE_ITEM(I240_041, ast_dataitem_240_041)

// ---- I240/048 Video Cells Resolution & Data Compression Indicator ----

struct I240_048 : Item<240048, ast_dataitem_240_048_t, fixed<2>> {
    static constexpr const char *kResolutions[] = {"UNDEFINED",           "MONOBIT (1-BIT)", "LOW (2-BITS)",
                                                   "MEDIUM (4-BITS)",     "HIGH (8-BITS)",   "VERY_HIGH (16-BITS)",
                                                   "ULTRA_HIGH (32-BITS)"};

    static constexpr Row<Value> kRows[] = {
        {&Value::dci, "DATA_COMPRESSION_INDICATOR", {"NO_COMPRESSION", "COMPRESSION"}},
        spare(7, "--"),
        {&Value::res, 8, "VIDEO_CELLS_RESOLUTION", {kResolutions, "UNDEFINED"}},
    };

    static void read(Value &coding, const uint8_t *octets) {
        read_rows<I240_048>(coding, octets);
        g_video_resolution = coding.res;
    }

    static void summarize(TextWriter &out, const Value &coding) {
        out.print("RES:%u-BITS%s", ast_video_resolution_get_bits(coding.res), shown_if(coding.dci, " DCI"));
    }
};

AST_DEFINE_ITEM(I240_048, ast_dataitem_240_048)

// ---- I240/049 Video Octets & Video Cells Counters ----

struct I240_049 : Item<240049, ast_dataitem_240_049_t, fixed<5>> {
    static constexpr Columns kColumns = kOctetColumns;
    static constexpr Row<Value> kRows[] = {
        {&Value::valid_octets, 16, "NUMBER_VALID_OCTETS"},
        {&Value::valid_cells, 24, "NUMBER_VALID_CELLS"},
    };

    static void summarize(TextWriter &out, const Value &counters) {
        out.print("OCTET:%u CELL:%u", counters.valid_octets, counters.valid_cells);
    }
};

AST_DEFINE_ITEM(I240_049, ast_dataitem_240_049)

// ---- I240/050, I240/051 and I240/052 Video Block Low, Medium and High Data Volume ----

namespace {

// So many octets in each repetition, of which so many hold cells.
template <ast_dataitem_type_t Type, typename BlockValue, uint16_t ElementOctets, uint16_t CellOctets = ElementOctets>
struct VideoBlock : Item<Type, BlockValue, repetitive<ElementOctets>> {
    static constexpr uint32_t kBitsPerOctet = 8;

    // The octets with cells are the first ones of the item, however they are repeated.
    static bool read(BlockValue &block, const ast_dataitem_t &item) {
        if (item.size != 1 + uint64_t{ElementOctets} * item.data[0]) return false;
        block.length = uint64_t{item.data[0]} * CellOctets;
        copy_octets(block.octets, item.data + 1, block.length);
        return true;
    }

    static void summarize(TextWriter &out, const BlockValue &, const ast_dataitem_t &item) {
        const uint32_t repetitions = item.data[0];
        out.print("OCTET:%u", repetitions * ElementOctets);
        if (g_video_resolution == 0) return;
        const uint32_t bits_per_cell = ast_video_resolution_get_bits(g_video_resolution);
        out.print(", CELL:%u", repetitions * CellOctets * kBitsPerOctet / bits_per_cell);
    }

    static void show(ViewWriter &view, const BlockValue &block) {
        const auto cells = ast_videocell_decode(block.octets, block.length, static_cast<int32_t>(g_video_resolution),
                                                g_start_range, g_cell_duration);
        show_cells(view, &cells);
    }
};

} // namespace

struct I240_050 : VideoBlock<240050, ast_dataitem_240_050_t, 4> {};

AST_DEFINE_ITEM(I240_050, ast_dataitem_240_050)

struct I240_051 : VideoBlock<240051, ast_dataitem_240_051_t, 64> {};

AST_DEFINE_ITEM(I240_051, ast_dataitem_240_051)

// 254 octets of each 256 are taken: users count on so many cells.
struct I240_052 : VideoBlock<240052, ast_dataitem_240_052_t, 256, 254> {};

AST_DEFINE_ITEM(I240_052, ast_dataitem_240_052)

// ---- Accessors, for those who ask for this category by name ----

ast_sac_sic_t ast_datarecord_240_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 240010); }
ast_time_of_day_t ast_datarecord_240_get_timeofday(const ast_datarecord_t *record) {
    return timeofday_of(record, 240140);
}

ast_uint_value_t ast_datarecord_240_get_msgtype(const ast_datarecord_t *record) {
    const auto type = first<I240_000>(record);
    const bool is_video = type.value == I240_000::kVideoSummary || type.value == I240_000::kVideoMessage;
    if (!type.valid || !is_video) return {};
    return {.valid = true, .value = AST_MSGTYPE_VIDEO};
}

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, ast_dataitem_240_000_get_summary)},
    {10, "Data Source Identifier", items::data_source_identifier},
    own<I240_020>("Video Record Header"),
    own<I240_030>("Video Summary"),
    own<I240_040>("Video Header Nano"),
    own<I240_041>("Video Header Femto"),
    own<I240_048>("Video Cells Resolution & Data Compression Indicator"),
    own<I240_049>("Video Octets & Video Cells Counters"),
    own<I240_050>("Video Block Low Data Volume"),
    own<I240_051>("Video Block Medium Data Volume"),
    own<I240_052>("Video Block High Data Volume"),
    {140, "Time of Day", items::time_of_day},
    // These two read as unknown items.
    {AST_ITEM_REF, nullptr, items::reserved_expansion_field},
    {AST_ITEM_SPF, nullptr, items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory240, 240, "Unknown CAT240 Dataitem", kItems, ast_dataitem_240_get_name)
