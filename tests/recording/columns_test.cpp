// Columns of recordings, as those who know Arrow's interfaces take them.

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

#include "recording/recorded.hpp"
#include "support/octets.hpp"

namespace ast_test {

namespace {

// Of the tree that a schema or an array is, released with it.
template <typename Struct>
class Held {
public:
    Held() = default;
    ~Held() {
        if (held_.release) held_.release(&held_);
    }
    Held(Held &&other) noexcept : held_(std::exchange(other.held_, {})) {}
    Held &operator=(Held &&) = delete;

    Struct *operator->() { return &held_; }
    Struct *get() { return &held_; }
    bool is_released() const { return !held_.release; }

private:
    Struct held_{};
};

struct Columns {
    Columns(ast_recording_t *recording, const ast_columns_options_t &options = {}) {
        ast_recording_error_t error;
        EXPECT_TRUE(ast_columns_get_stream(recording, &options, stream.get(), &error)) << error.text;
        EXPECT_EQ(stream->get_schema(stream.get(), schema.get()), 0);
    }

    Held<ArrowArray> next() {
        Held<ArrowArray> batch;
        EXPECT_EQ(stream->get_next(stream.get(), batch.get()), 0);
        return batch;
    }

    Held<ArrowArrayStream> stream;
    Held<ArrowSchema> schema;
};

bool is_set(const void *bits, int64_t row) { return (static_cast<const uint8_t *>(bits)[row / 8] >> row % 8 & 1) != 0; }

// A value as text: "null", "1.5", "KLM1023", "{RHO:2.5,THETA:120}", "[1,2]".
std::string text_of(const ArrowSchema &schema, const ArrowArray &array, int64_t row) {
    const auto value = [&]<typename Value>(Value) { return static_cast<const Value *>(array.buffers[1])[row]; };
    const std::string format = schema.format;
    if (array.null_count != 0 && !is_set(array.buffers[0], row)) return "null";
    if (format == "+s") {
        std::string text = "{";
        for (int64_t i = 0; i < array.n_children; ++i) {
            const std::string child = text_of(*schema.children[i], *array.children[i], row);
            if (child != "null")
                text.append(text.size() == 1 ? "" : ",").append(schema.children[i]->name).append(":").append(child);
        }
        return text + '}';
    }
    if (format == "+l") {
        std::string text = "[";
        const auto *const ends = static_cast<const int32_t *>(array.buffers[1]);
        for (int32_t i = ends[row]; i < ends[row + 1]; ++i)
            text.append(text.size() == 1 ? "" : ",").append(text_of(*schema.children[0], *array.children[0], i));
        return text + ']';
    }
    if (format == "b") return is_set(array.buffers[1], row) ? "true" : "false";
    if (format == "l" || format == "tsn:UTC") return std::to_string(value(int64_t{}));
    if (format == "i" && schema.dictionary) {
        const auto *const ends = static_cast<const int32_t *>(array.dictionary->buffers[1]);
        const auto code = static_cast<size_t>(value(int32_t{}));
        return {static_cast<const char *>(array.dictionary->buffers[2]) + ends[code],
                static_cast<size_t>(ends[code + 1] - ends[code])};
    }
    if (format == "i") return std::to_string(value(int32_t{}));
    std::string text = std::to_string(value(double{}));
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

// All rows of all batches.
std::vector<std::string> rows_of(Columns &columns, std::vector<int64_t> *lengths = nullptr) {
    std::vector<std::string> rows;
    while (true) {
        Held<ArrowArray> batch = columns.next();
        if (batch.is_released()) return rows;
        if (lengths) lengths->push_back(batch->length);
        for (int64_t row = 0; row < batch->length; ++row)
            rows.push_back(text_of(*columns.schema.get(), *batch.get(), row));
    }
}

// Of 25/12: at 12:00, a plot with code 2345, 640/256 NM away at 21845 × 360/65536 degrees, at flight level -0.25,
// address 3C4A12, callsign DLH4, and two registers 4,0 with selected altitudes of 16 and 35008 ft; then track 43 and no
// more.
const std::vector<uint8_t> &two_records() {
    static const std::vector<uint8_t> octets_of_both =
        block_of(48, octets("DD E0 19 0C 54 60 00 02 80 55 55 04 E5 3F FF 3C 4A 12 10 C2 34 82 08 20 "
                            "02 80 08 00 00 00 00 00 40 C4 60 00 00 00 00 00 40 "
                            "81 10 19 0C 00 2B"));
    return octets_of_both;
}

const std::vector<std::string> kCommon = {
    "{time:43200,category:48,sac:25,sic:12,type:plot,squawk:2345,callsign:DLH4,icao24:3C4A12,fl:-0.25,"
    "selected_altitude_ft:16,range_nm:2.5,azimuth_deg:119.998169,emergency:false}",
    "{category:48,sac:25,sic:12,type:track,track_number:43}"};

TEST(Columns, AreTheCommonQuantities) {
    const Recording recording = open(two_records());
    Columns columns(recording.get());
    EXPECT_EQ(rows_of(columns), kCommon);
}

TEST(Columns, AreFieldsNestedAsInJson) {
    const Recording recording = open(two_records());
    Columns columns(recording.get(), {.columns = "all", .categories = "48"});
    EXPECT_EQ(rows_of(columns),
              (std::vector<std::string>{
                  "{file:memory,block:1,record:1,I010:{SAC:25,SIC:12},I040:{RHO:2.5,THETA:119.998169},"
                  "I070:{V:0,G:0,L:0,MODE3A:2345},I090:{V:0,G:0,FL:-0.25},I140:43200,I220:3C4A12,I240:DLH4,"
                  "I250:[{bds:40,MCP_ALT:16},{bds:40,MCP_ALT:35008}]}",
                  "{file:memory,block:1,record:2,I010:{SAC:25,SIC:12},I161:{TRN:43}}"}));
}

TEST(Columns, AreThoseOfAList) {
    const Recording recording = open(two_records());
    Columns columns(recording.get(), {.columns = "record,I250/MCP_ALT,I250[1]/MCP_ALT,I048/161/TRN,icao"});
    EXPECT_EQ(rows_of(columns),
              (std::vector<std::string>{"{record:1,I250/MCP_ALT:[16,35008],I250[1]/MCP_ALT:35008,icao24:3C4A12}",
                                        "{record:2,I048/161/TRN:43}"}));
}

// Flight levels are feet, and addresses have small letters.
TEST(Columns, HaveTheNamesThatOthersExpect) {
    const Recording recording = open(two_records());
    Columns columns(recording.get(), {.names = "traffic"});
    EXPECT_EQ(rows_of(columns)[0], "{icao24:3c4a12,callsign:DLH4,altitude:-25,squawk:2345}");
}

TEST(Columns, TellTheirUnitsAndCodes) {
    const Recording recording = open(two_records());
    const auto metadata = [&](const char *names) {
        Columns columns(recording.get(), {.columns = names});
        const char *at = columns.schema->children[0]->metadata;
        int32_t length = 0;
        std::string text;
        int32_t pairs = 0;
        std::memcpy(&pairs, at, sizeof pairs);
        at += sizeof pairs;
        for (int32_t i = 0; i < 2 * pairs; ++i, at += length) {
            std::memcpy(&length, at, sizeof length);
            at += sizeof length;
            text.append(at, static_cast<size_t>(length)).append(i % 2 == 0 ? "=" : "; ");
        }
        return text;
    };
    EXPECT_EQ(metadata("vrate"), "unit=ft/min; title=Rate of climb, negative in descent; ");
    EXPECT_EQ(metadata("I048/020/SIM"), "codes={\"0\":\"Actual target report\",\"1\":\"Simulated target report\"}; ");
}

TEST(Columns, ChooseRecords) {
    ast_filter_t *const filter = ast_filter_open("squawk", nullptr);
    const Recording recording = open(two_records());
    Columns columns(recording.get(), {.categories = "34,48", .filter = filter});
    ast_filter_close(filter);
    EXPECT_EQ(rows_of(columns), std::vector<std::string>(kCommon.begin(), kCommon.begin() + 1));
    const Recording again = open(two_records());
    Columns others(again.get(), {.categories = "34"});
    EXPECT_EQ(rows_of(others), std::vector<std::string>());
}

// The radar is where a message of its own says, or where it is given: 2.5 NM east and south of 47° N 19° E.
TEST(Columns, PlaceWhatIsMeasuredFromAKnownSite) {
    ast_site_t site = {.sac = 25, .sic = 12, .known = AST_SITE_GIVEN, .place = {47, 19, 0}, .standard_error_m = 0};
    const ast_sites_t sites = {.sites = &site, .room = 1, .count = 1};
    const Recording recording = open(two_records());
    Columns columns(recording.get(), {.columns = "latitude,longitude", .sites = &sites});
    const std::string row = rows_of(columns)[0];
    EXPECT_EQ(row.substr(0, 14), "{latitude:46.9");
    EXPECT_EQ(row.substr(row.find(','), 14), ",longitude:19.");
}

// In whatever batches, also such as end within a block.
TEST(Columns, ComeInBatches) {
    std::vector<std::string> all;
    for (const uint64_t most : {uint64_t{0}, uint64_t{1}, uint64_t{64}, uint64_t{100}}) {
        const Recording recording = open({sample("radar.pcap")});
        Columns columns(recording.get(), {.columns = "common,file,received,I250/MCP_ALT,I250/TRACK", .rows = most});
        std::vector<int64_t> lengths;
        const std::vector<std::string> rows = rows_of(columns, &lengths);
        if (most == 0) all = rows;
        EXPECT_EQ(rows.size(), 425U);
        EXPECT_TRUE(rows == all) << most;
        EXPECT_EQ(lengths.front(), most == 0 ? 425 : static_cast<int64_t>(most));
    }
}

TEST(Columns, OutliveTheirStreamAndRecording) {
    std::optional<Held<ArrowArray>> batch;
    std::optional<Held<ArrowSchema>> schema;
    {
        const Recording recording = open(two_records());
        Columns columns(recording.get());
        batch.emplace(columns.next());
        schema.emplace(std::move(columns.schema));
    }
    EXPECT_EQ(text_of(*schema->get(), *batch->get(), 0), kCommon[0]);
}

// A consumer may take a child out of what it has been given, and release the rest.
TEST(Columns, OutliveWhatTheyWereTakenOutOf) {
    const Recording recording = open(two_records());
    Columns columns(recording.get(), {.columns = "I250/MCP_ALT,callsign"});
    ArrowArray list, text;
    {
        Held<ArrowArray> batch = columns.next();
        list = std::exchange(*batch->children[0], {});
        text = std::exchange(*batch->children[1], {});
    }
    EXPECT_EQ(text_of(*columns.schema->children[1], text, 0), "DLH4");
    text.release(&text);
    EXPECT_EQ(text_of(*columns.schema->children[0], list, 0), "[16,35008]");
    list.release(&list);
}

TEST(Columns, EndWhereTheirRecordingIsClosedOrInterrupted) {
    ArrowArray batch;
    Recording recording = open({sample("radar.pcap")});
    Columns closed(recording.get(), {.rows = 1});
    closed.next();
    recording.reset();
    EXPECT_EQ(closed.stream->get_next(closed.stream.get(), &batch), ECANCELED);
    EXPECT_STREQ(closed.stream->get_last_error(closed.stream.get()), "the recording is closed");
    EXPECT_EQ(batch.release, nullptr);
    recording = open({sample("radar.pcap")});
    Columns interrupted(recording.get());
    ast_recording_interrupt(recording.get());
    EXPECT_EQ(interrupted.stream->get_next(interrupted.stream.get(), &batch), ECANCELED);
    recording = open({sample("")}); // a directory
    Columns unreadable(recording.get());
    EXPECT_EQ(unreadable.stream->get_next(unreadable.stream.get(), &batch), EIO);
    EXPECT_NE(std::string(unreadable.stream->get_last_error(unreadable.stream.get())), "");
}

TEST(Columns, AreRefusedWhereTheyHaveNoMeaning) {
    const Recording recording = open(two_records());
    const ast_columns_options_t cases[] = {
        {.columns = "callsing"},
        {.columns = "I048/999"},
        {.columns = "I048/010"}, // which holds others
        {.columns = "all"},
        {.columns = "all", .categories = "34,48"},
        {.columns = "I140"}, // in s and in ft
        {.columns = "reports"},
        {.names = "Traffic"},
        {.columns = "time", .names = "traffic"},
        {.categories = "48,"},
    };
    for (const ast_columns_options_t &options : cases) {
        ast_recording_error_t error;
        ArrowArrayStream stream;
        EXPECT_FALSE(ast_columns_get_stream(recording.get(), &options, &stream, &error));
        EXPECT_EQ(error.code, AST_RECORDING_ERROR_OPTION) << error.text;
        EXPECT_EQ(stream.release, nullptr);
    }
    EXPECT_FALSE(ast_columns_get_stream(nullptr, nullptr, nullptr, nullptr));
    EXPECT_FALSE(ast_columns_get_stream(recording.get(), nullptr, nullptr, nullptr));
}

} // namespace

} // namespace ast_test
