#include <vector>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

TEST(Fspec, DecodesItsChain) {
    // The length, and the FRNs that are set; none: not valid.
    each_case("80 = 1: 1; 02 = 1: 7; FE FF = 1: 1 2 3 4 5 6 7; 01 40 = 2: 9; 81 01 03 02 FF = 4: 1 21 28; "
              "00 = 1:; 01 00 = 2:; 01 = 0:; FF FF = 0:; = 0:",
              [](const std::string &hex, const std::string &expected) {
                  const auto data = octets(hex);
                  const ast_fspec_t fspec = ast_fspec_decode(data.data(), data.size());
                  std::string text = std::to_string(fspec.length) + ":";
                  uint64_t count = 0;
                  for (uint32_t frn = 0; frn < 300; ++frn) {
                      if (!ast_fspec_is_set(&fspec, frn)) continue;
                      text += " " + std::to_string(frn);
                      ++count;
                  }
                  EXPECT_EQ(text, expected) << hex;
                  EXPECT_TRUE(fspec.data == data.data() && fspec.valid == (count != 0)) << hex;
                  EXPECT_TRUE(fspec.frn_count == 7 * fspec.length && fspec.item_count == count) << hex;
              });
    EXPECT_FALSE(ast_fspec_decode(nullptr, 5).valid);
    EXPECT_FALSE(ast_fspec_is_set(nullptr, 1));
}

TEST(Fspec, HasNoLimitOfItsOwn) {
    auto data = repeated("01", 300);
    EXPECT_EQ(ast_fspec_decode(data.data(), data.size()).length, 0U) << "the chain runs out";
    data.back() = 0x02;
    const ast_fspec_t fspec = ast_fspec_decode(data.data(), data.size());
    EXPECT_TRUE(fspec.valid && fspec.frn_count == 2100);
    EXPECT_TRUE(ast_fspec_is_set(&fspec, 2100) && !ast_fspec_is_set(&fspec, 2101));
}

TEST(Fspec, MayBeEmptyByOption) {
    const auto data = octets("01 00");
    ast_library_set_option(AST_OPTION_ALLOW_EMPTY_FSPEC);
    const ast_fspec_t empty = ast_fspec_decode(data.data(), 2);
    const ast_fspec_t cut = ast_fspec_decode(data.data(), 1);
    ast_library_reset_option();
    EXPECT_TRUE(empty.valid && empty.frn_count == 14 && !ast_fspec_is_set(&empty, 1));
    EXPECT_FALSE(cut.valid);
}

TEST(Fspec, SettingLeavesFxAlone) {
    auto data = octets("01 00");
    EXPECT_TRUE(ast_fspec_set(data.data(), 2, 7, true));
    EXPECT_TRUE(ast_fspec_set(data.data(), 2, 1, true));
    EXPECT_TRUE(ast_fspec_set(data.data(), 2, 14, true));
    EXPECT_EQ(data, octets("83 02"));
    EXPECT_TRUE(ast_fspec_set(data.data(), 2, 1, false));
    EXPECT_TRUE(ast_fspec_set(data.data(), 2, 2, false)) << "clear already";
    EXPECT_EQ(data, octets("03 02"));
    for (const uint32_t frn : {0U, 15U, UINT32_MAX}) EXPECT_FALSE(ast_fspec_set(data.data(), 2, frn, true)) << frn;
    EXPECT_FALSE(ast_fspec_set(data.data(), 1, 8, true));
    EXPECT_FALSE(ast_fspec_set(data.data(), 0, 1, true));
    EXPECT_FALSE(ast_fspec_set(nullptr, 2, 1, true));
    EXPECT_EQ(data, octets("03 02"));
}

TEST(Fspec, CopyNeedsRoomAndAValidSource) {
    const auto data = octets("81 40 FF");
    ast_fspec_t source = ast_fspec_decode(data.data(), data.size());
    auto buffer = octets("EE EE EE");
    for (uint64_t room = 0; room < 2; ++room) {
        const ast_fspec_t copy = ast_fspec_copy(buffer.data(), room, &source);
        EXPECT_TRUE(!copy.valid && copy.data == buffer.data() && copy.length == 0);
        EXPECT_TRUE(copy.frn_count == 14 && copy.item_count == 2);
    }
    EXPECT_EQ(buffer, octets("EE EE EE"));
    const ast_fspec_t copy = ast_fspec_copy(buffer.data(), 2, &source);
    EXPECT_TRUE(copy.valid && copy.length == 2 && ast_fspec_is_set(&copy, 9));
    EXPECT_EQ(buffer, octets("81 40 EE"));

    EXPECT_FALSE(ast_fspec_copy(nullptr, 3, &source).valid);
    EXPECT_FALSE(ast_fspec_copy(buffer.data(), 3, nullptr).valid);
    source.valid = false;
    EXPECT_FALSE(ast_fspec_copy(buffer.data(), 3, &source).valid);
}

} // namespace
