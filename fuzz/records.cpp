#include "records.hpp"

#include <algorithm>
#include <cmath>

namespace ast_fuzz {

namespace {

void check_rewritten(const ast_datarecord_t &record, const ast_datarecord_t &rewritten, const uint8_t *buffer) {
    require(rewritten.valid && rewritten.size == record.size && rewritten.item_count == record.item_count,
            "a record is rewritten as another one");
    require(same_octets(buffer, record.data, record.size), "a record is rewritten in other octets");
}

} // namespace

bool same_octets(const uint8_t *one, const uint8_t *other, uint64_t count) {
    return count == 0 || std::memcmp(one, other, count) == 0;
}

void check_record(const ast_datarecord_t &record, uint64_t available) {
    require(record.item_count <= AST_DATARECORD_MAX_ITEMS, "a record holds more items than there is room for");
    if (!record.fspec.valid) {
        require(!record.valid && record.item_count == 0, "a record without FSPEC holds something");
        return;
    }
    uint64_t offset = record.fspec.length;
    for (uint64_t i = 0; i < record.item_count; ++i) {
        const ast_dataitem_t &item = record.items[i];
        require(item.valid && item.size > 0, "a record holds an item that is not valid");
        require(item.data == record.data + offset, "items do not follow one another");
        offset += item.size;
        require(offset <= available, "an item runs past what is available");
        require(offset + item.following <= available, "fewer octets follow an item than it says");
    }
    require(record.size == (record.valid ? offset : 0), "a record is not as long as its items");
    require(!record.valid || record.item_count == record.fspec.item_count, "a valid record lacks items");
    check_answers(record);
    check_places(record);
}

void check_answers(const ast_datarecord_t &record) {
    constexpr uint64_t kOfReception = AST_ANSWER_TIMESTAMP | AST_ANSWER_TIME; // time: of a truncated one
    ast_answer_context_t context{};
    ast_answers_t answers;
    const uint64_t bare = ast_datarecord_get_answers(&record, nullptr, &answers);
    require((bare >> AST_ANSWERS) == 0 && (bare == 0 || record.valid), "a record answers what it cannot");
    require(!ast_datarecord_is_implausible(&record) || record.valid, "a record that is not valid is implausible");
    context.has_reception = true;
    for (const int64_t reception_ns : {INT64_MIN, INT64_C(0), INT64_C(1'700'006'400'000'000'000), INT64_MAX}) {
        context.reception_ns = reception_ns;
        const uint64_t present = ast_datarecord_get_answers(&record, &context, &answers);
        require(((present ^ bare) & ~kOfReception) == 0, "reception changes an answer");
        require(answers.time_of_day_s >= 0 && answers.time_of_day_s < 24 * 60 * 60, "a time of day is none");
        require(answers.latitude_deg >= -90 && answers.latitude_deg <= 90, "a latitude is off the globe");
        require(answers.track_deg >= 0 && answers.track_deg <= 360, "a track angle is none");
        require(answers.squawk < 010000 && answers.icao24 < 0x1000000, "a code has too many bits");
        require(answers.type < AST_MESSAGES, "a kind of message is none");
        require(std::memchr(answers.callsign, '\0', sizeof answers.callsign), "a callsign does not end");
    }
}

void check_places(const ast_datarecord_t &record) {
    constexpr uint64_t kPosition = AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE;
    ast_answers_t answers;
    const uint64_t present = ast_datarecord_get_answers(&record, nullptr, &answers);
    for (const ast_place_t &place : {ast_place_t{0, 180, 0}, ast_place_t{-90, 0, 780}, ast_place_t{52.5, 13.4, -50}}) {
        ast_site_t site = {
            .sac = answers.sac, .sic = answers.sic, .known = AST_SITE_LEARNT, .place = place, .standard_error_m = 0};
        ast_sites_t sites = {.sites = &site, .room = 1, .count = 1};
        ast_answers_t located = answers;
        const bool is_located = ast_sites_locate(&sites, &located);
        require(located.present == (is_located ? present | kPosition : present), "a place adds another answer");
        require(std::abs(located.latitude_deg) <= 90 && std::abs(located.longitude_deg) <= 180,
                "a place is off the globe");
        require(is_located == (located.located != 0), "a place came about in no way");
        if (ast_sites_learn(&sites, &record))
            require(std::abs(site.place.latitude_deg) <= 90 && std::abs(site.place.longitude_deg) <= 180,
                    "a site is off the globe");
    }
}

void check_records(const ast_datablock_t &block, Octets octets) {
    require(block.record_count <= AST_DATABLOCK_MAX_RECORDS, "a block holds more records than there is room for");
    const uint8_t *next = block.records_data;
    for (uint64_t i = 0; i < block.record_count; ++i) {
        const ast_datarecord_t &record = block.records[i];
        require(record.valid && record.data == next, "records do not follow one another");
        next += record.size;
        require(next <= octets.data() + octets.size(), "a record runs past what is available");
        check_record(record, static_cast<uint64_t>(octets.data() + octets.size() - record.data));
    }
    if (!block.valid) return;
    require(block.length <= octets.size(), "a block is longer than what is available");
    require(next == octets.data() + block.length, "a valid block is not filled by its records");
}

void check_joining(const ast_datablock_t &block) {
    std::vector<uint8_t> buffer = buffer_of(block.length + 1);
    uint64_t length = ast_datablock_begin(buffer.data(), buffer.size(), block.category);
    require(length == 3, "a block does not begin");
    for (uint64_t i = 0; i < block.record_count; ++i) {
        const ast_datarecord_t &record = block.records[i];
        require(ast_datablock_append(buffer.data(), length + record.size - 1, record.data, record.size) == 0,
                "an appended record fits a buffer too small for it");
        const uint64_t longer = ast_datablock_append(buffer.data(), buffer.size(), record.data, record.size);
        require(longer == length + record.size, "a record is not appended");
        length = longer;
    }
    require(length == block.length && same_octets(buffer.data(), block.data, length),
            "the records of a block are put together as another one");
    require_untouched_behind(buffer, length);
}

void check_rewriting(const ast_datarecord_t &record) {
    constexpr ast_dataitem_src_list_t kNothing{};
    for (const uint64_t length : {record.size, record.size + 9}) {
        std::vector<uint8_t> copied = buffer_of(length);
        check_rewritten(record, ast_datarecord_copy(copied.data(), length, &record), copied.data());
        require_untouched_behind(copied, record.size);
        std::vector<uint8_t> modified = buffer_of(length);
        check_rewritten(record, ast_datarecord_modify(modified.data(), length, &record, &kNothing), modified.data());
        require_untouched_behind(modified, record.size);
    }
    std::vector<uint8_t> small = buffer_of(record.size - 1);
    require(!ast_datarecord_copy(small.data(), small.size(), &record).valid, "a record fits a buffer too small for it");
    require(!ast_datarecord_modify(small.data(), small.size(), &record, &kNothing).valid,
            "a modified record fits a buffer too small for it");
}

} // namespace ast_fuzz
