// Category 001: target reports of one radar, plots and tracks, edition 1.4 and the layouts of three radar families.

#include "codec/block.hpp"
#include "items/items.hpp"

using namespace ast;

namespace {

// Whether a record is a plot or a track stands in bit 8 (TYP) of its target report descriptor, I001/020. That octet is
// taken behind the two of I001/010 whether or not the record has them; senders of mixed blocks do.
const ast_uap_t *plot_or_track(const uint8_t *record, uint64_t available) {
    constexpr uint32_t kDescriptorFrn = 2;
    constexpr uint64_t kDataSourceOctets = 2;
    const ast_fspec_t fspec = ast_fspec_decode(record, available);
    const uint64_t descriptor = fspec.length + kDataSourceOctets;
    if (!ast_fspec_is_set(&fspec, kDescriptorFrn) || descriptor >= available) return nullptr;
    return bit(record[descriptor], 8) ? &AST_UAP_STANDARD : &AST_UAP_CAT001_PLOT;
}

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Target Report Descriptor", {extended<2>}},
    {30, "Warning/Error Conditions", {extended<kUnlimitedOctets>}},
    {40, "Measured Position in Polar Co-ordinates", {fixed<4>}},
    {42, "Calculated Position in Cartesian Co-ordinates", {fixed<4>}},
    {50, "Mode-2 Code in Octal Representation", items::mode_3a_code},
    {60, "Mode-2 Code Confidence Indicator", items::mode_3a_confidence},
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {80, "Mode-3/A Code Confidence Indicator", items::mode_3a_confidence},
    {90, "Mode-C Code in Binary Representation", items::mode_c_code},
    {100, "Mode-C Code and Code Confidence Indicator", items::mode_c_confidence},
    {120, "Measured Radial Doppler Speed", {fixed<1>}},
    {130, "Radar Plot Characteristics", items::binary_data(extended<kUnlimitedOctets>)},
    {131, "Received Power", {fixed<1>}},
    {141, "Truncated Time of Day", {fixed<2>}},
    {150, "Presence of X-Pulse", {fixed<1>}},
    {161, "Track Plot Number", items::track_number},
    {170, "Track Status", {extended<2>}},
    {200, "Calculated Track Velocity in Polar Co-ordinates", items::velocity_polar},
    {210, "Track Quality", {extended<kUnlimitedOctets>}},
    {.number = 901, .name = "Radar Plot Characteristics", .handlers = {extended<1>}, .variant_of = 130},
    {.number = 902, .name = "Track Quality", .handlers = {extended<1>}, .variant_of = 210},
    {.number = 903, .name = "Radar Plot Characteristics", .handlers = {extended<4>}, .variant_of = 130},
    {.number = 904, .name = "Track Quality", .handlers = {extended<11>}, .variant_of = 210},
    {951, "Custom Field", {fixed<2>}},
    {AST_ITEM_RFS, "Random Field Sequencing", items::random_field_sequencing},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory001, 1, "Unknown CAT001 Dataitem", kItems, ast_dataitem_001_get_name,
                    .choose_profile = plot_or_track)

void ast_datablock_001_mixuap_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available) {
    if (block) decode_mixed(*block, data, available, kCategory001);
}

ast_datablock_t ast_datablock_001_mixuap_decode(const uint8_t *data, uint64_t available) {
    ast_datablock_t block{};
    ast_datablock_001_mixuap_decode_into(&block, data, available);
    return block;
}
