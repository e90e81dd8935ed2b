#include "support/items.hpp"

using namespace ast_test;

namespace {

TEST(RawFields, SummaryShowsTheBitsOrTheKindOfField) {
    struct {
        ast_dataitem_type_t type;
        SummaryCase one;
    } constexpr kCases[] = {
        {1130, {"one octet", "A0", "BIN:10100000"}},
        {8110, {"two octets", "A0 01", "BIN:10100000 00000001"}},
        {48998, {"reserved expansion", "02 FF", "RESERVED_EXPANSION"}},
        {48999, {"special purpose", "01", "SPECIAL_PURPOSE"}},
        {1997, {"random field sequencing", "03 01 02", "RANDOM_FIELD_SEQUENCING"}},
    };
    for (const auto &[type, one] : kCases) expect_summaries(type, {&one, 1});
}

} // namespace
