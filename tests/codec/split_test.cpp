// Blocks split into the places of their records and items, and the two ways of reading a record by a profile.

#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/octets.hpp"

namespace {

using namespace ast_test;

struct Room {
    std::vector<ast_split_record_t> records = std::vector<ast_split_record_t>(100);
    std::vector<ast_split_item_t> items = std::vector<ast_split_item_t>(300);

    ast_split_t split() {
        return {
            .records = records.data(), .record_room = records.size(), .items = items.data(), .item_room = items.size()};
    }
};

// "record@offset+size by profile: type@offset+size ..." for each record.
std::string places_of(const ast_split_t &split) {
    std::string text;
    for (uint64_t i = 0; i < split.record_count; ++i) {
        const ast_split_record_t &record = split.records[i];
        text += "@" + std::to_string(record.offset) + "+" + std::to_string(record.size);
        text += record.uap == &AST_UAP_CAT001_PLOT ? " plot:" : ":";
        for (uint64_t k = 0; k < record.item_count; ++k) {
            const ast_split_item_t &item = split.items[record.first_item + k];
            text +=
                " " + std::to_string(item.type) + "@" + std::to_string(item.offset) + "+" + std::to_string(item.size);
        }
        text += "\n";
    }
    return text;
}

TEST(Split, GivesThePlacesOfRecordsAndItems) {
    Room room;
    ast_split_t split = room.split();
    // FRN 7 is I048/130 with its first, second and third subfield.
    const auto block = block_of(48, octets("C0 19 0C 35 2A 80 82 19 0C E0 01 02 03"));
    EXPECT_TRUE(ast_datablock_split(&split, block.data(), block.size(), &AST_UAP_STANDARD));
    EXPECT_EQ(places_of(split), "@3+6: 48010@4+2 48140@6+3\n"
                                "@9+7: 48010@10+2 48130@12+4\n");
    EXPECT_EQ(split.category, 48U);
    EXPECT_EQ(split.length, 16U);
    EXPECT_EQ(split.item_count, 4U);

    const ast_dataitem_t compound = ast_split_get_item(&split, 3);
    EXPECT_TRUE(compound.valid && compound.data == block.data() + 12 && compound.size == 4 && compound.type == 48130);
    EXPECT_EQ(ast_split_get_item(&split, 0).following, 10U);
    EXPECT_FALSE(ast_split_get_item(&split, 4).valid);
    EXPECT_FALSE(ast_split_get_item(nullptr, 0).valid);
}

struct BreakCase {
    const char *meaning;
    uint8_t category;
    const char *records;
    uint32_t reason;
    uint64_t end;
    uint32_t frn;
    ast_dataitem_type_t type;
    uint64_t items_of_broken;
};

constexpr BreakCase kBreaks[] = {
    {"nothing is wrong", 48, "80 19 0C", AST_SPLIT_WHOLE, 6, 0, 0, 0},
    {"the FSPEC goes on", 48, "80 19 0C 81", AST_SPLIT_FSPEC_CUT, 6, 0, 0, 0},
    {"no bit is set", 48, "80 19 0C 00", AST_SPLIT_FSPEC_EMPTY, 6, 0, 0, 0},
    {"FRN 2 of category 062 is spare", 62, "C0 19 0C 00", AST_SPLIT_NO_ITEM, 6, 2, 0, 1},
    {"I048/055 has no size", 48, "81 01 01 40 19 0C 00", AST_SPLIT_UNSUPPORTED, 9, 23, 48055, 1},
    {"SPF of category 034 is empty", 34, "81 02 19 0C 00", AST_SPLIT_NO_LENGTH, 7, 14, 34999, 1},
    {"REF of category 034 runs on", 34, "81 04 19 0C 09 00", AST_SPLIT_ITEM_CUT, 7, 13, 34998, 1},
    {"I048/140 is cut", 48, "C0 19 0C 35 2A", AST_SPLIT_ITEM_CUT, 6, 2, 48140, 1},
    {"I048/130 has no subfield", 48, "82 19 0C 00", AST_SPLIT_ITEM_CUT, 6, 7, 48130, 1},
};

TEST(Split, SaysWhereAndWhyItBrokeOff) {
    LogCapture log;
    for (const BreakCase &expected : kBreaks) {
        SCOPED_TRACE(expected.meaning);
        Room room;
        ast_split_t split = room.split();
        const auto block = block_of(expected.category, octets(expected.records));
        EXPECT_EQ(ast_datablock_split(&split, block.data(), block.size(), &AST_UAP_STANDARD),
                  expected.reason == AST_SPLIT_WHOLE);
        EXPECT_EQ(split.reason, expected.reason);
        EXPECT_EQ(split.end, expected.end);
        EXPECT_EQ(split.broken_frn, expected.frn);
        EXPECT_EQ(split.broken_type, expected.type);
        EXPECT_EQ(split.broken.item_count, expected.items_of_broken);
    }
}

TEST(Split, EndsWithTheHeaderTheLengthAndTheRoom) {
    const auto reason_of = [](const std::vector<uint8_t> &block, uint64_t available, uint64_t records, uint64_t items) {
        Room room;
        ast_split_t split = room.split();
        split.record_room = records;
        split.item_room = items;
        ast_datablock_split(&split, block.data(), available, &AST_UAP_STANDARD);
        return split.reason;
    };
    const auto block = block_of(48, octets("C0 19 0C 35 2A 80 80 19 0C"));
    EXPECT_EQ(reason_of(block, 2, 9, 9), AST_SPLIT_NO_HEADER);
    EXPECT_EQ(reason_of(block, block.size() - 1, 9, 9), AST_SPLIT_LENGTH);
    EXPECT_EQ(reason_of(octets("30 00 02"), 3, 9, 9), AST_SPLIT_LENGTH);
    EXPECT_EQ(reason_of(octets("30 00 05 80 19 0C"), 6, 9, 9), AST_SPLIT_OVERRUN);
    EXPECT_EQ(reason_of(block, block.size(), 2, 3), AST_SPLIT_WHOLE);
    EXPECT_EQ(reason_of(block, block.size(), 1, 3), AST_SPLIT_NO_ROOM);
    EXPECT_EQ(reason_of(block, block.size(), 2, 2), AST_SPLIT_NO_ROOM);
    EXPECT_FALSE(ast_datablock_split(nullptr, block.data(), block.size(), &AST_UAP_STANDARD));
}

TEST(Split, HasNoLimitOfRecords) {
    LogCapture log;
    Room room;
    ast_split_t split = room.split();
    const auto block = block_of(48, repeated("80 19 0C", 100));
    EXPECT_TRUE(ast_datablock_split(&split, block.data(), block.size(), &AST_UAP_STANDARD));
    EXPECT_EQ(split.record_count, 100U);
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(SplitChoice, TakesPlotsAndTracksAsTheyCome) {
    Room room;
    ast_split_t split = room.split();
    const auto block = block_of(1, octets("C0 19 0C 00 C0 19 0C 80"));
    EXPECT_TRUE(ast_datablock_split(&split, block.data(), block.size(), nullptr));
    EXPECT_EQ(places_of(split), "@3+4 plot: 1010@4+2 1020@6+1\n@7+4: 1010@8+2 1020@10+1\n");
    EXPECT_EQ(split.remembered, nullptr);

    const auto undecided = block_of(1, octets("C0 19 0C 00 80 19 0C 11"));
    EXPECT_FALSE(ast_datablock_split(&split, undecided.data(), undecided.size(), nullptr));
}

TEST(SplitChoice, RemembersWhatFittedAndFallsBackOnWhatGotFurthest) {
    LogCapture log;
    Room room;
    ast_split_t split = room.split();
    const auto edition_21 = block_of(21, octets("11 01 01 01 80 00 50 86 71 04 28 20")); // FRNs 4 and 29
    EXPECT_TRUE(ast_datablock_split(&split, edition_21.data(), edition_21.size(), &AST_UAP_CAT021_VER21));
    EXPECT_TRUE(ast_datablock_split(&split, edition_21.data(), edition_21.size(), nullptr));
    EXPECT_EQ(split.uap, &AST_UAP_CAT021_VER21);
    EXPECT_EQ(split.remembered, &AST_UAP_CAT021_VER21);

    // Cut. I021/015 takes one octet of the six that are left, I021/130 of edition 0.23 all of them, as does THALES'.
    const std::vector<uint8_t> cut = block_of(21, {edition_21.begin() + 3, edition_21.end() - 1});
    EXPECT_FALSE(ast_datablock_split(&split, cut.data(), cut.size(), nullptr));
    EXPECT_EQ(split.uap, &AST_UAP_CAT021_VER023);
    EXPECT_EQ(split.reason, AST_SPLIT_NO_ITEM);
    EXPECT_EQ(split.end, 14U);
    EXPECT_EQ(split.broken_frn, 29U);
    EXPECT_EQ(split.remembered, &AST_UAP_MANAGAIR);
}

// ---- Profiles that are changed ----

ast_dataitem_type_t only_010(uint32_t category, uint32_t frn) {
    return frn == 1 ? AST_DATAITEM_TYPE(category, 10) : AST_DATAITEM_NONE;
}

ast_dataitem_type_t second_type(uint32_t category, const char *records, const ast_uap_t &uap) {
    const auto block = octets(records);
    return ast_datarecord_decode(block.data(), block.size(), category, uap).items[1].type;
}

TEST(ChangedProfile, ChangesWhatFallsBackOnIt) {
    LogCapture log;
    const ast_uap_t standard = AST_UAP_STANDARD;
    const ast_uap_t edition_026 = AST_UAP_CAT021_VER026;
    constexpr char k021[] = "C0 19 0C 00 00";

    EXPECT_EQ(second_type(21, k021, AST_UAP_ASR10SS), 21903U);
    AST_UAP_CAT021_VER026 = AST_UAP_CAT021_VER24;
    EXPECT_EQ(second_type(21, k021, AST_UAP_STANDARD), 21040U);
    EXPECT_EQ(second_type(21, k021, AST_UAP_ASR10SS), 21040U);
    EXPECT_EQ(second_type(21, k021, edition_026), 21903U); // by its own functions it is what it was

    AST_UAP_STANDARD.get_dataitem = only_010;
    EXPECT_EQ(second_type(48, "C0 19 0C 35 2A 80", AST_UAP_CAT001_PLOT), 0U);
    EXPECT_EQ(second_type(48, "C0 19 0C 35 2A 80", standard), 48140U);
    EXPECT_EQ(second_type(1, "C0 19 0C 00", AST_UAP_CAT001_PLOT), 1020U);

    AST_UAP_STANDARD = standard;
    AST_UAP_CAT021_VER026 = edition_026;
}

} // namespace
