// All registered items: which there are, how they are called, and how long they are.

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/registered_items.hpp"

namespace {

using namespace ast_test;

TEST(ItemRegistry, Holds310Types) {
    const std::map<uint32_t, uint64_t> kCounts = {{1, 27},  {2, 11},  {4, 13},  {8, 14},  {10, 22}, {15, 16},
                                                  {16, 10}, {19, 12}, {20, 28}, {21, 53}, {23, 8},  {34, 13},
                                                  {48, 25}, {62, 29}, {63, 7},  {65, 8},  {240, 14}};
    const LogCapture log;
    ast_log_handler_reg(nullptr);
    std::map<uint32_t, uint64_t> counts;
    uint64_t total = 0;
    for (uint32_t type = 0; type < 300000; ++type) {
        const ast_dataitem_func_t func = ast_dataitem_get_func(type);
        EXPECT_EQ(func.get_size == nullptr, func.get_name == nullptr) << type;
        if (!func.get_size) {
            EXPECT_FALSE(func.get_summary || func.get_detail_html || func.encode) << type;
            continue;
        }
        ASSERT_LT(total, std::size(kRegisteredItems));
        EXPECT_EQ(type, kRegisteredItems[total++].type);
        ++counts[type / 1000];
    }
    EXPECT_EQ(total, 310U);
    EXPECT_EQ(counts, kCounts);
}

TEST(EveryItem, HasItsName) {
    LogCapture log;
    for (const RegisteredItem &item : kRegisteredItems) {
        EXPECT_STREQ(ast_dataitem_get_name(item.type), item.name) << item.type;
        EXPECT_STREQ(ast_dataitem_get_func(item.type).get_name(item.type), item.name) << item.type;
    }
    const LogLine trajectory{2, "Unknown dataitem name: I021/110."};
    const LogLine final_altitude{2, "Unknown dataitem name: I021/148."};
    const LogLine meteorology{2, "Unknown dataitem name: I021/220."};
    EXPECT_EQ(log.take(), (LogLines{trajectory, trajectory, final_altitude, final_altitude, meteorology, meteorology}));
}

TEST(EveryItem, IsAsLongAsItsSampleAndNothingOneOctetShort) {
    LogCapture log;
    for (const RegisteredItem &item : kRegisteredItems) {
        SCOPED_TRACE(item.type);
        const auto data = octets_of(item.sample);
        const uint64_t size = item.sample.size;
        const bool lenient = item.sample.kind == SizeKind::Lenient;
        auto and_more = data;
        and_more.resize(size + 3, 0xFF);
        const auto without_last = std::vector<uint8_t>(data.begin(), data.end() - 1);
        EXPECT_EQ(ast_dataitem_get_size(data.data(), size, item.type), size);
        EXPECT_EQ(ast_dataitem_get_size(and_more.data(), size + 3, item.type), size);
        EXPECT_EQ(ast_dataitem_decode(without_last.data(), size - 1, item.type).valid, lenient);
        EXPECT_EQ(ast_dataitem_get_size(nullptr, 0, item.type), 0U);
    }
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(EveryItem, OfExtendedLayoutEndsAtItsMaximum) {
    LogCapture log;
    for (const RegisteredItem &item : kRegisteredItems) {
        const bool bounded = item.sample.kind == SizeKind::Extended;
        if (!bounded && item.sample.kind != SizeKind::Unlimited) continue;
        const uint64_t maximum = bounded ? item.sample.size : 999;
        const auto chain = repeated("01", maximum + 1);
        EXPECT_EQ(ast_dataitem_get_size(chain.data(), maximum + 1, item.type), maximum) << item.type;
        EXPECT_EQ(log.take(), (LogLines{{3, "Dataitem length exceed max: " + std::to_string(maximum)}})) << item.type;
        EXPECT_EQ(ast_dataitem_get_size(chain.data(), maximum, item.type), 0U) << item.type;
    }
}

// Fields that only some senders understand, and the variants of single radars, are passed on but not written.
TEST(EveryItem, OfAnAgreementBetweenTwoHasNoEncoder) {
    for (const RegisteredItem &item : kRegisteredItems) {
        const uint32_t category = item.type / 1000;
        const uint32_t number = item.type % 1000;
        if (number < 997 && (category > 2 || number < 900)) continue;
        EXPECT_EQ(ast_dataitem_get_func(item.type).encode, nullptr) << item.type;
    }
}

// ---- Items with a size rule of their own ----

struct OwnSize {
    const char *octets;
    uint64_t size;
    LogLines report;
};

void expect_sizes(uint64_t (*size)(const uint8_t *, uint64_t), ast_dataitem_type_t type,
                  std::initializer_list<OwnSize> cases) {
    for (const OwnSize &c : cases) {
        SCOPED_TRACE(c.octets);
        LogCapture log;
        const auto data = octets(c.octets);
        EXPECT_EQ(size(data.data(), data.size()), c.size);
        EXPECT_EQ(log.take(), c.report);
        EXPECT_EQ(ast_dataitem_get_func(type).get_size, size);
    }
}

TEST(OwnSize, ProcessingStatusOfWeatherHasThreeOctetsAndExtents) {
    const LogLine too_long{3, "Dataitem I008/100 length exceed max: 11"};
    expect_sizes(ast_dataitem_008_100_get_size, 8100,
                 {{"01 01", 0, {}},
                  {"01 01 00 FF", 3, {}}, // only the third octet has an FX bit
                  {"00 00 01", 0, {}},
                  {"00 00 01 00 FF", 4, {}},
                  {"00 00 01 01 01 01 01 01 01 01 00 FF", 11, {}},
                  {"00 00 01 01 01 01 01 01 01 01 01 00", 11, {too_long}},
                  {"00 00 01 01 01 01 01 01 01 01 01", 11, {too_long}}});
}

TEST(OwnSize, PositionAccuracyOfMultilaterationIsCompound) {
    expect_sizes(ast_dataitem_020_500_get_size, 20500,
                 {{"80 00 00 00 00 00 00", 7, {}},
                  {"20 00 00", 3, {}},
                  {"40 00 00 00 00 00", 0, {}},
                  {"00 00", 0, {}},
                  {"1E", 1, {}}}); // subfields that it does not define
}

TEST(OwnSize, OlderSurfaceCapabilitiesIgnoreTheSecondFx) {
    expect_sizes(ast_dataitem_021_A07_get_size, 21907,
                 {{"", 0, {}}, {"FE", 1, {}}, {"01", 0, {}}, {"01 00", 2, {}}, {"01 01 00", 2, {}}});
}

TEST(OwnSize, ComposedTrackNumberIsNeverNothing) {
    expect_sizes(ast_dataitem_062_510_get_size, 62510,
                 {{"", 3, {}},
                  {"01", 3, {}},
                  {"01 02 02 FF FF FF", 3, {}},
                  {"01 02 03", 3, {}},
                  {"01 02 03 04 05", 3, {}},
                  {"01 02 03 04 05 06", 6, {}},
                  {"01 02 03 04 05 07 08 09 0B", 9, {}}});
}

// ---- Names by category ----

TEST(CategoryName, UnknownItemsAreReportedInSomeCategories) {
    constexpr struct {
        uint32_t category;
        const char *(*name)(ast_dataitem_type_t type);
        bool reports;
        const char *unknown;
    } kCategories[] = {
#define CATEGORY(code, number, reports)                                                                                \
    {number, ast_dataitem_##code##_get_name, reports, "Unknown CAT" #code " Dataitem"}
        CATEGORY(001, 1, false),   CATEGORY(002, 2, false),  CATEGORY(004, 4, true),   CATEGORY(008, 8, false),
        CATEGORY(010, 10, false),  CATEGORY(015, 15, false), CATEGORY(016, 16, false), CATEGORY(019, 19, false),
        CATEGORY(020, 20, false),  CATEGORY(021, 21, true),  CATEGORY(023, 23, false), CATEGORY(034, 34, false),
        CATEGORY(048, 48, true),   CATEGORY(062, 62, true),  CATEGORY(063, 63, false), CATEGORY(065, 65, false),
        CATEGORY(240, 240, false),
#undef CATEGORY
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

TEST(CategoryName, KnowsSomeItemsThatAreNotRegistered) {
    constexpr struct {
        const char *(*name)(ast_dataitem_type_t type);
        uint32_t type;
        const char *title;
    } kCases[] = {
        {ast_dataitem_015_get_name, 15015, "Service Identification"},
        {ast_dataitem_015_get_name, 15030, "Warning/Error Conditions"},
        {ast_dataitem_015_get_name, 15050, "Update Period"},
        {ast_dataitem_015_get_name, 15270, "Target Size & Orientation"},
        {ast_dataitem_015_get_name, 15603, "Horizontal Acceleration Information"},
        {ast_dataitem_015_get_name, 15605, "Vertical Acceleration Information"},
        {ast_dataitem_015_get_name, 15628, "Elevation Information"},
        {ast_dataitem_015_get_name, 15630, "Path Quality"},
        {ast_dataitem_015_get_name, 15631, "Contour (Azimuth, Elevation Angle, Range Extent)"},
        {ast_dataitem_023_get_name, 23200, "Operational Range"},
        {ast_dataitem_034_get_name, 34100, "Unknown CAT034 Dataitem"},
        {ast_dataitem_048_get_name, 48055, "Unknown CAT048 Dataitem"},
        {ast_dataitem_063_get_name, 63070, "Time Stamping Bias"},
        {ast_dataitem_063_get_name, 63080, "SSR/Mode S Range Gain and Bias"},
        {ast_dataitem_063_get_name, 63081, "SSR/Mode S Azimuth Bias"},
        {ast_dataitem_063_get_name, 63090, "PSR Range Gain and Bias"},
        {ast_dataitem_063_get_name, 63091, "PSR Azimuth Bias"},
        {ast_dataitem_063_get_name, 63092, "PSR Elevation Bias"},
        {ast_dataitem_065_get_name, 65050, "Service Status Report"},
    };
    LogCapture log;
    for (const auto &c : kCases) {
        EXPECT_STREQ(c.name(c.type), c.title);
        EXPECT_EQ(ast_dataitem_get_func(c.type).get_size, nullptr);
    }
}

} // namespace
