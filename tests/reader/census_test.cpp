// Counting what blocks are made of.

#include <map>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/octets.hpp"

namespace {

using namespace ast_test;

class Census : public testing::Test {
protected:
    Census() { reader->frozen = true; }

    uint64_t count(const std::vector<uint8_t> &blocks) {
        return ast_reader_count(reader.get(), census.get(), blocks.data(), blocks.size());
    }

    // "48010:2 48140:1", ascending.
    std::string items() const {
        std::map<ast_dataitem_type_t, uint64_t> counts;
        const auto add = [](void *all, ast_dataitem_type_t type, uint64_t records) {
            static_cast<decltype(counts) *>(all)->operator[](type) += records;
        };
        ast_census_get_items(census.get(), add, &counts);
        std::string text;
        for (const auto &[type, records] : counts)
            text += (text.empty() ? "" : " ") + std::to_string(type) + ":" + std::to_string(records);
        return text;
    }

    std::unique_ptr<ast_reader_t> reader = std::make_unique<ast_reader_t>();
    std::unique_ptr<ast_census_t> census = std::make_unique<ast_census_t>();
};

std::vector<uint8_t> operator+(std::vector<uint8_t> blocks, const std::vector<uint8_t> &more) {
    blocks.insert(blocks.end(), more.begin(), more.end());
    return blocks;
}

// I048/010, I048/140, I048/020 of one octet and of two, I048/130 of two subfields, and I048/250 of one register
const std::vector<uint8_t> kReports = block_of(48, octets("E0 19 0C 00 01 02 40 E0 19 0C 00 01 03 41 00"
                                                          " 83 20 19 0C C0 07 B0 01 01 02 03 04 05 06 07 40"));
const std::vector<uint8_t> kNorth = block_of(34, octets("E0 19 0C 01 00 01 02"));

TEST_F(Census, AddsUpWhatBlocksAreMadeOf) {
    const std::vector<uint8_t> blocks = kReports + kNorth + kReports;
    EXPECT_EQ(count(blocks), blocks.size());
    ASSERT_EQ(census->group_count, 2U);
    const ast_census_group_t &reports = census->groups[0];
    EXPECT_EQ(reports.category, 48U);
    EXPECT_STREQ(reports.profile, "standard");
    EXPECT_EQ(reports.blocks, 2U);
    EXPECT_EQ(reports.records, 6U);
    EXPECT_EQ(reports.items, 18U);
    EXPECT_EQ(reports.octets, 2 * kReports.size());
    EXPECT_EQ(items(), "34000:1 34010:1 34030:1 48010:6 48020:4 48130:2 48140:4 48250:2");
    ast_census_clear(census.get());
    EXPECT_EQ(items(), "");
    EXPECT_EQ(count(kNorth), kNorth.size());
    EXPECT_EQ(census->group_count, 1U);
    EXPECT_EQ(items(), "34000:1 34010:1 34030:1");
}

// Of a block that breaks in its last record, what was counted before is taken back.
TEST_F(Census, StopsInFrontOfWhatIsNotValid) {
    for (const char *const broken : {"E0 19 0C 00 01 02 40 E0 19 0C 00 01 03 41", // I048/020 goes on behind the end
                                     "E0 19 0C 00 01 02 40 01 01 01 08",          // I048/060 is behind the end
                                     "E0 19 0C 00 01 02 40 80 19"}) {
        ast_census_clear(census.get());
        EXPECT_EQ(count(kReports + block_of(48, octets(broken)) + kReports), kReports.size()) << broken;
        EXPECT_EQ(items(), "48010:3 48020:2 48130:1 48140:2 48250:1") << broken;
        EXPECT_EQ(census->groups[0].records, 3U);
    }
    std::vector<uint8_t> cut = kNorth + kReports;
    cut.pop_back();
    EXPECT_EQ(count(cut), kNorth.size());
    EXPECT_EQ(count({48, 0, 2}), 0U);
}

// A kilo of shapes is more than there is room for: I048/010 and any of ten items of fixed sizes.
TEST_F(Census, GoesOnWhenItHasBeenCleared) {
    const auto block_with = [](uint32_t shape) {
        struct {
            size_t fspec_octet;
            uint8_t bit;
            size_t octets;
        } constexpr kItems[] = {{0, 0x08, 2}, {0, 0x04, 2}, {1, 0x10, 2}, {1, 0x08, 4}, {2, 0x80, 4},
                                {2, 0x20, 2}, {2, 0x10, 4}, {2, 0x08, 2}, {3, 0x10, 1}, {3, 0x08, 2}};
        std::vector<uint8_t> record = octets("81 01 01 00 19 0C");
        for (size_t i = 0; i < std::size(kItems); ++i) {
            if ((shape >> i & 1) == 0) continue;
            record[kItems[i].fspec_octet] |= kItems[i].bit;
            record.insert(record.end(), kItems[i].octets, 0);
        }
        return block_of(48, record);
    };
    uint64_t cleared = 0;
    for (uint32_t shape = 0; shape < 1024; ++shape) {
        const std::vector<uint8_t> block = block_with(shape);
        if (count(block) == 0) {
            ast_census_clear(census.get());
            ++cleared;
            ASSERT_EQ(count(block), block.size()) << shape;
        }
    }
    EXPECT_EQ(cleared, 1U);
}

TEST_F(Census, IsLeftAloneByAReaderThatStillLearns) {
    reader->frozen = false;
    EXPECT_EQ(count(kReports), 0U);
    EXPECT_EQ(ast_reader_count(nullptr, census.get(), kReports.data(), kReports.size()), 0U);
    EXPECT_EQ(ast_reader_count(reader.get(), nullptr, kReports.data(), kReports.size()), 0U);
    EXPECT_EQ(census->group_count, 0U);
}

// Records of category 001 are read each in its own profile, here a plot and a track with the same FSPEC.
TEST_F(Census, TellsPlotsFromTracks) {
    const std::vector<uint8_t> block =
        block_of(1, octets("F0 19 0C 00 01 02 03 04 05 06 F0 19 0C 80 01 02 03 04 05 06"));
    ast_reader_learn(reader.get(), block.data(), block.size(), nullptr);
    EXPECT_EQ(count(block), block.size());
    EXPECT_EQ(items(), "1010:2 1020:2 1040:2 1070:1 1161:1");
}

} // namespace
