// Decodes one record many times, so that an instruction counter can tell what a decode costs: scripts/instructions runs
// it under callgrind. The record `none` has no octets, so its decode is the call and the zeroing of the result alone.
//
// Prints the number of decodes and of the record's items.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "records.hpp"

namespace {

constexpr int kDecodes = 100;
constexpr bench::Sample kNone = {"none", {}, 48, &AST_UAP_STANDARD, 0};

const bench::Sample *find_sample(std::string_view name) {
    if (name == kNone.name) return &kNone;
    const auto named = [&](const bench::Sample &sample) { return name == sample.name; };
    const auto found = std::find_if(bench::kSamples.begin(), bench::kSamples.end(), named);
    return found == bench::kSamples.end() ? nullptr : &*found;
}

} // namespace

int main(int argc, char **argv) {
    const bench::Sample *const sample = argc == 2 ? find_sample(argv[1]) : nullptr;
    if (!sample) {
        std::fputs("usage: ast_instructions none|048|062|021\n", stderr);
        return EXIT_FAILURE;
    }
    for (int i = 0; i < kDecodes; ++i) {
        const ast_datarecord_t record =
            ast_datarecord_decode(sample->octets.data(), sample->octets.size(), sample->category, *sample->uap);
        if (record.item_count != sample->item_count) return EXIT_FAILURE;
    }
    std::printf("%d %d\n", kDecodes, static_cast<int>(sample->item_count));
}
