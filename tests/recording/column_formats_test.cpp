// The formats that tables are written in, octet by octet.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text_buffer.hpp"
#include "columns/flat_buffer.hpp"
#include "columns/parquet_levels.hpp"
#include "columns/thrift.hpp"

namespace ast::recording {

namespace {

std::string hex(std::string_view octets) {
    TextBuffer text;
    text.hex(octets_of(octets));
    return std::string(text.text());
}

std::string hybrid(const std::vector<uint32_t> &numbers, unsigned bits) {
    std::string out;
    put_hybrid(out, numbers, bits);
    return hex(out);
}

// The example of Parquet's own document: 0 to 7 in three bits each. Then a run, groups that are not full, and none.
TEST(Hybrid, PacksOrTellsARun) {
    EXPECT_EQ(hybrid({0, 1, 2, 3, 4, 5, 6, 7}, 3), "03 88 c6 fa");
    EXPECT_EQ(hybrid({4, 4, 4}, 3), "06 04");
    EXPECT_EQ(hybrid({300, 300}, 9), "04 2c 01");
    EXPECT_EQ(hybrid({0, 0}, 0), "04");
    EXPECT_EQ(hybrid({1, 0, 1}, 1), "03 05");
    EXPECT_EQ(hybrid({1, 2, 3, 0, 0, 0, 0, 0, 1}, 2), "05 39 00 01 00");
    EXPECT_EQ(hybrid({}, 3), "");
}

// {1: -1, 2: true, 17: "AB", 18: [2 of {}]}, 300 in seven bits an octet.
TEST(Thrift, IsCompact) {
    Thrift out;
    out.structure([&] {
        out.int32(1, -1);
        out.flag(2, true);
        out.text(18, "AB");
        out.list(19, Thrift::Type::structure, 2);
        out.structure([] {});
        out.structure([] {});
        out.int64(20, 150);
    });
    EXPECT_EQ(hex(out.text()), "15 01 11 08 24 02 41 42 19 2c 00 00 16 ac 02 00");
}

// A table of a text and a number of two octets, as a reader walks it.
TEST(FlatBuffer, RefersForward) {
    FlatBuffer buffer;
    const FlatBuffer::Place text = buffer.text("AB");
    buffer.begin();
    buffer.refer(0, text);
    buffer.set(2, int16_t{258});
    const std::string octets = buffer.finish(buffer.end());
    EXPECT_EQ(octets.size() % 8, 0U);
    const auto number = [&]<typename Number>(size_t at, Number) {
        Number value = 0;
        for (size_t i = 0; i < sizeof value; ++i)
            value = static_cast<Number>(value | static_cast<Number>(static_cast<uint8_t>(octets[at + i])) << 8 * i);
        return value;
    };
    const size_t table = number(0, uint32_t{});
    const size_t slots = table - static_cast<size_t>(number(table, int32_t{}));
    EXPECT_EQ(number(slots, uint16_t{}), 10U); // with its own length and that of the table, and three slots
    EXPECT_EQ(number(slots + 6, uint16_t{}), 0U);
    EXPECT_EQ(number(table + number(slots + 8, uint16_t{}), int16_t{}), 258);
    const size_t at = table + number(slots + 4, uint16_t{});
    const size_t place = at + number(at, uint32_t{});
    EXPECT_EQ(place % 4, 0U);
    EXPECT_EQ(octets.substr(place, 7), std::string("\2\0\0\0AB\0", 7));
}

std::string page_of(const Levels &levels) {
    std::string page;
    levels.put(page);
    return hex(page);
}

// Rows null, [5, null], [7] and null: how deep each value is there, and which list it repeats.
TEST(Levels, TellListsApart) {
    const ColumnHead list{
        .name = "l", .type = ColumnType::list, .children = {{.name = "element", .type = ColumnType::int32}}};
    Column column(list);
    column.child(0).set(column.place_of(1, 0), 5);
    column.place_of(1, 1);
    column.child(0).set(column.place_of(2, 0), 7);
    column.complete(4);
    const Levels levels({&column, &column.children()[0]});
    EXPECT_EQ(levels.size(), 5U);
    EXPECT_EQ(levels.nulls(), 3U);
    EXPECT_EQ(page_of(levels), "02 00 00 00 03 04 03 00 00 00 03 ec 00"); // 0 0 1 0 0; then 0 3 2 3 0 in two bits each
    std::vector<uint64_t> rows;
    levels.each_value([&](uint64_t row) { rows.push_back(row); });
    EXPECT_EQ(rows, (std::vector<uint64_t>{0, 2}));
    column.clear(false);
    column.complete(3); // without any list
    EXPECT_EQ(page_of(Levels({&column, &column.children()[0]})), "02 00 00 00 06 00 02 00 00 00 06 00");
}

// Rows null, of nothing, and of 5.
TEST(Levels, TellWhatStructuresHold) {
    const ColumnHead structure{
        .name = "s", .type = ColumnType::structure, .children = {{.name = "a", .type = ColumnType::int32}}};
    Column column(structure);
    column.set_structure(1);
    column.set_structure(2);
    column.child(0).set(2, 5);
    column.complete(3);
    const Levels levels({&column, &column.children()[0]});
    EXPECT_EQ(levels.nulls(), 2U);
    EXPECT_EQ(page_of(levels), "03 00 00 00 03 24 00"); // 0 1 2 in two bits each
}

TEST(Dictionary, KnowsTextsByTheirOrder) {
    Dictionary dictionary;
    for (int round = 0; round < 2; ++round)
        for (uint32_t i = 0; i < 1000; ++i) ASSERT_EQ(dictionary.code_of("text " + std::to_string(i)), i);
    EXPECT_EQ(dictionary[999], "text 999");
    EXPECT_EQ(dictionary.code_of(""), 1000U);
    dictionary.clear();
    EXPECT_EQ(dictionary.code_of("text 999"), 0U);
    EXPECT_EQ(dictionary.characters(), "text 999");
}

// In whatever pieces rows come, and whatever is null in them.
TEST(Column, IsTheSameOfAnyPieces) {
    const std::vector<ColumnHead> heads = {
        {.name = "flag", .type = ColumnType::boolean},
        {.name = "number", .type = ColumnType::int64},
        {.name = "text", .type = ColumnType::text},
        {.name = "list", .type = ColumnType::list, .children = {{.name = "element", .type = ColumnType::float64}}}};
    Batch whole(heads);
    for (whole.rows = 0; whole.rows < 200; ++whole.rows) {
        const uint64_t row = whole.rows;
        if (row % 3 == 0) whole.columns[1].set(row, static_cast<int64_t>(row));
        if (row % 5 == 0) whole.columns[2].set_text(row, std::to_string(row % 7));
        for (uint64_t i = 0; row > 50 && i < row % 4; ++i)
            whole.columns[3].child(0).set(whole.columns[3].place_of(row, i), 0.5 * static_cast<double>(row));
    }
    for (const unsigned count : {64U, 64U, 9U, 63U}) whole.columns[0].add_flags(count, 0xAAAA'AAAA'AAAA'AAAA, 0x6666);
    whole.complete();
    for (const uint64_t most : {1U, 7U, 64U, 150U}) {
        Batch pieces(heads);
        for (uint64_t row = 0; row < whole.rows; row += most)
            pieces.append(whole, row, std::min(most, whole.rows - row));
        EXPECT_EQ(pieces.rows, whole.rows);
        for (size_t i = 0; i < heads.size(); ++i) {
            const Column &one = whole.columns[i], &other = pieces.columns[i];
            EXPECT_EQ(one.nulls(), other.nulls()) << most << ' ' << heads[i].name;
            EXPECT_EQ(one.validity().octets(), other.validity().octets()) << most << ' ' << heads[i].name;
            EXPECT_EQ(one.flags().octets(), other.flags().octets()) << most;
            EXPECT_EQ(one.values(), other.values()) << most << ' ' << heads[i].name;
            EXPECT_EQ(one.dictionary().characters(), other.dictionary().characters()) << most;
        }
        EXPECT_EQ(whole.columns[3].children()[0].values(), pieces.columns[3].children()[0].values()) << most;
    }
}

} // namespace

} // namespace ast::recording
