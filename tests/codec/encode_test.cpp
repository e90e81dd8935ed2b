// Records and blocks of several kinds of items as senders build them, into buffers of every length.

#include <memory>

#include "support/log_capture.hpp"
#include "support/octets.hpp"

using namespace ast_test;

namespace {

using Sources = std::vector<ast_dataitem_src_t>;

ast_datarecord_src_t record_source(uint32_t category, const Sources &items) {
    ast_datarecord_src_t source{.category = category, .uap = AST_UAP_STANDARD, .items = {}, .item_count = items.size()};
    std::copy(items.begin(), items.end(), source.items);
    return source;
}

ast_dataitem_src_list_t replacements(const Sources &items) {
    ast_dataitem_src_list_t list{.items = {}, .item_count = items.size()};
    std::copy(items.begin(), items.end(), list.items);
    return list;
}

// The octets that encode(buffer, length) writes, given that it returns their number, 0 when it refuses. It is called
// with every buffer that is too short as well: those are refused, and nothing is ever written behind them.
template <typename Encode>
std::vector<uint8_t> encoded(Encode encode) {
    constexpr uint64_t kAmple = 64;
    const std::vector<uint8_t> guard(8, 0x7E);
    std::vector<uint8_t> buffer;
    const auto size_at = [&](uint64_t length) {
        buffer.assign(length, 0);
        buffer.insert(buffer.end(), guard.begin(), guard.end());
        const uint64_t size = encode(buffer.data(), length);
        EXPECT_TRUE(std::equal(guard.begin(), guard.end(), buffer.end() - 8)) << "wrote behind length " << length;
        return size;
    };
    const uint64_t size = size_at(kAmple);
    for (uint64_t length = 0; length < size; ++length) EXPECT_EQ(size_at(length), 0U) << length;
    EXPECT_EQ(size_at(size), size);
    buffer.resize(size);
    return buffer;
}

class Encode : public testing::Test {
protected:
    std::vector<uint8_t> record(uint32_t category, const Sources &items) {
        const auto source = record_source(category, items);
        return encoded([&](uint8_t *buffer, uint64_t length) {
            const ast_datarecord_t result = ast_datarecord_encode(buffer, length, &source);
            EXPECT_EQ(result.valid, result.size > 0);
            return result.size;
        });
    }

    ast_sac_sic_t source_{.valid = true, .sac = 25, .sic = 12};
    ast_sac_sic_t bad_source_{.valid = true, .sac = 256, .sic = 0};
    ast_uint_value_t service_{.valid = true, .value = 7};
    ast_time_of_day_t time_{.valid = true, .hour = 12, .minute = 34, .second = 56, .millisecond = 500};
    ast_target_address_t address_{.valid = true, .address = 0x3C65AC};
    ast_uint_value_t track_{.valid = true, .value = 0x123};
    ast_mode_3a_t code_{.valid = true, .code = 07567};
    LogCapture log_; // buffers that are too short are reported
};

TEST_F(Encode, FspecReachesAsFarAsTheLastItem) {
    EXPECT_EQ(record(48, {{48140, &time_}, {48010, &source_}}), octets("C0 19 0C 58 78 40"));
    EXPECT_EQ(record(48, {{48220, &address_}, {48010, &source_}}), octets("81 80 19 0C 3C 65 AC")); // FRN 1 and 8
    EXPECT_EQ(record(48, {{48161, &track_}}), octets("01 10 01 23"));                               // FRN 11 alone
}

TEST_F(Encode, TracksTakeTheSharedEncoders) {
    // FRN 1, 3, 4; 9, 12; none; 25
    EXPECT_EQ(record(62, {{62010, &source_},
                          {62015, &service_},
                          {62040, &track_},
                          {62060, &code_},
                          {62070, &time_},
                          {62120, &code_}}),
              octets("B1 49 01 10 19 0C 07 58 78 40 0F 77 01 23 0F 77"));
}

TEST_F(Encode, ValuesOutOfRangeFailTheRecord) {
    EXPECT_TRUE(record(48, {{48010, &bad_source_}, {48140, &time_}}).empty());
    EXPECT_EQ(log_.take().front(), (LogLine{0, "Failed to encode dataitem I048/010."}));
}

TEST_F(Encode, ReplacementsTakeThePlaceOfItemsThatAreThere) {
    const auto content = octets("E1 80 01 02 00 00 01 A1 02 00 00 01");
    const ast_datarecord_t source = ast_datarecord_decode(content.data(), content.size(), 48, AST_UAP_STANDARD);
    ASSERT_TRUE(source.valid);
    const auto modified = [&](const Sources &items) {
        const auto list = replacements(items);
        return encoded([&](uint8_t *buffer, uint64_t length) {
            const ast_datarecord_t result = ast_datarecord_modify(buffer, length, &source, &list);
            EXPECT_EQ(result.valid, result.size > 0);
            return result.size;
        });
    };
    EXPECT_EQ(modified({}), content);
    EXPECT_EQ(modified({{48220, &address_}, {48161, &track_}, {48010, &source_}}),
              octets("E1 80 19 0C 00 00 01 A1 02 3C 65 AC"));
    EXPECT_TRUE(modified({{48010, &bad_source_}}).empty());
}

TEST_F(Encode, BlocksTakeRecordsOfDifferentItems) {
    const auto source = std::make_unique<ast_datablock_src_t>();
    source->category = 48;
    source->records[0] = record_source(48, {{48140, &time_}, {48010, &source_}});
    source->records[1] = record_source(48, {{48161, &track_}});
    source->record_count = 2;
    const auto content = encoded([&](uint8_t *buffer, uint64_t length) {
        const auto block = std::make_unique<ast_datablock_t>(ast_datablock_encode(buffer, length, source.get()));
        return block->valid ? block->length : 0;
    });
    EXPECT_EQ(content, octets("30 00 0D C0 19 0C 58 78 40 01 10 01 23"));

    const auto list = replacements({{48161, &service_}});
    const auto block =
        std::make_unique<ast_datablock_t>(ast_datablock_decode(content.data(), content.size(), AST_UAP_STANDARD));
    EXPECT_EQ(encoded([&](uint8_t *buffer, uint64_t length) {
                  const auto result =
                      std::make_unique<ast_datablock_t>(ast_datablock_modify(buffer, length, block.get(), &list));
                  return result->valid ? result->length : 0;
              }),
              octets("30 00 0D C0 19 0C 58 78 40 01 10 00 07"));
}

} // namespace
