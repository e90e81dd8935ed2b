// Category 008: weather as one radar sees it, in vectors and contours.

#include "items/items.hpp"

using namespace ast;

// ---- I008/100 Processing Status ----

uint64_t ast_dataitem_008_100_get_size(const uint8_t *data, uint64_t available) {
    constexpr uint64_t kFirstPartOctets = 3;
    constexpr uint64_t kMaximumOctets = 11;
    if (!data) return 0;
    for (uint64_t size = kFirstPartOctets; size <= available; ++size) {
        if (!has_fx(data[size - 1])) return size;
        if (size == kMaximumOctets) {
            ast_log(AST_LOG_CRITICAL, "Dataitem I008/100 length exceed max: %d", static_cast<int>(kMaximumOctets));
            return size;
        }
    }
    return 0;
}

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::message_type},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Vector Qualifier", {extended<2>}},
    {34, "Sequence of Polar Vectors in SPF Notation", {repetitive<4>}},
    {36, "Sequence of Cartesian Vectors in SPF Notation", {repetitive<3>}},
    {38, "Sequence of Weather Vectors in SPF Notation", {repetitive<4>}},
    {40, "Contour Identifier", {fixed<2>}},
    {50, "Sequence of Contour Points in SPF Notation", {repetitive<2>}},
    {90, "Time of Day", items::time_of_day},
    {100, "Processing Status", {sized_by(ast_dataitem_008_100_get_size)}},
    {110, "Station Configuration Status", items::binary_data(extended<2>)},
    {120, "Total Number of Items Constituting One Weather Picture", {fixed<2>}},
    {AST_ITEM_RFS, "Random Field Sequencing", items::random_field_sequencing},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory008, 8, "Unknown CAT008 Dataitem", kItems, ast_dataitem_008_get_name)
