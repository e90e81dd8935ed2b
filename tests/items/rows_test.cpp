// What follows from the rows of an item, on made-up ones: a row is the one place that says where a field stands.

#include "items/rows.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace ast;

namespace {

using Octets = std::vector<uint8_t>;

struct Report {
    bool flag;
    uint32_t kind;
    int32_t level;
};

constexpr const char *kKinds[] = {"ROUND", "SQUARE", "LONG", "FLAT"};

// An extended item whose second field stands behind so many spare bits. One of them is right.
template <unsigned Gap>
struct Extended {
    using Value = Report;
    static constexpr SizeRule kSize = {.kind = SizeRule::Kind::Extended, .octets = 2};
    static constexpr Row<Value> kRows[] = {
        {&Value::flag, "FLAG"},
        spare(Gap),
        {&Value::kind, 2, "KIND", kKinds},
        spare(4 - Gap),
        fx,
        {&Value::level, {7, Sign::TwosComplement}},
        fx,
    };
};
using Right = Extended<1>;
using WrongByOneBit = Extended<2>;

template <typename I>
typename I::Value read(const Octets &octets) {
    typename I::Value value{};
    if constexpr (I::kSize.kind == SizeRule::Kind::Fixed)
        read_rows<I>(value, octets.data());
    else
        read_rows<I>(value, octets.data(), octets.size());
    return value;
}

// No octets for a value that is refused.
template <typename I>
Octets written(const typename I::Value &value) {
    uint8_t octets[kRowOctets<I>];
    const uint64_t size = write_rows<I>(octets, value);
    return {octets, octets + size};
}

template <typename I>
std::string details(const Octets &octets) {
    std::string text;
    const auto nothing = [](void *, const ast_detail_text_t *, uint64_t) {};
    const auto row = [](void *context, const ast_detail_text_t *texts, uint64_t count) {
        auto &out = *static_cast<std::string *>(context);
        for (uint64_t i = 0; i < count; ++i)
            out.append(texts[i].text, texts[i].size).append(i + 1 < count ? " " : "; ");
    };
    const ast_details_visitor_t visitor = {
        .title = nothing, .paragraph = nothing, .table_begin = nothing, .row = row, .table_end = [](void *) {}};
    ViewWriter view(visitor, &text);
    {
        DetailTable table = table_of_rows<I>(view);
        show_rows<I>(table, read<I>(octets), octets.data(), octets.size());
    }
    return text;
}

// 1010 0001 1111 1010: the flag, the third kind, FX, and -3 in seven bits.
const Octets kLong = {0xA1, 0xFA};

TEST(Rows, ReadWriteAndShowFieldsWhereTheyStand) {
    const Report report = read<Right>(kLong);
    EXPECT_TRUE(report.flag);
    EXPECT_EQ(report.kind, 2U);
    EXPECT_EQ(report.level, -3);
    EXPECT_EQ(written<Right>(report), kLong);
    EXPECT_EQ(details<Right>(kLong), "Bit[0] FLAG 1; Bit[2-3] KIND LONG; Bit[7] FX 1; Bit[15] FX 0; ");
}

TEST(Rows, OneThatIsWrongByOneBitIsWrongInAllOfThem) {
    EXPECT_EQ(read<WrongByOneBit>(kLong).kind, 0U);
    EXPECT_EQ(written<WrongByOneBit>({true, 2, -3}), (Octets{0x91, 0xFA}));
    EXPECT_EQ(details<WrongByOneBit>(kLong), "Bit[0] FLAG 1; Bit[3-4] KIND ROUND; Bit[7] FX 1; Bit[15] FX 0; ");
}

TEST(Rows, EndWithTheOctetsOfAnExtendedItem) {
    EXPECT_EQ(read<Right>({0xA0}).level, 0);
    EXPECT_EQ(written<Right>({true, 2, 0}), (Octets{0xA0}));
    EXPECT_EQ(details<Right>({0xA0}), "Bit[0] FLAG 1; Bit[2-3] KIND LONG; Bit[7] FX 0; ");
}

TEST(Rows, RefuseWhatDoesNotFit) {
    EXPECT_EQ(written<Right>({false, 3, 63}), (Octets{0x31, 0x7E}));
    EXPECT_EQ(written<Right>({false, 3, -64}), (Octets{0x31, 0x80}));
    EXPECT_EQ(written<Right>({false, 4, 0}), Octets{});
    EXPECT_EQ(written<Right>({false, 0, 64}), Octets{});
    EXPECT_EQ(written<Right>({false, 0, -65}), Octets{});
}

struct Fix {
    uint32_t code;
    bool is_valid;
    uint32_t chain;
    int32_t height;
    double height_m;
};

struct Fixed {
    using Value = Fix;
    static constexpr SizeRule kSize = {.kind = SizeRule::Kind::Fixed, .octets = 5};
    static constexpr Row<Value> kRows[] = {
        spare(3),
        {&Value::code, 13},
        {&Value::is_valid, kInverted},
        {&Value::chain, kFirstOrSecond},
        spare(6),
        {&Value::height, kMagnitude16, {}, {&Value::height_m, 0.5}},
    };
};

TEST(Rows, CrossOctetsAndKeepValuesInAnotherForm) {
    const Octets sent = {0x1A, 0xBC, 0xC0, 0x00, 0x05};
    const Fix fix = read<Fixed>(sent);
    EXPECT_EQ(fix.code, 0x1ABCU);
    EXPECT_FALSE(fix.is_valid);
    EXPECT_EQ(fix.chain, 2U);
    EXPECT_EQ(fix.height_m, 2.5);
    EXPECT_EQ(written<Fixed>(fix), sent);
    EXPECT_EQ(read<Fixed>({0, 0, 0, 0xFF, 0xFE}).height, -1); // all ones would be 0
    EXPECT_EQ(written<Fixed>({0x2000, true, 1, 0, 0}), Octets{});
    EXPECT_EQ(written<Fixed>({0, true, 3, 0, 0}), Octets{});
    EXPECT_EQ(written<Fixed>({0, true, 0, 0x8000, 0}), Octets{});
    EXPECT_EQ(written<Fixed>({0, true, 0, -1, 0}), (Octets{0, 0, 0, 0xFF, 0xFE}));
}

} // namespace
