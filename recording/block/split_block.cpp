#include "block/split_block.hpp"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

#include "framing/block_header.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

constexpr uint64_t kNoRecord = std::numeric_limits<uint64_t>::max();

} // namespace

Records::Records() : made_(kNoRecord) {}

// A record and an item take an octet at least.
void Records::make_room(uint64_t octets) {
    if (octets <= split_.item_room) return;
    const auto room = static_cast<size_t>(std::bit_ceil(octets));
    auto records = std::make_unique_for_overwrite<ast_split_record_t[]>(room);
    items_ = std::make_unique_for_overwrite<ast_split_item_t[]>(room);
    records_ = std::move(records);
    split_.records = records_.get();
    split_.record_room = room;
    split_.items = items_.get();
    split_.item_room = room;
}

bool Records::read(EditionMemory &editions, Octets octets, ast_reader_result_t &result) {
    made_ = kNoRecord;
    make_room(octets.size());
    if (!editions.split(split_, octets, result)) result.end = split_.end;
    if (split_.item_count + split_.broken.item_count <= AST_DATARECORD_MAX_ITEMS) return result.valid;
    const auto is_overfull = [](const ast_split_record_t &record) {
        return record.item_count > AST_DATARECORD_MAX_ITEMS;
    };
    const std::span records(split_.records, static_cast<size_t>(split_.record_count));
    const auto overfull = std::ranges::find_if(records, is_overfull);
    if (overfull != records.end()) {
        split_.record_count = static_cast<uint64_t>(overfull - records.begin());
        split_.broken = *overfull;
    }
    if (!is_overfull(split_.broken)) return result.valid;
    result.valid = false;
    result.reason = AST_SPLIT_NO_ROOM;
    result.end = split_.items[split_.broken.first_item + AST_DATARECORD_MAX_ITEMS].offset;
    result.broken_frn = 0;
    result.broken_type = AST_DATAITEM_NONE;
    split_.broken.item_count = AST_DATARECORD_MAX_ITEMS;
    return false;
}

uint64_t Records::octets_of(uint64_t count) const {
    if (count == 0) return kBlockHeaderOctets;
    const ast_split_record_t &last = split_.records[count - 1];
    return uint64_t{last.offset} + last.size;
}

ast_datarecord_t Records::incomplete() const {
    ast_datarecord_t record{};
    if (split_.broken.uap) fill(record, split_.broken);
    record.size = 0;
    record.valid = false;
    return record;
}

void Records::make(uint64_t number) const {
    fill(record_, split_.records[number]);
    made_ = number;
}

void Records::fill(ast_datarecord_t &record, const ast_split_record_t &from) const {
    constexpr uint64_t kMostFollowing = 255;
    const uint64_t behind = split_.length - from.offset;
    record.data = split_.data + from.offset;
    record.size = from.size;
    record.category = split_.category;
    record.uap = *from.uap;
    record.fspec = ast_fspec_decode(record.data, behind);
    record.item_count = from.item_count;
    record.valid = true;
    ast_dataitem_t *to = record.items;
    for (const ast_split_item_t &item : std::span(split_.items + from.first_item, from.item_count)) {
        const uint64_t end = uint64_t{item.offset} + item.size;
        *to++ = {.data = split_.data + item.offset,
                 .size = item.size,
                 .type = item.type,
                 .valid = true,
                 .following = static_cast<uint8_t>(std::min(split_.available - end, kMostFollowing))};
    }
}

void SplitBlock::read(EditionMemory &editions, Octets octets) {
    valid = records.read(editions, octets, result);
    category = result.category;
    record_count = records.split_.record_count;
    uap = result.uap;
    profile = is_known_category(category) ? Profile{result.profile, result.edition, result.ambiguous} : Profile{};
}

} // namespace ast::recording
