// What is not read is told as data, where it stands.

#include <cstring>

#include "recording/recorded.hpp"
#include "support/octets.hpp"

namespace ast_test {

namespace {

struct Case {
    const char *what;
    const char *hex;
    uint32_t kind;
    uint32_t reason;
    uint64_t offset;
    uint64_t octets;
    uint32_t category;
    const char *place;
    const char *text; // behind the place
    const char *cause;
};

// Of a north marker, 22 00 0B F0 19 0C 01 54 60 00 00, and what is wrong with others.
constexpr Case kCases[] = {
    {"a LEN below its own header, and a whole block",
     "22 00 02 22 00 0B F0 19 0C 01 54 60 00 00 22 00 0B F0 19 0C 01 54 60 00 00", AST_REPORT_DAMAGED,
     AST_REASON_SHORT_LENGTH, 0, 3, 34, "offset 0",
     "category 034: LEN is 2, less than the block header; 3 octets skipped",
     "category 034: LEN is less than the block header"},
    {"a block that is cut short", "22 00 0B F0 19 0C 01 54 60 00 00 22 00 0B F0 19", AST_REPORT_DAMAGED,
     AST_REASON_PAST_END, 11, 5, 34, "offset 11",
     "category 034: LEN is 11, but only 5 octets are left; 5 octets skipped", "category 034: LEN runs past the end"},
    {"two octets", "22 00 0B F0 19 0C 01 54 60 00 00 22 00", AST_REPORT_DAMAGED, AST_REASON_SHORT_HEADER, 11, 2, 0,
     "offset 11", "2 octets, too few for a block header; skipped", "too few octets for a block header"},
    {"text", "22 00 0B F0 19 0C 01 54 60 00 00 68 65 6C 6C 6F 21 0A", AST_REPORT_DAMAGED, AST_REASON_TEXT, 11, 7, 0,
     "offset 11", "7 octets of text; skipped", "octets of text"},
    {"an item that is cut short", "22 00 08 F0 19 0C 01 54", AST_REPORT_DAMAGED, AST_REASON_BLOCK, 0, 1, 34, "offset 0",
     "category 034: damaged in record 1 after 2 items, at octet 7 of 8: I034/030 runs past the end of the "
     "block",
     "category 034: I034/030 runs past the end of the block"},
    {"a category that nobody has published", "63 00 04 80", AST_REPORT_UNSUPPORTED, AST_REASON_BLOCK, 0, 0, 99,
     "offset 0",
     "category 099: not supported in record 1 after 0 items, at octet 4 of 4: nothing is known of category "
     "99",
     "nothing is known of category 99"},
    {"a line that is no record", "7B 22 61 22 3A 31 7D", AST_REPORT_DAMAGED, AST_REASON_LINE, AST_OFFSET_NONE, 0, 0,
     "line 1, character 1", "category: is missing", "is missing"},
    {"nothing at all", "", AST_REPORT_NOTE, AST_REASON_NOTE, AST_OFFSET_NONE, 0, 0, "", "holds no octets",
     "holds no octets"},
};

TEST(Report, SaysWhatAndWhere) {
    for (const Case &each : kCases) {
        Reports reports;
        read_all(open(octets(each.hex), reports.with(), "a.ast").get());
        ASSERT_EQ(reports.told.size(), 1U) << each.what;
        const Told &told = reports.told[0];
        EXPECT_EQ(told.data.kind, each.kind) << each.what;
        EXPECT_EQ(told.data.reason, each.reason) << each.what;
        EXPECT_EQ(told.data.offset, each.offset) << each.what;
        EXPECT_EQ(told.data.octets, each.octets) << each.what;
        EXPECT_EQ(told.data.category, each.category) << each.what;
        EXPECT_EQ(told.data.count, 1U) << each.what;
        EXPECT_EQ(told.file, "a.ast") << each.what;
        char place[40];
        EXPECT_EQ(ast_recording_report_get_place(place, sizeof place, &told.data), std::strlen(each.place))
            << each.what;
        EXPECT_STREQ(place, each.place) << each.what;
        EXPECT_EQ(told.text, *each.place ? std::string(each.place) + ": " + each.text : each.text) << each.what;
        EXPECT_EQ(told.cause, each.cause) << each.what;
    }
}

// Between two north markers, what begins like a block, and four octets behind that.
TEST(Report, SumsUpWhatIsLost) {
    Reports reports;
    const std::vector<uint8_t> file = octets("22 00 0B F0 19 0C 01 54 60 00 00 C8 00 05 01 00 FF FF FF FF "
                                             "22 00 0B F0 19 0C 01 54 60 00 00");
    const std::vector<ReadBlock> blocks = read_all(open(file, reports.with()).get());
    ASSERT_EQ(blocks.size(), 3U);
    EXPECT_EQ(blocks[1].octets.size(), 5U);
    ASSERT_EQ(reports.told.size(), 2U);
    EXPECT_EQ(reports.told[0].data.reason, AST_REASON_BLOCK);
    EXPECT_EQ(reports.told[1].data.offset, 16U);
    EXPECT_EQ(reports.told[1].data.octets, 4U);
}

TEST(Report, SaysOfABlockWhatItsStateIs) {
    const struct {
        const char *hex;
        uint32_t state;
        uint64_t records;
    } blocks[] = {
        {"22 00 0B F0 19 0C 01 54 60 00 00", AST_BLOCK_WHOLE, 1},
        {"22 00 0D F0 19 0C 01 54 60 00 00 F0 19", AST_BLOCK_DAMAGED, 1},
        {"63 00 04 80", AST_BLOCK_UNSUPPORTED, 0},
    };
    for (const auto &each : blocks) {
        const std::vector<uint8_t> file = octets(each.hex);
        const auto recording = open(file);
        ast_recording_block_t block;
        ASSERT_TRUE(ast_recording_next(recording.get(), &block)) << each.hex;
        EXPECT_EQ(block.state, each.state) << each.hex;
        EXPECT_EQ(block.records, each.records) << each.hex;
    }
}

TEST(Report, NamesTheItemAtFault) {
    Reports reports;
    read_all(open(octets("22 00 08 F0 19 0C 01 54"), reports.with()).get());
    ASSERT_EQ(reports.told.size(), 1U);
    const ast_recording_report_t &data = reports.told[0].data;
    EXPECT_EQ(data.split_reason, AST_SPLIT_ITEM_CUT);
    EXPECT_EQ(data.broken_type, AST_DATAITEM_TYPE(34, 30));
    EXPECT_EQ(data.broken_frn, 3U);
    EXPECT_EQ(data.block, 1U);
    EXPECT_EQ(data.record, 1U);
    EXPECT_EQ(data.items, 2U);
    EXPECT_EQ(data.end, 7U);
    EXPECT_EQ(data.length, 8U);
}

// One that is damaged between two that are not, in each file.
TEST(Report, ComesBetweenTheBlocksThatItStandsBetween) {
    std::vector<uint8_t> file = north_marker();
    const std::vector<uint8_t> cut = octets("22 00 08 F0 19 0C 01 54");
    file.insert(file.end(), cut.begin(), cut.end());
    const std::vector<uint8_t> last = north_marker();
    file.insert(file.end(), last.begin(), last.end());
    const TemporaryFile one(file), other(file);
    for (const uint32_t threads : {0U, 3U}) {
        Reports reports;
        const auto recording = open({one.path(), other.path()}, reports.with({.threads = threads}));
        ast_recording_block_t block;
        for (uint64_t read = 1; ast_recording_next(recording.get(), &block); ++read) {
            const uint64_t in_file = (read - 1) % 3 + 1;
            EXPECT_EQ(block.number, in_file);
            EXPECT_EQ(reports.told.size(), (read - 1) / 3 + (in_file == 3 ? 1 : 0));
        }
        ASSERT_EQ(reports.told.size(), 2U);
        EXPECT_EQ(reports.told[0].file, one.path());
        EXPECT_EQ(reports.told[1].file, other.path());
    }
}

TEST(Report, OfACaptureNamesThePacket) {
    std::vector<uint8_t> capture = contents(sample("tracks.pcap"));
    // Behind the headers of the file, the packet, Ethernet, IP and UDP stands the CAT octet, and behind that LEN.
    constexpr size_t kLen = 24 + 16 + 14 + 20 + 8 + 1;
    capture[kLen] = 0x7F;
    Reports reports;
    read_all(open(capture, reports.with()).get());
    ASSERT_EQ(reports.told.size(), 1U);
    EXPECT_EQ(reports.told[0].data.packet, 1U);
    EXPECT_EQ(reports.told[0].data.offset, 0U);
    EXPECT_EQ(reports.told[0].data.reason, AST_REASON_PAST_END);
    EXPECT_EQ(reports.told[0].data.length, 0x7FA8U);
    EXPECT_EQ(reports.told[0].data.sender.port, 8600);
    EXPECT_EQ(reports.told[0].data.receiver.octets[0], 239);
}

TEST(Report, IsCountedByKindAlsoWhereNobodyIsTold) {
    const std::vector<uint8_t> file =
        octets("22 00 0B F0 19 0C 01 54 60 00 00 63 00 04 80 22 00 0B F0 19 0C 01 54 60 00 00 22 00 0B F0");
    const auto recording = open(file);
    EXPECT_EQ(read_all(recording.get()).size(), 3U);
    const ast_recording_state_t state = state_of(recording.get());
    EXPECT_EQ(state.phase, AST_RECORDING_ENDED);
    EXPECT_EQ(state.reports[AST_REPORT_DAMAGED], 1U);
    EXPECT_EQ(state.reports[AST_REPORT_UNSUPPORTED], 1U);
    EXPECT_EQ(state.reports[AST_REPORT_NOTE], 0U);
}

TEST(Report, TextsAreCutAndTerminated) {
    Reports reports;
    read_all(open(octets("22 00"), reports.with()).get());
    ASSERT_EQ(reports.told.size(), 1U);
    ast_recording_report_t data = reports.told[0].data;
    data.detail = data.path = "";
    const std::string whole = reports.told[0].text;
    for (size_t capacity = 1; capacity <= whole.size() + 1; ++capacity) {
        std::vector<char> text(capacity, 'x');
        EXPECT_EQ(ast_recording_report_to_text(text.data(), capacity, &data), whole.size());
        EXPECT_EQ(text.data(), whole.substr(0, capacity - 1));
    }
    EXPECT_EQ(ast_recording_report_to_text(nullptr, 0, &data), whole.size());
    EXPECT_EQ(ast_recording_report_to_text(nullptr, 0, nullptr), 0U);
    data.reason = 1000;
    EXPECT_EQ(ast_recording_report_to_text(nullptr, 0, &data), 0U);
    EXPECT_STREQ(ast_recording_report_kind_to_str(AST_REPORT_UNSUPPORTED), "not supported");
    EXPECT_STREQ(ast_recording_report_kind_to_str(AST_REPORT_KINDS), "");
}

} // namespace

} // namespace ast_test
