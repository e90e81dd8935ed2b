// Moving the times of a record: all of them, by the same, and nothing else.

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "ast.h"

namespace {

constexpr int64_t kDay_s = 86400;
constexpr int64_t kDate_s = 19'000 * kDay_s; // 2022-01-08

std::vector<uint8_t> record_of(const std::string &json, ast_uap_t &uap) {
    std::vector<uint8_t> octets(1000);
    const ast_json_result_t result = ast_datarecord_from_json(octets.data(), octets.size(), json.data(), json.size());
    EXPECT_TRUE(result.valid) << json << '\n' << (result.error ? result.error : "") << ' ' << result.path;
    octets.resize(result.valid ? result.size : 0);
    uap = result.uap;
    return octets;
}

struct Move {
    const char *about;
    std::string begin; // of the JSON: category and profile
    std::string from;
    std::string to;
    int64_t recorded_s;
    int64_t seconds;
    uint64_t moved;
};

std::string line_of(const ast_datarecord_t &record) {
    std::string text(20'000, '\0');
    text.resize(ast_datarecord_to_json(text.data(), text.size(), &record, nullptr));
    return text;
}

// Read as what is published, unless it is of an edition of its own. The octets of the record are those given.
ast_datarecord_t read_record(const std::vector<uint8_t> &octets, uint32_t category, ast_uap_t uap) {
    if (uap.get_dataitem != AST_UAP_PUBLISHED.get_dataitem)
        return ast_datarecord_decode(octets.data(), octets.size(), category, uap);
    static ast_datablock_t block;
    const size_t length = octets.size() + 3;
    std::vector<uint8_t> whole = {static_cast<uint8_t>(category), static_cast<uint8_t>(length >> 8),
                                  static_cast<uint8_t>(length)};
    whole.insert(whole.end(), octets.begin(), octets.end());
    EXPECT_TRUE(ast_reader_decode(nullptr, &block, whole.data(), whole.size(), nullptr));
    ast_datarecord_t record = block.records[0];
    for (uint64_t i = 0; i < record.item_count; ++i)
        record.items[i].data = octets.data() + (record.items[i].data - record.data);
    record.data = octets.data();
    return record;
}

void expect_moved(const Move &test) {
    SCOPED_TRACE(test.about);
    ast_uap_t uap;
    const std::vector<uint8_t> octets = record_of("{" + test.begin + ',' + test.from + '}', uap);
    const std::vector<uint8_t> wanted = record_of("{" + test.begin + ',' + test.to + '}', uap);
    if (octets.empty()) return;
    const auto category = static_cast<uint32_t>(std::stoul(test.begin.substr(test.begin.find(':') + 1)));
    const ast_datarecord_t record = read_record(octets, category, uap);
    ASSERT_TRUE(record.valid);
    std::vector<uint8_t> moved = octets;
    EXPECT_EQ(ast_datarecord_move_times(moved.data(), &record, test.recorded_s, test.seconds), test.moved);
    EXPECT_EQ(moved, wanted) << line_of(read_record(moved, category, uap));
}

constexpr int64_t kNoon_s = kDate_s + 43200;

// Times of day of 24 bits: of each category, and each edition of its own.
TEST(Times, OfDayMoveInEveryCategory) {
    const struct {
        const char *begin;
        std::vector<const char *> items;
    } cases[] = {
        {"\"category\":2", {"I030"}},
        {"\"category\":4", {"I020"}},
        {"\"category\":7", {"I140"}},
        {"\"category\":8", {"I090"}},
        {"\"category\":9", {"I070"}},
        {"\"category\":10", {"I140"}},
        {"\"category\":11", {"I140"}},
        {"\"category\":15", {"I145"}},
        {"\"category\":16", {"I140"}},
        {"\"category\":17", {"I140"}},
        {"\"category\":18", {"I002"}},
        {"\"category\":19", {"I140"}},
        {"\"category\":20", {"I140"}},
        {"\"category\":21", {"I071", "I072", "I073", "I075", "I077"}},
        {"\"category\":21,\"profile\":\"cat021-0.23\"", {"I030"}},
        {"\"category\":21,\"profile\":\"cat021-0.26\"", {"I030"}},
        {"\"category\":23", {"I070"}},
        {"\"category\":25", {"I070"}},
        {"\"category\":32", {"I020"}},
        {"\"category\":34", {"I030"}},
        {"\"category\":48", {"I140"}},
        {"\"category\":62", {"I070"}},
        {"\"category\":63", {"I030"}},
        {"\"category\":65", {"I030"}},
        {"\"category\":205", {"I030"}},
        {"\"category\":240", {"I140"}},
        {"\"category\":247", {"I140"}},
    };
    for (const auto &[begin, items] : cases) {
        const auto all = [&items = items](const char *time) {
            std::string text;
            for (const char *item : items) text.append(text.empty() ? "\"" : ",\"").append(item).append("\":") += time;
            return text;
        };
        expect_moved({begin, begin, all("43200.5"), all("46801.5"), kNoon_s, 3601, items.size()});
        expect_moved({begin, begin, all("86399.9921875"), all("0.9921875"), kNoon_s, 1 + 10 * kDay_s, items.size()});
        expect_moved({begin, begin, all("0"), all("86399"), kNoon_s, -1, items.size()});
    }
}

struct Collected {
    std::set<std::string> paths;
    const char *category = "";
};

// Seconds like those of a time of day or its lower bits: of 24 bits, or of 16 with its step.
void collect(void *context, const ast_field_t *field) {
    auto &collected = *static_cast<Collected *>(context);
    const bool is_fine = field->numerator == 1 && field->denominator == 128 && field->bits == 16;
    if (std::string(field->unit) == "s" && (field->bits == 24 || is_fine)) collected.paths.insert(field->path);
}

// Hand-checked against the documents: those that are named here are durations, or are moved by a test of their own; all
// others are an item by themselves, of 24 bits, and named above.
TEST(Times, AreToldFromDurations) {
    Collected collected;
    for (uint32_t category = 1; category < 256; ++category)
        for (const ast_uap_t &uap : {AST_UAP_PUBLISHED, AST_UAP_PUBLISHED_OTHER})
            for (uint32_t frn = 1; frn <= uap.max_frn(category); ++frn)
                ast_dataitem_describe(uap.get_dataitem(category, frn), uap, collect, &collected);
    std::set<std::string> others;
    for (const std::string &path : collected.paths)
        if (path.size() != 8) others.insert(path);
    for (const char *item : {"I001/141", "I002/041", "I034/041"}) EXPECT_EQ(collected.paths.erase(item), 1U) << item;
    EXPECT_EQ(collected.paths.size() - others.size(), 29U);
    EXPECT_EQ(others, (std::set<std::string>{"I004/070/TC", "I004/070/TCA", "I004/120/CD", "I004/170/TT1",
                                             "I004/171/TT2", "I021/110/TID[]/TOV", "I048/REF/RTC/ASI[]/TIMEOFDAYSCN",
                                             "I048/REF/RTC/NPP/PREDTIME", "I062/380/TID[]/TOV"}));
}

const std::string kTod = "\"I390\":{\"TOD\":[{\"TYP\":2,\"DAY\":";

// The number of a day is 0 for today, 1 for yesterday and 2 for tomorrow.
TEST(Times, OfOtherKindsMoveByTheSame) {
    const Move moves[] = {
        {"lower bits", "\"category\":1", "\"I141\":192", "\"I141\":193", kNoon_s, 1, 1},
        {"lower bits, over their own end", "\"category\":1", "\"I141\":511.5", "\"I141\":0.5", kNoon_s, 1, 1},
        // 86399.5 is 168 times 512 and 383.5 more; lower bits begin anew at midnight.
        {"lower bits, over midnight", "\"category\":1", "\"I141\":383.5", "\"I141\":0.5", kDate_s + 86300, 1, 1},
        {"lower bits, back over midnight", "\"category\":1", "\"I141\":0.5", "\"I141\":383.5", kDate_s + 100, -1, 1},
        {"lower bits, of before midnight told behind it", "\"category\":1", "\"I141\":383.5", "\"I141\":0.5",
         kDate_s + 20, 1, 1},
        {"a point that is flown over", "\"category\":62",
         "\"I380\":{\"TID\":[{\"TCA\":0,\"NC\":0,\"TCPN\":1,\"ALT\":0,\"LAT\":0,\"LON\":0,\"PT\":0,\"TD\":0,\"TRA\":0,"
         "\"TOA\":0,\"TOV\":86390,\"TTR\":0}]}",
         "\"I380\":{\"TID\":[{\"TCA\":0,\"NC\":0,\"TCPN\":1,\"ALT\":0,\"LAT\":0,\"LON\":0,\"PT\":0,\"TD\":0,\"TRA\":0,"
         "\"TOA\":0,\"TOV\":10,\"TTR\":0}]}",
         kNoon_s, 20, 1},
        {"of a plan", "\"category\":62", kTod + "0,\"HOR\":12,\"MIN\":59,\"AVS\":0,\"SEC\":58}]}",
         kTod + "0,\"HOR\":13,\"MIN\":0,\"AVS\":0,\"SEC\":8}]}", kNoon_s, 10, 1},
        {"of a plan, into tomorrow", "\"category\":62", kTod + "0,\"HOR\":23,\"MIN\":30,\"AVS\":0,\"SEC\":0}]}",
         kTod + "2,\"HOR\":1,\"MIN\":30,\"AVS\":0,\"SEC\":0}]}", kNoon_s, 7200, 1},
        {"of a plan, whose tomorrow is today then", "\"category\":62",
         kTod + "2,\"HOR\":1,\"MIN\":0,\"AVS\":0,\"SEC\":0}]}", kTod + "0,\"HOR\":13,\"MIN\":0,\"AVS\":0,\"SEC\":0}]}",
         kNoon_s, 43200, 1},
        {"of a plan, without seconds", "\"category\":62", kTod + "1,\"HOR\":23,\"MIN\":59,\"AVS\":1,\"SEC\":0}]}",
         kTod + "0,\"HOR\":0,\"MIN\":0,\"AVS\":1,\"SEC\":0}]}", kNoon_s, 31, 1},
        {"a route point", "\"category\":150", "\"I160\":[{\"HH\":\"23\",\"MM\":\"59\"},{\"HH\":\"  \",\"MM\":\"  \"}]",
         "\"I160\":[{\"HH\":\"00\",\"MM\":\"01\"},{\"HH\":\"  \",\"MM\":\"  \"}]", kNoon_s, 120, 1},
        {"lower bits of another sensor's", "\"category\":48",
         "\"REF\":{\"RTC\":{\"ASI\":[{\"SACADJS\":1,\"SICADJS\":2,\"TIMEOFDAYSCN\":192,\"DATAUSE\":0,\"DRNA\":0,"
         "\"DRN\":3}]}}",
         "\"REF\":{\"RTC\":{\"ASI\":[{\"SACADJS\":1,\"SICADJS\":2,\"TIMEOFDAYSCN\":194,\"DATAUSE\":0,\"DRNA\":0,"
         "\"DRN\":3}]}}",
         kNoon_s, 2, 1},
        {"a date", "\"category\":48",
         "\"REF\":{\"CPC\":{\"DATE\":{\"Y1\":1,\"Y2\":9,\"Y3\":9,\"Y4\":9,\"M1\":1,\"M2\":2,\"D1\":3,\"D2\":1}}}",
         "\"REF\":{\"CPC\":{\"DATE\":{\"Y1\":2,\"Y2\":0,\"Y3\":2,\"Y4\":4,\"M1\":0,\"M2\":2,\"D1\":2,\"D2\":9}}}",
         kNoon_s, 782 * kDay_s, 1},
        {"durations, ages and rotation stay", "\"category\":34", "\"I041\":4", "\"I041\":4", kNoon_s, 100, 0},
        {"a time to a conflict stays", "\"category\":4", "\"I070\":{\"TC\":30,\"TCA\":40}",
         "\"I070\":{\"TC\":30,\"TCA\":40}", kNoon_s, 100, 0},
        {"no time of day stays", "\"category\":48", "\"I140\":90000", "\"I140\":90000", kNoon_s, 100, 0},
    };
    for (const Move &move : moves) expect_moved(move);
}

TEST(Times, StayWhereThereIsNoRecord) {
    uint8_t octets[1] = {7};
    const ast_datarecord_t none{};
    EXPECT_EQ(ast_datarecord_move_times(octets, &none, 0, 1), 0U);
    EXPECT_EQ(ast_datarecord_move_times(nullptr, &none, 0, 1), 0U);
    EXPECT_EQ(ast_datarecord_move_times(octets, nullptr, 0, 1), 0U);
    EXPECT_EQ(octets[0], 7);
}

} // namespace
