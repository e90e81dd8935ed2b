#include "harness.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace ast_fuzz {

namespace {

constexpr uint32_t kTypes = 241000; // category 240 is the last
constexpr uint64_t kMaxLogChars = 511;

int32_t check_log_line(uint32_t, const char *message) {
    require(strnlen(message, kMaxLogChars + 1) <= kMaxLogChars, "a log line is too long");
    return 0;
}

std::vector<ast_dataitem_type_t> find_registered_items() {
    ast_log_handler_reg(nullptr);
    std::vector<ast_dataitem_type_t> types;
    for (ast_dataitem_type_t type = 0; type < kTypes; ++type)
        if (ast_dataitem_get_func(type).get_size) types.push_back(type);
    ast_log_handler_reg(check_log_line);
    require(!types.empty(), "no item is registered");
    return types;
}

std::vector<uint32_t> find_categories() {
    std::vector<uint32_t> found;
    for (const ast_dataitem_type_t type : registered_items())
        if (found.empty() || found.back() != type / 1000) found.push_back(type / 1000);
    return found;
}

const ast_uap_t *const kProfiles[] = {
    &AST_UAP_STANDARD,     &AST_UAP_CAT001_PLOT, &AST_UAP_CAT021_VER023, &AST_UAP_CAT021_VER026, &AST_UAP_CAT021_VER21,
    &AST_UAP_CAT021_VER24, &AST_UAP_ASR10SS,     &AST_UAP_ASR10SS_MK2,   &AST_UAP_THALES,        &AST_UAP_MANAGAIR,
};

// The FRNs of the profile that is not exported: registered items, a number of them apart.
uint32_t own_step = 1;

constexpr ast_uap_t kOwnProfile = {
    [](uint32_t) { return uint32_t{63}; },
    [](uint32_t, uint32_t frn) { return registered_items()[frn * own_step % registered_items().size()]; },
};

} // namespace

void fail(const char *what) {
    std::printf("found: %s\n", what);
    std::fflush(stdout);
    std::abort();
}

std::span<const ast_dataitem_type_t> registered_items() {
    static const std::vector<ast_dataitem_type_t> types = find_registered_items();
    return types;
}

std::span<const uint32_t> categories() {
    static const std::vector<uint32_t> found = find_categories();
    return found;
}

std::span<const ast_uap_t *const> profiles() { return kProfiles; }

ast_uap_t take_profile(Input &input) {
    const uint8_t choice = input.octet();
    if (choice < std::size(kProfiles)) return *kProfiles[choice];
    own_step = choice;
    return kOwnProfile;
}

ast_dataitem_t take_item(Input &input) {
    const ast_dataitem_type_t type = registered_items()[input.below(registered_items().size())];
    const Octets octets = input.rest();
    const ast_dataitem_t item = ast_dataitem_decode(octets.data(), octets.size(), type);
    if (item.size <= octets.size()) return item;
    return {.data = octets.data(), .size = 0, .type = type, .valid = false, .following = 0};
}

} // namespace ast_fuzz
