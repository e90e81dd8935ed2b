// Which item types take which shared layout, and what holds for every layout alike.

#include "support/items.hpp"
#include "support/octets.hpp"
#include "support/text.hpp"

using namespace ast_test;

namespace {

using View = void(char *text, uint64_t capacity, const ast_dataitem_t *item);
using Encoder = void(ast_dataitem_t *result, uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source);

struct Layout {
    const char *name;
    const char *sample; // octets that its encoder gives back
    bool (*decodes)(const ast_dataitem_t *item);
    // Decodes, and encodes what comes out after setting its valid flag. Null without an encoder.
    ast_dataitem_t (*reencode)(const ast_dataitem_t *item, uint8_t *buffer, uint64_t length, bool valid);
    View *summary;   // null: each category has its own
    View *detail;    // null: empty or the category's own
    Encoder *encode; // null: none
    std::vector<ast_dataitem_type_t> types;
    std::vector<ast_dataitem_type_t> types_without_encoder = {};
};

template <auto decode>
bool decodes(const ast_dataitem_t *item) {
    return decode(item).valid;
}

bool decodes_always(const ast_dataitem_t *) { return true; }

template <auto decode, auto encode>
ast_dataitem_t reencode(const ast_dataitem_t *item, uint8_t *buffer, uint64_t length, bool valid) {
    auto value = decode(item);
    value.valid = valid;
    const ast_dataitem_src_t source{item->type, &value};
    ast_dataitem_t result{};
    encode(&result, buffer, length, &source);
    return result;
}

// clang-format off
#define DECODER(layout) decodes<ast_dataitem_##layout##_decode>
#define SUMMARY(layout) ast_dataitem_##layout##_get_summary
#define DETAIL(layout) ast_dataitem_##layout##_get_detail_html
#define ENCODER(layout) ast_dataitem_##layout##_encode
#define RECODER(layout) reencode<ast_dataitem_##layout##_decode, ast_dataitem_##layout##_encode>
#define LAYOUT_E(layout, sample)   #layout, sample, DECODER(layout), RECODER(layout), nullptr, nullptr, ENCODER(layout)
#define LAYOUT_S(layout, sample)   #layout, sample, DECODER(layout), nullptr, SUMMARY(layout), nullptr, nullptr
#define LAYOUT_SE(layout, sample)  #layout, sample, DECODER(layout), RECODER(layout), SUMMARY(layout), nullptr, ENCODER(layout)
#define LAYOUT_SD(layout, sample)  #layout, sample, DECODER(layout), nullptr, SUMMARY(layout), DETAIL(layout), nullptr
#define LAYOUT_SDE(layout, sample) #layout, sample, DECODER(layout), RECODER(layout), SUMMARY(layout), DETAIL(layout), ENCODER(layout)
#define LAYOUT_RAW(layout, sample) #layout, sample, decodes_always, nullptr, SUMMARY(layout), nullptr, nullptr
// clang-format on

const Layout kLayouts[] = {
    {LAYOUT_E(message_type, "03"), {2000, 4000, 8000, 16000, 19000, 34000, 65000, 240000}},
    {LAYOUT_SDE(data_source_identifier, "19 0C"),
     {1010, 2010, 4010, 8010, 10010, 15010, 16010, 19010, 20010, 21010, 23010, 34010, 48010, 62010, 63010, 63050, 65010,
      240010}},
    {LAYOUT_SE(service_id, "07"), {16015, 21015, 62015, 63015, 65015}},
    {LAYOUT_SDE(sector_number, "40"), {2020, 34020}},
    {LAYOUT_SDE(time_of_day, "58 78 40"), {2030,  4020,  8090,  10140, 15145, 16140, 19140, 20140, 21030, 21071, 21072,
                                           21073, 21075, 21077, 23070, 34030, 48140, 62070, 63030, 65030, 240140}},
    {LAYOUT_SD(time_of_day_high, "A0 00 00 00"), {21074, 21076}},
    {LAYOUT_SDE(position_wgs84_low, "20 00 00 40 00 00"), {21130}},
    {LAYOUT_SDE(position_wgs84, "00 40 00 00 00 80 00 00"), {10041, 16400, 21131, 21902}, {19600, 20041, 62105}},
    {LAYOUT_S(position_cartesian, "00 00 01 FF FF FF"), {20042, 62100}},
    {LAYOUT_S(velocity_cartesian, "00 01 FF FF"), {10202, 20202, 62185}},
    {LAYOUT_SDE(mode_3a_code, "2F 77"), {1050, 1070, 10060, 20070, 21070, 48070, 62060, 62120}},
    {LAYOUT_SDE(mode_3a_confidence, "0A 55"), {1060, 1080}, {48080}},
    {LAYOUT_SDE(mode_c_code, "C0 64"), {1090, 10090, 20090, 48090}},
    {LAYOUT_SDE(mode_c_confidence, "CA 55 05 AA"), {1100}, {48100}},
    {LAYOUT_SD(height, "00 64"), {10091, 20105, 20110}},
    {LAYOUT_SDE(vertical_rate, "80 64"), {21155, 21157}},
    {LAYOUT_SDE(antenna_rotation_period, "02 80"), {2041, 34041}},
    {LAYOUT_SE(track_number, "01 23"), {1161, 4030, 4035, 10161, 15161, 20161, 21161, 48161, 62040}},
    {LAYOUT_SDE(velocity_polar, "04 00 40 00"), {1200, 10200, 48200}},
    {LAYOUT_SDE(target_address, "3C 65 AC"), {10220, 21080, 48220}, {20220}},
    {LAYOUT_SDE(aircraft_id, "2C C3 71 CB 3D 20"), {21170, 48240}},
    {LAYOUT_SD(target_id, "80 2C C3 71 CB 3D 20"), {10245, 20245, 62245}},
    {LAYOUT_SE(signal_amplitude, "C8"), {21132, 21904}},
    {LAYOUT_SD(modes_mb, "01 20 2C C3 71 CB 3D 20 20"), {20250, 21250, 48250}},
    {LAYOUT_RAW(binary_data, "A0"), {1130, 2050, 8110}},
    {LAYOUT_RAW(reserved_expansion_field, "02 FF"),
     {4998, 10998, 19998, 20998, 21998, 34998, 48998, 62998, 63998, 65998, 240998}},
    {LAYOUT_RAW(special_purpose_field, "02 FF"),
     {1999, 2999, 4999, 8999, 10999, 19999, 20999, 21999, 34999, 48999, 62999, 63999, 65999, 240999}},
    {LAYOUT_RAW(random_field_sequencing, "03 01 02"), {1997, 2997, 8997}},
};

// Some layouts take any octets.
bool has_a_size(const Layout &layout) { return layout.decodes != decodes_always; }

std::string text_of(View *view, const ast_dataitem_t *item) { return view ? shown(view, item) : ""; }

void expect_bound(const Layout &layout, ast_dataitem_type_t type, Encoder *encode) {
    SCOPED_TRACE(testing::Message() << layout.name << " " << type);
    const ast_dataitem_func_t func = ast_dataitem_get_func(type);
    const auto sample = octets(layout.sample);
    ASSERT_NE(func.get_size, nullptr);
    EXPECT_TRUE(!has_a_size(layout) || func.get_size(sample.data(), sample.size()) == sample.size());
    EXPECT_TRUE(!layout.summary || func.get_summary == layout.summary);
    EXPECT_TRUE(layout.detail ? func.get_detail_html == layout.detail : func.get_detail_html != nullptr);
    EXPECT_EQ(func.encode, encode);
}

TEST(SharedLayouts, AreBoundToTheirItems) {
    for (const Layout &layout : kLayouts) {
        for (const ast_dataitem_type_t type : layout.types) expect_bound(layout, type, layout.encode);
        for (const ast_dataitem_type_t type : layout.types_without_encoder) expect_bound(layout, type, nullptr);
    }
}

TEST(SharedLayouts, TakeValidItemsOfTheirSizeOnly) {
    // Without a lookup the view of an address is empty.
    ast_reg_callback_icao_addr_get_country([](ast_country_t *, uint32_t, const ast_dataitem_t *) {});
    for (const Layout &layout : kLayouts) {
        SCOPED_TRACE(layout.name);
        const auto sample = octets(layout.sample);
        const auto expect_refused = [&](const ast_dataitem_t *item) {
            EXPECT_FALSE(layout.decodes(item));
            EXPECT_EQ(text_of(layout.summary, item), "");
            EXPECT_EQ(text_of(layout.detail, item), "");
        };
        const Item whole(layout.types.front(), sample);
        EXPECT_TRUE(layout.decodes(whole));
        EXPECT_EQ(text_of(layout.summary, whole).empty(), !layout.summary);
        EXPECT_EQ(text_of(layout.detail, whole).empty(), !layout.detail);
        if (!has_a_size(layout)) continue;
        expect_refused(nullptr);
        expect_refused(Item(layout.types.front(), std::vector(sample.begin(), sample.end() - 1)));
        auto longer = sample;
        longer.push_back(0);
        expect_refused(Item(layout.types.front(), longer));
        ast_dataitem_t not_valid = *static_cast<const ast_dataitem_t *>(whole);
        not_valid.valid = false;
        expect_refused(&not_valid);
    }
    ast_reg_callback_icao_addr_get_country(nullptr);
}

TEST(SharedLayouts, EncodersGiveBackWhatWasDecoded) {
    constexpr uint8_t kGuard = 0x7E;
    for (const Layout &layout : kLayouts) {
        if (!layout.reencode) continue;
        SCOPED_TRACE(layout.name);
        const auto sample = octets(layout.sample);
        // The last item of positions is one of the scale that their encoder writes.
        const Item item(layout.types.back(), sample);
        const std::vector<uint8_t> untouched(sample.size() + 1, kGuard);
        for (uint64_t length = 0; length <= sample.size() + 1; ++length) {
            auto buffer = untouched;
            const ast_dataitem_t result = layout.reencode(item, buffer.data(), length, true);
            EXPECT_EQ(result.valid, length >= sample.size()) << length;
            auto expected = untouched;
            if (result.valid) std::copy(sample.begin(), sample.end(), expected.begin());
            EXPECT_EQ(buffer, expected) << length;
        }
        auto buffer = untouched;
        EXPECT_FALSE(layout.reencode(item, buffer.data(), buffer.size(), false).valid);
        EXPECT_EQ(buffer, untouched);
        EXPECT_FALSE(layout.reencode(item, nullptr, 100, true).valid);
    }
}

TEST(SharedLayouts, EncodersNeedAValue) {
    for (const Layout &layout : kLayouts) {
        if (!layout.encode) continue;
        uint8_t buffer[16];
        ast_dataitem_t result{.valid = true};
        layout.encode(&result, buffer, sizeof buffer, nullptr);
        EXPECT_FALSE(result.valid) << layout.name;
        const ast_dataitem_src_t empty{layout.types.front(), nullptr};
        layout.encode(&result, buffer, sizeof buffer, &empty);
        EXPECT_FALSE(result.valid) << layout.name;
        EXPECT_EQ(result.type, layout.types.front()) << layout.name;
        layout.encode(nullptr, buffer, sizeof buffer, &empty);
    }
}

} // namespace
