#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/octets.hpp"

namespace {

using namespace ast_test;

// I048/010, I048/140, I048/020 (two octets) and an octet of something else.
constexpr char kThreeItems[] = "E0 19 0C 00 00 80 A1 00 EE";

ast_datarecord_t decode(const std::vector<uint8_t> &data, uint32_t category = 48,
                        const ast_uap_t &uap = AST_UAP_STANDARD) {
    return ast_datarecord_decode(data.data(), data.size(), category, uap);
}

TEST(Record, DecodesItemsInFrnOrder) {
    const auto data = octets(kThreeItems);
    const ast_datarecord_t record = decode(data);
    EXPECT_TRUE(record.valid && record.data == data.data() && record.size == 8 && record.category == 48);
    EXPECT_EQ(record.uap.get_dataitem, ast_uap_get_dataitem_standard);
    EXPECT_EQ(record.fspec.length, 1U);
    ASSERT_EQ(record.item_count, 3U);
    constexpr struct {
        uint32_t type;
        uint64_t offset, size;
        uint8_t following;
    } kItems[] = {{48010, 1, 2, 6}, {48140, 3, 3, 3}, {48020, 6, 2, 1}};
    for (uint64_t i = 0; i < 3; ++i) {
        const ast_dataitem_t &item = record.items[i];
        EXPECT_TRUE(item.valid && item.type == kItems[i].type && item.data == data.data() + kItems[i].offset) << i;
        EXPECT_TRUE(item.size == kItems[i].size && item.following == kItems[i].following) << i;
    }
}

TEST(Record, KeepsTheItemsBeforeAFault) {
    const struct {
        const char *what;
        uint32_t category;
        const char *octets;
        uint64_t items;
        LogLines report;
    } kCases[] = {
        {"no octet", 48, "", 0, {}},
        {"an FSPEC without an end", 48, "E1", 0, {}},
        {"an empty FSPEC", 48, "00 00", 0, {}},
        {"the last item cut", 48, "E0 19 0C 00 00 80 A1", 2, {}},
        {"an item without octets", 48, "E0 19 0C 00 00 80", 2, {}},
        {"an item that is not registered", 48, "81 01 01 40 19 0C 00", 1, {{3, "Unsupported dataitem I048/055"}}},
        {"an FRN beyond the profile", 48, "81 01 01 01 80 19 0C 00", 1, {{3, "UAP CAT048: Undefined FRN 29"}}},
        {"a spare FRN", 62, "C0 19 0C 00", 1, {}},
        {"a category without a profile", 30, "80 00", 0, {{3, "UAP STD: Unknown category 30"}}},
        {"a REF longer than the data", 48, "81 01 01 02 19 0C 04 00 00", 1, {}},
        {"a REF of length 0", 48, "81 01 01 02 19 0C 00 00 00", 1, {}},
        {"a composed track number cut", 62, "81 01 01 08 19 0C 01 02", 1, {}},
        {"a compound item cut", 48, "82 19 0C 80", 1, {}},
    };
    for (const auto &c : kCases) {
        SCOPED_TRACE(c.what);
        LogCapture log;
        const ast_datarecord_t record = decode(octets(c.octets), c.category);
        EXPECT_FALSE(record.valid);
        EXPECT_EQ(record.size, 0U);
        EXPECT_EQ(record.item_count, c.items);
        EXPECT_EQ(log.take(), c.report);
    }
    EXPECT_FALSE(ast_datarecord_decode(nullptr, 9, 48, AST_UAP_STANDARD).valid);
}

TEST(Record, TakesExplicitLengthsThatJustFit) {
    const ast_datarecord_t record = decode(octets("81 01 01 06 19 0C 03 AA BB 01"));
    EXPECT_TRUE(record.valid) << "I048/010, SP, RE";
    EXPECT_EQ(record.size, 10U);
    const ast_datarecord_t composed = decode(octets("81 01 01 08 19 0C 01 02 03"), 62);
    EXPECT_TRUE(composed.valid) << "a chain that goes on where the data ends is whole";
    EXPECT_EQ(composed.items[1].size, 3U);
}

TEST(Record, MayBeEmptyByOption) {
    ast_library_set_option(AST_OPTION_ALLOW_EMPTY_FSPEC);
    const ast_datarecord_t record = decode(octets("01 00 FF"));
    ast_library_reset_option();
    EXPECT_TRUE(record.valid && record.size == 2 && record.item_count == 0);
}

// A profile that announces I034/110, of one octet, at every FRN.
constexpr ast_uap_t kEndless = {[](uint32_t) -> uint32_t { return 70; },
                                [](uint32_t, uint32_t) -> ast_dataitem_type_t { return 34110; }};

TEST(Record, HoldsAtMost32Items) {
    auto data = repeated("00", 5 + 33);
    std::copy_n(octets("FF FF FF FF F0").begin(), 5, data.begin()); // 4 times 7 FRNs and 4
    const ast_datarecord_t full = decode(data, 34, kEndless);
    EXPECT_TRUE(full.valid && full.item_count == 32 && full.size == 37);
    data[4] = 0xF8;
    const ast_datarecord_t over = decode(data, 34, kEndless);
    EXPECT_TRUE(!over.valid && over.item_count == 32 && over.size == 0);
}

// ---- Encoding ----

ast_sac_sic_t radar{.valid = true, .sac = 0x19, .sic = 0x0C};
ast_uint_value_t track{.valid = true, .value = 0x123};

ast_datarecord_src_t source_of(std::initializer_list<ast_dataitem_src_t> items, uint32_t category = 48) {
    ast_datarecord_src_t source{};
    source.category = category;
    source.uap = AST_UAP_STANDARD;
    for (const ast_dataitem_src_t &item : items) source.items[source.item_count++] = item;
    return source;
}

// What is written into a buffer that just fits, after all that are shorter have been refused.
template <typename Encode>
std::vector<uint8_t> written(uint64_t size, Encode encode) {
    LogCapture log; // buffers that are too short are reported
    for (uint64_t length = 0; length <= size; ++length) {
        std::vector<uint8_t> buffer(length);
        const ast_datarecord_t record = encode(buffer.data(), length);
        EXPECT_TRUE(record.valid == (length == size) && record.size == (length == size ? size : 0)) << length;
        if (length == size) return buffer;
    }
    return {};
}

void expect_encodes(const ast_datarecord_src_t &source, std::string_view hex) {
    const auto expected = octets(hex);
    EXPECT_EQ(written(expected.size(), [&](uint8_t *to, uint64_t n) { return ast_datarecord_encode(to, n, &source); }),
              expected);
}

TEST(Record, EncodesInFrnOrderUnderAnFspecThatFits) {
    ast_sac_sic_t other{.valid = true, .sac = 1, .sic = 2};
    ast_time_of_day_t time{.valid = true, .hour = 12, .minute = 34, .second = 56, .millisecond = 500};
    ast_target_address_t address{.valid = true, .address = 0x3C65AC};
    ast_mode_3a_t code{.valid = true, .code = 07567};
    // I048/161 is FRN 11. I001/010 is not of the profile, and the second I048/010 comes too late.
    const auto source = source_of({{48161, &track}, {1010, &other}, {48010, &radar}, {48010, &other}});
    expect_encodes(source, "81 10 19 0C 01 23");
    expect_encodes(source_of({{48220, &address}, {48010, &radar}}), "81 80 19 0C 3C 65 AC"); // FRN 1 and 8
    expect_encodes(source_of({{48161, &track}}), "01 10 01 23");
    // FRN 1, 4; 9, 12
    expect_encodes(source_of({{62010, &radar}, {62040, &track}, {62060, &code}, {62070, &time}}, 62),
                   "91 48 19 0C 58 78 40 0F 77 01 23");

    auto buffer = repeated("EE", 7);
    const ast_datarecord_t record = ast_datarecord_encode(buffer.data(), buffer.size(), &source);
    EXPECT_TRUE(record.data == buffer.data() && record.item_count == 4);
    EXPECT_EQ(record.items[0].type, 0U) << "items are not filled in";
    EXPECT_EQ(buffer.back(), 0xEE);
}

TEST(Record, EncodeReportsWhatFails) {
    uint8_t buffer[64];
    ast_uint_value_t value{};
    const struct {
        const char *what;
        ast_datarecord_src_t source;
        LogLines report;
    } kCases[] = {
        {"nothing", source_of({}), {{0, "Failed to encode FSPEC."}}},
        {"another category's item", source_of({{62010, &radar}}), {{0, "Failed to encode FSPEC."}}},
        {"no encoding profile", source_of({{240010, &radar}}, 240), {{0, "Failed to encode FSPEC."}}},
        {"an FRN beyond the maximum", source_of({{1150, &value}}, 1), {{0, "Failed to encode FSPEC."}}},
        {"no value", source_of({{48140, nullptr}}), {{0, "Failed to encode dataitem I048/140."}}},
        {"a value that is not valid", source_of({{48161, &value}}), {{0, "Failed to encode dataitem I048/161."}}},
        {"no encoder",
         source_of({{48998, &value}}),
         {{2, "Enconding function not implemented for dataitem I048/REF."},
          {0, "Failed to encode dataitem I048/REF."}}},
    };
    for (const auto &c : kCases) {
        SCOPED_TRACE(c.what);
        LogCapture log;
        const ast_datarecord_t record = ast_datarecord_encode(buffer, sizeof buffer, &c.source);
        EXPECT_TRUE(!record.valid && record.size == 0 && record.category == c.source.category);
        EXPECT_EQ(log.take(), c.report);
    }
    ast_datarecord_src_t overlong = source_of({});
    overlong.item_count = 1000;
    LogCapture log;
    EXPECT_FALSE(ast_datarecord_encode(buffer, sizeof buffer, &overlong).valid);
    EXPECT_FALSE(ast_datarecord_encode(nullptr, sizeof buffer, &overlong).valid);
    EXPECT_FALSE(ast_datarecord_encode(buffer, sizeof buffer, nullptr).valid);
}

// ---- Copying and modifying ----

using Rewrite = ast_datarecord_t (*)(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source);
constexpr Rewrite kCopies[] = {ast_datarecord_copy,
                               [](uint8_t *buffer, uint64_t length, const ast_datarecord_t *source) {
                                   static const ast_dataitem_src_list_t kNothing{};
                                   return ast_datarecord_modify(buffer, length, source, &kNothing);
                               }};

TEST(Record, CopyAndEmptyModificationAreTheSame) {
    const auto data = octets(kThreeItems);
    const ast_datarecord_t source = decode(data);
    for (const Rewrite rewrite : kCopies) {
        auto buffer = repeated("EE", 9);
        const ast_datarecord_t copy = rewrite(buffer.data(), 8, &source);
        EXPECT_TRUE(copy.valid && copy.item_count == 3 && copy.items[2].data == buffer.data() + 6);
        EXPECT_EQ(buffer, data) << "the ninth octet is EE in both";
        written(8, [&](uint8_t *to, uint64_t length) { return rewrite(to, length, &source); });
        EXPECT_FALSE(rewrite(nullptr, 8, &source).valid);
        EXPECT_FALSE(rewrite(buffer.data(), 8, nullptr).valid);
        ast_datarecord_t broken = source;
        broken.items[1].valid = false;
        EXPECT_FALSE(rewrite(buffer.data(), 9, &broken).valid);
        broken = source;
        broken.item_count = 33;
        EXPECT_FALSE(rewrite(buffer.data(), 9, &broken).valid);
    }
}

TEST(Record, CopyWantsTheSizeOfItsSource) {
    const auto data = octets(kThreeItems);
    ast_datarecord_t source = decode(data);
    auto buffer = repeated("EE", 9);
    for (const uint64_t size : {7U, 9U}) {
        source.size = size;
        const ast_datarecord_t copy = ast_datarecord_copy(buffer.data(), 9, &source);
        EXPECT_TRUE(!copy.valid && copy.size == 0) << size;
    }
}

TEST(Record, ModifyReplacesWhatIsThere) {
    const auto data = octets(kThreeItems);
    const ast_datarecord_t source = decode(data);
    ast_sac_sic_t moved{.valid = true, .sac = 0x55, .sic = 0xAA};
    ast_dataitem_src_list_t list{};
    list.items[0] = {48161, &track}; // not in the record
    list.items[1] = {48010, &moved};
    list.items[2] = {48010, &radar}; // too late
    list.item_count = 3;
    auto buffer = repeated("EE", 9);
    const ast_datarecord_t modified = ast_datarecord_modify(buffer.data(), 9, &source, &list);
    EXPECT_TRUE(modified.valid && modified.items[0].type == 48010);
    EXPECT_EQ(buffer, octets("E0 55 AA 00 00 80 A1 00 EE"));
    written(8, [&](uint8_t *to, uint64_t length) { return ast_datarecord_modify(to, length, &source, &list); });

    LogCapture log;
    list.items[1].value = nullptr;
    EXPECT_FALSE(ast_datarecord_modify(buffer.data(), 9, &source, &list).valid);
    EXPECT_EQ(log.take(), LogLines{});
    EXPECT_TRUE(ast_datarecord_modify(buffer.data(), 9, &source, nullptr).valid) << "no list, no new values";
}

} // namespace
