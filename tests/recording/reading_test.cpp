// Blocks as they come from files and from memory.

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>

#include "recording/recorded.hpp"

namespace ast_test {

namespace {

constexpr const char *kSamples[] = {"adsb.pcap",  "categories.ast", "categories.json", "radar.ast",
                                    "radar.pcap", "tracks.pcap",    "weather.ast"};

// A pattern that no reading of one file may disturb in that of another.
std::vector<std::vector<uint8_t>> octets_of(const std::vector<ReadBlock> &blocks) {
    std::vector<std::vector<uint8_t>> octets;
    for (const ReadBlock &block : blocks) octets.push_back(block.octets);
    return octets;
}

TEST(Reading, IsTheSameFromFileMemoryAndThreads) {
    for (const char *const name : kSamples) {
        const std::string path = sample(name);
        const std::vector<ReadBlock> blocks = read_all(open({path}).get());
        EXPECT_FALSE(blocks.empty()) << name;
        EXPECT_TRUE(std::ranges::all_of(blocks, &ReadBlock::valid)) << name;
        EXPECT_EQ(blocks, read_all(open(contents(path), {}, path.c_str()).get())) << name;
        for (const uint32_t threads : {1U, 4U})
            EXPECT_EQ(blocks, read_all(open({path}, {.threads = threads}).get())) << name;
    }
}

TEST(Reading, GivesEveryOctetOfAFileOfBlocksOnce) {
    const std::vector<uint8_t> file = contents(sample("categories.ast"));
    std::vector<uint8_t> read;
    for (const ReadBlock &block : read_all(open(file).get())) {
        EXPECT_EQ(block.offset, read.size());
        EXPECT_EQ(block.file, "memory");
        EXPECT_EQ(block.time + block.route, "");
        EXPECT_EQ(block.packet, 0U);
        read.insert(read.end(), block.octets.begin(), block.octets.end());
    }
    EXPECT_EQ(read, file);
}

TEST(Reading, TellsWhereBlocksOfACaptureCameFrom) {
    const std::string path = sample("tracks.pcap");
    const std::vector<ReadBlock> blocks = read_all(open({path}).get());
    ASSERT_GT(blocks.size(), 2U);
    for (size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(blocks[i].number, i + 1);
        EXPECT_EQ(blocks[i].packet, 1U);
        EXPECT_EQ(blocks[i].datagram, 1U);
        EXPECT_EQ(blocks[i].file, path);
        EXPECT_EQ(blocks[i].time, "2024-06-01 12:00:00.219999");
        EXPECT_EQ(blocks[i].route, "192.0.2.10:8600 > 239.192.25.10:8600");
    }
    EXPECT_EQ(blocks[0].offset, 0U);
    EXPECT_EQ(blocks[1].offset, blocks[0].octets.size());
    EXPECT_EQ(blocks[2].packet, 2U);
    EXPECT_EQ(blocks[2].datagram, 2U);
    EXPECT_EQ(blocks[0].profile, "standard");
    EXPECT_EQ(blocks[0].edition, "1.21");
}

TEST(Reading, LearnsTheEditionFromTheBeginningOfFiles) {
    const auto recording = open({sample("adsb.pcap")});
    for (const ReadBlock &block : read_all(recording.get()))
        EXPECT_EQ(block.edition, block.octets[0] == 21 ? "2.7" : block.edition);
}

TEST(Reading, DecodesTheBlockThatWasHandedOver) {
    static ast_datablock_t block;
    ast_recording_block_t read;
    for (const char *const name : kSamples) {
        const auto recording = open({sample(name)});
        EXPECT_FALSE(ast_recording_decode(recording.get(), &block));
        while (ast_recording_next(recording.get(), &read)) {
            EXPECT_TRUE(ast_recording_decode(recording.get(), &block));
            EXPECT_EQ(block.records[0].data, read.octets + 3);
            const ast_datarecord_t &last = block.records[block.record_count - 1];
            EXPECT_EQ(last.data + last.size, read.octets + read.length);
        }
        EXPECT_FALSE(ast_recording_decode(recording.get(), &block));
    }
}

// More than a decoded block has room for.
TEST(Reading, GivesEveryRecordOfABlock) {
    constexpr size_t kRecords = 100;
    std::vector<uint8_t> file = {34, 0, 0};
    for (size_t i = 0; i < kRecords; ++i) file.insert(file.end(), {0xC0, 25, static_cast<uint8_t>(i), 1});
    file[1] = static_cast<uint8_t>(file.size() >> 8);
    file[2] = static_cast<uint8_t>(file.size());
    const auto recording = open(file);
    ast_recording_block_t block;
    ast_datarecord_t record{};
    EXPECT_FALSE(ast_recording_get_record(recording.get(), 0, &record));
    ASSERT_TRUE(ast_recording_next(recording.get(), &block));
    ASSERT_EQ(block.records, kRecords);
    for (size_t i = kRecords; i-- > 0;) {
        ASSERT_TRUE(ast_recording_get_record(recording.get(), i, &record));
        EXPECT_EQ(record.item_count, 2U);
        EXPECT_EQ(record.items[0].data[1], i);
    }
    EXPECT_FALSE(ast_recording_get_record(recording.get(), kRecords, &record));
    static ast_datablock_t decoded;
    EXPECT_FALSE(ast_recording_decode(recording.get(), &decoded));
    EXPECT_EQ(decoded.record_count, static_cast<uint64_t>(AST_DATABLOCK_MAX_RECORDS));
    EXPECT_FALSE(ast_recording_next(recording.get(), &block));
    EXPECT_FALSE(ast_recording_get_record(recording.get(), 0, &record));
}

TEST(Reading, GivesTheRecordsThatDecodingGives) {
    static ast_datablock_t decoded;
    for (const char *const name : kSamples) {
        const auto recording = open({sample(name)});
        ast_recording_block_t block;
        while (ast_recording_next(recording.get(), &block)) {
            ASSERT_TRUE(ast_recording_decode(recording.get(), &decoded));
            ASSERT_EQ(decoded.record_count, block.records);
            for (uint64_t i = 0; i < block.records; ++i) {
                ast_datarecord_t record;
                ASSERT_TRUE(ast_recording_get_record(recording.get(), i, &record));
                const ast_datarecord_t &same = decoded.records[i];
                EXPECT_EQ(record.data, same.data);
                EXPECT_EQ(record.size, same.size);
                ASSERT_EQ(record.item_count, same.item_count);
                for (uint64_t j = 0; j < record.item_count; ++j) {
                    EXPECT_EQ(record.items[j].type, same.items[j].type);
                    EXPECT_EQ(record.items[j].data, same.items[j].data);
                    EXPECT_EQ(record.items[j].size, same.items[j].size);
                }
            }
        }
    }
}

// Category 001 without I001/020, which would tell plots from tracks: a profile that fits is chosen, and its name alone
// would not do to read them once more.
TEST(Reading, GivesTheRecordsThatWereFound) {
    static ast_datablock_t decoded;
    const std::vector<uint8_t> octets = {1, 0, 9, 0x40, 0, 1, 0x11, 0, 0x80};
    for (const uint32_t threads : {0U, 2U}) {
        const auto recording = open(octets, {.threads = threads});
        ast_recording_block_t block;
        ASSERT_TRUE(ast_recording_next(recording.get(), &block));
        EXPECT_TRUE(block.read.valid);
        ASSERT_EQ(block.records, 2U);
        ast_datarecord_t record;
        for (const uint64_t i : {1U, 0U}) {
            ASSERT_TRUE(ast_recording_get_record(recording.get(), i, &record));
            EXPECT_EQ(record.data, block.octets + (i == 0 ? 3 : 5));
            EXPECT_EQ(record.size, i == 0 ? 2U : 4U);
        }
        EXPECT_TRUE(ast_recording_decode(recording.get(), &decoded));
        EXPECT_EQ(decoded.record_count, 2U);
    }
}

// Of the second record, I034/020 and all behind it is cut off.
TEST(Reading, KeepsTheRecordsInFrontOfAFault) {
    std::vector<uint8_t> octets = north_marker();
    octets.insert(octets.end(), {0xF0, 25, 12, 1, 0x54});
    octets[2] = static_cast<uint8_t>(octets.size());
    const auto recording = open(octets);
    ast_recording_block_t read;
    static ast_datablock_t block;
    ASSERT_TRUE(ast_recording_next(recording.get(), &read));
    EXPECT_FALSE(read.read.valid);
    EXPECT_EQ(read.length, octets.size());
    EXPECT_FALSE(ast_recording_decode(recording.get(), &block));
    EXPECT_EQ(block.record_count, 1U);
    EXPECT_EQ(block.records[0].item_count, 4U);
}

TEST(Reading, OfTwoRecordingsAtOnceDisturbsNeither) {
    const std::string path = sample("radar.pcap");
    const std::vector<ReadBlock> blocks = read_all(open({path}).get());
    const auto one = open({path}), other = open({path}, {.threads = 2});
    std::vector<ReadBlock> read, also_read;
    ast_recording_block_t block;
    while (ast_recording_next(one.get(), &block)) {
        read.push_back(copy_of(block));
        ast_recording_block_t same;
        ASSERT_TRUE(ast_recording_next(other.get(), &same));
        EXPECT_EQ(copy_of(block), read.back()) << "what one has handed over is good until its own next call";
        also_read.push_back(copy_of(same));
    }
    EXPECT_EQ(read, blocks);
    EXPECT_EQ(also_read, blocks);
}

TEST(Reading, GoesOnFromOneFileToTheNext) {
    const auto recording = open({sample("radar.ast"), sample("categories.ast")});
    const std::vector<ReadBlock> blocks = read_all(recording.get());
    const std::vector<ReadBlock> first = read_all(open({sample("radar.ast")}).get());
    const std::vector<ReadBlock> second = read_all(open({sample("categories.ast")}).get());
    std::vector<ReadBlock> both = first;
    both.insert(both.end(), second.begin(), second.end());
    EXPECT_EQ(blocks, both);
    const ast_recording_state_t state = state_of(recording.get());
    EXPECT_EQ(state.phase, AST_RECORDING_ENDED);
    EXPECT_EQ(state.blocks, both.size());
    EXPECT_EQ(state.octets_read, 291U + 1243U);
    EXPECT_STREQ(state.framing, "raw");
    EXPECT_EQ(state.file, sample("categories.ast"));
    EXPECT_EQ(state.file_octets, 1243U);
}

// Two inputs of one name are told apart.
TEST(Reading, NamesTheInputByItsPlace) {
    const std::string path = sample("radar.pcap");
    for (const bool merge : {false, true}) {
        const auto recording = open({path, path, sample("tracks.pcap")}, {.merge = merge});
        std::array<uint64_t, 3> blocks{};
        ast_recording_block_t block;
        while (ast_recording_next(recording.get(), &block)) {
            ASSERT_LT(block.input, blocks.size());
            ++blocks[block.input];
            EXPECT_EQ(block.file, block.input == 2 ? sample("tracks.pcap") : path);
        }
        EXPECT_EQ(blocks[0], blocks[1]);
        EXPECT_EQ(blocks[2], read_all(open({sample("tracks.pcap")}).get()).size());
    }
}

TEST(Reading, MergesByTime) {
    const std::string radar = sample("radar.pcap"), tracks = sample("tracks.pcap");
    const std::vector<ReadBlock> merged = read_all(open({radar, tracks}, {.merge = true}).get());
    std::vector<ReadBlock> all = read_all(open({radar}).get());
    const std::vector<ReadBlock> others = read_all(open({tracks}).get());
    all.insert(all.end(), others.begin(), others.end());
    std::ranges::stable_sort(all, {}, &ReadBlock::time);
    EXPECT_EQ(octets_of(merged), octets_of(all));
    EXPECT_TRUE(std::ranges::equal(merged, all, {}, &ReadBlock::file, &ReadBlock::file));
}

TEST(Reading, TakesOnlyWhatIsChosen) {
    const std::string path = sample("tracks.pcap");
    const auto count = [&](const ast_recording_options_t &options) {
        return read_all(open({path}, options).get()).size();
    };
    const std::vector<ReadBlock> all = read_all(open({path}).get());
    const auto services =
        static_cast<size_t>(std::ranges::count_if(all, [](const ReadBlock &block) { return block.octets[0] == 65; }));
    EXPECT_GT(services, 0U);
    EXPECT_EQ(count({.categories = "65"}), services);
    EXPECT_EQ(count({.categories = "1-64,66-255"}), all.size() - services);
    EXPECT_EQ(count({.ports = "8600"}), all.size());
    EXPECT_EQ(count({.ports = "1-8599"}), 0U);
    EXPECT_EQ(count({.hosts = "192.0.2.0/24"}), all.size());
    EXPECT_EQ(count({.hosts = "192.0.2.11"}), 0U);
    EXPECT_EQ(count({.to = "2024-06-01T12:00:00.3Z"}), 2U);
    EXPECT_EQ(count({.from = "12:00:00.3"}), all.size() - 2);
}

TEST(Reading, WritesNothingByItself) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    read_all(open({sample("adsb.pcap")}, {.threads = 2}).get());
    read_all(open(std::vector<uint8_t>{21, 0, 9, 1, 2, 3}).get());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Reading, LeavesTheLogOfTheProgramOn) {
    static std::atomic<int> lines;
    lines = 0;
    ast_log_handler_reg([](uint32_t, const char *) -> int32_t { return ++lines; });
    read_all(open({sample("adsb.pcap")}).get());
    EXPECT_EQ(lines, 0);
    // Behind damage, what might be blocks of category 001 is tried, by whichever thread reads there.
    std::vector<uint8_t> damaged;
    for (int i = 0; i < 100'000; ++i)
        damaged.insert(damaged.end(), {34, 0, 2, 1, 0, 7, 1, 1, 1, 0x10, 1, 0, 7, 1, 1, 1, 0x10});
    for (const uint32_t threads : {0U, 3U}) read_all(open(damaged, {.threads = threads}).get());
    EXPECT_EQ(lines, 0);
    ast_log(AST_LOG_INFO, "by the program");
    EXPECT_EQ(lines, 1);
    ast_log_handler_reg(ast_log_stdout);
}

TEST(Reading, OfNothingIsTheEnd) {
    const auto empty = open(std::vector<uint8_t>{});
    ast_recording_block_t block;
    std::memset(&block, 0xFF, sizeof block);
    EXPECT_FALSE(ast_recording_next(empty.get(), &block));
    EXPECT_EQ(block.octets, nullptr);
    EXPECT_EQ(state_of(empty.get()).phase, AST_RECORDING_ENDED);
    EXPECT_FALSE(ast_recording_next(empty.get(), &block));

    EXPECT_FALSE(ast_recording_next(nullptr, &block));
    EXPECT_FALSE(ast_recording_decode(nullptr, nullptr));
    EXPECT_EQ(ast_recording_get_state(nullptr, nullptr), AST_RECORDING_FAILED);
    ast_recording_interrupt(nullptr);
    ast_recording_close(nullptr);
}

// ---- Texts ----

TEST(RecordingText, OfTimesAndEndpoints) {
    const struct {
        int64_t time_ns;
        const char *text;
    } times[] = {
        {0, "1970-01-01 00:00:00.000000"},
        {1393331827401501000, "2014-02-25 12:37:07.401501"},
        {1393331827401501001, "2014-02-25 12:37:07.401501001"},
        {-1000, "1969-12-31 23:59:59.999999"},
        {INT64_MIN + 1, "-9223372036.854775807"}, // 1677
        {INT64_MAX, "2262-04-11 23:47:16.854775807"},
        {AST_TIME_UNKNOWN, ""},
    };
    char text[64];
    for (const auto &time : times) {
        EXPECT_EQ(ast_time_to_text(text, sizeof text, time.time_ns), std::strlen(time.text));
        EXPECT_STREQ(text, time.text);
    }
    const ast_endpoint_t v4{.family = 4, .octets = {10, 0, 0, 1}, .port = 8600, .scope = 0};
    const ast_endpoint_t v6{
        .family = 6, .octets = {0x20, 0x01, 0x0D, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}, .port = 1, .scope = 0};
    const ast_endpoint_t none{};
    EXPECT_EQ(ast_endpoint_to_text(text, sizeof text, &v4), 13U);
    EXPECT_STREQ(text, "10.0.0.1:8600");
    ast_endpoint_to_text(text, sizeof text, &v6);
    EXPECT_STREQ(text, "[2001:db8::1]:1");
    EXPECT_EQ(ast_endpoint_to_text(text, sizeof text, &none), 0U);
    EXPECT_STREQ(text, "");
    for (size_t capacity = 1; capacity < 16; ++capacity) {
        EXPECT_EQ(ast_endpoint_to_text(text, capacity, &v4), 13U);
        EXPECT_EQ(text, std::string("10.0.0.1:8600").substr(0, capacity - 1));
    }
    EXPECT_EQ(ast_endpoint_to_text(nullptr, 9, &v4), 13U);
}

} // namespace

} // namespace ast_test
