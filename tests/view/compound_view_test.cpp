#include "support/items.hpp"
#include "support/octets.hpp"

using namespace ast_test;

namespace {

constexpr ast_dataitem_type_t kPlotCharacteristics = 48130; // seven subfields of one octet
constexpr ast_dataitem_type_t kDopplerSpeed = 48120;        // two subfields
constexpr ast_dataitem_type_t kAircraftDerived = 62380;     // 28 subfields, the ninth repeated

// The rows of the table of subfields, without their summaries.
std::vector<Row> table_of(const std::string &view) {
    std::vector<Row> rows = rows_of(view.substr(0, view.find("</table>") + 8));
    for (Row &row : rows) row.resize(5);
    return rows;
}

TEST(CompoundView, SummaryCountsPresentAndListedSubfields) {
    constexpr SummaryCase kCases[] = {
        {"one of seven", "80 12", "SUBFIELDS:01/07"},
        {"all", "FE 01 02 03 04 05 06 07", "SUBFIELDS:07/07"},
        {"none", "00", ""},
        {"primary subfield cut short", "81", ""},
    };
    expect_summaries(kPlotCharacteristics, kCases);
    // The one bit that is set lies beyond the item's own subfields.
    EXPECT_EQ(summary_of(kDopplerSpeed, "01 80"), "SUBFIELDS:00/02");
}

TEST(CompoundView, DetailListsSubfieldsAndShowsThePresentOnes) {
    const std::string view = detail_of(kPlotCharacteristics, "A0 12 FF");
    EXPECT_EQ(view.find("<h4>Primary Subfield</h4><table class=\"detail_table\">"), 0U);
    EXPECT_EQ(rows_of(view).front(), (Row{"Subfield", "ID", "Name", "Size", "Existing", "Summary"}));
    const std::vector<Row> expected = {{"Subfield", "ID", "Name", "Size", "Existing"},
                                       {"1", "SRL", "SSR Plot Runlength", "1", "1"},
                                       {"2", "SRR", "Number of Received Replies for (M)SSR", "0", "0"},
                                       {"3", "SAM", "Amplitude of (M)SSR Reply", "1", "1"},
                                       {"4", "PRL", "Primary Plot Runlength", "0", "0"},
                                       {"5", "PAM", "Amplitude of Primary Plot ", "0", "0"},
                                       {"6", "RPD", "Difference in Range between PSR and SSR plot", "0", "0"},
                                       {"7", "APD", "Difference in Azimuth between PSR and SSR plot", "0", "0"}};
    EXPECT_EQ(table_of(view), expected);
    const size_t first = view.find("</table><br/><h4>Subfield #1 - SSR Plot Runlength</h4><table class=\"bin_table\">");
    const size_t third = view.find("<h4>Subfield #3 - Amplitude of (M)SSR Reply</h4><table class=\"bin_table\">");
    EXPECT_LT(first, third);
    EXPECT_NE(third, view.npos);
    EXPECT_NE(view.find("Octet 1 - 12"), view.npos);
    EXPECT_NE(view.find("Octet 1 - FF"), view.npos);
    EXPECT_NE(view.find("</table><p></p>"), view.npos);
    EXPECT_EQ(view.find("Subfield #2"), view.npos);
}

TEST(CompoundView, SummaryCellsAreTheSubfieldsOwn) {
    const Item item(kPlotCharacteristics, "A0 12 FF");
    const auto rows = rows_of(text_from(ast_dataitem_get_detail_html, static_cast<const ast_dataitem_t *>(item)));
    for (uint32_t i = 1; i <= 7; ++i) {
        char summary[64];
        ast_subfield_get_summary(summary, sizeof summary, item, kPlotCharacteristics * 1000 + i);
        EXPECT_EQ(rows.at(i).at(5), summary) << i;
    }
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
    const auto rows = table_of(text_from(ast_dataitem_get_detail_html, static_cast<const ast_dataitem_t *>(item)));
    ASSERT_EQ(rows.size(), 15U);
    EXPECT_EQ(rows[9], (Row{"9", "TID", "Trajectory Intent Data", "100", "1"})); // of 1006
    EXPECT_EQ(rows[14][0], "1");                                                 // of 14
}

} // namespace
