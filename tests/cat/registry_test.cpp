// All registered items: which there are, how they are called, and how long they are.

#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/registered_items.hpp"

namespace {

using namespace ast_test;

TEST(ItemRegistry, Holds310Types) {
    const LogCapture log;
    ast_log_handler_reg(nullptr);
    std::vector<uint32_t> types;
    for (uint32_t type = 0; type < 300000; ++type) {
        const ast_dataitem_func_t func = ast_dataitem_get_func(type);
        EXPECT_EQ(func.get_size == nullptr, func.get_name == nullptr) << type;
        if (func.get_size)
            types.push_back(type);
        else
            EXPECT_FALSE(func.get_summary || func.get_detail_html || func.encode) << type;
    }
    std::vector<uint32_t> expected;
    for (const RegisteredItem &item : registered_items()) expected.push_back(item.type);
    EXPECT_EQ(types, expected);
    EXPECT_EQ(types.size(), 310U);
}

TEST(EveryItem, HasItsName) {
    LogCapture log;
    for (const RegisteredItem &item : registered_items()) {
        EXPECT_EQ(ast_dataitem_get_name(item.type), item.name) << item.type;
        EXPECT_EQ(ast_dataitem_get_func(item.type).get_name(item.type), item.name) << item.type;
    }
    LogLines unnamed; // each is asked for twice
    for (const char *const item : {"I021/110", "I021/148", "I021/220"})
        unnamed.resize(unnamed.size() + 2, {2, std::string("Unknown dataitem name: ") + item + "."});
    EXPECT_EQ(log.take(), unnamed);
}

TEST(EveryItem, IsAsLongAsItsSampleAndNothingOneOctetShort) {
    LogCapture log;
    for (const RegisteredItem &item : registered_items()) {
        SCOPED_TRACE(item.type);
        const auto &data = item.sample;
        const uint64_t size = data.size();
        auto and_more = data;
        and_more.resize(size + 3, 0xFF);
        const auto without_last = std::vector<uint8_t>(data.begin(), data.end() - 1);
        EXPECT_EQ(ast_dataitem_get_size(data.data(), size, item.type), size);
        EXPECT_EQ(ast_dataitem_get_size(and_more.data(), size + 3, item.type), size);
        EXPECT_EQ(ast_dataitem_decode(without_last.data(), size - 1, item.type).valid, item.kind == SizeKind::Lenient);
        EXPECT_EQ(ast_dataitem_get_size(nullptr, 0, item.type), 0U);
    }
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(EveryItem, OfExtendedLayoutEndsAtItsMaximum) {
    LogCapture log;
    for (const RegisteredItem &item : registered_items()) {
        const bool bounded = item.kind == SizeKind::Extended;
        if (!bounded && item.kind != SizeKind::Unlimited) continue;
        const uint64_t maximum = bounded ? item.sample.size() : 999;
        const auto chain = repeated("01", maximum + 1);
        EXPECT_EQ(ast_dataitem_get_size(chain.data(), maximum + 1, item.type), maximum) << item.type;
        EXPECT_EQ(log.take(), (LogLines{{3, "Dataitem length exceed max: " + std::to_string(maximum)}})) << item.type;
        EXPECT_EQ(ast_dataitem_get_size(chain.data(), maximum, item.type), 0U) << item.type;
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
                 "00 00 01 01 01 01 01 01 01 01 00 FF = 11");
    expect_sizes(ast_dataitem_008_100_get_size, 8100,
                 "00 00 01 01 01 01 01 01 01 01 01 00 = 11; 00 00 01 01 01 01 01 01 01 01 01 = 11",
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
        // clang-format off
    } kCategories[] = {
#define CATEGORY(code, number, reports) {number, ast_dataitem_##code##_get_name, reports, "Unknown CAT" #code " Dataitem"}
        CATEGORY(001, 1, false), CATEGORY(002, 2, false), CATEGORY(004, 4, true), CATEGORY(008, 8, false),
        CATEGORY(010, 10, false), CATEGORY(015, 15, false), CATEGORY(016, 16, false), CATEGORY(019, 19, false),
        CATEGORY(020, 20, false), CATEGORY(021, 21, true), CATEGORY(023, 23, false), CATEGORY(034, 34, false),
        CATEGORY(048, 48, true), CATEGORY(062, 62, true), CATEGORY(063, 63, false), CATEGORY(065, 65, false),
        CATEGORY(240, 240, false),
#undef CATEGORY
    };
    // clang-format on
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
    LogCapture log;
    const auto expect_names = [](const char *(*name)(ast_dataitem_type_t type), const char *cases) {
        each_case(cases, [&](const std::string &number, const std::string &title) {
            const auto type = static_cast<ast_dataitem_type_t>(std::stoul(number));
            EXPECT_EQ(name(type), title);
            EXPECT_EQ(ast_dataitem_get_func(type).get_size, nullptr) << type;
        });
    };
    expect_names(ast_dataitem_015_get_name,
                 "15015 = Service Identification; 15030 = Warning/Error Conditions; 15050 = Update Period; "
                 "15270 = Target Size & Orientation; 15603 = Horizontal Acceleration Information; "
                 "15605 = Vertical Acceleration Information; 15628 = Elevation Information; 15630 = Path Quality; "
                 "15631 = Contour (Azimuth, Elevation Angle, Range Extent)");
    expect_names(ast_dataitem_023_get_name, "23200 = Operational Range");
    expect_names(ast_dataitem_034_get_name, "34100 = Unknown CAT034 Dataitem");
    expect_names(ast_dataitem_048_get_name, "48055 = Unknown CAT048 Dataitem");
    expect_names(ast_dataitem_063_get_name,
                 "63070 = Time Stamping Bias; 63080 = SSR/Mode S Range Gain and Bias; "
                 "63081 = SSR/Mode S Azimuth Bias; 63090 = PSR Range Gain and Bias; 63091 = PSR Azimuth Bias; "
                 "63092 = PSR Elevation Bias");
    expect_names(ast_dataitem_065_get_name, "65050 = Service Status Report");
}

} // namespace
