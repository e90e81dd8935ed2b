#include "block/edition_memory.hpp"

#include <algorithm>
#include <bitset>

namespace ast::recording {

namespace {

constexpr uint32_t kCategories = 256;

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

} // namespace

EditionMemory::EditionMemory(const ast_uap_info_t *forced) {
    reader_.forced = forced ? forced->uap : nullptr;
    reader_.frozen = true; // but for what is learnt
}

void EditionMemory::learn(Octets block) {
    if (!block.empty() && has_several_editions(block[0]))
        ast_reader_learn(&reader_, block.data(), block.size(), nullptr);
}

bool EditionMemory::split(ast_split_t &split, Octets block, ast_reader_result_t &result) {
    if (grows_) learn(block);
    return ast_reader_split(&reader_, &split, block.data(), block.size(), &result);
}

bool EditionMemory::decode(ast_datablock_t &block, Octets octets) {
    return ast_reader_decode(&reader_, &block, octets.data(), octets.size(), nullptr);
}

uint64_t EditionMemory::count(ast_census_t &census, Octets blocks) const {
    return grows_ ? 0 : ast_reader_count(&reader_, &census, blocks.data(), blocks.size());
}

bool EditionMemory::have_seen(uint64_t blocks) const {
    return std::ranges::all_of(
        reader_.sources, [&](const ast_reader_source_t &source) { return source.key == 0 || source.blocks >= blocks; });
}

} // namespace ast::recording
