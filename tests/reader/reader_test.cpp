// Blocks whose edition nobody tells, read with what fits their source.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/octets.hpp"

namespace {

using namespace ast_test;

class Reader : public testing::Test {
protected:
    Reader() { ast_reader_init(reader.get()); }

    bool decode(const std::vector<uint8_t> &octets) {
        data = octets; // the block points into it
        const bool valid = ast_reader_decode(reader.get(), block.get(), data.data(), data.size(), &result);
        EXPECT_EQ(valid, result.valid);
        EXPECT_EQ(valid, block->valid);
        return valid;
    }
    bool decode(uint8_t category, std::string_view records) { return decode(block_of(category, octets(records))); }

    // "48010+2 48140+3" for each record, with the profiles of category 001.
    std::string items() const {
        std::string text;
        for (uint64_t r = 0; r < block->record_count; ++r) {
            const ast_datarecord_t &record = block->records[r];
            if (r != 0) text += " | ";
            if (record.uap.get_dataitem == AST_UAP_CAT001_PLOT.get_dataitem) text += "plot ";
            for (uint64_t i = 0; i < record.item_count; ++i)
                text +=
                    (i ? " " : "") + std::to_string(record.items[i].type) + "+" + std::to_string(record.items[i].size);
        }
        return text;
    }

    std::unique_ptr<ast_reader_t> reader = std::make_unique<ast_reader_t>();
    std::unique_ptr<ast_datablock_t> block = std::make_unique<ast_datablock_t>();
    std::vector<uint8_t> data;
    ast_reader_result_t result{};
};

TEST_F(Reader, KnowsWhatTheRegistryLeavesOut) {
    // I034/100 is FRN 9 and eight octets, I063/070 FRN 6 and two, I010/210 FRN 21 and two
    EXPECT_TRUE(decode(34, "81 40 19 0C 01 02 03 04 05 06 07 08"));
    EXPECT_EQ(items(), "34010+2 34100+8");
    EXPECT_STREQ(result.profile, "standard");
    EXPECT_TRUE(decode(63, "84 19 0C 01 02"));
    EXPECT_EQ(items(), "63010+2 63070+2");
    EXPECT_TRUE(decode(48, "82 19 0C 00")); // I048/130 without a subfield
    EXPECT_EQ(items(), "48010+2 48130+1");
    EXPECT_TRUE(decode(247, "E0 19 0C 00 01 02 03")); // which has no profile but the published one
    EXPECT_EQ(items(), "247010+2 247015+1 247140+3");
    EXPECT_STREQ(result.profile, "published");
    EXPECT_FALSE(result.ambiguous);
}

// FRN 8 of category 007 is I007/161 in a request and I007/070 in what answers it.
TEST_F(Reader, TellsRequestsFromReportsByTheirMessageType) {
    EXPECT_TRUE(decode(7, "A1 80 19 0C 05 00 07"));
    EXPECT_EQ(items(), "7010+2 7410+1 7161+2");
    EXPECT_FALSE(result.ambiguous);
    EXPECT_TRUE(decode(7, "A1 80 19 0D 04 00 07"));
    EXPECT_EQ(items(), "7010+2 7410+1 7070+2");
    EXPECT_FALSE(result.ambiguous);
}

// Where the registered layout is another one, or that of an edition before.
TEST_F(Reader, SizesItemsAsTheirDocumentSays) {
    EXPECT_TRUE(decode(4, "81 20 19 0C 10 00 01 80")); // I004/120/CD has three octets
    EXPECT_EQ(items(), "4010+2 4120+4");
    EXPECT_TRUE(decode(21, "81 01 01 04 19 0C 00 31")); // I021/165, TAR, has two octets, and no FX
    EXPECT_EQ(items(), "21010+2 21165+2");
    EXPECT_TRUE(decode(23, "84 19 0C 04 20")); // I023/101, RP and SC, which FX follows
    EXPECT_EQ(items(), "23010+2 23101+2");
    EXPECT_TRUE(
        decode(48, "81 01 04 19 0C 40 02 00 01 02 03 04 05 06 07 08 09 0A 0B")); // I048/120/RDS, two of six octets
    EXPECT_EQ(items(), "48010+2 48120+14");
    EXPECT_TRUE(decode(2, "81 02 19 0C 01 03 40")); // RFS: one item, FRN 3 and its octet
    EXPECT_EQ(items(), "2010+2 2997+3");
    EXPECT_TRUE(decode(2, "81 02 19 0C 03 40 41")); // no FRNs: octets behind a length
    EXPECT_EQ(items(), "2010+2 2997+3");
}

TEST_F(Reader, TellsWhereABlockBreaks) {
    EXPECT_FALSE(decode(34, "80 19 0C 81 40 19 0C 01")); // I034/100 is cut in the second record
    EXPECT_EQ(items(), "34010+2");
    EXPECT_EQ(result.reason, AST_SPLIT_ITEM_CUT);
    EXPECT_EQ(result.end, 10U);
    EXPECT_EQ(result.broken_frn, 9U);
    EXPECT_EQ(result.broken_type, 34100U);

    EXPECT_FALSE(decode(200, "80 19 0C"));
    EXPECT_EQ(result.reason, AST_SPLIT_NO_ITEM);
    EXPECT_STREQ(result.edition, "");
    EXPECT_FALSE(decode(octets("30 00 08 80 19 0C")));
    EXPECT_EQ(result.reason, AST_SPLIT_LENGTH);
    EXPECT_FALSE(decode(octets("30 00")));
    EXPECT_EQ(result.reason, AST_SPLIT_NO_HEADER);
    EXPECT_FALSE(ast_reader_decode(nullptr, nullptr, nullptr, 9, nullptr));
    ast_reader_init(nullptr);

    EXPECT_FALSE(decode(block_of(48, repeated("80 19 0C", 65)))); // one more than there is room for
    EXPECT_EQ(result.reason, AST_SPLIT_NO_ROOM);
    EXPECT_EQ(result.end, 3U + 64 * 3);
}

TEST_F(Reader, ReadsPlotsAndTracksAsTheRecordBefore) {
    // I001/010 alone; then with I001/020, TYP track; and, FRN 3, what a plot has and what a track has there
    EXPECT_TRUE(decode(1, "A0 19 0C 00 01 00 02 C0 19 0C 80 A0 19 0C 00 07"));
    EXPECT_EQ(items(), "plot 1010+2 1040+4 | 1010+2 1020+1 | 1010+2 1161+2");
    EXPECT_TRUE(decode(1, "42 21 A8 F3 96")); // I001/020 without I001/010 before it, TYP plot, and I001/141
    EXPECT_EQ(items(), "plot 1020+2 1141+2");
    EXPECT_FALSE(result.ambiguous);
}

TEST_F(Reader, KnowsTheLayoutsOfParticularRadars) {
    EXPECT_TRUE(decode(1, "81 01 01 40 19 0C 12 34")); // FRN 1 as everywhere, FRN 23 as of one kind
    EXPECT_EQ(items(), "1010+2 1951+2");
    EXPECT_STREQ(result.profile, "managair");
}

// Edition 2.1 ends I021/271 with its second octet, whose last bit is of LW; later ones take that bit for FX.
TEST_F(Reader, ChoosesTheEditionThatFitsAllBlocksOfASource) {
    // FRN 1, 2 and 11: I021/010, 040 and 080
    EXPECT_TRUE(decode(21, "C1 10 19 0C 00 12 34 56"));
    EXPECT_EQ(items(), "21010+2 21040+1 21080+3");
    EXPECT_STREQ(result.edition, "2.7");
    EXPECT_TRUE(result.ambiguous);
    // FRN 1, 2, 11 and 37: I021/271
    EXPECT_TRUE(decode(21, "C1 11 01 01 01 40 19 0C 00 12 34 56 01 03"));
    EXPECT_EQ(items(), "21010+2 21040+1 21080+3 21907+2");
    EXPECT_STREQ(result.profile, "cat021-2.1");
    EXPECT_FALSE(result.ambiguous);
    EXPECT_TRUE(decode(21, "C1 10 19 0C 00 12 34 56")); // the first one again
    EXPECT_STREQ(result.edition, "2.1");
    EXPECT_TRUE(decode(21, "C1 10 19 0D 00 12 34 56")); // another source
    EXPECT_STREQ(result.edition, "2.7");
}

TEST_F(Reader, RanksEditionsByPlausibility) {
    // FRN 1, 2, 3 and 5. Up to edition 0.26: I021/010, 040 (two octets), 030 (00:00:00) and 080 (FFFFFF). Later:
    // I021/010, 040 (three octets), 161 and 071 (FFFFFF, which is behind midnight).
    EXPECT_TRUE(decode(21, "E8 19 0C 01 01 00 00 00 FF FF FF"));
    EXPECT_STREQ(result.edition, "0.26");
    EXPECT_EQ(items(), "21010+2 21903+2 21030+3 21080+3");
    EXPECT_TRUE(result.ambiguous);                               // 0.23 is the same
    EXPECT_TRUE(decode(21, "E8 19 0D 01 01 00 00 00 00 00 00")); // of another source, plausible either way
    EXPECT_STREQ(result.edition, "2.7");
}

TEST_F(Reader, CountsWhatCannotBe) {
    const auto flaws = [&](std::string_view record) {
        ast_reader_init(reader.get());
        EXPECT_TRUE(decode(21, record)) << record;
        return reader->sources[0].flaws[0];
    };
    EXPECT_EQ(flaws("C1 10 19 0C 00 12 34 56"), 0U); // I021/010, 040 and 080
    EXPECT_EQ(flaws("C0 19 0C 00"), 1U);             // neither I021/080 nor 161
    // I021/073: 24 hours in 1/128 s, and a step less
    EXPECT_EQ(flaws("C1 18 19 0C 00 12 34 56 A8 C0 00"), 1U);
    EXPECT_EQ(flaws("C1 18 19 0C 00 12 34 56 A8 BF FF"), 0U);
    // I021/130: 90° in 180/2^23, and a step beyond, to the north and to the south; I021/131 in 180/2^30
    EXPECT_EQ(flaws("C5 10 19 0C 00 40 00 00 00 00 00 12 34 56"), 0U);
    EXPECT_EQ(flaws("C5 10 19 0C 00 40 00 01 00 00 00 12 34 56"), 1U);
    EXPECT_EQ(flaws("C5 10 19 0C 00 C0 00 00 7F FF FF 12 34 56"), 0U);
    EXPECT_EQ(flaws("C5 10 19 0C 00 BF FF FF 00 00 00 12 34 56"), 1U);
    EXPECT_EQ(flaws("C3 10 19 0C 00 20 00 00 00 00 00 00 00 12 34 56"), 0U);
    EXPECT_EQ(flaws("C3 10 19 0C 00 DF FF FF FF 00 00 00 00 12 34 56"), 1U);
    // I021/145: 1500 and -15 in 1/4, and a step beyond
    EXPECT_EQ(flaws("C1 11 02 19 0C 00 12 34 56 17 70"), 0U);
    EXPECT_EQ(flaws("C1 11 02 19 0C 00 12 34 56 17 71"), 1U);
    EXPECT_EQ(flaws("C1 11 02 19 0C 00 12 34 56 FF C4"), 0U);
    EXPECT_EQ(flaws("C1 11 02 19 0C 00 12 34 56 FF C3"), 1U);
    // I021/170: "AAAAAAAA", and the same with two codes that are none
    EXPECT_EQ(flaws("C1 11 01 01 80 19 0C 00 12 34 56 04 10 41 04 10 41"), 0U);
    EXPECT_EQ(flaws("C1 11 01 01 80 19 0C 00 12 34 56 00 10 41 04 10 40"), 2U);
}

// What has fitted none of eight blocks is no longer tried while what leads fits, and yet counted.
TEST_F(Reader, FollowsASourceThatChangesItsEdition) {
    const auto edition = [&] {
        ast_reader_t before = *reader;
        EXPECT_TRUE(decode(21, "C1 10 19 0C 00 12 34 56")); // which all editions since 2.1 fit
        std::swap(*reader, before);
        return std::string_view(result.edition);
    };
    constexpr int kBlocks = 20;
    for (int i = 0; i < kBlocks; ++i) EXPECT_TRUE(decode(21, "C1 11 01 01 01 40 19 0C 00 12 34 56 01 03"));
    // I021/271 of three octets, which edition 2.1 does not have
    for (int i = 1; i <= kBlocks; ++i) {
        EXPECT_EQ(edition(), "2.1") << i;
        EXPECT_TRUE(decode(21, "C1 11 01 01 01 40 19 0C 00 12 34 56 01 03 02"));
    }
    EXPECT_EQ(edition(), "2.7");
}

TEST_F(Reader, HasTheBestKnownSourceSpeakForThoseThatFindNoPlace) {
    const auto of_source = [](int sac, std::string_view rest) {
        const std::string hex = {'1', static_cast<char>('0' + sac / 16), ' ', "0123456789ABCDEF"[sac % 16], '0'};
        return "C1 11 01 01 01 40 " + hex + " 00 12 34 56 " + std::string(rest);
    };
    constexpr std::string_view kOnly21 = "01 03";
    constexpr std::string_view kSince24 = "01 03 02";
    constexpr int kSources = AST_READER_SOURCES + 20;
    const auto key_of_last = [&](int sac) {
        const uint64_t place = reader->latest;
        return (reader->sources[place].key & 0xFFFF) ==
               static_cast<uint32_t>(0x1000 + sac / 16 * 0x100 + sac % 16 * 16);
    };
    for (int sac = 0; sac < kSources; ++sac) {
        EXPECT_TRUE(decode(21, of_source(sac, kOnly21)));
        EXPECT_STREQ(result.edition, "2.1");
        EXPECT_EQ(key_of_last(sac), sac < AST_READER_SOURCES) << sac;
    }
    EXPECT_TRUE(decode(21, of_source(kSources, kSince24))); // which takes a place after all
    EXPECT_STREQ(result.edition, "2.7");
    EXPECT_TRUE(key_of_last(kSources));
    for (int sac = 0; sac < AST_READER_SOURCES; ++sac) {
        EXPECT_TRUE(decode(21, of_source(sac, kOnly21)));
        EXPECT_STREQ(result.edition, "2.1");
    }
    EXPECT_TRUE(decode(21, of_source(kSources, kSince24)));
    EXPECT_TRUE(key_of_last(kSources));
}

TEST_F(Reader, ReplacesTheSourceNotSeenForLongest) {
    const auto of_source = [](int sic) {
        const std::string hex = {"0123456789ABCDEF"[sic / 16], "0123456789ABCDEF"[sic % 16]};
        return "C1 10 19 " + hex + " 00 12 34 56";
    };
    EXPECT_TRUE(decode(21, "C1 11 01 01 01 40 19 00 00 12 34 56 01 03")); // of edition 2.1
    for (int sic = 1; sic < AST_READER_SOURCES; ++sic) EXPECT_TRUE(decode(21, of_source(sic)));
    EXPECT_TRUE(decode(21, of_source(0)));
    EXPECT_STREQ(result.edition, "2.1");
    EXPECT_TRUE(decode(21, of_source(AST_READER_SOURCES))); // in place of source 1
    EXPECT_TRUE(decode(21, of_source(0)));
    EXPECT_STREQ(result.edition, "2.1");
    for (int sic = 1; sic <= AST_READER_SOURCES; ++sic) EXPECT_TRUE(decode(21, of_source(sic)));
    EXPECT_TRUE(decode(21, of_source(0)));
    EXPECT_STREQ(result.edition, "2.7");
}

TEST_F(Reader, LooksBeforeItReadsAndSplits) {
    const auto told = block_of(21, octets("C1 11 01 01 01 40 19 0C 00 12 34 56 01 03"));
    EXPECT_TRUE(ast_reader_learn(reader.get(), told.data(), told.size(), nullptr));
    EXPECT_TRUE(decode(21, "C1 10 19 0C 00 12 34 56"));
    EXPECT_STREQ(result.edition, "2.1");

    std::vector<ast_split_record_t> records(100);
    std::vector<ast_split_item_t> items(300);
    ast_split_t split{
        .records = records.data(), .record_room = records.size(), .items = items.data(), .item_room = items.size()};
    EXPECT_TRUE(ast_reader_split(reader.get(), &split, told.data(), told.size(), &result));
    EXPECT_EQ(split.item_count, 4U);
    EXPECT_EQ(items[3].type, 21907U);
    const auto many = block_of(48, repeated("80 19 0C", 65));
    EXPECT_TRUE(ast_reader_split(reader.get(), &split, many.data(), many.size(), &result));
    EXPECT_EQ(split.record_count, 65U);
    split.item_room = 10;
    EXPECT_FALSE(ast_reader_split(reader.get(), &split, many.data(), many.size(), &result));
    EXPECT_EQ(result.reason, AST_SPLIT_NO_ROOM);
    EXPECT_EQ(result.end, 34U); // the item of the eleventh record, behind its FSPEC
}

TEST_F(Reader, LearnsNothingByReadingWhenFrozen) {
    const char *const any_edition = "C1 10 19 0C 00 12 34 56";
    const auto old = block_of(21, octets("C1 11 01 01 01 40 19 0C 00 12 34 56 01 03"));
    reader->frozen = true;
    EXPECT_TRUE(decode(old));
    EXPECT_STREQ(result.edition, "2.1");
    EXPECT_TRUE(decode(21, any_edition));
    EXPECT_STREQ(result.edition, "2.7");
    EXPECT_TRUE(ast_reader_learn(reader.get(), old.data(), old.size(), nullptr));
    EXPECT_TRUE(decode(21, any_edition));
    EXPECT_STREQ(result.edition, "2.1");
    EXPECT_FALSE(result.ambiguous);
    EXPECT_TRUE(decode(21, "C1 10 19 0D 00 12 34 56")); // another source of the category
    EXPECT_STREQ(result.edition, "2.1");
    EXPECT_TRUE(decode(21, "C0 19 0C 01 00 80 19 0C")); // of any edition, I021/040 being chained
    EXPECT_STREQ(result.edition, "2.1");
    EXPECT_FALSE(decode(48, "82 19 0C")); // and of a category of which nothing is known
    EXPECT_EQ(result.reason, AST_SPLIT_ITEM_CUT);
}

TEST_F(Reader, ReadsByTheProfileThatIsForced) {
    const char *const plot_or_track = "F0 19 0C 80 01 23 40 00 00 00"; // I001/161 and 040, or 040 and 070
    reader->forced = &AST_UAP_STANDARD;
    EXPECT_TRUE(decode(1, plot_or_track));
    EXPECT_EQ(items(), "1010+2 1020+1 1161+2 1040+4");
    EXPECT_FALSE(decode(21, "C0 19 0C 00")); // I021/040 of edition 0.26 takes two octets
    EXPECT_STREQ(result.profile, "cat021-0.26");
    EXPECT_TRUE(decode(247, "80 19 0C"));
    EXPECT_STREQ(result.profile, "published");
    reader->forced = &AST_UAP_CAT001_PLOT;
    EXPECT_TRUE(decode(1, plot_or_track));
    EXPECT_EQ(items(), "plot 1010+2 1020+1 1040+4 1070+2");
    EXPECT_TRUE(decode(21, "C0 19 0C 00"));
    EXPECT_STREQ(result.profile, "published");
}

} // namespace
