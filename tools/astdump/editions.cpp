#include "editions.hpp"

#include <algorithm>
#include <bitset>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

#include "input.hpp"
#include "options.hpp"
#include "split.hpp"

namespace astdump {

namespace {

constexpr uint32_t kCategories = 256;

// How much of a file is looked through: some blocks of each source, and not many more for those that send rarely.
constexpr uint64_t kBlocksOfSource = 10'000;
constexpr uint64_t kMostBlocks = 100'000;
constexpr size_t kChunkOctets = size_t{256} * 1024;

bool differ(uint32_t category, const ast_uap_t &one, const ast_uap_t &other) {
    const uint32_t frns = std::max(ast_uap_max_frn(&one, category), ast_uap_max_frn(&other, category));
    for (uint32_t frn = 1; frn <= frns; ++frn)
        if (ast_uap_get_dataitem(&one, category, frn) != ast_uap_get_dataitem(&other, category, frn)) return true;
    return false;
}

// Whether it matters by which profile a block of the category is read.
bool has_several_editions(uint32_t category) {
    static const auto several = [] {
        std::bitset<kCategories> found;
        for (const ast_uap_info_t &profile : profiles())
            for (uint64_t i = 0; i < profile.override_count; ++i) found.set(profile.overrides[i]);
        for (uint32_t each = 0; each < kCategories; ++each) {
            if (ast_uap_max_frn_published(each) == 0) continue;
            const bool is_registered = ast_uap_max_frn_standard(each) != 0;
            if ((is_registered && differ(each, AST_UAP_PUBLISHED, AST_UAP_STANDARD)) ||
                differ(each, AST_UAP_PUBLISHED, AST_UAP_PUBLISHED_OTHER))
                found.set(each);
        }
        return found;
    }();
    return several.test(category);
}

// A file on standard input is read again from where it stood.
class Place {
public:
    explicit Place(const std::string &path)
        : descriptor_(path == "-" ? STDIN_FILENO : -1), place_(::lseek(descriptor_, 0, SEEK_CUR)) {}
    ~Place() {
        if (descriptor_ >= 0) ::lseek(descriptor_, place_, SEEK_SET);
    }
    Place(const Place &) = delete;
    Place &operator=(const Place &) = delete;

private:
    int descriptor_;
    off_t place_;
};

bool is_regular_file(const std::string &path) {
    struct stat status {};
    const int result = path == "-" ? ::fstat(STDIN_FILENO, &status) : ::stat(path.c_str(), &status);
    return result == 0 && S_ISREG(status.st_mode);
}

void learn_from(Input &input, Editions &editions) {
    Chunk chunk(kChunkOctets);
    uint64_t blocks = 0;
    while (blocks < kMostBlocks && input.fill(chunk)) {
        for (const Datagram &datagram : chunk.datagrams())
            if (datagram.may_hold_blocks()) each_block(datagram.octets, [&](Octets block) { editions.learn(block); });
        blocks = chunk.end_number;
        if (blocks > kBlocksOfSource && editions.have_seen(kBlocksOfSource)) break;
    }
}

} // namespace

Editions::Editions(const ast_uap_info_t *forced) {
    reader_.forced = forced ? forced->uap : nullptr;
    reader_.frozen = true; // but for what is learnt
}

void Editions::learn(Octets block) {
    if (!block.empty() && has_several_editions(block[0]))
        ast_reader_learn(&reader_, block.data(), block.size(), nullptr);
}

bool Editions::split(ast_split_t &split, Octets block, ast_reader_result_t &result) {
    if (grows_) learn(block);
    return ast_reader_split(&reader_, &split, block.data(), block.size(), &result);
}

uint64_t Editions::count(ast_census_t &census, Octets blocks) const {
    return grows_ ? 0 : ast_reader_count(&reader_, &census, blocks.data(), blocks.size());
}

bool Editions::have_seen(uint64_t blocks) const {
    return std::ranges::all_of(
        reader_.sources, [&](const ast_reader_source_t &source) { return source.key == 0 || source.blocks >= blocks; });
}

Editions look_through(std::span<const std::string> paths, const Options &options) {
    Editions editions(options.profile);
    if (options.follow || !std::ranges::all_of(paths, is_regular_file)) return editions;
    for (const std::string &path : paths) {
        const Place place(path);
        try {
            Input input(path, {}, nullptr, false, options.framing);
            learn_from(input, editions);
        } catch (const std::runtime_error &) {
            return editions; // which whoever reads it will find, too
        }
    }
    editions.freeze();
    return editions;
}

} // namespace astdump
