// Expressions, and the records that meet them.

#include <cstring>

#include "recording/recorded.hpp"

namespace ast_test {

namespace {

struct FilterCloser {
    void operator()(ast_filter_t *filter) const { ast_filter_close(filter); }
};
using Filter = std::unique_ptr<ast_filter_t, FilterCloser>;

Filter filter(const std::string &expression) {
    ast_filter_error_t error;
    Filter result(ast_filter_open(expression.c_str(), &error));
    EXPECT_TRUE(result) << expression << ": " << error.text;
    EXPECT_EQ(error.text[0] == '\0', result != nullptr);
    return result;
}

// Which records of the sample meet an expression: the north marker is 1, the roll-call 2, a primary track 3, then come
// a plot and a track of category 001, 4 and 5, the sector, 6, a system track, 7, and a report of ADS-B, 8.
std::string met(const std::string &expression) {
    const Filter asked = filter(expression);
    const Recording recording = open({sample("radar.ast")});
    std::string numbers;
    ast_recording_block_t block;
    ast_datarecord_t record;
    char number = '1';
    while (ast_recording_next(recording.get(), &block))
        for (uint64_t r = 0; ast_recording_get_record(recording.get(), r, &record); ++r, ++number)
            if (ast_filter_matches(asked.get(), &record, nullptr)) numbers += number;
    return numbers;
}

struct Chosen {
    const char *expression;
    const char *records;
};

// The roll-call: squawk 2345, DLH4AB, 3C4A12, FL 350, 450 kt, at 12:00:01.5; the primary track 43: 180 kt, at
// 12:00:01.75.
TEST(Filters, ChooseRecords) {
    const Chosen cases[] = {
        {"squawk=2345 and category=48", "2"},
        {"category=48 AND squawk = 2345", "2"},
        {"category=34 or squawk=2345", "124567"},
        {"category=34 or category=48 and squawk=2345", "126"},
        {"(category=34 or category=48) and squawk=2345", "2"},
        {"not squawk", "136"},
        {"not(squawk)and category=34", "16"},
        {"not not squawk=1234", "8"},
        {"squawk in (7700, 1234)", "8"},
        {"squawk not in (7700,2345)", "8"},
        {"track in (40..50, 500)", "38"},
        {"fl=350", "24578"},
        {"fl=349..351", "24578"},
        {"fl=351..400", ""},
        {"category!=34..48", "4578"},
        {"category=34 .. 48 and fl", "2"},
        {"time=12:00:01.5..12:00:01.75", "23"},
        {"time=23:00..12:00", "1"},
        {"time=23:00..12:00:01", "16"},
        {"azimuth=350..310", "2345"},
        {"callsign=DLH* and not (fl<100)", "27"},
        {"callsign='dlh4ab'", "27"},
        {"callsign=\"AUA7KR\"", "8"},
        {"type=north marker or track=43", "13"},
        {"type='north marker'", "1"},
        {"exists I048/250", "2"},
        {"exists callsign", "278"},
        {"I048/020/TYP=5", "2"},
        {"I048/020/TYP=4..6", "2"},
        {"I048/020/TYP=\"ModeS roll-call\"", "2"}, // in two texts, by itself in none
        {"I048/020/TYP=Single PSR detection", "3"},
        {"I048/020/TYP!=single psr detection", "2"},
        {"I048/020/TYP in (\"Single PSR detection\", Single ModeS Roll-Call)", "23"},
        {"048/I020/TYP=*psr*", "3"},
        {"i048/070/mode3a=2345", "2"},
        {"I048/250[0]/MCP_ALT", "2"},
        {"altitude>10972.7m", "8"}, // 36000 ft are 10972.8 m
        {"altitude_ft > 10972.9 m", ""},
        {"fl>=35000 ft and category=48", "2"},
        {"fl=10..11km and category=48", "2"},
        {"speed<400km/h", "3"},                 // 180 kt are 333 km/h
        {"speed>231 m/s and category=48", "2"}, // 450 kt are 231.5 m/s
        {"I048/040/RHO<25km", "3"},             // 12.25 NM are 22.7 km
        {"I048/040/THETA=120deg", "2"},
        {"I048/140=43201.5s", "2"},
        {"I048/140=720.025min", "2"},
        {"within 1nm of 50,14.25", "7"},
        {"sacsic=25/12 and type=track", "235"},
    };
    for (const Chosen &each : cases) EXPECT_EQ(met(each.expression), each.records) << each.expression;
}

struct Wrong {
    const char *expression;
    uint64_t position;
    uint64_t length;
    const char *text; // that its text begins with
};

TEST(Filters, SayWhatIsWrongAndWhere) {
    const Wrong cases[] = {
        {"", 0, 0, "expected a condition"},
        {"fl>100 and", 10, 0, "expected a condition"},
        {"fl>100 or (", 11, 0, "expected a condition"},
        {"(fl>100", 7, 0, "expected 'and', 'or' or )"},
        {"fl>100)", 6, 1, "expected 'and', 'or' or the end"},
        {"fl callsign", 3, 1, "expected 'and', 'or' or the end"},
        {"track=1 fl>100", 10, 1, "expected 'and' or 'or' in front of another condition"},
        {"squawk in 7700", 10, 1, "expected (, and values"},
        {"squawk in (7700", 15, 0, "expected , or )"},
        {"squawk in (7700,7800)", 16, 4, "'7800' is no value of squawk, which is octal digits, 0000 to 7777"},
        {"fl>1 and sqauwk=7700", 9, 6, "'sqauwk' is no quantity, nor a path such as I070/MODE3A; did you mean squawk?"},
        {"I145/FL>3", 0, 7,
         "'I145/FL' is a field of no category; did you mean I145? It is a value of its own, without /FL"},
        {"048/I070/MOD3A", 0, 14,
         "'048/I070/MOD3A' is a field of no edition of that category; did you mean 048/I070/MODE3A?"},
        {"I048/070/MODE3", 0, 14,
         "'I048/070/MODE3' is a field of no edition of that category; did you mean I048/070/MODE3A?"},
        {"fl=FL350", 3, 5, "'FL350' is no value of fl, which is a number, in FL"},
        {"fl>100kt", 3, 5, "'100kt' is no value of fl"},
        {"squawk>100m", 7, 4, "'100m' is no value of squawk"},
        {"sic=256", 4, 3, "'256' is no value of sic, which is 0 to 255"},
        {"I010/SIC=256", 9, 3, "'256' is no value of I010/SIC, which is 0 to 255"},
        {"I048/040/RHO=256", 13, 3, "'256' is no value of I048/040/RHO, which is 0 to 255.996094"},
        {"fl=200..100", 3, 8, "the range ends before it begins"},
        {"fl=100..x", 8, 1, "'x' is no value of fl"},
        {"I048/020/TYP=roll-over", 13, 9, "'roll-over' is no text of I048/020/TYP, which has No detection, Single"},
        {"callsign='DLH", 9, 1, "the quotes are not closed"},
        {"within 40 of 48.35,11.79", 7, 2, "expected a distance with its unit"},
        {"within 40kt of 48.35,11.79", 7, 4, "expected a distance with its unit"},
        {"within 40nm from 48.35", 7, 15, "expected a distance with its unit"},
        {"within 40nm of 98.35,11.79", 15, 5, "expected the latitude in degrees, -90 to 90"},
        {"within 40nm of 48.35", 20, 0, "expected a comma"},
        {"inside /nowhere", 7, 8, "/nowhere: cannot be read"},
    };
    for (const Wrong &each : cases) {
        SCOPED_TRACE(each.expression);
        ast_filter_error_t error;
        EXPECT_EQ(ast_filter_open(each.expression, &error), nullptr);
        EXPECT_EQ(error.position, each.position);
        EXPECT_EQ(error.length, each.length);
        EXPECT_EQ(std::string(error.text).substr(0, std::strlen(each.text)), each.text);
    }
    EXPECT_EQ(ast_filter_open(nullptr, nullptr), nullptr);
    EXPECT_EQ(ast_filter_open((std::string(5000, '(') + "fl").c_str(), nullptr), nullptr);
    std::string negations;
    for (int i = 0; i < 5000; ++i) negations += "not ";
    EXPECT_EQ(ast_filter_open((negations + "fl").c_str(), nullptr), nullptr);
}

bool is_met_at(const Filter &asked, double latitude_deg, double longitude_deg) {
    const ast_datarecord_t record{};
    ast_answers_t answers{};
    answers.present = AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE;
    answers.latitude_deg = latitude_deg;
    answers.longitude_deg = longitude_deg;
    return ast_filter_matches(asked.get(), &record, &answers);
}

// A degree of the equator, whose radius is 6378137 m, is 111319.5 m or 60.108 NM; one of a meridian around 45 degrees
// is 111132 m or 60.006 NM.
TEST(Filters, MeasureAlongTheEarth) {
    EXPECT_TRUE(is_met_at(filter("within 111320m of 0,0"), 0, 1));
    EXPECT_FALSE(is_met_at(filter("within 111319 m of 0 , 0"), 0, 1));
    EXPECT_TRUE(is_met_at(filter("within 60.01nm of 44.5,10"), 45.5, 10));
    EXPECT_FALSE(is_met_at(filter("within 60nm of 44.5,10"), 45.5, 10));
    EXPECT_TRUE(is_met_at(filter("within 22.3km of 0,-179.9"), 0, 179.9)); // 22.264 km over the date line
    EXPECT_FALSE(is_met_at(filter("within 22.2km of 0,-179.9"), 0, 179.9));
    EXPECT_TRUE(is_met_at(filter("within 30000km of 0,0"), -60, 179));
    const ast_datarecord_t nowhere{};
    const ast_answers_t nothing{};
    EXPECT_FALSE(ast_filter_matches(filter("within 30000km of 0,0").get(), &nowhere, &nothing));
    EXPECT_TRUE(ast_filter_asks_position(filter("squawk or within 1km of 0,0").get()));
    EXPECT_FALSE(ast_filter_asks_position(filter("squawk").get()));
}

class AreaFile {
public:
    explicit AreaFile(const std::string &geojson) : file_({geojson.begin(), geojson.end()}) {}
    std::string expression() const { return "inside '" + file_.path() + "'"; }

private:
    TemporaryFile file_;
};

// A square of the given corners, longitude first.
std::string ring(int west, int south, int east, int north) {
    const auto corner = [](int x, int y) { return '[' + std::to_string(x) + ',' + std::to_string(y) + ']'; };
    return '[' + corner(west, south) + ',' + corner(east, south) + ',' + corner(east, north) + ',' +
           corner(west, north) + ',' + corner(west, south) + ']';
}

TEST(Filters, KnowWhatIsInsideAnArea) {
    const std::string hole = ring(10, 40, 20, 50) + ',' + ring(14, 44, 16, 46);
    const struct {
        std::string geojson;
        double in[2][2]; // latitude and longitude
        double out[2][2];
    } cases[] = {
        {R"({"type":"Polygon","coordinates":[)" + hole + "]}", {{45, 12}, {49.9, 19.9}}, {{45, 15}, {45, 21}}},
        // Cut in two at the date line, and beyond it.
        {R"({"type":"MultiPolygon","coordinates":[[)" + ring(170, -5, 180, 5) + "],[" + ring(-180, -5, -170, 5) + "]]}",
         {{0, 179.5}, {0, -179.5}},
         {{0, 169}, {6, 179.5}}},
        {R"({"type":"Polygon","coordinates":[)" + ring(170, -5, 190, 5) + "]}",
         {{0, 175}, {0, -175}},
         {{0, -169}, {0, 169}}},
        {R"( {"features" : [{"properties":{"name":"\u00c4 \"b\""},"geometry":{"coordinates":[[[0,0],[10,0],[5,10],[0,0]]],
              "type":"Polygon"},"type":"Feature"},{"type":"Feature","geometry":null}],"type":"FeatureCollection"} )",
         {{1, 5}, {8, 5}},
         {{8, 1}, {8, 9}}},
        {R"({"type":"GeometryCollection","geometries":[{"type":"Polygon","coordinates":[)" + hole + "]}]}",
         {{41, 11}, {43, 15}},
         {{45.5, 15.5}, {-45, 12}}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.geojson);
        const Filter asked = filter(AreaFile(each.geojson).expression());
        for (const auto &[latitude, longitude] : each.in) EXPECT_TRUE(is_met_at(asked, latitude, longitude));
        for (const auto &[latitude, longitude] : each.out) EXPECT_FALSE(is_met_at(asked, latitude, longitude));
    }
}

TEST(Filters, SayWhatIsWrongInAnArea) {
    const auto polygon = [](const std::string &rings) { return R"({"type":"Polygon","coordinates":)" + rings + '}'; };
    const struct {
        std::string geojson;
        const char *text;
    } cases[] = {
        {"", "cannot be read, or is empty"},
        {"{\n \"type\": ]", "line 2, character 10: expected a value"},
        {"{\"type\":\"Polygon\"", "expected , or }"},
        {"{\"type\":\"Poly", "a text has no end"},
        {"{} x", "expected the end"},
        {std::string(1000, '['), "nested too deep"},
        {"[1]", "is no GeoJSON"},
        {R"({"type":"Point","coordinates":[1,2]})", "is of the type Point, which has no inside"},
        {R"({"type":"Feature","geometry":{"type":"LineString"}})", "geometry: is of the type LineString"},
        {R"({"type":"FeatureCollection","features":[]})", "has no polygon"},
        {R"({"type":"Polygon"})", "has no member \"coordinates\""},
        {polygon("[]"), "coordinates: has no ring"},
        {polygon("7"), "coordinates: is a number, not a list of rings"},
        {polygon("[[[0,0],[1,1],[0,0]]]"), "coordinates[0]: has fewer than four positions"},
        {polygon("[[[0,0],[1,1],[0,1],[0,2]]]"), "coordinates[0]: does not end where it begins"},
        {polygon("[[[0,0],[1,\"1\"],[0,1],[0,0]]]"), "coordinates[0][1]: is no position"},
        {polygon("[[[48,111],[1,1],[0,1],[0,0]]]"), "coordinates[0][0]: has a latitude beyond 90"},
    };
    for (const auto &each : cases) {
        ast_filter_error_t error;
        const AreaFile file(each.geojson);
        EXPECT_EQ(ast_filter_open(file.expression().c_str(), &error), nullptr) << each.geojson;
        EXPECT_NE(std::string(error.text).find(each.text), std::string::npos) << error.text;
        EXPECT_EQ(error.position, 7U);
    }
}

TEST(Filters, TellWhatHasTwoMeanings) {
    char text[500];
    const auto ambiguities = [&](const char *expression) {
        const uint64_t length = ast_filter_get_ambiguities(text, sizeof text, filter(expression).get());
        EXPECT_EQ(length, std::strlen(text));
        return std::string(text);
    };
    EXPECT_EQ(ambiguities("I140>1000 or I140<5").find("I140 is Time of Day (s) in "), 0U);
    EXPECT_NE(ambiguities("I140>1000").find("; Geometric Height (ft) in 021"), std::string::npos);
    EXPECT_EQ(ambiguities("I048/140>1000"), "");
    EXPECT_EQ(ambiguities("I010/SIC=7"), "");
    EXPECT_EQ(ast_filter_get_ambiguities(text, sizeof text, nullptr), 0U);
}

} // namespace

} // namespace ast_test
