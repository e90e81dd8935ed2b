#include "support/items.hpp"

using namespace ast_test;

namespace {

TEST(RawFields, SummaryShowsTheBitsOrTheKindOfField) {
    expect_summaries(1130, "A0 = BIN:10100000");
    expect_summaries(8110, "A0 01 = BIN:10100000 00000001");
    expect_summaries(48998, "02 FF = RESERVED_EXPANSION");
    expect_summaries(48999, "01 = SPECIAL_PURPOSE");
    expect_summaries(1997, "03 01 02 = RANDOM_FIELD_SEQUENCING");
}

} // namespace
