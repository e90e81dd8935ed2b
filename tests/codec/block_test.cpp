#include <memory>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

// Blocks are large: they live on the heap.
using Block = std::unique_ptr<ast_datablock_t>;

Block decode(const std::vector<uint8_t> &data, const ast_uap_t &uap = AST_UAP_STANDARD) {
    return std::make_unique<ast_datablock_t>(ast_datablock_decode(data.data(), data.size(), uap));
}
Block smart(const std::vector<uint8_t> &data) {
    return std::make_unique<ast_datablock_t>(ast_datablock_smart_decode(data.data(), data.size()));
}
Block mixed(const std::vector<uint8_t> &data) {
    return std::make_unique<ast_datablock_t>(ast_datablock_001_mixuap_decode(data.data(), data.size()));
}

bool is(const ast_uap_t &uap, const ast_uap_t &expected) {
    return uap.max_frn == expected.max_frn && uap.get_dataitem == expected.get_dataitem;
}

// "valid" or "broken", the length and the number of records.
std::string text_of(const Block &block) {
    return (block->valid ? "valid " : "broken ") + std::to_string(block->length) + " " +
           std::to_string(block->record_count);
}

TEST(Block, DecodesRecordsThatFillItsLength) {
    each_case("30 00 03 = valid 3 0; 30 00 06 80 19 0C = valid 6 1; 30 00 08 80 19 0C 80 19 = broken 8 1; "
              "30 00 09 80 19 0C 80 19 0D 30 00 = valid 9 2; " // and octets of the next block
              "30 00 08 80 19 0C 80 19 0D = broken 8 2; "      // a record may read past LEN,
              "30 00 07 80 19 0C 80 19 0D = broken 7 2; "      // even from within its FSPEC
              "30 00 0A 80 19 0C 80 19 0D 00 = broken 10 2; 30 00 07 80 19 0C = broken 0 0; "
              "30 01 00 80 19 0C = broken 0 0; 30 00 02 80 19 0C = broken 2 0; 30 00 00 = broken 0 0; "
              "30 00 = broken 0 0; = broken 0 0",
              [](const std::string &hex, const std::string &expected) {
                  SCOPED_TRACE(hex);
                  LogCapture log;
                  const auto data = octets(hex);
                  const Block block = decode(data);
                  EXPECT_EQ(text_of(block), expected);
                  EXPECT_EQ(block->category, data.size() < 3 ? 0U : 48U);
                  EXPECT_TRUE(is(block->uap, AST_UAP_STANDARD));
                  EXPECT_EQ(log.take(), LogLines{});
                  if (!block->valid) return;
                  EXPECT_TRUE(block->data == data.data() && block->records_data == data.data() + 3);
                  EXPECT_EQ(block->records_length, block->length - 3);
                  for (uint64_t i = 0; i < block->record_count; ++i)
                      EXPECT_EQ(block->records[i].data, data.data() + 3 + 3 * i);
              });
    for (const auto decoder : {ast_datablock_smart_decode, ast_datablock_001_mixuap_decode}) {
        const auto block = std::make_unique<ast_datablock_t>(decoder(nullptr, 9));
        EXPECT_TRUE(!block->valid && !block->records_data);
    }
    EXPECT_FALSE(std::make_unique<ast_datablock_t>(ast_datablock_decode(nullptr, 9, AST_UAP_STANDARD))->valid);
}

TEST(Block, KeepsNothingOfARecordThatFails) {
    const Block block = decode(octets("30 00 0A 80 19 0C E0 19 0C 00"));
    EXPECT_EQ(block->record_count, 1U);
    EXPECT_TRUE(!block->records[1].data && block->records[1].item_count == 0);
}

TEST(Block, HoldsAtMost64Records) {
    LogCapture log;
    EXPECT_TRUE(decode(block_of(48, repeated("80 19 0C", 64)))->valid);
    EXPECT_TRUE(mixed(block_of(1, repeated("C0 19 0C 00", 64)))->valid);
    EXPECT_EQ(log.take(), LogLines{});

    const LogLine surplus{4, "Number of datarecords 65 exceeds the limit 64."};
    const Block over = decode(block_of(48, repeated("80 19 0C", 65)));
    EXPECT_TRUE(!over->valid && over->record_count == 64 && over->records[63].size == 3);
    const LogLines lines = log.take();
    ASSERT_EQ(lines.size(), 2U + 13) << "198 octets: 17, then 11 lines of 16 and the last 5";
    EXPECT_EQ(lines[0], surplus);
    EXPECT_EQ(lines[1], (LogLine{0, "Binary data size: 198"}));
    EXPECT_EQ(lines[14], (LogLine{0, "0x19, 0x0C, 0x80, 0x19, 0x0C"}));

    EXPECT_EQ(mixed(block_of(1, repeated("C0 19 0C 00", 65)))->record_count, 64U);
    EXPECT_EQ(log.take(), LogLines{surplus}) << "without a dump";

    // What follows 64 records is not a record: nothing to report.
    auto trailing = repeated("80 19 0C", 64);
    trailing.push_back(0x00);
    EXPECT_FALSE(decode(block_of(48, trailing))->valid);
    EXPECT_EQ(log.take(), LogLines{});
}

// ---- Smart decoding ----

// Only edition 2.1 takes a block that ends in I021/271 with two FX bits set.
const std::vector<uint8_t> kOnlyEdition21 = octets("15 00 0D 81 01 01 01 01 40 19 0C 01 01");

TEST(SmartDecode, TriesTheProfilesInOrderAndRemembersTheLast) {
    LogCapture log;
    EXPECT_TRUE(is(smart(kOnlyEdition21)->uap, AST_UAP_CAT021_VER21));
    log.take();
    const struct {
        const char *what;
        const char *octets;
        const ast_uap_t *uap;
    } kCases[] = {
        {"remembered", "30 00 06 80 19 0C", &AST_UAP_CAT021_VER21},
        // I021/040 is of two octets before edition 1.0, and the standard profile is the first of those.
        {"the first that fits", "15 00 08 C0 19 0C 01 01", &AST_UAP_STANDARD},
        {"remembered again", "30 00 06 80 19 0C", &AST_UAP_STANDARD},
        {"one further down", "15 00 07 C0 19 0C 00", &AST_UAP_CAT021_VER21},
        {"mixed category 001, whatever is remembered", "01 00 07 C0 19 0C 00", &AST_UAP_STANDARD},
        {"which leaves that alone", "30 00 03", &AST_UAP_CAT021_VER21},
    };
    for (const auto &c : kCases) {
        SCOPED_TRACE(c.what);
        const auto data = octets(c.octets);
        const Block block = smart(data);
        EXPECT_TRUE(block->valid && block->data == data.data() && is(block->uap, *c.uap));
    }
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(SmartDecode, GivesTheLastAttemptWhenNoneFits) {
    LogCapture log;
    const auto data = octets("30 00 0C 80 19 0C 81 01 01 40 19 0C");
    const Block block = smart(data);
    EXPECT_TRUE(!block->valid && block->record_count == 1 && is(block->uap, AST_UAP_MANAGAIR));
    EXPECT_EQ(log.take(), LogLines(11, {3, "Unsupported dataitem I048/055"})) << "the remembered profile and all ten";
    EXPECT_TRUE(is(smart(octets("30 00 03"))->uap, AST_UAP_MANAGAIR)) << "and it is remembered";
    EXPECT_EQ(smart(octets("30 00"))->uap.max_frn, nullptr);
}

TEST(SmartDecode, ASurplusRecordIsReportedByEveryAttempt) {
    LogCapture log;
    EXPECT_FALSE(smart(block_of(48, repeated("80 19 0C", 65)))->valid);
    uint64_t reports = 0;
    for (const LogLine &line : log.take()) reports += line.level == 4;
    EXPECT_EQ(reports, 11U);
}

// ---- Plots and tracks of category 001 ----

TEST(MixedDecode, ChoosesTheProfileOfEachRecord) {
    // FRN 3 is I001/040 of four octets in a plot, and I001/161 of two in a track.
    const auto data = octets("01 00 11 E0 19 0C 00 11 22 33 44 E0 19 0C 80 11 22");
    for (const Block &block : {mixed(data), smart(data)}) {
        EXPECT_TRUE(block->valid);
        EXPECT_TRUE(is(block->uap, AST_UAP_STANDARD));
        ASSERT_EQ(block->record_count, 2U);
        EXPECT_TRUE(is(block->records[0].uap, AST_UAP_CAT001_PLOT));
        EXPECT_EQ(block->records[0].items[2].type, 1040U);
        EXPECT_TRUE(is(block->records[1].uap, AST_UAP_STANDARD));
        EXPECT_EQ(block->records[1].items[2].type, 1161U);
    }
}

TEST(MixedDecode, WantsADescriptor) {
    each_case("01 00 06 80 19 0C = broken 6 0; 01 00 0A C0 19 0C 00 80 19 0C = broken 10 1; " // no I001/020
              "01 00 04 C1 = broken 4 0; 01 00 06 C0 19 0C = broken 6 0; 01 00 08 C0 19 0C 00 = broken 0 0; "
              "01 00 03 = valid 3 0; 02 00 07 C0 19 0C 00 = broken 0 0; 01 00 = broken 0 0",
              [](const std::string &hex, const std::string &expected) {
                  const auto data = octets(hex);
                  const Block block = mixed(data);
                  EXPECT_EQ(text_of(block), expected) << hex;
                  EXPECT_EQ(block->category, data.size() < 3 ? 0U : data[0]) << hex;
              });
}

// TYP is taken two octets behind the FSPEC even where I001/020 stands right behind it.
TEST(MixedDecode, ReadsTypAtAFixedDistance) {
    const Block block = mixed(octets("01 00 09 60 00 11 80 22 33"));
    ASSERT_EQ(block->record_count, 1U);
    EXPECT_TRUE(is(block->records[0].uap, AST_UAP_STANDARD));
    EXPECT_EQ(block->records[0].size, 4U) << "I001/020 of one octet, I001/161 of two";
    EXPECT_FALSE(block->valid);
}

// ---- Encoding and modifying ----

ast_sac_sic_t radar{.valid = true, .sac = 0x19, .sic = 0x0C};

std::unique_ptr<ast_datablock_src_t> source_of(uint64_t records) {
    auto source = std::make_unique<ast_datablock_src_t>();
    source->category = 48;
    source->uap = AST_UAP_STANDARD;
    source->record_count = records;
    for (ast_datarecord_src_t &record : source->records) {
        record.category = 48;
        record.uap = AST_UAP_STANDARD;
        record.items[0] = {48010, &radar};
        record.item_count = 1;
    }
    return source;
}

Block encode(std::vector<uint8_t> &buffer, const ast_datablock_src_t *source) {
    return std::make_unique<ast_datablock_t>(ast_datablock_encode(buffer.data(), buffer.size(), source));
}

TEST(Block, EncodesRecordsBackToBack) {
    std::vector<uint8_t> buffer(9);
    const auto source = source_of(2);
    const Block block = encode(buffer, source.get());
    EXPECT_EQ(text_of(block), "valid 9 2");
    EXPECT_TRUE(block->records_length == 6 && block->records_data == buffer.data() + 3);
    EXPECT_EQ(buffer, octets("30 00 09 80 19 0C 80 19 0C"));
    EXPECT_TRUE(decode(buffer)->valid);
}

TEST(Block, WithoutRecordsIsItsHeader) {
    const auto data = octets("30 00 03");
    const auto source = std::make_unique<ast_datablock_t>(ast_datablock_decode(data.data(), 3, AST_UAP_STANDARD));
    const ast_dataitem_src_list_t none{};
    std::vector<uint8_t> buffer(3);
    EXPECT_TRUE(std::make_unique<ast_datablock_t>(ast_datablock_modify(buffer.data(), 3, source.get(), &none))->valid);
    EXPECT_EQ(buffer, data);
    EXPECT_FALSE(std::make_unique<ast_datablock_t>(ast_datablock_modify(buffer.data(), 2, source.get(), &none))->valid);
}

TEST(Block, EncodeFails) {
    LogCapture log;
    for (uint64_t length = 0; length < 9; ++length) {
        std::vector<uint8_t> small(length);
        EXPECT_FALSE(encode(small, source_of(2).get())->valid) << length;
    }
    std::vector<uint8_t> buffer(1000);
    for (const uint64_t records : {UINT64_C(0), UINT64_C(65), UINT64_MAX})
        EXPECT_FALSE(encode(buffer, source_of(records).get())->valid) << records;
    EXPECT_TRUE(encode(buffer, source_of(64).get())->valid);
    auto other_category = source_of(2);
    other_category->records[1].category = 62;
    other_category->records[1].items[0].type = 62010;
    EXPECT_FALSE(encode(buffer, other_category.get())->valid);
    log.take();
    auto no_value = source_of(2);
    no_value->records[1].items[0].value = nullptr;
    EXPECT_FALSE(encode(buffer, no_value.get())->valid);
    EXPECT_EQ(log.take(), (LogLines{{0, "Failed to encode dataitem I048/010."}}));
    EXPECT_FALSE(encode(buffer, nullptr)->valid);
    EXPECT_FALSE(std::make_unique<ast_datablock_t>(ast_datablock_encode(nullptr, 9, source_of(2).get()))->valid);
}

Block modify(std::vector<uint8_t> &buffer, const ast_datablock_t *source, const ast_dataitem_src_list_t *list) {
    return std::make_unique<ast_datablock_t>(ast_datablock_modify(buffer.data(), buffer.size(), source, list));
}

TEST(Block, ModifyReplacesInEveryRecord) {
    LogCapture log;
    const auto data = octets("30 00 09 80 01 02 80 03 04");
    Block source = decode(data);
    ast_dataitem_src_list_t list{};
    list.items[0] = {48010, &radar};
    list.item_count = 1;
    std::vector<uint8_t> buffer(10, 0xEE);
    const Block modified = modify(buffer, source.get(), &list);
    EXPECT_EQ(text_of(modified), "valid 9 2");
    EXPECT_EQ(modified->records_length, 6U);
    EXPECT_EQ(buffer, octets("30 00 09 80 19 0C 80 19 0C EE"));
    EXPECT_TRUE(modify(buffer, source.get(), nullptr)->valid);
    EXPECT_EQ(buffer, octets("30 00 09 80 01 02 80 03 04 EE"));

    for (uint64_t length = 0; length < 9; ++length) {
        std::vector<uint8_t> small(length);
        EXPECT_FALSE(modify(small, source.get(), &list)->valid) << length;
    }
    EXPECT_FALSE(modify(buffer, nullptr, &list)->valid);
    source->valid = false;
    EXPECT_FALSE(modify(buffer, source.get(), &list)->valid);
}

// A record of I001/130 and I001/030, whose lengths have no bound of their own: three octets and those given.
std::vector<uint8_t> long_record(uint64_t item130_octets, uint64_t item030_octets) {
    auto result = octets("01 21 08");
    for (const uint64_t length : {item130_octets, item030_octets}) {
        result.insert(result.end(), length - 1, 0x01);
        result.push_back(0x00);
    }
    return result;
}

TEST(Block, ModifyStopsAtWhatLenCanSay) {
    const struct {
        uint64_t item130_octets, item030_octets;
        bool valid;
    } kCases[] = {{21, 999, true}, {22, 999, false}}; // 64 × 1023 and 3 octets; 64 × 1024 and 3
    for (const auto &c : kCases) {
        const auto data = long_record(c.item130_octets, c.item030_octets);
        const Block source = decode(octets("01 00 03"));
        source->record_count = AST_DATABLOCK_MAX_RECORDS;
        for (ast_datarecord_t &record : source->records)
            record = ast_datarecord_decode(data.data(), data.size(), 1, AST_UAP_STANDARD);
        std::vector<uint8_t> buffer(70000);
        const Block block = modify(buffer, source.get(), nullptr);
        EXPECT_EQ(block->valid, c.valid);
        EXPECT_EQ(block->records_length, 64 * data.size()) << "all records are written";
        EXPECT_EQ(buffer[0], c.valid ? 1 : 0) << "the header is not";
    }
}

TEST(Append, PutsRecordsTogether) {
    std::vector<uint8_t> buffer(10, 0xEE);
    EXPECT_EQ(ast_datablock_begin(buffer.data(), buffer.size(), 48), 3U);
    EXPECT_EQ(buffer, octets("30 00 03 EE EE EE EE EE EE EE"));
    const auto first = octets("80 19 0C");
    const auto second = octets("40 54 60 C0");
    EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), first.data(), 3), 6U);
    EXPECT_EQ(buffer, octets("30 00 06 80 19 0C EE EE EE EE"));
    EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), second.data(), 4), 10U);
    EXPECT_EQ(buffer, octets("30 00 0A 80 19 0C 40 54 60 C0"));
    EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), first.data(), 1), 0U) << "the buffer is full";
    EXPECT_EQ(buffer, octets("30 00 0A 80 19 0C 40 54 60 C0"));
}

TEST(Append, TakesMoreRecordsThanABlockDecodesInto) {
    std::vector<uint8_t> buffer(3 + 3 * 65);
    const auto record = octets("80 19 0C");
    ast_datablock_begin(buffer.data(), buffer.size(), 48);
    for (int i = 0; i < 65; ++i) ast_datablock_append(buffer.data(), buffer.size(), record.data(), record.size());
    EXPECT_EQ(buffer, block_of(48, repeated("80 19 0C", 65)));
}

TEST(Append, PutsAChangedRecordBetweenTheOthers) {
    const auto data = octets("30 00 0C 80 01 02 80 03 04 80 05 06");
    const Block block = decode(data);
    ast_dataitem_src_list_t list{};
    list.items[0] = {48010, &radar};
    list.item_count = 1;
    uint8_t scratch[3];
    block->records[1] = ast_datarecord_modify(scratch, sizeof scratch, &block->records[1], &list);
    std::vector<uint8_t> buffer(12);
    ast_datablock_begin(buffer.data(), buffer.size(), 48);
    for (uint64_t i = 0; i < block->record_count; ++i)
        ast_datablock_append(buffer.data(), buffer.size(), block->records[i].data, block->records[i].size);
    EXPECT_EQ(buffer, octets("30 00 0C 80 01 02 80 19 0C 80 05 06"));
}

// The record stands in the buffer at `from`, before the call.
TEST(Append, TakesARecordFromAnywhereInTheBuffer) {
    const struct {
        const char *name;
        uint64_t from, size;
        const char *expected;
    } kCases[] = {
        {"right behind the block", 6, 3, "30 00 09 A0 A1 A2 B0 B1 B2 C0"},
        {"one octet further on", 7, 3, "30 00 09 A0 A1 A2 B1 B2 C0 C0"},
        {"in the block", 3, 3, "30 00 09 A0 A1 A2 A0 A1 A2 C0"},
        {"reaching out of the block", 4, 4, "30 00 0A A0 A1 A2 A1 A2 B0 B1"},
        {"from the header on", 0, 4, "30 00 0A A0 A1 A2 30 00 06 A0"},
    };
    for (const auto &c : kCases) {
        auto buffer = octets("30 00 06 A0 A1 A2 B0 B1 B2 C0");
        EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), buffer.data() + c.from, c.size), 6 + c.size);
        EXPECT_EQ(buffer, octets(c.expected)) << c.name;
    }
}

TEST(Append, StopsAtWhatLenCanSay) {
    std::vector<uint8_t> buffer(70000, 0xEE);
    const std::vector<uint8_t> record(65533, 0x01);
    ast_datablock_begin(buffer.data(), buffer.size(), 255);
    for (const uint64_t size : {UINT64_C(65533), UINT64_MAX, UINT64_MAX - 2})
        EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), record.data(), size), 0U) << size;
    EXPECT_EQ(ast_datablock_append(buffer.data(), UINT64_MAX, record.data(), 65533), 0U);
    EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), record.data(), 65532), 65535U);
    EXPECT_EQ(buffer[0], 255);
    EXPECT_TRUE(buffer[1] == 0xFF && buffer[2] == 0xFF && buffer[65534] == 0x01 && buffer[65535] == 0xEE);
    EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), record.data(), 1), 0U);
}

TEST(Append, LeavesTheBufferAsItIsWhenItFails) {
    const auto record = octets("80 19 0C");
    // Buffers without a header, with a LEN that is none, and without room for all of the record.
    for (const char *const before : {"", "30", "30 00", "30 00 02 EE EE EE EE EE", "30 00 09 EE EE EE EE EE",
                                     "30 FF FF EE EE EE EE EE", "30 00 06 80 01 02 EE EE"}) {
        auto buffer = octets(before);
        EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), record.data(), 3), 0U) << before;
        EXPECT_EQ(buffer, octets(before));
    }
    auto buffer = octets("30 00 03 EE EE EE");
    EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), record.data(), 0), 0U);
    EXPECT_EQ(ast_datablock_append(buffer.data(), buffer.size(), nullptr, 3), 0U);
    EXPECT_EQ(ast_datablock_append(nullptr, 6, record.data(), 3), 0U);
    EXPECT_EQ(ast_datablock_begin(buffer.data(), 2, 48), 0U);
    EXPECT_EQ(ast_datablock_begin(buffer.data(), buffer.size(), 256), 0U);
    EXPECT_EQ(ast_datablock_begin(nullptr, 3, 48), 0U);
    EXPECT_EQ(buffer, octets("30 00 03 EE EE EE"));
}

} // namespace
