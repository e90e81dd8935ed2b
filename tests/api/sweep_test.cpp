// Every item of every category under every profile, cut short everywhere.

#include <map>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/registered_items.hpp"

namespace {

using namespace ast_test;

const ast_uap_t *const kProfiles[] = {
    &AST_UAP_STANDARD,     &AST_UAP_CAT001_PLOT, &AST_UAP_CAT021_VER023, &AST_UAP_CAT021_VER026, &AST_UAP_CAT021_VER21,
    &AST_UAP_CAT021_VER24, &AST_UAP_ASR10SS,     &AST_UAP_ASR10SS_MK2,   &AST_UAP_THALES,        &AST_UAP_MANAGAIR,
};

// A record that announces one FRN, and the item's octets.
std::vector<uint8_t> record_of(uint32_t frn, const std::vector<uint8_t> &item) {
    std::vector<uint8_t> record((frn - 1) / 7 + 1, 0x01);
    record.back() = 0;
    ast_fspec_set(record.data(), record.size(), frn, true);
    record.insert(record.end(), item.begin(), item.end());
    return record;
}

// Whether each beginning of a record is not valid or smaller, and the whole of it valid.
void expect_no_beginning_to_pass(const std::vector<uint8_t> &whole, uint32_t category, const ast_uap_t &uap) {
    for (uint64_t length = 0; length < whole.size(); ++length) {
        const std::vector<uint8_t> begun(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length));
        const ast_datarecord_t record = ast_datarecord_decode(begun.data(), begun.size(), category, uap);
        EXPECT_TRUE(!record.valid || record.size < whole.size()) << length;
        EXPECT_LE(record.size, length);
    }
    EXPECT_EQ(ast_datarecord_decode(whole.data(), whole.size(), category, uap).size, whole.size());
}

TEST(EveryItemOfEveryProfile, IsNotValidOrSmallerWhenCutShort) {
    constexpr uint32_t kFrns = 50; // more than any profile defines
    ast_log_handler_reg(nullptr);
    std::map<ast_dataitem_type_t, const RegisteredItem *> registered;
    for (const RegisteredItem &item : registered_items()) registered[item.type] = &item;
    std::map<ast_dataitem_type_t, int> met;
    for (const ast_uap_t *const uap : kProfiles) {
        for (uint32_t category = 0; category <= 256; ++category) {
            for (uint32_t frn = 1; frn <= kFrns; ++frn) {
                const auto found = registered.find(ast_uap_get_dataitem(uap, category, frn));
                if (found == registered.end()) continue;
                SCOPED_TRACE(found->first);
                // Each item once for each profile that has a layout of its own for it.
                if (met[found->first]++ > 0 && category != 1 && category != 2 && category != 21) continue;
                expect_no_beginning_to_pass(record_of(frn, found->second->sample), category, *uap);
            }
        }
    }
    ast_log_handler_reg(ast_log_stdout);
    EXPECT_EQ(met.size(), registered.size()) << "registered items that no profile announces";
}

} // namespace
