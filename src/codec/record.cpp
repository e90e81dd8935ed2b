// Records: an FSPEC and the items that it announces, found through a profile and sized by type.

#include "codec/record.hpp"

#include <cstring>
#include <iterator>

#include "codec/fspec.hpp"
#include "codec/item.hpp"

namespace {

using namespace ast;

const ast_dataitem_src_t *find_source(const ast_dataitem_src_t *sources, uint64_t count, ast_dataitem_type_t type) {
    for (uint64_t i = 0; i < count; ++i)
        if (sources[i].type == type) return &sources[i];
    return nullptr;
}

// An item count that the caller filled in, as far as its array reaches.
uint64_t listed(uint64_t count) { return std::min<uint64_t>(count, AST_DATARECORD_MAX_ITEMS); }

// The sources of a record by FRN under its profile, in ascending order.
template <typename Visitor>
void each_source(const ast_datarecord_src_t &record, uint32_t max_frn, Visitor visit) {
    for (uint32_t frn = 1; frn <= max_frn; ++frn) {
        const ast_dataitem_type_t type = ast_uap_get_dataitem(&record.uap, record.category, frn);
        if (type == AST_DATAITEM_NONE) continue;
        const ast_dataitem_src_t *const source = find_source(record.items, listed(record.item_count), type);
        if (source && !visit(frn, *source)) return;
    }
}

// The highest FRN of a profile, as far as a record can reach: beyond it no FSPEC fits a block.
uint32_t max_frn_of(const ast_datarecord_src_t &record) {
    constexpr uint32_t kHighestFrn = kFrnsPerOctet * kMaxBlockOctets;
    return std::min(ast_uap_max_frn(&record.uap, record.category), kHighestFrn);
}

// Writes the FSPEC of a record and returns its length, 0 when there is nothing to announce or no room for it.
uint64_t encode_fspec(uint8_t *buffer, uint64_t length, const ast_datarecord_src_t &record, uint32_t max_frn) {
    uint64_t octets = 0;
    bool fits = true;
    each_source(record, max_frn, [&](uint32_t frn, const ast_dataitem_src_t &) {
        const uint64_t needed = (frn - 1) / kFrnsPerOctet + 1;
        fits = needed <= length;
        if (!fits) return false;
        for (; octets < needed; ++octets) buffer[octets] = kFx;
        return ast_fspec_set(buffer, octets, frn, true);
    });
    if (octets == 0 || !fits) return 0;
    buffer[octets - 1] = static_cast<uint8_t>(buffer[octets - 1] & ~kFx);
    return octets;
}

// The frame that copies and modified records share: the source's FSPEC, then each of its items as `put_item` writes it.
template <typename PutItem>
ast_datarecord_t rewrite(uint8_t *buffer, uint64_t length, const ast_datarecord_t &source, PutItem put_item) {
    ast_datarecord_t result{};
    result.data = buffer;
    result.category = source.category;
    result.uap = source.uap;
    result.item_count = source.item_count;
    if (!source.valid || source.item_count > std::size(source.items)) return result;

    result.fspec = ast_fspec_copy(buffer, length, &source.fspec);
    if (!result.fspec.valid) return result;
    uint64_t offset = result.fspec.length;
    for (uint64_t i = 0; i < source.item_count; ++i) {
        result.items[i] = put_item(buffer + offset, length - offset, source.items[i]);
        if (!result.items[i].valid) return result;
        offset += result.items[i].size;
    }
    result.size = offset;
    result.valid = true;
    return result;
}

} // namespace

namespace {

// The items of a record, where its user finds them.
class RecordItems {
public:
    explicit RecordItems(ast_datarecord_t &record) : first_(record.items), next_(record.items) {}

    uint64_t room() const { return std::size(ast_datarecord_t{}.items) - count(); }
    uint64_t count() const { return static_cast<uint64_t>(next_ - first_); }
    ast_dataitem_t *next() const { return next_; }
    void take(ast_dataitem_t *next) { next_ = next; }
    static void put(ast_dataitem_t *&next, const uint8_t *data, uint64_t size, ast_dataitem_type_t type,
                    uint64_t left) {
        *next++ = sized_item(data, size, type, left);
    }
    void break_off(uint32_t, const uint8_t *, uint32_t, ast_dataitem_type_t) {} // nobody asks

private:
    const ast_dataitem_t *first_;
    ast_dataitem_t *next_;
};

// The FSPEC at data, all zero unless it is valid.
ast_fspec_t valid_fspec(const uint8_t *data, uint64_t available) {
    const ast_fspec_t fspec = decode_fspec(data, available);
    return fspec.valid ? fspec : ast_fspec_t{};
}

} // namespace

namespace ast {

Announced ask(const Reading &reading, uint32_t frn) {
    // One that is tried among others says nothing of what it does not know.
    const bool knows_all = reading.slots != &kNoSlots && !reading.slots->is_open;
    if (reading.size_item && knows_all &&
        (frn > kFspecWordFrns || reading.slots->slots[bit_of_frn(frn)].type == AST_DATAITEM_NONE))
        return {AST_DATAITEM_NONE, &find_item(AST_DATAITEM_NONE)};
    const ast_dataitem_type_t type = reading.uap->get_dataitem(reading.category, frn);
    const uint32_t number = type - AST_DATAITEM_TYPE(reading.category, 0);
    return {type, number < kItemNumbers ? &find_item(*reading.own, number) : &find_item(type)};
}

uint32_t reason_of(const ItemRow &row, ast_dataitem_type_t type, uint64_t size, uint64_t left) {
    const SizeRule::Kind kind = row.handlers.size.kind;
    if (kind == SizeRule::Kind::None) return type == AST_DATAITEM_NONE ? AST_SPLIT_NO_ITEM : AST_SPLIT_UNSUPPORTED;
    const bool says_none = kind == SizeRule::Kind::Explicit && size == 0 && left != 0;
    return says_none ? AST_SPLIT_NO_LENGTH : AST_SPLIT_ITEM_CUT;
}

void decode_record(ast_datarecord_t &record, const uint8_t *data, uint64_t available, const Reading &reading) {
    RecordItems items(record);
    const RecordSize read = read_record(reading, data, available, items);
    record.data = data;
    record.size = read.octets;
    record.category = reading.category;
    record.uap = *reading.uap;
    record.item_count = items.count();
    record.valid = read.octets != 0;
    record.fspec = {data, read.fspec_octets, read.fspec_octets * kFrnsPerOctet, items.count(), true};
    if (!record.valid) [[unlikely]]
        record.fspec = valid_fspec(data, available);
}

} // namespace ast

ast_datarecord_t ast_datarecord_decode(const uint8_t *data, uint64_t available, uint32_t category, ast_uap_t uap) {
    ast_datarecord_t record{};
    decode_record(record, data, data ? std::min(available, kMaxAvailable) : 0, Reading(category, uap));
    return record;
}

ast_datarecord_t ast_datarecord_encode(uint8_t *buffer, uint64_t length, const ast_datarecord_src_t *source) {
    ast_datarecord_t result{};
    result.data = buffer;
    if (!source) return result;
    result.category = source->category;
    result.uap = source->uap;
    result.item_count = source->item_count;
    if (!buffer) return result;

    const uint32_t max_frn = max_frn_of(*source);
    const uint64_t fspec_length = encode_fspec(buffer, length, *source, max_frn);
    if (fspec_length == 0) {
        ast_log(AST_LOG_DEBUG, "Failed to encode FSPEC.");
        return result;
    }

    uint64_t offset = fspec_length;
    result.valid = true;
    each_source(*source, max_frn, [&](uint32_t, const ast_dataitem_src_t &item_source) {
        const ast_dataitem_t item = ast_dataitem_encode(buffer + offset, length - offset, &item_source);
        if (!item.valid) {
            ast_log(AST_LOG_DEBUG, "Failed to encode dataitem %s.", ast_dataitem_type_to_str(item_source.type));
            return result.valid = false;
        }
        offset += item.size;
        return true;
    });
    if (result.valid) result.size = offset;
    return result;
}

ast_datarecord_t ast_datarecord_copy(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source) {
    if (!source) return {};
    const bool fits = source->size <= length;
    ast_datarecord_t copy =
        rewrite(buffer, fits ? length : 0, *source, [](uint8_t *to, uint64_t room, const ast_dataitem_t &item) {
            return ast_dataitem_copy(to, room, &item);
        });
    if (copy.size != source->size) {
        copy.size = 0;
        copy.valid = false;
    }
    return copy;
}

ast_datarecord_t ast_datarecord_modify(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source,
                                       const ast_dataitem_src_list_t *replacements) {
    if (!source) return {};
    return rewrite(buffer, length, *source, [&](uint8_t *to, uint64_t room, const ast_dataitem_t &item) {
        const ast_dataitem_src_t *const value =
            replacements ? find_source(replacements->items, listed(replacements->item_count), item.type) : nullptr;
        return value ? ast_dataitem_encode(to, room, value) : ast_dataitem_copy(to, room, &item);
    });
}
