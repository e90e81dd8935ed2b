// All registered items: which there are, how they are called, and how long they are.

#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/registered_items.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

TEST(EveryItem, HasASizeAndAName) {
    const auto &all = registered_items();
    LogCapture log;
    EXPECT_GE(all.size(), 310U);
    LogLines unnamed;
    for (const RegisteredItem &item : all) {
        const ast_dataitem_func_t func = ast_dataitem_get_func(item.type);
        EXPECT_STREQ(ast_dataitem_get_name(item.type), func.get_name(item.type)) << item.type;
        const std::string name = func.get_name(item.type);
        if (!name.starts_with("Unknown")) continue;
        for (const uint32_t nameless : {2951U, 21110U, 21148U, 21220U, 240998U, 240999U})
            if (item.type == nameless) unnamed.push_back({0, name});
    }
    EXPECT_EQ(unnamed.size(), 6U) << "six items are meant to read as unknown ones";
    for (const ast_dataitem_type_t type : {0U, 48011U, 300010U}) {
        const ast_dataitem_func_t func = ast_dataitem_get_func(type);
        EXPECT_FALSE(func.get_size || func.get_name || func.get_summary || func.get_detail_html || func.encode);
    }
}

TEST(EveryItem, IsAsLongAsItsSampleAndNothingOneOctetShort) {
    const auto &all = registered_items();
    LogCapture log;
    for (const RegisteredItem &item : all) {
        SCOPED_TRACE(item.type);
        const auto &data = item.sample;
        const uint64_t size = data.size();
        ASSERT_NE(size, 0U);
        auto and_more = data;
        and_more.resize(size + 3, 0xFF);
        const auto without_last = std::vector<uint8_t>(data.begin(), data.end() - 1);
        EXPECT_EQ(ast_dataitem_get_size(data.data(), size, item.type), size);
        EXPECT_EQ(ast_dataitem_get_size(and_more.data(), size + 3, item.type), size);
        // The last subfield of I021/110 is a count of 0 elements; without it the item ends before.
        const bool is_lenient = item.is_lenient || item.type == 21110;
        EXPECT_EQ(ast_dataitem_decode(without_last.data(), size - 1, item.type).valid, is_lenient);
        EXPECT_EQ(ast_dataitem_get_size(nullptr, 0, item.type), 0U);
    }
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(EveryItem, OfExtendedLayoutEndsAtItsMaximum) {
    const auto &all = registered_items();
    LogCapture log;
    const auto chain = repeated("01", 1000);
    for (const RegisteredItem &item : all) {
        if (!item.is_extended) continue;
        const uint64_t maximum = ast_dataitem_get_size(chain.data(), chain.size(), item.type);
        const bool is_bounded = item.sample.size() < 39;
        EXPECT_EQ(maximum, item.type == 21907 ? 2 : is_bounded ? item.sample.size() : 999) << item.type;
        const LogLines report{{3, "Dataitem length exceed max: " + std::to_string(maximum)}};
        EXPECT_EQ(log.take(), item.type == 21907 ? LogLines{} : report) << item.type;
        EXPECT_EQ(ast_dataitem_get_size(chain.data(), maximum, item.type), item.type == 21907 ? 2U : 0U) << item.type;
    }
}

// Fields that only some senders understand, and the variants of single radars, are passed on but not written.
TEST(EveryItem, OfAnAgreementBetweenTwoHasNoEncoder) {
    for (const RegisteredItem &item : registered_items()) {
        const uint32_t category = item.type / 1000;
        const uint32_t number = item.type % 1000;
        if (number < 997 && (category > 2 || number < 900)) continue;
        EXPECT_EQ(ast_dataitem_get_func(item.type).encode, nullptr) << item.type;
    }
}

// ---- Items with a size rule of their own ----

// The cases are "octets = size". What is longer than the item may be is reported with `report`.
void expect_sizes(uint64_t (*size)(const uint8_t *, uint64_t), ast_dataitem_type_t type, const char *cases,
                  const LogLines &report = {}) {
    EXPECT_EQ(ast_dataitem_get_func(type).get_size, size);
    each_case(cases, [&](const std::string &hex, const std::string &expected) {
        LogCapture log;
        const auto data = octets(hex);
        EXPECT_EQ(std::to_string(size(data.data(), data.size())), expected) << hex;
        EXPECT_EQ(log.take(), report) << hex;
    });
}

TEST(OwnSize, ProcessingStatusOfWeatherHasThreeOctetsAndExtents) {
    // Only the third octet and those behind it have an FX bit.
    expect_sizes(ast_dataitem_008_100_get_size, 8100,
                 "01 01 = 0; 01 01 00 FF = 3; 00 00 01 = 0; 00 00 01 00 FF = 4; "
                 "00 00 01 01 01 01 01 01 01 01 00 FF = 11; 00 00 01 01 01 01 01 01 01 01 01 = 0");
    expect_sizes(ast_dataitem_008_100_get_size, 8100, "00 00 01 01 01 01 01 01 01 01 01 00 = 11",
                 {{3, "Dataitem I008/100 length exceed max: 11"}});
}

TEST(OwnSize, PositionAccuracyOfMultilaterationIsCompound) {
    expect_sizes(ast_dataitem_020_500_get_size, 20500,
                 "80 00 00 00 00 00 00 = 7; 20 00 00 = 3; 40 00 00 00 00 00 = 0; 00 00 = 0; "
                 "1E = 1"); // subfields that it does not define
}

TEST(OwnSize, OlderSurfaceCapabilitiesIgnoreTheSecondFx) {
    expect_sizes(ast_dataitem_021_A07_get_size, 21907, " = 0; FE = 1; 01 = 0; 01 00 = 2; 01 01 00 = 2");
}

TEST(OwnSize, ComposedTrackNumberIsNeverNothing) {
    expect_sizes(ast_dataitem_062_510_get_size, 62510,
                 " = 3; 01 = 3; 01 02 02 FF FF FF = 3; 01 02 03 = 3; 01 02 03 04 05 = 3; 01 02 03 04 05 06 = 6; "
                 "01 02 03 04 05 07 08 09 0B = 9");
}

// ---- Names by category ----

TEST(CategoryName, UnknownItemsAreReportedInSomeCategories) {
    constexpr struct {
        uint32_t category;
        const char *(*name)(ast_dataitem_type_t type);
        bool reports;
        const char *unknown;
    } kCategories[] = {
        {4, ast_dataitem_004_get_name, true, "Unknown CAT004 Dataitem"},
        {34, ast_dataitem_034_get_name, false, "Unknown CAT034 Dataitem"},
        {62, ast_dataitem_062_get_name, true, "Unknown CAT062 Dataitem"},
        {240, ast_dataitem_240_get_name, false, "Unknown CAT240 Dataitem"},
    };
    LogCapture log;
    for (const auto &c : kCategories) {
        SCOPED_TRACE(c.unknown);
        EXPECT_STREQ(c.name(c.category * 1000 + 10), "Data Source Identifier");
        EXPECT_EQ(log.take(), LogLines{});
        const uint32_t foreign = c.category == 48 ? 62010 : 48010;
        for (const uint32_t type : {c.category * 1000 + 996, foreign, 0U}) {
            EXPECT_STREQ(c.name(type), c.unknown);
            const std::string report = std::string("Unknown dataitem name: ") + ast_dataitem_type_to_str(type) + ".";
            EXPECT_EQ(log.take(), c.reports ? (LogLines{{2, report}}) : LogLines{});
        }
    }
}

} // namespace
