// Blocks: a category, a length, and records back to back.

#include <algorithm>
#include <atomic>
#include <cstring>
#include <iterator>

#include "codec/block.hpp"

namespace {

using namespace ast;

// The profile that smart decoding starts with: the one that it used last, in any thread. Null before the first time.
std::atomic<const ast_uap_t *> current_profile{nullptr};

void write_header(uint8_t *buffer, uint32_t category, uint64_t length) {
    buffer[0] = static_cast<uint8_t>(category);
    write_u16(buffer + 1, static_cast<uint32_t>(length));
}

void log_surplus() {
    constexpr uint32_t kLimit = AST_DATABLOCK_MAX_RECORDS;
    ast_log(AST_LOG_PANIC, "Number of datarecords %zu exceeds the limit %u.", size_t{kLimit} + 1, kLimit);
}

// Sets a block to what it is before its records are read; these are left as they are. False when LEN does not fit what
// is available.
bool start(ast_datablock_t &block, const uint8_t *data, uint64_t available, const ast_uap_t &uap) {
    const bool has_header = data && available >= kBlockHeaderOctets;
    const uint64_t length = has_header ? read_u16(data + 1) : 0;
    const bool fits = has_header && length <= available;
    block.data = data;
    block.length = fits ? length : 0;
    block.category = has_header ? data[0] : 0;
    block.uap = uap;
    block.records_data = data ? data + kBlockHeaderOctets : nullptr;
    block.records_length = fits && length >= kBlockHeaderOctets ? length - kBlockHeaderOctets : 0;
    block.record_count = 0;
    block.valid = false;
    return fits;
}

// Whether a record can be decoded that there is no room for.
[[gnu::noinline]] bool is_record(const uint8_t *data, uint64_t available, const Reading &reading) {
    ast_datarecord_t record{};
    decode_record(record, data, std::min(available, kMaxAvailable), reading);
    return record.valid;
}

// Decodes the records of a block. A record more than the block has room for is told to `report_surplus`. One that does
// not decode is cleared, so that a block that was all zero has nothing behind its count.
template <typename Choose, typename Report>
void read_records(ast_datablock_t &block, uint64_t available, Choose choose, Report report_surplus) {
    const auto take = [&](const uint8_t *data, uint64_t left, const Reading &reading) -> uint64_t {
        if (block.record_count == std::size(block.records)) [[unlikely]] {
            if (is_record(data, left, reading)) report_surplus();
            return 0;
        }
        ast_datarecord_t &record = block.records[block.record_count];
        decode_record(record, data, left, reading);
        if (!record.valid) {
            record = {};
            return 0;
        }
        ++block.record_count;
        return record.size;
    };
    block.valid = walk_records(block.data, block.length, available, choose, take) == block.length;
}

void decode(ast_datablock_t &block, const uint8_t *data, uint64_t available, const ast_uap_t &uap) {
    if (!start(block, data, available, uap)) return;
    const Reading reading(block.category, uap);
    read_records(block, std::min(available, kMaxAvailable), always(reading), [&] {
        log_surplus();
        ast_log_binary_data(AST_LOG_DEBUG, data, available);
    });
}

// Clears the records of an attempt before the next one, which may have fewer.
void forget_records(ast_datablock_t &block) {
    std::memset(static_cast<void *>(block.records), 0,
                static_cast<size_t>(block.record_count) * sizeof block.records[0]);
}

} // namespace

namespace ast {

void decode_block(ast_datablock_t &block, const uint8_t *data, uint64_t available, const Reading &reading) {
    if (!start(block, data, available, *reading.uap)) return;
    read_records(block, std::min(available, kMaxAvailable), always(reading), log_surplus);
}

void decode_block(ast_datablock_t &block, const uint8_t *data, uint64_t available, const ChosenByRecord &choice) {
    if (!start(block, data, available, AST_UAP_STANDARD)) return;
    read_records(block, std::min(available, kMaxAvailable), choice, log_surplus);
}

void decode_mixed(ast_datablock_t &block, const uint8_t *data, uint64_t available, const Category &category) {
    const bool is_own = data && available >= kBlockHeaderOctets && data[0] == category.number;
    if (!start(block, data, is_own ? available : 0, AST_UAP_STANDARD)) {
        if (data && available >= kBlockHeaderOctets) block.category = data[0];
        return;
    }
    read_records(block, std::min(available, kMaxAvailable), ChosenByRecord(category), log_surplus);
}

} // namespace ast

void ast_datablock_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available, ast_uap_t uap) {
    if (block) decode(*block, data, available, uap);
}

void ast_datablock_smart_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available) {
    if (!block) return;
    if (!data || available < kBlockHeaderOctets) {
        start(*block, nullptr, 0, {});
        return;
    }
    const Category &category = find_category(data[0]);
    if (category.choose_profile) {
        decode_mixed(*block, data, available, category);
        if (block->valid) return;
        forget_records(*block);
    }
    const ast_uap_t *const last = current_profile.load(std::memory_order_relaxed);
    const ast_uap_t *const first = last ? last : &AST_UAP_STANDARD;
    current_profile.store(first, std::memory_order_relaxed);
    decode(*block, data, available, *first);
    for (const Profile *const profile : kProfiles) {
        if (block->valid) return;
        forget_records(*block);
        current_profile.store(profile->object, std::memory_order_relaxed);
        decode(*block, data, available, *profile->object);
    }
}

ast_datablock_t ast_datablock_decode(const uint8_t *data, uint64_t available, ast_uap_t uap) {
    ast_datablock_t block{};
    ast_datablock_decode_into(&block, data, available, uap);
    return block;
}

ast_datablock_t ast_datablock_smart_decode(const uint8_t *data, uint64_t available) {
    ast_datablock_t block{};
    ast_datablock_smart_decode_into(&block, data, available);
    return block;
}

namespace {

// The frame that encoded and modified blocks share: a header, and as many records as the source has, each written by
// `put_record(index, buffer, room)`. The length of a block that fails is that of what was written.
template <typename Source, typename PutRecord>
ast_datablock_t write_block(uint8_t *buffer, uint64_t length, const Source &source, bool may_be_written,
                            PutRecord put_record) {
    ast_datablock_t block{};
    block.data = buffer;
    block.length = kBlockHeaderOctets;
    block.category = source.category;
    block.uap = source.uap;
    block.record_count = source.record_count;
    if (!buffer || length < kBlockHeaderOctets) return block;
    block.records_data = buffer + kBlockHeaderOctets;
    if (!may_be_written || source.record_count > std::size(source.records)) return block;

    for (uint64_t i = 0; i < source.record_count; ++i) {
        block.records[i] = put_record(i, buffer + block.length, length - block.length);
        if (!block.records[i].valid) return block;
        block.records_length += block.records[i].size;
        block.length = block.records_length + kBlockHeaderOctets;
    }
    if (block.length > kMaxBlockOctets) return block;
    write_header(buffer, source.category, block.length);
    block.valid = true;
    return block;
}

// What a block looks like that cannot be written for want of a source.
ast_datablock_t empty_block(uint8_t *buffer) {
    ast_datablock_t block{};
    block.data = buffer;
    block.length = kBlockHeaderOctets;
    return block;
}

} // namespace

ast_datablock_t ast_datablock_encode(uint8_t *buffer, uint64_t length, const ast_datablock_src_t *source) {
    if (!source) return empty_block(buffer);
    const auto put_record = [&](uint64_t i, uint8_t *to, uint64_t room) {
        const ast_datarecord_src_t &record = source->records[i];
        return record.category == source->category ? ast_datarecord_encode(to, room, &record) : ast_datarecord_t{};
    };
    return write_block(buffer, length, *source, source->record_count != 0, put_record);
}

ast_datablock_t ast_datablock_modify(uint8_t *buffer, uint64_t length, const ast_datablock_t *source,
                                     const ast_dataitem_src_list_t *replacements) {
    if (!source) return empty_block(buffer);
    const auto put_record = [&](uint64_t i, uint8_t *to, uint64_t room) {
        return ast_datarecord_modify(to, room, &source->records[i], replacements);
    };
    ast_datablock_t block = write_block(buffer, length, *source, source->valid, put_record);
    if (!block.valid) block.length = kBlockHeaderOctets;
    return block;
}

uint64_t ast_datablock_begin(uint8_t *buffer, uint64_t length, uint32_t category) {
    if (!buffer || length < kBlockHeaderOctets || category > UINT8_MAX) return 0;
    write_header(buffer, category, kBlockHeaderOctets);
    return kBlockHeaderOctets;
}

uint64_t ast_datablock_append(uint8_t *buffer, uint64_t length, const uint8_t *record, uint64_t size) {
    if (!buffer || length < kBlockHeaderOctets || !record || size == 0) return 0;
    const uint64_t begun = read_u16(buffer + 1);
    const uint64_t limit = std::min(length, kMaxBlockOctets);
    if (begun < kBlockHeaderOctets || begun > limit || size > limit - begun) return 0;
    std::memmove(buffer + begun, record, static_cast<size_t>(size)); // the record may stand in the buffer
    write_u16(buffer + 1, static_cast<uint32_t>(begun + size));
    return begun + size;
}
