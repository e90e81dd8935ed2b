#include "support/items.hpp"
#include "support/octets.hpp"

using namespace ast_test;

namespace {

constexpr ast_dataitem_type_t kPlotCharacteristics = 48130; // seven subfields of one octet
constexpr ast_dataitem_type_t kDopplerSpeed = 48120;        // two subfields
constexpr ast_dataitem_type_t kAircraftDerived = 62380;     // 28 subfields, the ninth repeated

TEST(CompoundView, SummaryCountsPresentAndListedSubfields) {
    expect_summaries(kPlotCharacteristics, "80 12 = SUBFIELDS:01/07; FE 01 02 03 04 05 06 07 = SUBFIELDS:07/07; "
                                           "00 = ; 81 = "); // none, and a primary subfield cut short
    // The one bit that is set lies beyond the item's own subfields.
    expect_summaries(kDopplerSpeed, "01 80 = SUBFIELDS:00/02");
}

TEST(CompoundView, DetailListsSubfieldsAndShowsThePresentOnes) {
    const std::string view = detail_of(kPlotCharacteristics, "A0 12 FF");
    EXPECT_EQ(table_of(view),
              "Subfield|ID|Name|Size|Existing|Summary; 1|SRL|SSR Plot Runlength|1|1|0.79 LSB=DEG; "
              "2|SRR|Number of Received Replies for (M)SSR|0|0|; 3|SAM|Amplitude of (M)SSR Reply|1|1|-255 LSB=DBM; "
              "4|PRL|Primary Plot Runlength|0|0|; 5|PAM|Amplitude of Primary Plot |0|0|; "
              "6|RPD|Difference in Range between PSR and SSR plot|0|0|; "
              "7|APD|Difference in Azimuth between PSR and SSR plot|0|0|");
    EXPECT_EQ(view.find("<h4>Primary Subfield</h4><table class=\"detail_table\">"), 0U);
    size_t at = 0;
    for (const char *const part :
         {"</table><br/><h4>Subfield #1 - SSR Plot Runlength</h4><table class=\"bin_table\">", "Octet 1 - 12",
          "</table><p></p>", "<h4>Subfield #3 - Amplitude of (M)SSR Reply</h4><table class=\"bin_table\">",
          "Octet 1 - FF", "</table><p></p>"}) {
        at = view.find(part, at);
        ASSERT_NE(at, view.npos) << part;
    }
    EXPECT_EQ(view.find("Subfield #2"), view.npos);
}

TEST(CompoundView, WithoutPresentSubfieldsThereIsOnlyTheTable) {
    ast_library_set_option(AST_OPTION_ALLOW_EMPTY_FSPEC);
    const std::string summary = summary_of(kPlotCharacteristics, "00");
    const std::string view = detail_of(kPlotCharacteristics, "00");
    ast_library_unset_option(AST_OPTION_ALLOW_EMPTY_FSPEC);
    EXPECT_EQ(summary, "SUBFIELDS:00/07");
    EXPECT_EQ(rows_of(view).size(), 8U);
    EXPECT_TRUE(view.ends_with("</table><br/>"));
    EXPECT_EQ(detail_of(kPlotCharacteristics, "00"), "");
}

TEST(CompoundView, NumbersAndSizesAreCutByTheirCells) {
    auto content = octets("01 40 43"); // the ninth subfield, 67 elements of 15 octets
    content.resize(content.size() + 67 * 15);
    const Item item(kAircraftDerived, content);
    const auto rows = rows_of(text_from(ast_dataitem_get_detail_html, static_cast<const ast_dataitem_t *>(item)));
    ASSERT_GE(rows.size(), 15U);
    EXPECT_EQ(rows[9].find("9|TID|Trajectory Intent Data|100|1|"), 0U) << "of 1006";
    EXPECT_EQ(rows[14].find("1|"), 0U) << "of 14";
}

} // namespace
