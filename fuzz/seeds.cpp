// Writes inputs to start from: for every registered item, what its size rule makes of some octets, on its own and as
// the only item of a record. Inputs of a target go to the directory of its name.
// usage: fuzz_seeds DIRECTORY

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <random>

#include "harness.hpp"

namespace {

using namespace ast_fuzz;
using Bytes = std::vector<uint8_t>;

constexpr uint64_t kMaxSampleOctets = 520; // REP 2 of the longest elements

// First octets that size rules make something of: nothing set, FX chains, REP or LEN, primary subfields with all bits.
const Bytes kBeginnings[] = {{0x00}, {0x01, 0x01, 0x02}, {0x02}, {0x05}, {0xFE}, {0xFF, 0xFF, 0xFF, 0xFF, 0xFE}};

class Directory {
public:
    explicit Directory(std::filesystem::path path) : path_(std::move(path)) {
        std::filesystem::create_directories(path_);
    }

    void write(std::initializer_list<Bytes> pieces) {
        std::ofstream file(path_ / std::to_string(count_++), std::ios::binary);
        for (const Bytes &piece : pieces)
            file.write(reinterpret_cast<const char *>(piece.data()), static_cast<std::streamsize>(piece.size()));
        failed_ = failed_ || !file;
    }

    bool failed() const { return failed_; }

private:
    std::filesystem::path path_;
    uint64_t count_ = 0;
    bool failed_ = false;
};

// A 16-bit number as the targets read it.
Bytes number(size_t value) {
    const auto narrow = static_cast<uint16_t>(value);
    Bytes octets(sizeof narrow);
    std::memcpy(octets.data(), &narrow, sizeof narrow);
    return octets;
}

// An item of the type for each size that comes of the beginnings.
std::vector<Bytes> samples_of(ast_dataitem_type_t type) {
    std::vector<Bytes> samples;
    for (const Bytes &beginning : kBeginnings) {
        Bytes octets = beginning;
        octets.resize(kMaxSampleOctets, 0x11);
        octets.resize(std::min(ast_dataitem_get_size(octets.data(), octets.size(), type), kMaxSampleOctets));
        const auto same_size = [&](const Bytes &other) { return other.size() == octets.size(); };
        if (std::none_of(samples.begin(), samples.end(), same_size)) samples.push_back(octets);
    }
    return samples;
}

// The FSPEC that announces one item of the standard profile; empty when it has no FRN.
Bytes fspec_of(ast_dataitem_type_t type) {
    const uint32_t category = type / 1000;
    for (uint32_t frn = 1; frn <= ast_uap_max_frn(&AST_UAP_STANDARD, category); ++frn) {
        if (ast_uap_get_dataitem(&AST_UAP_STANDARD, category, frn) != type) continue;
        Bytes fspec((frn - 1) / 7 + 1, 0x01);
        ast_fspec_set(fspec.data(), fspec.size(), frn, true);
        fspec.back() = static_cast<uint8_t>(fspec.back() & 0xFE);
        return fspec;
    }
    return {};
}

// Blocks of a category under a profile, whole, with a few other octets in them, or cut: some of the profile's items
// with samples for octets, in the same order each time.
class Blocks {
public:
    Bytes next(uint32_t category, const ast_uap_t &uap) {
        Bytes block = {static_cast<uint8_t>(category), 0, 0};
        for (uint32_t records = 1 + below(4); records > 0; --records) append_record(block, category, uap);
        block[1] = static_cast<uint8_t>(block.size() >> 8);
        block[2] = static_cast<uint8_t>(block.size());
        for (uint32_t changes = below(4); changes > 0; --changes)
            block[kHeaderOctets + below(block.size() - kHeaderOctets)] = static_cast<uint8_t>(below(256));
        if (below(4) == 0) {
            block.resize(kHeaderOctets + below(block.size() - kHeaderOctets));
            block[2] = static_cast<uint8_t>(block.size());
        }
        return block;
    }

private:
    static constexpr uint32_t kHeaderOctets = 3;
    static constexpr uint32_t kMaxFrn = 56;

    uint32_t below(size_t limit) { return static_cast<uint32_t>(random_() % limit); }

    void append_record(Bytes &block, uint32_t category, const ast_uap_t &uap) {
        Bytes items;
        Bytes fspec(1, 0);
        const uint32_t sparsity = 1 + below(6);
        for (uint32_t frn = 1; frn <= kMaxFrn; ++frn) {
            const ast_dataitem_type_t type = below(sparsity) == 0 ? ast_uap_get_dataitem(&uap, category, frn) : 0;
            if (type == AST_DATAITEM_NONE) continue;
            const auto samples = samples_of(type);
            const Bytes &sample = samples[below(samples.size())];
            if (sample.empty() && below(20) != 0) continue; // not supported: the end of the record
            items.insert(items.end(), sample.begin(), sample.end());
            for (; fspec.size() <= (frn - 1) / 7; fspec.push_back(0)) fspec.back() |= 0x01;
            ast_fspec_set(fspec.data(), fspec.size(), frn, true);
        }
        block.insert(block.end(), fspec.begin(), fspec.end());
        block.insert(block.end(), items.begin(), items.end());
    }

    std::mt19937 random_;
};

constexpr int kBlocksOfCategory = 5; // and profile

// The choices in front of a recording: none of the options, and what is made of the rest.
Bytes choices(uint8_t wrapper, uint8_t packing, uint8_t leading) {
    constexpr uint8_t kPayloadOctets = 100, kNothingMissing = 0xFF, kFewSwapped = 9;
    Bytes octets(11);
    octets[7] = wrapper; // blocks up to an interruption
    const Bytes rest = {wrapper, kPayloadOctets, 0, kNothingMissing, kFewSwapped, packing};
    octets.insert(octets.end(), rest.begin(), rest.end());
    octets.push_back(leading);
    return octets;
}

// A recording whose blocks stand behind a long header, too long to be damaged octet by octet.
Bytes recording_with_header() {
    Bytes file(2200, 0xCD);
    for (uint8_t count = 1; count <= 3; ++count) {
        for (const int octet : {0x30, 0x00, 0x07, 0xA0, 0x19, 0x0C, 0xA0}) file.push_back(static_cast<uint8_t>(octet));
        file.insert(file.end(), 10, count);
    }
    return file;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_seeds DIRECTORY\n");
        return 2;
    }
    const std::filesystem::path root = argv[1];
    Directory item(root / "item");
    Directory text(root / "text");
    Directory encode(root / "encode");
    Directory record(root / "record");
    const auto types = registered_items();
    const auto numbers = categories();
    for (size_t i = 0; i < types.size(); ++i) {
        const auto category = static_cast<size_t>(std::ranges::find(numbers, types[i] / 1000) - numbers.begin());
        const Bytes fspec = fspec_of(types[i]);
        for (const Bytes &sample : samples_of(types[i])) {
            const auto subject = static_cast<uint8_t>(sample.size() > 1 && sample[0] >= 0xFE); // subfields, if any
            item.write({number(i), sample});
            text.write({{subject}, number(40), {0}, number(i), sample});
            if (!fspec.empty()) record.write({number(category), {0}, Bytes(8, '1'), fspec, sample});
        }
        encode.write({{0}, number(i), Bytes(48, 0x01)});
    }
    Directory tool(root / "tool");
    tool.write({recording_with_header()});
    Directory split(root / "split");
    Directory reader(root / "reader");
    Directory recording(root / "recording");
    recording.write({choices(0, 0, 0), recording_with_header()});
    Blocks blocks;
    for (const uint32_t category : numbers)
        for (const ast_uap_t *const uap : profiles())
            for (int i = 0; i < kBlocksOfCategory; ++i) {
                const Bytes block = blocks.next(category, *uap);
                split.write({block});
                reader.write({block, blocks.next(category, *uap), block});
            }
    constexpr uint8_t kWrappers = 5, kPackings = 2;
    for (const uint32_t category : numbers)
        for (uint8_t wrapper = 0; wrapper < kWrappers; ++wrapper) {
            const Bytes some = blocks.next(category, AST_UAP_STANDARD), others = blocks.next(48, AST_UAP_STANDARD);
            recording.write({choices(wrapper, category % kPackings, category % 2 == 0 ? 0 : 0xF0), some, others, some,
                             others, some});
        }
    return split.failed() || reader.failed() || tool.failed() || recording.failed() || item.failed() || text.failed() ||
                   encode.failed() || record.failed()
               ? 1
               : 0;
}
