// The subfields of all compound items.

#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/registered_items.hpp"

namespace {

using namespace ast_test;

// A present subfield has exactly the octets of its own rule, and an item its subfields back to back.
TEST(EveryCompoundItem, IsItsSubfieldsInOrder) {
    const auto &all = registered_items();
    LogCapture log;
    int items = 0;
    for (const RegisteredItem &registered : all) {
        if (!ast_dataitem_get_func(registered.type).get_summary) continue;
        const ast_dataitem_t item =
            ast_dataitem_decode(registered.sample.data(), registered.sample.size(), registered.type);
        if (ast_dataitem_get_func(registered.type).get_summary != ast_dataitem_subfields_get_summary) continue;
        SCOPED_TRACE(registered.type);
        ++items;
        const ast_subfields_t subfields = ast_dataitem_subfields_decode(&item);
        ASSERT_TRUE(subfields.valid);
        EXPECT_EQ(subfields.subfield_count, ast_dataitem_subfields_get_number(registered.type));
        const uint8_t *next = item.data + subfields.primary.length;
        for (uint64_t i = 0; i < subfields.subfield_count; ++i) {
            const ast_subfield_t &subfield = subfields.subfields[i];
            EXPECT_EQ(subfield.data, next) << i;
            EXPECT_EQ(ast_subfield_get_size(next, 100, subfield.type), subfield.size) << i;
            EXPECT_STRNE(ast_subfield_get_id(subfield.type), "") << i;
            EXPECT_STRNE(ast_subfield_get_name(subfield.type), "UNKNOWN_SUBFIELD_NAME") << i;
            next += subfield.size;
        }
        EXPECT_EQ(next, item.data + item.size);
    }
    EXPECT_EQ(items, 25);
}

} // namespace
