// All registered encoders: an item is decoded, encoded and decoded again, and is the same.

#include <algorithm>
#include <cstring>
#include <iterator>
#include <random>
#include <string>

#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/registered_items.hpp"

using namespace ast_test;

namespace {

struct Recoded {
    bool is_read = false;          // the octets, by the decoder
    bool is_same = false;          // the value, after it was encoded and decoded
    std::vector<uint8_t> octets{}; // as encoded; empty when the value was refused
};

using Recode = Recoded(ast_dataitem_type_t type, const std::vector<uint8_t> &octets);

// Whether the compiler can leave out what lies between members. One that cannot leaves it to the octets alone.
#if __has_builtin(__builtin_clear_padding)
#define COMPARES_MEMBERS 1
#else
#define COMPARES_MEMBERS 0
#endif

template <typename Value>
bool are_same([[maybe_unused]] Value one, [[maybe_unused]] Value other) {
#if COMPARES_MEMBERS
    __builtin_clear_padding(&one);
    __builtin_clear_padding(&other);
    return std::memcmp(&one, &other, sizeof one) == 0;
#else
    return true;
#endif
}

template <auto decode>
Recoded recode(ast_dataitem_type_t type, const std::vector<uint8_t> &data) {
    auto value = decode(Item(type, data));
    if (!value.valid) return {};
    auto written = value; // some encoders store into it
    uint8_t buffer[64];
    const ast_dataitem_src_t source{type, &written};
    const ast_dataitem_t item = ast_dataitem_encode(buffer, sizeof buffer, &source);
    if (!item.valid) return {.is_read = true};
    auto again = decode(&item);
    return {true, are_same(value, again), {buffer, buffer + item.size}};
}

struct Coder {
    Recode *recode;
    std::vector<ast_dataitem_type_t> types;
};

#define CODER(name) recode<ast_dataitem_##name##_decode>

// clang-format off
const Coder kCoders[] = {
    {CODER(message_type), {2000, 4000, 8000, 10000, 16000, 19000, 34000, 65000, 240000}},
    {CODER(data_source_identifier), {1010, 2010, 4010, 8010, 10010, 15010, 16010, 19010, 20010, 21010, 23010, 34010,
                                     48010, 62010, 63010, 63050, 65010, 240010}},
    {CODER(service_id), {16015, 21015, 62015, 63015, 65015}},
    {CODER(sector_number), {2020, 34020}},
    {CODER(time_of_day), {2030, 4020, 8090, 10140, 15145, 16140, 19140, 20140, 21030, 21071, 21072, 21073, 21075, 21077,
                          23070, 34030, 48140, 62070, 63030, 65030, 240140}},
    {CODER(position_wgs84_low), {21130}},
    {CODER(position_wgs84), {10041, 16400, 21131, 21902}},
    {CODER(mode_3a_code), {1050, 1070, 10060, 20050, 20070, 21070, 48070, 62060, 62120}},
    {CODER(mode_3a_confidence), {1060, 1080}},
    {CODER(mode_c_code), {1090, 10090, 20090, 48090}},
    {CODER(mode_c_confidence), {1100, 20100}},
    {CODER(vertical_rate), {21155, 21157}},
    {CODER(antenna_rotation_period), {2041, 34041}},
    {CODER(track_number), {1161, 4030, 4035, 10161, 15161, 20161, 21161, 48161, 62040}},
    {CODER(velocity_polar), {1200, 10200, 48200}},
    {CODER(target_address), {10220, 21080, 48220}},
    {CODER(aircraft_id), {21170, 48240}},
    {CODER(signal_amplitude), {10131, 21132, 21904}},
    {CODER(001_020), {1020}}, {CODER(001_030), {1030}}, {CODER(001_040), {1040}}, {CODER(001_042), {1042}},
    {CODER(001_120), {1120}}, {CODER(001_131), {1131}}, {CODER(001_141), {1141}}, {CODER(001_150), {1150}},
    {CODER(001_170), {1170}}, {CODER(001_210), {1210}},
    {CODER(004_040), {4040}},
    {CODER(010_020), {10020}}, {CODER(010_040), {10040}}, {CODER(010_042), {10042}}, {CODER(010_170), {10170}},
    {CODER(010_270), {10270}}, {CODER(010_500), {10500}}, {CODER(010_550), {10550}},
    {CODER(020_020), {20020}}, {CODER(020_030), {20030}}, {CODER(020_055), {20055}}, {CODER(020_170), {20170}},
    {CODER(020_210), {20210}}, {CODER(020_230), {20230}}, {CODER(020_300), {20300}}, {CODER(020_310), {20310}},
    {CODER(020_400), {20400}},
    {CODER(021_020), {21020}}, {CODER(021_040), {21040}}, {CODER(021_090), {21090}}, {CODER(021_095), {21095}},
    {CODER(021_140), {21140}}, {CODER(021_145), {21145}}, {CODER(021_150), {21150}}, {CODER(021_160), {21160}},
    {CODER(021_200), {21200}}, {CODER(021_210), {21210}}, {CODER(021_A03), {21903}}, {CODER(021_A05), {21905}},
    {CODER(021_A06), {21906}}, {CODER(021_A08), {21908}},
    {CODER(048_020), {48020}}, {CODER(048_040), {48040}}, {CODER(048_050), {48050}},
};
// clang-format on

using Octets = std::vector<uint8_t>;

// What is not the same, and why. An item that an exception covers is let pass; one that none covers is not.
struct Exception {
    std::vector<ast_dataitem_type_t> types;
    const char *reason;
    bool (*covers)(const Octets &octets);
};

bool any(const Octets &) { return true; }

const Exception kChanged[] = {
    {{10041, 16400, 21131}, "written in coarser units than read", any},
    {{21130},
     "negative angles are written one lower, those beyond the poles refused",
     [](const Octets &o) { return o[0] >= 0x40 || o[3] >= 0x80; }},
    {{21902},
     "negative angles are written one lower, those beyond the earth refused",
     [](const Octets &o) { return o[0] != 0 || o[4] > 1; }},
    {{1090, 10090, 20090, 48090},
     "a negative level is written one lower",
     [](const Octets &o) { return (o[0] & 0x20) != 0; }},
    {{15161}, "read in 16 bits, written in 12", [](const Octets &o) { return o[0] > 0x0F; }},
    {{10220, 21080, 48220}, "an address of 0 is refused", [](const Octets &o) { return o[0] + o[1] + o[2] == 0; }},
    {{21170, 48240}, "a text ends at a character without a code, and blanks follow", any},
    {{48020},
     "ME and MI are written two bits above where they are read; the friend-or-foe status one to the left",
     [](const Octets &o) { return o.size() > 1 && (o[1] & 0x1E) != 0; }},
};

// Octets that come back with bits that they did not have, though the value is the same.
const Exception kOtherOctets[] = {
    {{20230, 21020, 21908}, "codes that are not defined are folded into one", any},
};

template <size_t N>
const Exception *exception_for(const Exception (&exceptions)[N], ast_dataitem_type_t type, const Octets &octets) {
    for (const Exception &each : exceptions)
        for (const ast_dataitem_type_t one : each.types)
            if (one == type && each.covers(octets)) return &each;
    return nullptr;
}

// Items of a type: each bit alone and all, and many at random. What the size rule does not take is left out.
template <typename Visit>
void each_item(const RegisteredItem &registered, Visit visit) {
    constexpr int kRandomItems = 3000;
    constexpr size_t kMost = 24;
    const auto visit_item = [&](Octets octets) {
        octets.resize(kMost);
        const uint64_t size = ast_dataitem_get_size(octets.data(), octets.size(), registered.type);
        if (size == 0 || size > kMost) return;
        octets.resize(size);
        visit(octets);
    };
    Octets sample = registered.sample;
    sample.resize(std::min(sample.size(), kMost - 1));
    visit_item(sample);
    visit_item(Octets(sample.size(), 0xFF));
    for (size_t bit = 0; bit < 8 * sample.size(); ++bit) {
        auto one = sample;
        one[bit / 8] = static_cast<uint8_t>(one[bit / 8] ^ 0x80 >> bit % 8);
        visit_item(one);
    }
    std::mt19937 random(registered.type);
    for (int i = 0; i < kRandomItems; ++i) {
        Octets octets(kMost);
        for (uint8_t &octet : octets) octet = static_cast<uint8_t>(random());
        visit_item(octets);
    }
}

std::string hex_of(const Octets &octets) {
    std::string text;
    for (const uint8_t octet : octets) text += std::string(ast_hex_to_bin(octet)) + " ";
    return text;
}

void expect_same(Recode *recode, const RegisteredItem &registered) {
    int read = 0;
    int changed = 0;
    int bits_set = 0;
    const auto report = [](int &count, const char *what, const Octets &octets, const Octets &again) {
        if (++count == 1) ADD_FAILURE() << what << ": " << hex_of(octets) << "are written as " << hex_of(again);
    };
    each_item(registered, [&](const Octets &octets) {
        const Recoded result = recode(registered.type, octets);
        if (!result.is_read) return;
        ++read;
        if (exception_for(kChanged, registered.type, octets)) return;
        if (!result.is_same) report(changed, "another value", octets, result.octets);
        if (exception_for(kOtherOctets, registered.type, octets)) return;
        bool has_more = result.octets.size() > octets.size();
        for (size_t i = 0; i < octets.size() && i < result.octets.size(); ++i)
            has_more = has_more || (result.octets[i] & ~octets[i]) != 0;
        if (has_more) report(bits_set, "more bits", octets, result.octets);
    });
    EXPECT_GT(read, 100);
}

TEST(EveryEncoder, WritesWhatItsDecoderReads) {
    const auto &all = registered_items();
    LogCapture log;
    for (const RegisteredItem &registered : all) {
        SCOPED_TRACE(registered.type);
        Recode *recode = nullptr;
        for (const Coder &coder : kCoders)
            for (const ast_dataitem_type_t type : coder.types)
                if (type == registered.type) recode = coder.recode;
        EXPECT_EQ(recode != nullptr, ast_dataitem_get_func(registered.type).encode != nullptr);
        if (recode) expect_same(recode, registered);
    }
}

// An exception that no longer is one has to go.
TEST(EveryEncoder, HasExceptionsThatAreNeeded) {
    if (!COMPARES_MEMBERS) GTEST_SKIP() << "the compiler cannot compare values member by member";
    const auto &all = registered_items();
    LogCapture log;
    for (const Exception &exception : kChanged) {
        for (const ast_dataitem_type_t type : exception.types) {
            const auto registered = std::ranges::find(all, type, &RegisteredItem::type);
            ASSERT_NE(registered, all.end());
            const auto coder = std::ranges::find_if(
                kCoders, [&](const Coder &each) { return std::ranges::find(each.types, type) != each.types.end(); });
            int needed = 0;
            each_item(*registered, [&](const Octets &octets) {
                if (!exception.covers(octets)) return;
                const Recoded result = coder->recode(type, octets);
                if (result.is_read && !result.is_same) ++needed;
            });
            EXPECT_GT(needed, 0) << type << ": " << exception.reason;
        }
    }
}

// Whether a value with one member set is written, where an item of zeros gives the others.
struct Field {
    const char *name;
    bool (*is_written)(uint32_t value);
    uint32_t most; // that its bits hold
};

template <ast_dataitem_type_t Type, auto decode, auto member>
bool is_written(uint32_t number) {
    const Octets zeros(8);
    const ast_dataitem_t item = ast_dataitem_decode(zeros.data(), zeros.size(), Type);
    auto value = decode(&item);
    EXPECT_TRUE(value.valid);
    value.*member = static_cast<std::remove_reference_t<decltype(value.*member)>>(number);
    uint8_t buffer[64];
    const ast_dataitem_src_t source{Type, &value};
    return ast_dataitem_encode(buffer, sizeof buffer, &source).valid;
}

#define FIELD(type, name, member, most)                                                                                \
    { #name "." #member, is_written < type, ast_dataitem_##name##_decode, &ast_dataitem_##name##_t::member>, most }

// clang-format off
constexpr Field kFields[] = {
    FIELD(1020, 001_020, typ, 1), FIELD(1020, 001_020, ssr_psr, 3), FIELD(1020, 001_020, ant, 2),
    FIELD(1020, 001_020, ds1_ds2, 3), FIELD(1170, 001_170, rad, 1), FIELD(1170, 001_170, rdpc, 2),
    FIELD(10020, 010_020, typ, 7), FIELD(10020, 010_020, chn, 2), FIELD(10020, 010_020, lop, 3),
    FIELD(10020, 010_020, tot, 3), FIELD(10170, 010_170, cst, 3), FIELD(10170, 010_170, tom, 3),
    FIELD(10170, 010_170, dou, 7), FIELD(10170, 010_170, mrs, 3), FIELD(10270, 010_270, length_m, 127),
    FIELD(10500, 010_500, x_raw, 255), FIELD(10500, 010_500, y_raw, 255), FIELD(10550, 010_550, nogo, 3),
    FIELD(20020, 020_020, chn, 2), FIELD(20020, 020_020, cf, 3), FIELD(20055, 020_055, code, 037),
    FIELD(20170, 020_170, cdm, 3), FIELD(20230, 020_230, com, 7), FIELD(20230, 020_230, stat, 8),
    FIELD(20230, 020_230, b1b, 15), FIELD(20310, 020_310, msg, 127), FIELD(20400, 020_400, count, 32),
    FIELD(21020, 021_020, emitter_category, 255), FIELD(21040, 021_040, atp, 7), FIELD(21040, 021_040, cl, 3),
    FIELD(21090, 021_090, nucr_nacv, 7), FIELD(21090, 021_090, nucp_nic, 15), FIELD(21200, 021_200, ps, 7),
    FIELD(21200, 021_200, ss, 3), FIELD(21210, 021_210, vn, 7), FIELD(21210, 021_210, ltt, 7),
    FIELD(21903, 021_A03, atp, 7), FIELD(21905, 021_A05, ac, 3), FIELD(21905, 021_A05, mn, 3),
    FIELD(21905, 021_A05, dc, 3), FIELD(21905, 021_A05, pa, 15), FIELD(21908, 021_A08, status, 255),
    FIELD(48050, 048_050, code, 07777),
};
// clang-format on

TEST(EveryEncoder, RefusesOneMoreThanAFieldHolds) {
    LogCapture log;
    for (const Field &field : kFields) {
        EXPECT_TRUE(field.is_written(field.most)) << field.name;
        EXPECT_FALSE(field.is_written(field.most + 1)) << field.name;
    }
}

// What the exceptions let pass, by hand: octets and what they are written as.
TEST(EveryEncoder, WritesExceptionsAsTheyAreMeant) {
    struct {
        ast_dataitem_type_t type;
        const char *octets;
        const char *again; // empty: refused
    } constexpr kCases[] = {
        {10041, "20 00 00 00 40 00 00 00", "00 80 00 00 01 00 00 00"}, // 45 and 90 degrees
        {16400, "E0 00 00 00 C0 00 00 00", "FF 7F FF FF FE FF FF FF"}, // -45 and -90
        {21131, "10 00 00 00 20 00 00 00", "00 80 00 00 01 00 00 00"},
        {21130, "C0 00 00 40 00 00", "BF FF FF 40 00 00"},
        {21130, "40 00 01 40 00 00", ""}, // beyond the pole
        {21902, "FF 80 00 00 FF 00 00 00", "FF 7F FF FF FE FF FF FF"},
        {48090, "3F FC", "3F FB"},
        {48090, "20 00", ""}, // the lowest
        {48090, "20 01", "20 00"},
        {15161, "10 00", ""},
        {48220, "00 00 00", ""},
        {48240, "04 00 00 00 00 00", "06 08 20 82 08 20"}, // "A", and blanks behind it
        {48020, "21 10", "21 40"},
        {48020, "21 08", "21 20"},
        {48020, "21 02", "21 04"},
        {48020, "21 04", "20"},
        {20230, "A4 15", "E4 15"}, // capability 5, flight status 1
        {20230, "1A 15", "1C 15"}, // flight status 6, and spare bits
    };
    LogCapture log;
    for (const auto &one : kCases) {
        const auto coder = std::ranges::find_if(
            kCoders, [&](const Coder &each) { return std::ranges::find(each.types, one.type) != each.types.end(); });
        ASSERT_NE(coder, std::end(kCoders));
        EXPECT_EQ(coder->recode(one.type, octets(one.octets)).octets, octets(one.again)) << one.octets;
    }
}

} // namespace
