// Blocks in a compact form: the places of their records and items.

#include <algorithm>

#include "codec/block.hpp"

namespace {

using namespace ast;

void set_end(ast_split_t &split, uint32_t reason, uint64_t end) {
    split.reason = reason;
    split.end = end;
    split.broken_frn = 0;
    split.broken_type = AST_DATAITEM_NONE;
}

// The items of a record at the end of those that a split block has.
class SplitItems {
public:
    explicit SplitItems(ast_split_t &split) : split_(split), next_(split.items + split.item_count) {}

    uint64_t room() const { return split_.item_room - split_.item_count - count(); }
    uint64_t count() const { return static_cast<uint64_t>(next_ - split_.items) - split_.item_count; }
    ast_split_item_t *next() const { return next_; }
    void take(ast_split_item_t *next) { next_ = next; }
    void put(ast_split_item_t *&next, const uint8_t *data, uint64_t size, ast_dataitem_type_t type, uint64_t) const {
        *next++ = {type, static_cast<uint32_t>(data - split_.data), static_cast<uint32_t>(size)};
    }
    void break_off(uint32_t reason, const uint8_t *at, uint32_t frn, ast_dataitem_type_t type) {
        set_end(split_, reason, static_cast<uint64_t>(at - split_.data));
        split_.broken_frn = frn;
        split_.broken_type = type;
    }

private:
    ast_split_t &split_;
    ast_split_item_t *next_;
};

// Sets the result to what it is before anything is read, and reads CAT and LEN.
bool start(ast_split_t &split, const uint8_t *data, uint64_t available, const ast_uap_t *uap) {
    split.data = data;
    split.available = std::min<uint64_t>(available, UINT32_MAX); // offsets are no longer than that
    split.category = 0;
    split.length = 0;
    split.uap = uap;
    split.record_count = 0;
    split.item_count = 0;
    split.valid = false;
    split.broken = {};
    set_end(split, AST_SPLIT_NO_HEADER, 0);
    if (!data || available < kBlockHeaderOctets) return false;
    split.category = data[0];
    split.length = read_u16(data + 1);
    set_end(split, AST_SPLIT_LENGTH, kBlockHeaderOctets);
    return split.length >= kBlockHeaderOctets && split.length <= available;
}

// Splits a record behind those that there are, and returns its size, 0 when it breaks off.
uint64_t split_record(ast_split_t &split, const uint8_t *data, uint64_t available, const Reading &reading) {
    const auto offset = static_cast<uint32_t>(data - split.data);
    if (split.record_count >= split.record_room) {
        set_end(split, AST_SPLIT_NO_ROOM, offset);
        return 0;
    }
    SplitItems items(split);
    const uint64_t octets = read_record(reading, data, available, items).octets;
    const ast_split_record_t record = {.offset = offset,
                                       .size = static_cast<uint32_t>(octets),
                                       .first_item = static_cast<uint32_t>(split.item_count),
                                       .item_count = static_cast<uint32_t>(items.count()),
                                       .uap = reading.uap};
    if (octets == 0) {
        split.broken = record;
        return 0;
    }
    split.records[split.record_count++] = record;
    split.item_count += record.item_count;
    return octets;
}

template <typename Choose>
void split_records(ast_split_t &split, Choose choose) {
    set_end(split, AST_SPLIT_WHOLE, split.length);
    const auto take = [&](const uint8_t *data, uint64_t left, const Reading &reading) {
        return split_record(split, data, left, reading);
    };
    const uint64_t end = walk_records(split.data, split.length, split.available, choose, take);
    split.valid = end == split.length;
    if (split.valid || split.reason != AST_SPLIT_WHOLE) return;
    set_end(split, end > split.length ? AST_SPLIT_OVERRUN : AST_SPLIT_NO_PROFILE, end);
}

template <typename Choose>
bool split_by(ast_split_t &split, const uint8_t *data, uint64_t available, const ast_uap_t &uap, Choose choose) {
    if (!start(split, data, available, &uap)) return false;
    split_records(split, choose);
    return split.valid;
}

} // namespace

namespace ast {

bool split_block(ast_split_t &split, const uint8_t *data, uint64_t available, const Reading &reading) {
    return split_by(split, data, available, *reading.uap, always(reading));
}

bool split_block(ast_split_t &split, const uint8_t *data, uint64_t available, const ChosenByRecord &choice) {
    return split_by(split, data, available, AST_UAP_STANDARD, choice);
}

} // namespace ast

namespace {

// Given that the octets hold CAT, or nothing is read at all.
bool split_with(ast_split_t &split, const uint8_t *data, uint64_t available, const ast_uap_t &uap) {
    const bool has_category = data && available != 0;
    return split_block(split, data, available, Reading(has_category ? data[0] : kCategoryNumbers, uap));
}

bool split_mixed(ast_split_t &split, const uint8_t *data, uint64_t available) {
    return split_block(split, data, available, ChosenByRecord(find_category(data[0])));
}

// Tries one profile after another and comes back to the one that got furthest when none fits.
bool split_with_any(ast_split_t &split, const uint8_t *data, uint64_t available) {
    const bool is_mixed = find_category(data[0]).choose_profile != nullptr;
    if (is_mixed && split_mixed(split, data, available)) return true;
    uint64_t furthest = is_mixed ? split.end : 0;
    const ast_uap_t *best = nullptr;

    if (!split.remembered) split.remembered = &AST_UAP_STANDARD;
    if (split_with(split, data, available, *split.remembered)) return true;
    for (const Profile *const profile : kProfiles) {
        split.remembered = profile->object;
        if (split_with(split, data, available, *profile->object)) return true;
        if (split.end <= furthest) continue;
        furthest = split.end;
        best = profile->object;
    }
    return best ? split_with(split, data, available, *best) : split_mixed(split, data, available);
}

} // namespace

bool ast_datablock_split(ast_split_t *split, const uint8_t *data, uint64_t available, const ast_uap_t *uap) {
    if (!split) return false;
    if (uap) return split_with(*split, data, available, *uap);
    if (!start(*split, data, available, &AST_UAP_STANDARD)) return false;
    return split_with_any(*split, data, available);
}

ast_dataitem_t ast_split_get_item(const ast_split_t *split, uint64_t place) {
    if (!split || place >= split->item_count + split->broken.item_count) return {};
    const ast_split_item_t &item = split->items[place];
    const uint64_t end = uint64_t{item.offset} + item.size;
    return sized_item(split->data + item.offset, item.size, item.type, split->available - end);
}
