// Readers of the library over blocks of unknown edition: what one of them decodes, splits, counts and learns is the
// same, and it accepts what a profile accepts. The input is blocks one after the other.

#include <map>

#include "harness.hpp"
#include "records.hpp"
#include "splits.hpp"

namespace ast_fuzz {

namespace {

bool same(const ast_reader_result_t &one, const ast_reader_result_t &other) {
    return one.valid == other.valid && one.uap == other.uap && one.profile == other.profile &&
           one.edition == other.edition && one.ambiguous == other.ambiguous && one.category == other.category &&
           one.length == other.length && one.reason == other.reason && one.end == other.end &&
           one.broken_frn == other.broken_frn && one.broken_type == other.broken_type;
}

void check_result(const ast_reader_result_t &result, Octets octets) {
    require(result.valid == (result.reason == AST_SPLIT_WHOLE),
            "a block is read that breaks off, or breaks off nowhere");
    require(!result.valid || (result.end == result.length && result.length <= octets.size()),
            "a valid block does not end with its length");
    require(result.end <= octets.size(), "a block breaks off behind what is available");
    require(result.uap && result.profile && result.edition, "a result lacks a text or a profile");
}

using Counts = std::map<ast_dataitem_type_t, uint64_t>; // of items

Counts items_of(const ast_census_t &census) {
    Counts counts;
    ast_census_get_items(
        &census,
        [](void *all, ast_dataitem_type_t type, uint64_t records) { (*static_cast<Counts *>(all))[type] += records; },
        &counts);
    return counts;
}

Counts items_of(const ast_split_t &split) {
    Counts counts;
    for (uint64_t i = 0; i < split.item_count; ++i) ++counts[split.items[i].type];
    return counts;
}

// A frozen reader counts of a block what it splits it into, or nothing.
void check_census(ast_reader_t reader, Octets octets) {
    static ast_census_t census;
    static Split split;
    ast_reader_result_t result;
    reader.frozen = true;
    ast_census_clear(&census);
    const uint64_t counted = ast_reader_count(&reader, &census, octets.data(), octets.size());
    ast_reader_split(&reader, split.fresh(), octets.data(), octets.size(), &result);
    if (counted == 0) return require(items_of(census).empty(), "what is not counted leaves something behind");
    require(result.valid && counted == result.length, "a block is counted that is not valid");
    require(items_of(census) == items_of(split.split), "a block is counted otherwise than it is split");
    const ast_census_group_t &group = census.groups[0];
    require(group.blocks == 1 && group.records == split.split.record_count && group.items == split.split.item_count &&
                group.octets == counted,
            "a census counts wrongly");
    require(group.category == result.category && group.uap == result.uap && group.profile == result.profile &&
                group.edition == result.edition && group.ambiguous == result.ambiguous,
            "a census takes a block for one of another profile");
}

// Three readers in step, each asked in its own way.
class Readers {
public:
    Readers() {
        for (ast_reader_t *const reader : {&decoding_, &splitting_, &learning_}) ast_reader_init(reader);
    }

    // What the first one says of a block.
    ast_reader_result_t read(Octets octets) {
        static ast_datablock_t block; // large, and used again
        static Split split;
        ast_reader_result_t decoded, splitted, learned;
        ast_reader_decode(&decoding_, &block, octets.data(), octets.size(), &decoded);
        ast_reader_split(&splitting_, split.fresh(), octets.data(), octets.size(), &splitted);
        ast_reader_learn(&learning_, octets.data(), octets.size(), &learned);
        for (const ast_reader_result_t *const result : {&decoded, &splitted, &learned}) check_result(*result, octets);
        check_census(learning_, octets);

        check_records(block, octets);
        require(block.valid == decoded.valid && split.split.valid == splitted.valid,
                "what a reader says of a block is not what it made of it");
        require(has_records_of(split.split, block), "a split block lacks records of the decoded one");
        require(same(splitted, learned), "what is learned of a block depends on whether it is split");
        if (decoded.reason == AST_SPLIT_NO_ROOM) return decoded;
        require(same(decoded, splitted), "a reader splits a block otherwise than it decodes it");
        require(decoded.valid == is_filled(block, split.split), "a split block has other records than the decoded one");
        return decoded;
    }

private:
    static bool is_filled(const ast_datablock_t &block, const ast_split_t &split) {
        return split.valid && split.record_count == block.record_count;
    }

    ast_reader_t decoding_;
    ast_reader_t splitting_;
    ast_reader_t learning_;
};

// Whether a profile takes all items of a block for what is published, or for what nobody has published: a reader does
// not share its rules for subfields that it does not know and chains that do not end.
bool is_as_published(const ast_datablock_t &block) {
    const uint8_t *const end = block.data + block.length;
    for (uint64_t i = 0; i < block.record_count; ++i) {
        const ast_datarecord_t &record = block.records[i];
        for (uint64_t k = 0; k < record.item_count; ++k) {
            const ast_dataitem_t &item = record.items[k];
            const auto left = static_cast<uint64_t>(end - item.data);
            const bool is_described = ast_dataitem_describe(
                item.type, record.uap, [](void *, const ast_field_t *) {}, nullptr);
            if (is_described && ast_dataitem_get_published_size(item.data, left, item.type, record.uap) != item.size)
                return false;
        }
    }
    return true;
}

// A reader finds I001/020 where it is; the mixed profile takes it to stand behind I001/010, which has to be there.
bool has_data_sources(const ast_datablock_t &block) {
    return std::all_of(block.records, block.records + block.record_count,
                       [](const ast_datarecord_t &record) { return ast_fspec_is_set(&record.fspec, 1); });
}

bool is_accepted_by_a_profile(Octets octets) {
    static ast_datablock_t block; // large
    const auto is_accepted = [] { return block.valid && is_as_published(block); };
    ast_datablock_001_mixuap_decode_into(&block, octets.data(), octets.size());
    if (octets[0] == 1 && is_accepted() && has_data_sources(block)) return true;
    return std::ranges::any_of(profiles(), [&](const ast_uap_t *uap) {
        ast_datablock_decode_into(&block, octets.data(), octets.size(), *uap);
        return is_accepted();
    });
}

// Up to LEN, or what is left where LEN says nothing.
Octets first_block(Octets octets) {
    const size_t length = octets.size() < 3 ? 0 : octets[1] * size_t{256} + octets[2];
    return length < 3 || length > octets.size() ? octets : octets.first(length);
}

std::vector<ast_reader_result_t> read_all(Octets octets) {
    std::vector<ast_reader_result_t> results;
    Readers readers;
    while (!octets.empty()) {
        const Octets block = first_block(octets);
        results.push_back(readers.read(block));
        octets = octets.subspan(block.size());
        require(results.back().valid || results.back().reason == AST_SPLIT_NO_ROOM || !is_accepted_by_a_profile(block),
                "a reader refuses a block that a profile accepts");
    }
    return results;
}

} // namespace

void run(Input input) {
    ast_log_handler_reg(nullptr);
    const auto results = read_all(input.rest());
    require(std::ranges::equal(results, read_all(input.rest()), same), "the same blocks are read differently");
}

} // namespace ast_fuzz
