// Two ways to the same block: by the tables of a profile, and by asking it for every item. Both decode and split the
// block, and all four agree on what it holds and report the same. The input is the octets of a block.

#include <array>
#include <string>

#include "splits.hpp"

namespace ast_fuzz {

namespace {

std::vector<std::string> reports;

int32_t keep_report(uint32_t level, const char *message) {
    reports.push_back(std::to_string(level) + message);
    return 0;
}

// A profile of the caller's that answers as an exported one does.
template <size_t I>
constexpr ast_uap_t kTwin = {
    [](uint32_t category) { return profiles()[I]->max_frn(category); },
    [](uint32_t category, uint32_t frn) { return profiles()[I]->get_dataitem(category, frn); },
};

template <size_t... I>
constexpr std::array<ast_uap_t, sizeof...(I)> all_twins(std::index_sequence<I...>) {
    return {kTwin<I>...};
}

constexpr auto kTwins = all_twins(std::make_index_sequence<10>());

struct Decoded {
    ast_datablock_t block;
    std::vector<std::string> reports;
};

// The storage of the result is used again and again, and begins with octets that are not 0.
Decoded &decode(Decoded &decoded, Octets octets, const ast_uap_t &uap) {
    reports.clear();
    ast_datablock_decode_into(&decoded.block, octets.data(), octets.size(), uap);
    decoded.reports = reports;
    return decoded;
}

struct Reported : Split {
    std::vector<std::string> reports;
};

Reported &split(Reported &result, Octets octets, const ast_uap_t *uap) {
    reports.clear();
    const bool valid = ast_datablock_split(result.fresh(), octets.data(), octets.size(), uap);
    require(valid == result.split.valid && valid == (result.split.reason == AST_SPLIT_WHOLE),
            "a split block breaks off for no reason, or goes on for one");
    require(valid || result.split.end <= octets.size(), "a split block breaks off behind what is available");
    result.reports = reports;
    return result;
}

bool same(const ast_datarecord_t &one, const ast_datarecord_t &other) {
    return one.data == other.data && one.size == other.size && one.category == other.category &&
           one.fspec.data == other.fspec.data && one.fspec.length == other.fspec.length &&
           one.fspec.frn_count == other.fspec.frn_count && one.fspec.item_count == other.fspec.item_count &&
           one.fspec.valid == other.fspec.valid && one.valid == other.valid &&
           std::equal(one.items, one.items + one.item_count, other.items, other.items + other.item_count, same_item);
}

bool same(const ast_datablock_t &one, const ast_datablock_t &other) {
    return one.data == other.data && one.length == other.length && one.category == other.category &&
           one.records_data == other.records_data && one.records_length == other.records_length &&
           one.valid == other.valid &&
           std::equal(one.records, one.records + one.record_count, other.records, other.records + other.record_count,
                      [](const auto &a, const auto &b) { return same(a, b); });
}

bool same(const ast_split_item_t &one, const ast_split_item_t &other) {
    return one.type == other.type && one.offset == other.offset && one.size == other.size;
}

bool same(const ast_split_record_t &one, const ast_split_record_t &other) {
    return one.offset == other.offset && one.size == other.size && one.first_item == other.first_item &&
           one.item_count == other.item_count;
}

bool same(const ast_split_t &one, const ast_split_t &other) {
    const auto items_of = [](const ast_split_t &split) {
        return std::span(split.items, split.item_count + split.broken.item_count);
    };
    const auto records_of = [](const ast_split_t &split) { return std::span(split.records, split.record_count); };
    const auto are_same = [](const auto &a, const auto &b) { return same(a, b); };
    return one.category == other.category && one.length == other.length && one.reason == other.reason &&
           one.end == other.end && one.broken_frn == other.broken_frn && one.broken_type == other.broken_type &&
           same(one.broken, other.broken) && std::ranges::equal(items_of(one), items_of(other), are_same) &&
           std::ranges::equal(records_of(one), records_of(other), are_same);
}

void check_ways(Octets octets) {
    static Decoded by_table, by_asking; // large
    static Reported split_by_table, split_by_asking;
    std::memset(static_cast<void *>(by_table.block.records), 0xA5, sizeof by_table.block.records[0]);
    for (size_t i = 0; i < kTwins.size(); ++i) {
        const ast_uap_t &uap = *profiles()[i];
        decode(by_table, octets, uap);
        decode(by_asking, octets, kTwins[i]);
        require(same(by_table.block, by_asking.block), "a block depends on the way in which it is decoded");
        require(by_table.reports == by_asking.reports, "reports depend on the way in which a block is decoded");

        split(split_by_table, octets, &uap);
        split(split_by_asking, octets, &kTwins[i]);
        require(same(split_by_table.split, split_by_asking.split), "a block depends on the way in which it is split");
        require(split_by_table.reports == split_by_asking.reports, "reports depend on the way a block is split");

        require(has_records_of(split_by_table.split, by_table.block), "a split block lacks records of the decoded one");
        if (is_full(by_table.block, split_by_table.split)) continue;
        require(split_by_table.split.valid == by_table.block.valid &&
                    split_by_table.split.record_count == by_table.block.record_count,
                "a split block has other records than the decoded one");
        require(split_by_table.reports == by_table.reports, "a split block is reported otherwise than a decoded one");
    }
}

// The choice finds a profile wherever one fits.
void check_choice(Octets octets) {
    static Decoded chosen; // large
    static Reported split_chosen;
    split_chosen.split.remembered = nullptr;
    split(split_chosen, octets, nullptr);
    for (const ast_uap_t *const uap : profiles()) {
        decode(chosen, octets, *uap);
        require(!chosen.block.valid || split_chosen.split.valid, "the choice of a profile misses one that fits");
    }
}

} // namespace

void run(Input input) {
    ast_log_handler_reg(keep_report);
    for (const uint32_t options : {uint32_t{0}, AST_OPTION_ALLOW_EMPTY_FSPEC}) {
        ast_library_set_option(options);
        check_ways(input.rest());
        check_choice(input.rest());
        ast_library_reset_option();
    }
}

} // namespace ast_fuzz
