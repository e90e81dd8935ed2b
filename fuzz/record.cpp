// Records, and what can be asked of them. The input chooses a category, a profile and a keyword's pattern; the octets
// of a record follow.

#include <array>
#include <utility>

#include "harness.hpp"
#include "records.hpp"
#include "value_decoders.hpp"

namespace ast_fuzz {

namespace {

void ask_accessors(const ast_datarecord_t &record) {
    ast_datarecord_get_sacsic(&record);
    ast_datarecord_get_timeofday(&record);
    ast_datarecord_get_msgtype(&record);
    ast_datarecord_get_tracknum(&record);
    ast_datarecord_get_squawk(&record);
    const ast_aircraft_id_t callsign = ast_datarecord_get_callsign(&record);
    require(strnlen(callsign.text, sizeof callsign.text) < sizeof callsign.text, "a callsign is not terminated");
    ast_datarecord_get_icaoaddr(&record);
    ast_datarecord_get_wgs84coord(&record);
    ast_datarecord_get_flightlevel(&record);
    ast_datarecord_get_selaltitude(&record);
    ast_datarecord_get_polarcoord(&record);
    ast_datarecord_get_heading(&record);
    ast_datarecord_get_speed(&record);
    ast_datarecord_get_cartesianvel(&record);
    ast_datarecord_get_vrate(&record);
}

// A value that is shown matches itself, however it is written.
void ask_keywords(const ast_datarecord_t &record, const char *pattern) {
    for (uint32_t keyword = 0; keyword <= AST_KEYWORDS; ++keyword) {
        const bool contains = ast_datarecord_contain_keyword(&record, keyword);
        for (const bool case_sensitive : {false, true}) {
            const bool matches = ast_datarecord_match_keyword(&record, keyword, pattern, case_sensitive);
            require(!matches || contains || keyword == AST_KEYWORD_SACSIC, "a keyword matches without a value");
        }
        for (uint32_t format = 0; format <= AST_POSITION_DEGREES + 1; ++format) {
            char text[128];
            ast_datarecord_get_keyword(text, sizeof text, &record, keyword, format);
            require(strnlen(text, sizeof text) < sizeof text, "the value of a keyword is not terminated");
        }
    }
}

void reassemble(const ast_datarecord_t &record) {
    for (const FlatRecord &flat : kFlatRecords) {
        std::vector<uint8_t> buffer = buffer_of(record.size);
        const ast_datarecord_t again = flat.reassemble(record, buffer.data(), buffer.size());
        if (!again.valid) continue;
        require(again.size <= buffer.size(), "an assembled record is longer than its buffer");
        const ast_datarecord_t decoded = ast_datarecord_decode(buffer.data(), again.size, record.category, record.uap);
        require(decoded.valid && decoded.size == again.size, "an assembled record does not decode");
    }
}

// Whatever a record is converted into is a record, and so is what comes back of it.
void convert(const ast_datarecord_t &record) {
    using Conversion = ast_datarecord_t(uint8_t *, uint64_t, const ast_datarecord_t *);
    static constexpr std::pair<Conversion *, Conversion *> kThereAndBack[] = {
        {ast_datarecord_convert_048_001, ast_datarecord_convert_001_048},
        {ast_datarecord_convert_034_002, ast_datarecord_convert_002_034},
        {ast_datarecord_convert_001_048, ast_datarecord_convert_048_001},
        {ast_datarecord_convert_002_034, ast_datarecord_convert_034_002},
    };
    constexpr uint64_t kRoom = 512;
    for (const auto &[there, back] : kThereAndBack) {
        std::vector<uint8_t> buffer = buffer_of(kRoom);
        const ast_datarecord_t converted = there(buffer.data(), kRoom, &record);
        if (!converted.valid) continue;
        require(record.valid && converted.category != record.category, "a record is converted into itself");
        check_record(converted, converted.size);
        require_untouched_behind(buffer, converted.size);
        std::vector<uint8_t> small = buffer_of(converted.size - 1);
        require(!there(small.data(), small.size(), &record).valid, "a converted record fits a buffer too small for it");
        std::vector<uint8_t> other = buffer_of(kRoom);
        const ast_datarecord_t returned = back(other.data(), kRoom, &converted);
        if (returned.valid) check_record(returned, returned.size);
    }
}

} // namespace

void run(Input input) {
    const uint32_t category = categories()[input.below(categories().size())];
    const ast_uap_t uap = take_profile(input);
    auto pattern = input.number<std::array<char, 8>>();
    pattern.back() = '\0';
    const Octets octets = input.rest();
    const ast_datarecord_t record = ast_datarecord_decode(octets.data(), octets.size(), category, uap);
    check_record(record, octets.size());
    ask_accessors(record);
    ask_keywords(record, pattern.data());
    reassemble(record);
    convert(record);
    if (record.valid) check_rewriting(record);
}

} // namespace ast_fuzz
