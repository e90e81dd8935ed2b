// Records as JSON, and JSON as records.

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/octets.hpp"

namespace {

using ast_test::octets;
using Octets = std::vector<uint8_t>;

constexpr uint64_t kAmple = 1 << 20;

std::string json_of(const ast_datarecord_t &record, const ast_json_line_t *line = nullptr) {
    static char text[kAmple];
    const uint64_t chars = ast_datarecord_to_json(text, sizeof text, &record, line);
    EXPECT_EQ(std::strlen(text), chars);
    return text;
}

// A record of the one item alone, as no FSPEC announces it.
ast_datarecord_t record_of(ast_dataitem_type_t type, const Octets &octets, const ast_uap_t &uap) {
    ast_datarecord_t record{};
    record.category = type / 1000;
    record.uap = uap;
    record.items[0] = {octets.data(), octets.size(), type, true, 0};
    record.item_count = 1;
    record.valid = true;
    return record;
}

// What an item is behind its category: "\"I010\":..." and what belongs to it.
std::string item_json(ast_dataitem_type_t type, std::string_view hex, const ast_uap_t &uap = AST_UAP_PUBLISHED) {
    const Octets data = octets(hex);
    ast_json_line_t line{};
    const std::string json = json_of(record_of(type, data, uap), &line);
    const std::string head = R"("profile":"published",)";
    const size_t at = json.find(head);
    if (at == std::string::npos) return json;
    return json.substr(at + head.size(), json.size() - at - head.size() - 1);
}

// Octets of a record from JSON, in a buffer of exactly what it needs; nothing when it cannot be encoded.
Octets encoded_as_it_stands(std::string_view json) {
    const ast_json_result_t needed = ast_datarecord_from_json(nullptr, 0, json.data(), json.size());
    Octets buffer(needed.size);
    const ast_json_result_t result = ast_datarecord_from_json(buffer.data(), buffer.size(), json.data(), json.size());
    EXPECT_TRUE(result.valid) << json << ": " << result.path << " " << (result.error ? result.error : "");
    EXPECT_LE(result.size, needed.size);
    buffer.resize(result.valid ? result.size : 0);
    return buffer;
}

// The same, whatever else it takes for a text that is written in another way than lines are.
Octets encoded(std::string_view json) {
    const Octets octets = encoded_as_it_stands(json);
    constexpr std::string_view kKey = R"("category")";
    std::string other(json);
    other.insert(other.find(kKey) + kKey.size(), " ");
    EXPECT_EQ(encoded_as_it_stands(other), octets) << json;
    return octets;
}

// ---- What a line looks like ----

struct ItemCase {
    ast_dataitem_type_t type;
    const char *hex, *json;
};

constexpr ItemCase kValues[] = {
    {48010, "19 0C", R"("I010":{"SAC":25,"SIC":12})"},
    {48140, "54 60 40", R"("I140":43200.5)"},
    {48140, "00 00 01", R"("I140":0.00781)"},
    {48220, "4C A7 A8", R"("I220":"4CA7A8")"},
    {48161, "00 7B", R"("I161":{"TRN":123})"},
    {48070, "8F C0", R"("I070":{"V":1,"G":0,"L":0,"MODE3A":"7700"})"},
    {48090, "3F FF", R"("I090":{"V":0,"G":0,"FL":-0.25})"},
    {48040, "00 80 40 00", R"("I040":{"RHO":0.5,"THETA":90})"},
    {48030, "05 20", R"("I030":[2,16])"},
    {48130, "A0 10 FF", R"("I130":{"SRL":0.7031,"SAM":-1})"},
    {48120, "40 01 00 01 FF FE 00 03", R"("I120":{"RDS":[{"DOP":1,"AMB":65534,"FRQ":3}]})"},
    {48240, "2C C3 60 82 08 20", R"("I240":"KLM")"},
    {48250, "00", R"("I250":[])"},
    {48250, "01 C6 50 00 31 94 00 00 40", R"("I250":[{"bds":"40","MCP_ALT":36000,"BARO":1025}])"},
    {48250, "01 FF E0 00 00 00 00 00 50", R"("I250":[{"bds":"50","ROLL":-0.176}])"},
    {10250, "01 C6 50 00 31 94 00 00 40", R"("I250":[{"bds":"40","MCP_ALT":36000,"BARO":1025}])"},
    {10270, "05 08", R"("I270":{"LENGTH":2,"ORIENTATION":11.25})"}, // 4 × 360/128
    {48250, "01 00 00 00 00 00 00 07 17", R"("I250":[{"bds":"17","octets":"00000000000007"}])"},
    {48998, "03 AB CD", R"("REF":"ABCD")"},
    {62998, "08 80 01 19 0C 03 00 07", R"("REF":{"CST":[{"SAC":25,"SIC":12,"TYP":3,"LTN":7}]})"},
    {62998, "07 80 01 19 0C 03 00", R"("REF":"8001190C0300")"}, // one octet short of what it announces
    {21150, "40 00", R"("I150":{"IM":0,"AS":1})"},
    {21150, "81 F4", R"("I150":{"IM":1,"AS":0.5})"},
    {62105, "00 00 00 01 FF FF FF FF", R"("I105":{"LAT":0.00000536,"LON":-0.00000536})"},
    {62105, "80 00 00 00 7F FF FF FF", R"("I105":{"LAT":-11520,"LON":11519.99999464})"},
    {21131, "00 00 00 01 FF FF FF FF", R"("I131":{"LAT":0.000000168,"LON":-0.000000168})"},
    {21131, "00 98 96 80 40 00 00 00", R"("I131":{"LAT":1.676380634,"LON":180})"},
    {62390, "40 4B 4C 4D 31 32 20 20", R"("I390":{"CS":"KLM12"})"},
    {62390, "40 22 4B 5C 31 20 20 20", R"("I390":{"CS":"\"K\\1"})"},
    {4120, "40 1A", R"("I120":{"CC":{"TID":1,"CPC":5,"CS":0}})"}, // no message type, so a raw number
};

// What values alone would not give back.
constexpr ItemCase kLossy[] = {
    {48161, "F0 7B", R"("I161":{"TRN":123},"octets":{"I161":"F07B"})"},               // spare bits
    {48240, "00 C3 60 82 08 20", R"("I240":"?LM","octets":{"I240":"00C360820820"})"}, // no character
    {62390, "40 4B 7F 4D 31 32 20 20", R"("I390":{"CS":"K?M12"},"octets":{"I390":"404B7F4D31322020"})"},
    {48250, "01 46 50 00 00 00 00 00 40", R"("I250":[{"bds":"40"}],"octets":{"I250":"014650000000000040"})"},
    {48030, "05 21", R"("I030":[2,16],"octets":{"I030":"0521"})"}, // a chain that is cut
    {48170, "01 01 02",
     R"("I170":{"CNF":0,"RAD":0,"DOU":0,"MAH":0,"CDM":0,"TRE":0,"GHO":0,"SUP":0,"TCC":0},)"
     R"("octets":{"I170":"010102"})"},                         // one that goes on
    {48130, "01 00", R"("I130":{},"octets":{"I130":"0100"})"}, // presence bits for nothing
    {48130, "02", R"("octets":{"I130":"02"})"},                // one that is announced and ends
};

TEST(Json, SaysWhatThePublishedDocumentSays) {
    for (const ItemCase &each : kValues) EXPECT_EQ(item_json(each.type, each.hex), each.json);
}

TEST(Json, KeepsOctetsThatValuesDoNotTell) {
    for (const ItemCase &each : kLossy) EXPECT_EQ(item_json(each.type, each.hex), each.json);
}

TEST(Json, ReadsAFieldByTheMessageTypeOfTheRecord) {
    const Octets type = octets("07"), conflict = octets("40 1A");
    ast_datarecord_t record = record_of(4000, type, AST_UAP_PUBLISHED);
    record.items[record.item_count++] = {conflict.data(), conflict.size(), 4120, true, 0};
    const std::string json = json_of(record);
    EXPECT_NE(json.find(R"("CC":{"TID":1,"CPC":{"LPF":1,"CPF":0,"MHF":1},"CS":0})"), std::string::npos) << json;
    EXPECT_EQ(encoded(json), octets("41 20 07 40 1A"));
}

TEST(Json, NamesTheLine) {
    const Octets data = octets("19 0C");
    const ast_json_line_t line{.file = "a\"b\n\xC3\xA9\xFF",
                               .block = 7,
                               .record = 1,
                               .time = "12:43:47Z",
                               .source = "10.19.16.21:56798",
                               .destination = "227.0.6.1:10001",
                               .has_offset = true,
                               .offset = 1234,
                               .profile = nullptr,
                               .ambiguous = true,
                               .texts = false};
    EXPECT_EQ(json_of(record_of(48010, data, AST_UAP_STANDARD), &line),
              "{\"file\":\"a\\\"b\\u000A\xC3\xA9?\",\"block\":7,\"record\":1,\"time\":\"12:43:47Z\",\"source\":"
              "\"10.19.16.21:56798\",\"destination\":\"227.0.6.1:10001\",\"offset\":1234,\"category\":48,"
              "\"profile\":\"standard\",\"ambiguous\":true,\"I010\":{\"SAC\":25,\"SIC\":12}}");
    char text[64];
    ast_octets_to_json(text, sizeof text, 99, data.data(), data.size(), "is cut short", nullptr);
    EXPECT_STREQ(text, R"({"category":99,"error":"is cut short","data":"190C"})");
    EXPECT_EQ(encoded(text), data);
}

TEST(Json, GivesTextsOfCodesWhereWanted) {
    const Octets data = octets("A0");
    const ast_json_line_t line{.profile = "standard", .texts = true};
    const std::string json = json_of(record_of(48020, data, AST_UAP_STANDARD), &line);
    EXPECT_NE(json.find(R"("I020":{"TYP":{"value":5,"text":"Single ModeS Roll-Call"},"SIM":{"value":0,)"),
              std::string::npos);
    EXPECT_EQ(encoded(json), octets("20 A0"));
    const Octets technologies = octets("40");
    EXPECT_NE(json_of(record_of(20020, technologies, AST_UAP_PUBLISHED), &line)
                  .find(R"("MS":{"value":1,"text":"Mode-S 1090 MHz multilateration"},)"
                        R"("HF":{"value":0,"text":"No HF multilateration"})"),
              std::string::npos);
}

void expect_within_any_room(const ast_datarecord_t &record, bool texts) {
    constexpr uint64_t kMoreThanTheFastWayNeeds = 4096;
    const ast_json_line_t line{.texts = texts};
    const std::string whole = json_of(record, &line);
    for (uint64_t capacity = 0; capacity <= whole.size() + kMoreThanTheFastWayNeeds; ++capacity) {
        std::string text(capacity + 1, '#');
        EXPECT_EQ(ast_datarecord_to_json(text.data(), capacity, &record, &line), whole.size());
        EXPECT_EQ(text[capacity], '#');
        if (capacity == 0) continue;
        ASSERT_EQ(text.c_str(), whole.substr(0, capacity - 1)) << capacity;
    }
}

TEST(Json, SaysHowMuchRoomItNeedsAndStaysWithin) {
    const Octets registers = octets("01 C6 50 00 31 94 00 00 40");
    const Octets descriptor = octets("A1 54");
    for (const bool texts : {false, true}) {
        expect_within_any_room(record_of(48250, registers, AST_UAP_STANDARD), texts);
        expect_within_any_room(record_of(48020, descriptor, AST_UAP_STANDARD), texts);
    }
}

TEST(Json, StaysWithinWithManyItemsThatNoDocumentKnows) {
    const Octets data = octets("00 01");
    ast_datarecord_t record = record_of(48951, data, AST_UAP_STANDARD);
    for (ast_dataitem_t &item : record.items) item = record.items[0];
    record.item_count = AST_DATARECORD_MAX_ITEMS;
    expect_within_any_room(record, false);
}

TEST(Json, GivesNoTextWhereACodeHasNone) {
    const ast_json_line_t line{.profile = "published", .texts = true};
    const auto texts_of = [&](ast_dataitem_type_t type, std::string_view hex) {
        const Octets data = octets(hex);
        return json_of(record_of(type, data, AST_UAP_PUBLISHED), &line);
    };
    EXPECT_NE(texts_of(48230, "1C 00").find(R"("STAT":{"value":7,"text":"Unknown"})"), std::string::npos);
    EXPECT_NE(texts_of(48230, "18 00").find(R"("STAT":6,)"), std::string::npos);
    EXPECT_NE(texts_of(48230, "A0 00").find(R"("COM":5,)"), std::string::npos);
}

// ---- Decimals ----

// The values in an object: strings without their quotes, and numbers.
std::vector<std::string> scalars_of(const std::string &json) {
    std::vector<std::string> scalars;
    for (size_t at = 0, end = 0; at < json.size(); at = end) {
        const bool is_string = json[at] == '"';
        end = at + 1;
        if (is_string) {
            for (; json[end] != '"'; ++end) end += json[end] == '\\';
            if (json[++end] != ':') scalars.push_back(json.substr(at + 1, end - at - 2));
        } else if (json[at] == '-' || std::isdigit(json[at])) {
            end = json.find_first_of(",]}", at);
            scalars.push_back(json.substr(at, end - at));
        }
    }
    return scalars;
}

// A quantity by long division: two decimals more than its step has zeros behind the point in front of its digits and
// one, rounded, and none of them a zero at the end.
std::string quantity_text(const ast_field_value_t &value) {
    const ast_field_t &field = *value.field;
    const bool is_negative = field.kind == AST_FIELD_SIGNED && (value.raw >> (field.bits - 1) & 1) != 0;
    const auto steps = static_cast<int64_t>(value.raw) - (is_negative ? int64_t{1} << field.bits : 0);
    const auto denominator = static_cast<int64_t>(field.denominator);
    const int64_t parts = steps * static_cast<int64_t>(field.numerator) + field.offset * denominator;
    size_t decimals = 2;
    for (uint64_t step = field.numerator; step < field.denominator; step *= 10) ++decimals;
    int64_t digits = std::abs(parts) / denominator, rest = std::abs(parts) % denominator;
    for (size_t i = 0; i < decimals; ++i, rest = rest * 10 % denominator)
        digits = digits * 10 + rest * 10 / denominator;
    std::string text = std::to_string(digits + (2 * rest >= denominator ? 1 : 0));
    text.insert(0, std::max(text.size(), decimals + 1) - text.size(), '0');
    text.insert(text.size() - decimals, ".");
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return parts < 0 ? '-' + text : text;
}

// Paths of quantities with their steps, those of lists without places.
using Paths = std::set<std::string>;

std::string with_step(const std::string &path, const ast_field_t &field) {
    return path + ' ' + std::to_string(field.numerator) + '/' + std::to_string(field.denominator);
}

struct Quantities {
    std::vector<std::string> scalars; // of a record of one item, as its JSON has them
    size_t next = 0;
    Paths shown;
};

void expect_exact(void *context, const ast_field_value_t *value) {
    auto &[scalars, next, shown] = *static_cast<Quantities *>(context);
    ASSERT_LT(next, scalars.size()) << value->field->path;
    const std::string &text = scalars[next++];
    if (value->field->numerator == 0) return;
    EXPECT_EQ(text, quantity_text(*value)) << value->field->path << " of " << value->raw;
    std::string path;
    for (const char *at = value->field->path; *at; ++at)
        if (path.empty() || path.back() != '[' || *at == ']') path += *at;
    shown.insert(with_step(path, *value->field));
}

// Those of registers as an item has them.
void add_quantity(void *context, const ast_field_t *field) {
    const std::string path = field->path;
    if (field->numerator != 0)
        static_cast<Paths *>(context)->insert(
            with_step(path.starts_with("BDS") ? "I048/250[]" + path.substr(5) : path, *field));
}

// Octets that announce one subfield after the other, of one element if it is a list, and FX alone in front of it; or
// any, some of which are chained by FX.
Octets octets_of_round(unsigned round, size_t begin, size_t size, std::mt19937 &random) {
    constexpr unsigned kPresenceOctets = 5, kSubfieldsOfOctet = 7;
    Octets octets(size);
    const bool has_few_bits = round % 4 != 0, is_chain = round % 4 == 1;
    for (uint8_t &octet : octets)
        octet = static_cast<uint8_t>((random() & (has_few_bits ? random() & random() : 0xFF)) | is_chain);
    size_t last = begin + round / kSubfieldsOfOctet % kPresenceOctets;
    if (last + 1 >= size || round / (kSubfieldsOfOctet * kPresenceOctets) % 2 != 0) return octets;
    octets[last] = static_cast<uint8_t>(0x80U >> round % kSubfieldsOfOctet);
    octets[last + 1] = 1;
    while (last != begin) octets[--last] = 0x01;
    return octets;
}

// A length that counts itself, and the presence bit of one subfield, of any length.
Octets expansion_of_round(unsigned round, std::mt19937 &random) {
    constexpr unsigned kSubfields = 8, kMostOctets = 40;
    const size_t size = 2 + round / kSubfields % kMostOctets;
    Octets octets = octets_of_round(round / (kSubfields * kMostOctets), 2, size, random);
    octets[0] = static_cast<uint8_t>(size);
    octets[1] = static_cast<uint8_t>(0x80U >> round % kSubfields);
    return octets;
}

TEST(Json, ShowsEveryQuantityWithTheDecimalsThatItsStepTakes) {
    ast_log_handler_reg(nullptr);
    std::mt19937 random(1); // NOLINT: the same octets every time
    Quantities quantities;
    Paths described;
    const auto try_octets = [&](ast_dataitem_type_t type, Octets octets, const ast_uap_t &uap) {
        octets.resize(ast_dataitem_get_published_size(octets.data(), octets.size(), type, uap));
        const ast_datarecord_t record = record_of(type, octets, uap);
        quantities.scalars = scalars_of(json_of(record));
        quantities.next = 2; // behind category and profile
        if (!octets.empty()) ast_dataitem_walk(&record.items[0], uap, 0, expect_exact, &quantities);
    };
    for (const ast_uap_t &uap : {AST_UAP_PUBLISHED, AST_UAP_PUBLISHED_OTHER, AST_UAP_CAT021_VER023,
                                 AST_UAP_CAT021_VER026, AST_UAP_CAT021_VER21, AST_UAP_CAT021_VER24})
        for (uint32_t category = 1; category < 256; ++category)
            for (uint32_t frn = 1; frn <= uap.max_frn(category); ++frn) {
                const ast_dataitem_type_t type = uap.get_dataitem(category, frn);
                const size_t before = described.size();
                ast_dataitem_describe(type, uap, add_quantity, &described);
                const bool is_expansion = type % 1000 == 998;
                if (described.size() == before) continue;
                for (unsigned round = 0; round < (is_expansion ? 30000U : 700U); ++round)
                    try_octets(
                        type, is_expansion ? expansion_of_round(round, random) : octets_of_round(round, 0, 300, random),
                        uap);
            }
    for (uint32_t bds = 0; bds < 256; ++bds) {
        if (!ast_bds_describe(bds, add_quantity, &described)) continue;
        Octets octets(9, 0xFF);
        octets[0] = 1, octets[8] = static_cast<uint8_t>(bds);
        for (int round = 0; round < 200; ++round) {
            try_octets(48250, octets, AST_UAP_PUBLISHED);
            for (size_t i = 1; i < 8; ++i) octets[i] = static_cast<uint8_t>(random());
        }
    }
    Paths missing;
    std::ranges::set_difference(described, quantities.shown, std::inserter(missing, missing.end()));
    EXPECT_EQ(missing, Paths{});
    EXPECT_GT(described.size(), 600U);
    ast_log_handler_reg(ast_log_stdout);
}

// ---- There and back again ----

// A buffer that is too small for the fast way, and octets that follow the item, change nothing.
void expect_same_text(const ast_datarecord_t &record, bool texts) {
    const ast_json_line_t line{.texts = texts};
    const std::string json = json_of(record, &line);
    std::string cut(json.size(), '\0');
    EXPECT_EQ(ast_datarecord_to_json(cut.data(), cut.size(), &record, &line), json.size());
    EXPECT_EQ(cut.substr(0, cut.size() - 1), json.substr(0, json.size() - 1));
    const ast_dataitem_t &item = record.items[0];
    constexpr uint8_t kFollowing[] = {1, 2, 3, 4, 5, 6, 7, UINT8_MAX};
    for (const uint8_t following : kFollowing) {
        Octets octets(item.size + following, 0xFF); // and not one more that could be read
        std::copy_n(item.data, item.size, octets.begin());
        ast_datarecord_t followed = record;
        followed.items[0].data = octets.data();
        followed.items[0].following = following;
        EXPECT_EQ(json_of(followed, &line), json);
    }
}

// A record of one item from its JSON is the item behind an FSPEC.
void expect_back(const ast_datarecord_t &record) {
    const std::string json = json_of(record);
    const Octets back = encoded(json);
    const ast_dataitem_t &item = record.items[0];
    ASSERT_GT(back.size(), item.size) << json;
    EXPECT_TRUE(std::equal(item.data, item.data + item.size, back.end() - static_cast<int64_t>(item.size))) << json;
    for (const bool texts : {false, true}) expect_same_text(record, texts);
}

TEST(JsonRoundTrip, EveryItemOfEveryEditionFromAnyOctets) {
    ast_log_handler_reg(nullptr);
    std::mt19937 random(1); // NOLINT: the same octets every time
    uint64_t tried = 0;
    for (const ast_uap_t &uap : {AST_UAP_PUBLISHED, AST_UAP_PUBLISHED_OTHER, AST_UAP_CAT021_VER023,
                                 AST_UAP_CAT021_VER026, AST_UAP_CAT021_VER21, AST_UAP_CAT021_VER24})
        for (uint32_t category = 1; category < 256; ++category)
            for (uint32_t frn = 1; frn <= uap.max_frn(category); ++frn) {
                const ast_dataitem_type_t type = uap.get_dataitem(category, frn);
                for (unsigned i = 0; type != AST_DATAITEM_NONE && i < 40; ++i) {
                    Octets data(300);
                    for (uint8_t &octet : data) octet = static_cast<uint8_t>(random() & (i % 2 ? 0xFF : random()));
                    data.resize(ast_dataitem_get_published_size(data.data(), data.size(), type, uap));
                    if (data.empty()) continue;
                    ++tried;
                    expect_back(record_of(type, data, uap));
                    if (HasFatalFailure()) return;
                }
            }
    EXPECT_GT(tried, 20000U);
    ast_log_handler_reg(ast_log_stdout);
}

// The UDP payloads of a capture of Ethernet frames, or a file of blocks as it is.
std::vector<Octets> payloads_of(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    const Octets all((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const auto u32 = [&](size_t at) { return all[at] | all[at + 1] << 8 | all[at + 2] << 16 | all[at + 3] << 24; };
    if (path.extension() != ".pcap") return {all};
    std::vector<Octets> payloads;
    for (size_t at = 24; at + 16 <= all.size();) {
        const auto size = static_cast<size_t>(u32(at + 8));
        const size_t frame = at + 16, ip = frame + 14, udp = ip + (all.at(ip) & 0x0F) * size_t{4};
        at = frame + size;
        if (at <= all.size() && all[ip] >> 4 == 4 && all[ip + 9] == 17 && udp + 8 <= at)
            payloads.emplace_back(all.begin() + static_cast<int64_t>(udp) + 8, all.begin() + static_cast<int64_t>(at));
    }
    return payloads;
}

uint64_t expect_records_back(const std::filesystem::path &path) {
    static ast_datablock_t block; // large
    uint64_t records = 0;
    for (const Octets &payload : payloads_of(path))
        for (size_t at = 0; at + 3 <= payload.size();) {
            const auto length = static_cast<size_t>(payload[at + 1] << 8 | payload[at + 2]);
            if (length < 3 || at + length > payload.size()) break;
            ast_datablock_smart_decode_into(&block, &payload[at], length);
            for (uint64_t i = 0; i < block.record_count; ++i, ++records) {
                const ast_datarecord_t &record = block.records[i];
                EXPECT_EQ(encoded(json_of(record)), Octets(record.data, record.data + record.size));
            }
            at += length;
        }
    return records;
}

TEST(JsonRoundTrip, EveryRecordOfRecordings) {
    ast_log_handler_reg(nullptr);
    const std::filesystem::path tree = AST_TREE;
    const char *const given = std::getenv("AST_RECORDINGS");
    uint64_t records = expect_records_back(tree / "samples/radar.ast");
    EXPECT_GT(records, 5U);
    EXPECT_EQ(expect_records_back(tree / "samples/tracks.pcap"), 64U + 84U);
    EXPECT_EQ(expect_records_back(tree / "samples/categories.ast"), 14U);
    const std::filesystem::path shared = given ? std::filesystem::path(given) : tree / "../shared/recordings";
    if (std::filesystem::is_directory(shared))
        for (const auto &file : std::filesystem::directory_iterator(shared))
            if (file.path().extension() == ".pcap" || file.path().extension() == ".raw")
                records += expect_records_back(file.path());
    RecordProperty("records", static_cast<int>(records));
    ast_log_handler_reg(ast_log_stdout);
}

TEST(JsonRoundTrip, CategoriesThatOnlyDocumentsKnow) {
    EXPECT_EQ(encoded(R"({"category":247,"I010":{"SAC":25,"SIC":12},"I140":43200.5,)"
                      R"("I550":[{"CAT":48,"MAIN":1,"SUB":32},{"CAT":34,"MAIN":1,"SUB":29}]})"),
              octets("B0 19 0C 54 60 40 02 30 01 20 22 01 1D"));
    EXPECT_EQ(encoded(R"({ "I015" : 3 , "category" : 205, "I000":1, "I010": {"SIC":12,"SAC":25}, "I070":359.9 })"),
              octets("E1 40 19 0C 03 01 8C 96"));
}

TEST(JsonRoundTrip, ItemsThatNoDocumentKnows) {
    // FRNs 5 and 23 of this profile are the same two octets.
    const Octets data = octets("09 01 01 40 00 01 00 02");
    const ast_datarecord_t record = ast_datarecord_decode(data.data(), data.size(), 1, AST_UAP_MANAGAIR);
    ASSERT_TRUE(record.valid);
    const std::string json = json_of(record);
    EXPECT_EQ(json, R"({"category":1,"profile":"managair","I951":"0001","I951_2":"0002"})");
    EXPECT_EQ(encoded(json), data);
}

// ---- Values that are edited ----

TEST(JsonEditing, RoundsToTheNearestStepAndKeepsOctetsThatStillMeanTheSame) {
    struct Case {
        const char *json, *hex;
    };
    for (const Case &each : std::vector<Case>{
             {R"({"category":48,"I140":43200.5039})", "40 54 60 40"}, // 1/128 s is 0.0078
             {R"({"category":48,"I140":43200.50391})", "40 54 60 41"},
             {R"({"category":48,"I140":4.32005e4,"I010":null})", "40 54 60 40"},
             {R"({"category":48,"I090":{"V":0,"G":0,"FL":-0.2}})", "04 3F FF"},
             {R"({"category":48,"I090":{"V":0,"G":0,"FL":0.125}})", "04 00 01"}, // halves away from zero
             {R"({"category":48,"I090":{"V":0,"G":0,"FL":-0.125}})", "04 3F FF"},
             {R"({"category":48,"I090":{"V":0,"G":0,"FL":0.12499999999999999}})", "04 00 00"},
             {R"({"category":48,"I090":{"V":0,"G":0,"FL":-2048}})", "04 20 00"},
             {R"({"category":48,"I250":[{"bds":"40","BARO":800.05}]})", "01 20 01 00 00 00 20 02 00 00 40"},
             {R"({"category":48,"I140":4320050000000000000000e-17})", "40 54 60 40"},
             {R"({"category":62,"I105":{"LAT":-41.000000000000000000000000001,"LON":180}})",
              "08 FF 8B 60 B6 02 00 00 00"},
             {R"({"category":48,"I161":{"TRN":123},"octets":{"I161":"F07B"}})", "01 10 F0 7B"},
             {R"({"category":48,"I161":{"TRN":124},"octets":{"I161":"F07B"}})", "01 10 00 7C"},
             {R"({"category":48,"I161":null,"octets":{"I161":"F07B"}})", "00"},
             {R"({"category":48,"I240":"AB","octets":{"I240":"00C360820820"}})", "01 40 04 28 20 82 08 20"},
             {R"({"category":1,"I010":{"SAC":1,"SIC":2},"I020":{"TYP":0,"SIM":0,"SSRPSR":0,"ANT":0,"SPI":0,"RAB":0},)"
              R"("I040":{"RHO":1,"THETA":0}})",
              "E0 01 02 00 00 80 00 00"}, // a plot, so I001/040 has FRN 3
         })
        EXPECT_EQ(encoded(each.json), octets(each.hex)) << each.json;
}

TEST(JsonEditing, SaysWhatIsWrongAndWhere) {
    struct Case {
        std::string json; // with "@" in front of the place
        const char *path, *error;
    };
    for (const Case &each : std::vector<Case>{
             {R"(@{"I010":1})", "category", "is missing"},
             {R"({"category":@300})", "category", "does not fit its bits"},
             {R"({"category":48,"profile":@"none"})", "profile", "is not known here"},
             {R"({"category":48,@"I011":1})", "I011", "is not known here"},
             {R"({"category":48,"I010":@7})", "I010", "is no object"},
             {R"({"category":48,"I010":@{"SAC":1}})", "I010/SIC", "is missing"},
             {R"({"category":48,"I010":{"SAC":1,"SIC":@256}})", "I010/SIC", "does not fit its bits"},
             {R"({"category":48,"I010":{"SAC":1,"SIC":@1.5}})", "I010/SIC", "is no whole number"},
             {R"({"category":48,"I010":{"SAC":1,"SIC":@1e999999999}})", "I010/SIC", "does not fit its bits"},
             {R"({"category":48,"I010":{"SAC":1,"SIC":2,@"SID":3}})", "I010/SID", "is not known here"},
             {R"({"category":48,"I010":{"SAC":1,"SIC":2,@"SAC":3}})", "I010/SAC",
              "stands twice, or does not go with what stands before it"},
             {R"({"category":48,"I010":{"SAC":1,"SIC":@1e-29}})", "I010/SIC", "is no whole number"},
             {R"({"category":48,"I010":{"SAC":1,"SIC":@-1}})", "I010/SIC", "does not fit its bits"},
             {R"({"category":48,"I140":@99999999999999999999})", "I140", "does not fit its bits"},
             {R"({"category":48,"I140":@131072})", "I140", "does not fit its bits"},
             {R"({"category":48,"I140":@-1})", "I140", "does not fit its bits"},
             {R"({"category":48,"I070":{"V":0,"G":0,"L":0,"MODE3A":@"7800"}})", "I070/MODE3A",
              "is no string of as many octal digits"},
             {R"({"category":48,"I240":@"KLÉ"})", "I240", "has a character that is no letter, digit or blank"},
             {R"({"category":48,"I250":[{"bds":"40","MCP_ALT":16},{"bds":"40","MCP_ALT":@-16}]})", "I250[1]/MCP_ALT",
              "does not fit its bits"},
             {R"({"category":48,"I250":[@{"bds":"5"}]})", "I250[0]", "has no \"bds\" of two hexadecimal digits"},
             {R"({"category":48,"I240":@"\ud83d"})", "I240", "has a character that is no letter, digit or blank"},
             {"{\"category\":48,\"I240\":\"A@\xC3\"}", "", "is no UTF-8"},        // a character cut short
             {"{\"category\":48,\"I240\":\"A@\xC0\x80\"}", "", "is no UTF-8"},    // one longer than it need be
             {"{\"category\":48,\"I240\":\"@\xED\xA0\x80\"}", "", "is no UTF-8"}, // half of one
             {std::string("{\"category\":48,\"I240\":\"A@") + '\0' + "\"}", "", "has a control character in a string"},
             {R"({"category":48,"SPF":@"ABC"})", "SPF", "is no string of pairs of hexadecimal digits"},
             {R"({"category":48,"I010":{"SAC":1,"SIC":2@)", "", "lacks a comma or a closing bracket"},
             {R"({"category":48 @"I010":1})", "", "lacks a comma or a closing bracket"},
             {R"({"category":48,@})", "", "lacks a key"},
             {R"({"category":@048})", "", "lacks a comma or a closing bracket"},
             {R"(@[1])", "", "is no JSON object"},
             {std::string(R"({"category":)") + std::string(31, '[') + "@" + std::string(5000, '['), "",
              "is nested too deep"},
         }) {
        std::string json = each.json;
        uint64_t place = json.find('@');
        json.erase(place, 1);
        uint8_t buffer[64];
        const ast_json_result_t result = ast_datarecord_from_json(buffer, sizeof buffer, json.data(), json.size());
        EXPECT_FALSE(result.valid) << each.json;
        EXPECT_STREQ(result.path, each.path) << each.json;
        EXPECT_STREQ(result.error, each.error) << each.json;
        if (json.find(":048") != std::string::npos) ++place; // a number ends behind its zero
        EXPECT_EQ(result.position, place) << each.json;
    }
}

// An FSPEC as it was received counts as long as it announces the items beside it, and ends where it says.
TEST(JsonEditing, TakesTheFspecThatMeansTheSameItems) {
    const auto with = [](const std::string &fspec) {
        return encoded(R"({"category":48,"I010":{"SAC":25,"SIC":12},"octets":{"FSPEC":")" + fspec + "\"}}");
    };
    EXPECT_EQ(with("80"), octets("80 19 0C"));
    EXPECT_EQ(with("8100"), octets("81 00 19 0C"));
    for (const char *const other : {"40", "C0", "8000", "81", "8101", "80FF"})
        EXPECT_EQ(with(other), octets("80 19 0C")) << other;
}

TEST(JsonEditing, NoTextThatIsCutShortIsARecord) {
    const std::string json =
        R"({"category":48,"I010":{"SAC":25,"SIC":12},"I250":[{"bds":"17","octets":"00000000000007"}],)"
        R"("I240":"A\u0042C","octets":{"I161":"F07B"}})";
    EXPECT_EQ(encoded(json).size(), 19U);
    for (size_t chars = 0; chars < json.size(); ++chars) {
        uint8_t buffer[64];
        const std::vector<char> cut(json.begin(), json.begin() + static_cast<int64_t>(chars));
        EXPECT_FALSE(ast_datarecord_from_json(buffer, sizeof buffer, cut.data(), chars).valid) << chars;
    }
}

} // namespace
