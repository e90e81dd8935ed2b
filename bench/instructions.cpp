// Reads one record many times in one of the ways there are, so that an instruction counter can tell what a call costs:
// scripts/instructions runs it under callgrind. The record `none` has no octets.
//
// Prints the number of calls and of the record's items.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "records.hpp"

namespace {

constexpr int kCalls = 100;
constexpr bench::Sample kNone = {"none", {}, 48, &AST_UAP_STANDARD, 0};

const bench::Sample *find_sample(std::string_view name) {
    if (name == kNone.name) return &kNone;
    const auto named = [&](const bench::Sample &sample) { return name == sample.name; };
    const auto found = std::find_if(bench::kSamples.begin(), bench::kSamples.end(), named);
    return found == bench::kSamples.end() ? nullptr : &*found;
}

// Each reads the record, alone or in a block of its own, and returns how many items it found.

uint64_t decode_record(const bench::Sample &sample, const std::vector<uint8_t> &) {
    return ast_datarecord_decode(sample.octets.data(), sample.octets.size(), sample.category, *sample.uap).item_count;
}

uint64_t decode_into(const bench::Sample &sample, const std::vector<uint8_t> &block) {
    static ast_datablock_t decoded; // large
    ast_datablock_decode_into(&decoded, block.data(), block.size(), *sample.uap);
    return decoded.record_count == 0 ? 0 : decoded.records[0].item_count;
}

uint64_t split(const bench::Sample &sample, const std::vector<uint8_t> &block) {
    ast_split_record_t records[1];
    ast_split_item_t items[AST_DATARECORD_MAX_ITEMS];
    ast_split_t split = {.records = records, .record_room = 1, .items = items, .item_room = std::size(items)};
    ast_datablock_split(&split, block.data(), block.size(), sample.uap);
    return split.item_count;
}

// The decoded record as a line.
const std::vector<char> &json_of(const bench::Sample &sample) {
    static const ast_datarecord_t record =
        ast_datarecord_decode(sample.octets.data(), sample.octets.size(), sample.category, *sample.uap);
    static std::vector<char> text(65536);
    ast_datarecord_to_json(text.data(), text.size(), &record, nullptr);
    return text;
}

uint64_t to_json(const bench::Sample &sample, const std::vector<uint8_t> &) {
    return json_of(sample)[0] == '{' ? sample.item_count : 0;
}

uint64_t from_json(const bench::Sample &sample, const std::vector<uint8_t> &) {
    static const std::vector<char> text = json_of(sample);
    uint8_t octets[1024];
    return ast_datarecord_from_json(octets, sizeof octets, text.data(), std::strlen(text.data())).valid
               ? sample.item_count
               : UINT64_MAX;
}

// What the decoded record answers, with the time of its reception.
uint64_t get_answers(const bench::Sample &sample, const std::vector<uint8_t> &) {
    static const ast_datarecord_t record =
        ast_datarecord_decode(sample.octets.data(), sample.octets.size(), sample.category, *sample.uap);
    constexpr ast_answer_context_t kContext = {
        .has_reception = true, .reception_ns = 1'700'000'000'000'000'000, .reserved = {}};
    ast_answers_t answers;
    return (ast_datarecord_get_answers(&record, &kContext, &answers) != 0) == record.valid ? sample.item_count
                                                                                           : UINT64_MAX;
}

struct Way {
    const char *name;
    uint64_t (*read)(const bench::Sample &sample, const std::vector<uint8_t> &block);
};

constexpr Way kWays[] = {
    {"ast_datarecord_decode", decode_record}, {"ast_datablock_decode_into", decode_into},
    {"ast_datablock_split", split},           {"ast_datarecord_to_json", to_json},
    {"ast_datarecord_from_json", from_json},  {"ast_datarecord_get_answers", get_answers},
};

} // namespace

int main(int argc, char **argv) {
    const bench::Sample *const sample = argc == 3 ? find_sample(argv[2]) : nullptr;
    const Way *const way = argc == 3
                               ? std::find_if(std::begin(kWays), std::end(kWays),
                                              [&](const Way &one) { return std::string_view(argv[1]) == one.name; })
                               : std::end(kWays);
    if (!sample || way == std::end(kWays)) {
        std::fputs("usage: ast_instructions FUNCTION none|048|062|021\n", stderr);
        return EXIT_FAILURE;
    }
    const std::vector<uint8_t> block = bench::block_of(*sample, 1);
    for (int i = 0; i < kCalls; ++i)
        if (way->read(*sample, block) != sample->item_count) return EXIT_FAILURE;
    std::printf("%d %d\n", kCalls, static_cast<int>(sample->item_count));
}
