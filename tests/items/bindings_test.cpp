// What holds for every shared layout alike.

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
    View *summary;            // null: each category has its own
    View *detail;             // null: empty or the category's own
    Encoder *encode;          // null: none
    ast_dataitem_type_t type; // one that has it; that of positions is of the scale that their encoder writes
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
    {LAYOUT_E(message_type, "03"), 240000},
    {LAYOUT_SDE(data_source_identifier, "19 0C"), 240010},
    {LAYOUT_SE(service_id, "07"), 65015},
    {LAYOUT_SDE(sector_number, "40"), 34020},
    {LAYOUT_SDE(time_of_day, "58 78 40"), 240140},
    {LAYOUT_SD(time_of_day_high, "A0 00 00 00"), 21076},
    {LAYOUT_SDE(position_wgs84_low, "20 00 00 40 00 00"), 21130},
    {LAYOUT_SDE(position_wgs84, "00 40 00 00 00 80 00 00"), 21902},
    {LAYOUT_S(position_cartesian, "00 00 01 FF FF FF"), 62100},
    {LAYOUT_S(velocity_cartesian, "00 01 FF FF"), 62185},
    {LAYOUT_SDE(mode_3a_code, "2F 77"), 62120},
    {LAYOUT_SDE(mode_3a_confidence, "0A 55"), 1080},
    {LAYOUT_SDE(mode_c_code, "C0 64"), 48090},
    {LAYOUT_SDE(mode_c_confidence, "CA 55 05 AA"), 1100},
    {LAYOUT_SD(height, "00 64"), 20110},
    {LAYOUT_SDE(vertical_rate, "80 64"), 21157},
    {LAYOUT_SDE(antenna_rotation_period, "02 80"), 34041},
    {LAYOUT_SE(track_number, "01 23"), 62040},
    {LAYOUT_SDE(velocity_polar, "04 00 40 00"), 48200},
    {LAYOUT_SDE(target_address, "3C 65 AC"), 48220},
    {LAYOUT_SDE(aircraft_id, "2C C3 71 CB 3D 20"), 48240},
    {LAYOUT_SD(target_id, "80 2C C3 71 CB 3D 20"), 62245},
    {LAYOUT_SE(signal_amplitude, "C8"), 21904},
    {LAYOUT_SD(modes_mb, "01 20 2C C3 71 CB 3D 20 20"), 48250},
    {LAYOUT_RAW(binary_data, "A0"), 8110},
    {LAYOUT_RAW(reserved_expansion_field, "02 FF"), 240998},
    {LAYOUT_RAW(special_purpose_field, "02 FF"), 240999},
    {LAYOUT_RAW(random_field_sequencing, "03 01 02"), 8997},
};

// Some layouts take any octets.
bool has_a_size(const Layout &layout) { return layout.decodes != decodes_always; }

std::string text_of(View *view, const ast_dataitem_t *item) { return view ? shown(view, item) : ""; }

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
        const Item whole(layout.type, sample);
        EXPECT_TRUE(layout.decodes(whole));
        EXPECT_EQ(text_of(layout.summary, whole).empty(), !layout.summary);
        EXPECT_EQ(text_of(layout.detail, whole).empty(), !layout.detail);
        if (!has_a_size(layout)) continue;
        expect_refused(nullptr);
        expect_refused(Item(layout.type, std::vector(sample.begin(), sample.end() - 1)));
        auto longer = sample;
        longer.push_back(0);
        expect_refused(Item(layout.type, longer));
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
        const Item item(layout.type, sample);
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
        const ast_dataitem_src_t empty{layout.type, nullptr};
        layout.encode(&result, buffer, sizeof buffer, &empty);
        EXPECT_FALSE(result.valid) << layout.name;
        EXPECT_EQ(result.type, layout.type) << layout.name;
        layout.encode(nullptr, buffer, sizeof buffer, &empty);
    }
}

} // namespace
