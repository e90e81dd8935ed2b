// Blocks that are decoded into again and again, held against fresh ones.

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/octets.hpp"

namespace {

using namespace ast_test;

// Long, broken off, short, of another category, mixed, empty, cut, unreadable: each after every other.
const std::vector<uint8_t> kBlocks[] = {
    block_of(48, repeated("80 19 0C", 64)),
    block_of(48, octets("80 19 0C 80 19 0D 01 01")),
    block_of(48, octets("C0 19 0C 35 2A 80")),
    block_of(34, octets("80 19 0C")),
    block_of(1, octets("C0 19 0C 00 C0 19 0C 80")),
    block_of(48, {}),
    octets("30 00 09 80 19"),
    {},
};

bool same(const ast_dataitem_t &one, const ast_dataitem_t &other) {
    return one.data == other.data && one.size == other.size && one.type == other.type && one.valid == other.valid &&
           one.following == other.following;
}

bool same(const ast_datarecord_t &one, const ast_datarecord_t &other) {
    return one.data == other.data && one.size == other.size && one.category == other.category &&
           one.uap.get_dataitem == other.uap.get_dataitem && one.fspec.data == other.fspec.data &&
           one.fspec.length == other.fspec.length && one.fspec.item_count == other.fspec.item_count &&
           one.fspec.valid == other.fspec.valid && one.item_count == other.item_count && one.valid == other.valid &&
           std::equal(one.items, one.items + one.item_count, other.items,
                      [](const auto &a, const auto &b) { return same(a, b); });
}

// As far as the counts reach.
void expect_same(const ast_datablock_t &reused, const ast_datablock_t &fresh) {
    EXPECT_EQ(reused.data, fresh.data);
    EXPECT_EQ(reused.length, fresh.length);
    EXPECT_EQ(reused.category, fresh.category);
    EXPECT_EQ(reused.records_data, fresh.records_data);
    EXPECT_EQ(reused.records_length, fresh.records_length);
    ASSERT_EQ(reused.record_count, fresh.record_count);
    EXPECT_EQ(reused.valid, fresh.valid);
    for (size_t i = 0; i < fresh.record_count; ++i) EXPECT_TRUE(same(reused.records[i], fresh.records[i])) << i;
}

template <typename Object>
bool is_zero(const Object &object) {
    const auto *const octets = reinterpret_cast<const uint8_t *>(&object);
    return std::all_of(octets, octets + sizeof object, [](uint8_t octet) { return octet == 0; });
}

void expect_zero_behind_counts(const ast_datablock_t &block) {
    for (size_t i = 0; i < std::size(block.records); ++i) {
        const ast_datarecord_t &record = block.records[i];
        if (i >= block.record_count)
            EXPECT_TRUE(is_zero(record)) << i;
        else
            for (size_t k = record.item_count; k < std::size(record.items); ++k) EXPECT_TRUE(is_zero(record.items[k]));
    }
}

TEST(BlockIntoAnother, IsWhatAFreshOneIs) {
    LogCapture log;
    const auto reused = std::make_unique<ast_datablock_t>();
    std::memset(static_cast<void *>(reused.get()), 0xA5, sizeof *reused); // it need not be initialised
    const auto fresh = std::make_unique<ast_datablock_t>();
    for (const auto &before : kBlocks) {
        for (const auto &block : kBlocks) {
            ast_datablock_decode_into(reused.get(), before.data(), before.size(), AST_UAP_STANDARD);
            ast_datablock_decode_into(reused.get(), block.data(), block.size(), AST_UAP_STANDARD);
            *fresh = ast_datablock_decode(block.data(), block.size(), AST_UAP_STANDARD);
            expect_same(*reused, *fresh);
            expect_zero_behind_counts(*fresh);

            ast_datablock_smart_decode_into(reused.get(), block.data(), block.size());
            *fresh = ast_datablock_smart_decode(block.data(), block.size());
            expect_same(*reused, *fresh);
            expect_zero_behind_counts(*fresh);

            ast_datablock_001_mixuap_decode_into(reused.get(), block.data(), block.size());
            *fresh = ast_datablock_001_mixuap_decode(block.data(), block.size());
            expect_same(*reused, *fresh);
            expect_zero_behind_counts(*fresh);
        }
    }
    ast_datablock_decode_into(nullptr, kBlocks[0].data(), kBlocks[0].size(), AST_UAP_STANDARD);
    ast_datablock_smart_decode_into(nullptr, kBlocks[0].data(), kBlocks[0].size());
    ast_datablock_001_mixuap_decode_into(nullptr, kBlocks[0].data(), kBlocks[0].size());
}

} // namespace
