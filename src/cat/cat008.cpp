// Category 008: weather as one radar sees it, in vectors and contours.

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/items.hpp"
#include "items/message_type.hpp"
#include "items/repetitive.hpp"
#include "items/units.hpp"

using namespace ast;

// ---- I008/000 Message Type ----

struct I008_000 : MessageType<8000> {
    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kFirstTypes[] = {"UNDEFINED", "POLAR_VECTOR", "CARTESIAN_POINT_LENGTH", "CONTOUR",
                                                      "CARTESIAN_POINT_POINT"};
        constexpr uint32_t kStartOfPicture = 254;
        constexpr uint32_t kEndOfPicture = 255;
        out.append("MSG_TYPE:");
        if (type.value == kStartOfPicture)
            out.append("START_OF_PICTURE");
        else if (type.value == kEndOfPicture)
            out.append("END_OF_PICTURE");
        else
            out.append(text_of(kFirstTypes, type.value, "UNDEFINED"));
    }
};

AST_DEFINE_SUMMARY(I008_000, ast_dataitem_008_000_get_summary)

constexpr Columns kElementColumns = {nullptr, nullptr, "Element", "Value", Columns::Count::Bits, 0};

// ---- I008/020 Vector Qualifier ----

namespace {

const char *coordinates(bool org) { return org ? "System" : "Local"; }

Cell<12> number(int32_t value) { return Cell<12>("%d", value); }

} // namespace

struct I008_020 : Item<8020, ast_dataitem_008_020_t, extended<2>> {
    static constexpr double kLsbDeg = 22.5;

    static void read(Value &qualifier, const ast_dataitem_t &item) {
        const uint8_t first = item.data[0];
        qualifier.org = bit(first, 8);
        qualifier.intensity = bits(first, 7, 5);
        qualifier.dir_raw = bits(first, 4, 2);
        qualifier.dir_deg = qualifier.dir_raw * kLsbDeg;
        if (item.size < 2) return;
        qualifier.tst = bit(item.data[1], 3);
        qualifier.er = bit(item.data[1], 2);
    }

    static void summarize(TextWriter &out, const Value &qualifier) {
        out.print("ORG:%s INT:%u SHD:%04.1f", coordinates(qualifier.org), qualifier.intensity, qualifier.dir_deg);
        out.append(shown_if(qualifier.tst, " TST"));
        out.append(shown_if(qualifier.er, " ERR"));
    }

    static void show(ViewWriter &view, const Value &qualifier) {
        DetailTable table(view, "Element", "Value");
        table.row("Coordinate System (ORG)", coordinates(qualifier.org));
        table.row("Intensity Level", Cell<2>("%u", qualifier.intensity));
        table.row("Shading Orientation", Cell<12>("%04.1f deg", qualifier.dir_deg));
        table.row("Test Vector (TST)", qualifier.tst ? "Test vector" : "Default");
        table.row("Error Condition (ER)", qualifier.er ? "Error condition encountered" : "Default");
    }
};

AST_DEFINE_ITEM(I008_020, ast_dataitem_008_020)

// ---- Sequences of vectors and points ----

namespace {

// Coordinates stay as sent: how long their unit is, only the start of the picture says, in I008/100.
constexpr char kCartesianNote[] = "Values are raw: LSB = 2^(-6+f) NM, f is a parameter of the SOP message (I008/100).";
constexpr char kPolarNote[] =
    "Range values are raw: LSB = 2^(-7+f) NM, f is a parameter of the SOP message (I008/100).";

int32_t signed_octet(uint8_t octet) { return twos_complement(octet, 8); }

// What an item of vectors or points is, but for how one of them is read and shown and the note below their table.
template <typename Own, ast_dataitem_type_t Type, typename SequenceValue, SizeRule Rule>
struct Sequence : Item<Type, SequenceValue, Rule> {
    static bool read(SequenceValue &sequence, const ast_dataitem_t &item) {
        return read_elements<Own>(sequence.*Own::kElements, sequence.count, item,
                                  [](auto &element, const uint8_t *octets) { Own::read_one(element, octets); });
    }

    static void summarize(TextWriter &out, const SequenceValue &sequence) {
        out.print("%s:%u", Own::kKey, sequence.count);
    }

    static void show(ViewWriter &view, const SequenceValue &sequence) {
        {
            DetailTable table = Own::header(view);
            for (uint32_t i = 0; i < sequence.count; ++i)
                Own::show_one(table, number(static_cast<int32_t>(i + 1)), (sequence.*Own::kElements)[i]);
        }
        view.paragraph(Own::kNote);
    }
};

} // namespace

// ---- I008/034 Sequence of Polar Vectors in SPF Notation ----

struct I008_034 : Sequence<I008_034, 8034, ast_dataitem_008_034_t, repetitive<4>> {
    static constexpr char kKey[] = "POLAR_VECTORS";
    static constexpr const char *kNote = kPolarNote;
    static constexpr auto kElements = &Value::vectors;
    static constexpr double kAzimuthLsbDeg = kFullCircleDeg / 65536;

    static void read_one(auto &vector, const uint8_t *octets) {
        vector.start_range = octets[0];
        vector.end_range = octets[1];
        vector.azimuth_raw = read_u16(octets + 2);
        vector.azimuth_deg = vector.azimuth_raw * kAzimuthLsbDeg;
    }

    static DetailTable header(ViewWriter &view) {
        return DetailTable(view, "Vector", "Start Range", "End Range", "Azimuth (deg)");
    }

    static void show_one(DetailTable &table, std::string_view place, const auto &vector) {
        table.row(place, Cell<4>("%u", vector.start_range), Cell<4>("%u", vector.end_range),
                  Cell<12>("%07.4f", vector.azimuth_deg));
    }
};

AST_DEFINE_ITEM(I008_034, ast_dataitem_008_034)

// ---- I008/036 Sequence of Cartesian Vectors in SPF Notation ----

struct I008_036 : Sequence<I008_036, 8036, ast_dataitem_008_036_t, repetitive<3>> {
    static constexpr char kKey[] = "CARTESIAN_VECTORS";
    static constexpr const char *kNote = kCartesianNote;
    static constexpr auto kElements = &Value::vectors;

    static void read_one(auto &vector, const uint8_t *octets) {
        vector.x = signed_octet(octets[0]);
        vector.y = signed_octet(octets[1]);
        vector.length = octets[2];
    }

    static DetailTable header(ViewWriter &view) {
        return DetailTable(view, "Vector", "X-Component", "Y-Component", "Length");
    }

    static void show_one(DetailTable &table, std::string_view place, const auto &vector) {
        table.row(place, number(vector.x), number(vector.y), Cell<4>("%u", vector.length));
    }
};

AST_DEFINE_ITEM(I008_036, ast_dataitem_008_036)

// ---- I008/038 Sequence of Weather Vectors in SPF Notation ----

struct I008_038 : Sequence<I008_038, 8038, ast_dataitem_008_038_t, repetitive<4>> {
    static constexpr char kKey[] = "WEATHER_VECTORS";
    static constexpr const char *kNote = kCartesianNote;
    static constexpr auto kElements = &Value::vectors;

    static void read_one(auto &vector, const uint8_t *octets) {
        vector.x1 = signed_octet(octets[0]);
        vector.y1 = signed_octet(octets[1]);
        vector.x2 = signed_octet(octets[2]);
        vector.y2 = signed_octet(octets[3]);
    }

    static DetailTable header(ViewWriter &view) {
        return DetailTable(view, "Vector", "X1-Component", "Y1-Component", "X2-Component", "Y2-Component");
    }

    static void show_one(DetailTable &table, std::string_view place, const auto &vector) {
        table.row(place, number(vector.x1), number(vector.y1), number(vector.x2), number(vector.y2));
    }
};

AST_DEFINE_ITEM(I008_038, ast_dataitem_008_038)

// ---- I008/040 Contour Identifier ----

struct I008_040 : Item<8040, ast_dataitem_008_040_t, fixed<2>> {
    static constexpr const char *kPositions[] = {"INTERMEDIATE", "LAST", "FIRST", "SINGLE"};
    static constexpr Columns kColumns = kElementColumns;
    static constexpr Row<Value> kRows[] = {
        {&Value::org, "Coordinate System (ORG)", {"Local", "System"}},
        {&Value::intensity, 3, "Intensity Level"},
        spare(2),
        {&Value::fst_lst, 2, "Position in Contour (FST/LST)", kPositions},
        {&Value::csn, 8, "Contour Serial Number"},
    };

    static void summarize(TextWriter &out, const Value &contour) {
        out.print("CSN:%u INT:%u POS:%s ORG:%s", contour.csn, contour.intensity, kPositions[contour.fst_lst],
                  coordinates(contour.org));
    }
};

AST_DEFINE_ITEM(I008_040, ast_dataitem_008_040)

// ---- I008/050 Sequence of Contour Points in SPF Notation ----

struct I008_050 : Sequence<I008_050, 8050, ast_dataitem_008_050_t, repetitive<2>> {
    static constexpr char kKey[] = "CONTOUR_POINTS";
    static constexpr const char *kNote = kCartesianNote;
    static constexpr auto kElements = &Value::points;

    static void read_one(auto &point, const uint8_t *octets) {
        point.x = signed_octet(octets[0]);
        point.y = signed_octet(octets[1]);
    }

    static DetailTable header(ViewWriter &view) { return DetailTable(view, "Point", "X-Component", "Y-Component"); }

    static void show_one(DetailTable &table, std::string_view place, const auto &point) {
        table.row(place, number(point.x), number(point.y));
    }
};

AST_DEFINE_ITEM(I008_050, ast_dataitem_008_050)

// ---- I008/100 Processing Status ----

namespace {

constexpr uint64_t kFirstPartOctets = 3;
constexpr uint64_t kMaximumOctets = kFirstPartOctets + AST_008_100_MAX_EXTENTS;

} // namespace

uint64_t ast_dataitem_008_100_get_size(const uint8_t *data, uint64_t available) {
    if (!data) return 0;
    for (uint64_t size = kFirstPartOctets; size <= available; ++size) {
        if (size > kMaximumOctets) {
            ast_log(AST_LOG_CRITICAL, "Dataitem I008/100 length exceed max: %d", static_cast<int>(kMaximumOctets));
            return kMaximumOctets;
        }
        if (!has_fx(data[size - 1])) return size;
    }
    return 0;
}

struct I008_100 : Item<8100, ast_dataitem_008_100_t, SizeRule{}> {
    // Here rather than above: some compilers take no template argument that holds the address of a function.
    static constexpr SizeRule kSize = sized_by(ast_dataitem_008_100_get_size);

    static bool accepts(const ast_dataitem_t &item) { return item.type == kType && item.size >= kFirstPartOctets; }

    static void read(Value &status, const ast_dataitem_t &item) {
        status.f = twos_complement(bits(item.data[0], 8, 4), 5);
        status.r = bits(item.data[0], 3, 1);
        status.q = field(item.data, 9, 23);
        status.extent_count = static_cast<uint32_t>(std::min(item.size, kMaximumOctets) - kFirstPartOctets);
        copy_octets(status.extents, item.data + kFirstPartOctets, status.extent_count);
    }

    static void summarize(TextWriter &out, const Value &status) {
        out.print("F:%d R:%u Q:%u", status.f, status.r, status.q);
    }

    static void show(ViewWriter &view, const Value &status) {
        char extents[3 * AST_008_100_MAX_EXTENTS];
        TextWriter out(extents, sizeof extents);
        for (uint32_t i = 0; i < status.extent_count; ++i) out.print("%s%02X", i == 0 ? "" : " ", status.extents[i]);
        DetailTable table(view, "Element", "Value");
        table.row("Scaling Factor (f)", number(status.f));
        table.row("Reduction Stage (R)", Cell<24>("%u%s", status.r, shown_if(status.r == 0, "(Normal operation)")));
        table.row("Processing Parameters (Q)", Cell<16>("%u (0x%04X)", status.q, status.q));
        table.row("Extents (application dependent)", extents);
    }
};

AST_DEFINE_ITEM(I008_100, ast_dataitem_008_100)

// ---- I008/110 Station Configuration Status ----

struct I008_110 : Item<8110, ast_dataitem_008_110_t, extended<AST_008_110_MAX_OCTETS>> {
    static void read(Value &status, const ast_dataitem_t &item) {
        status.count = static_cast<uint32_t>(std::min<uint64_t>(item.size, std::size(status.octets)));
        copy_octets(status.octets, item.data, status.count);
    }

    static void show(ViewWriter &view, const Value &status) {
        view.paragraph("Application dependent data (", Cell<12>("%u", status.count), " octets)");
    }
};

AST_DEFINE_DECODE(I008_110, ast_dataitem_008_110_decode)
AST_DEFINE_DETAIL(I008_110, ast_dataitem_008_110_get_detail_html)

// ---- I008/120 Total Number of Items Constituting One Weather Picture ----

struct I008_120 : Item<8120, ast_dataitem_008_120_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {{&Value::value, 16}};

    static void summarize(TextWriter &out, const Value &total) { out.print("NUM:%u", total.value); }
};

AST_DEFINE_SUMMARIZED_ITEM(I008_120, ast_dataitem_008_120)

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_008_t;

constexpr FlatMember<Flat> kMembers[] = {
    taken_apart<&Flat::message_type, ast_dataitem_message_type_decode>(8000),
    taken_apart<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(8010),
    taken_apart<&Flat::vector_qualifier, I008_020>(),
    taken_apart<&Flat::polar_vectors, I008_034>(),
    taken_apart<&Flat::cartesian_vectors, I008_036>(),
    taken_apart<&Flat::weather_vectors, I008_038>(),
    taken_apart<&Flat::contour_identifier, I008_040>(),
    taken_apart<&Flat::contour_points, I008_050>(),
    taken_apart<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(8090),
    taken_apart<&Flat::processing_status, I008_100>(),
    taken_apart<&Flat::station_status, I008_110>(),
    taken_apart<&Flat::picture_items, I008_120>(),
};

} // namespace

ast_datarecord_008_t *ast_datarecord_008_disassemble(ast_datarecord_008_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 8, kMembers, report_as_warning);
}

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, ast_dataitem_008_000_get_summary)},
    {10, "Data Source Identifier", items::data_source_identifier},
    own<I008_020>("Vector Qualifier"),
    own<I008_034>("Sequence of Polar Vectors in SPF Notation"),
    own<I008_036>("Sequence of Cartesian Vectors in SPF Notation"),
    own<I008_038>("Sequence of Weather Vectors in SPF Notation"),
    own<I008_040>("Contour Identifier"),
    own<I008_050>("Sequence of Contour Points in SPF Notation"),
    {90, "Time of Day", items::time_of_day},
    own<I008_100>("Processing Status"),
    {110, "Station Configuration Status", {I008_110::kSize, ast_dataitem_binary_data_get_summary, kDetailOf<I008_110>}},
    own<I008_120>("Total Number of Items Constituting One Weather Picture"),
    {AST_ITEM_RFS, "Random Field Sequencing", items::random_field_sequencing},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory008, 8, "Unknown CAT008 Dataitem", kItems, ast_dataitem_008_get_name)
