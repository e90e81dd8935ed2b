/* Encodes a record from values, and writes its block: encode > radar.ast. It is the block that decode.c shows. */

#include <ast.h>
#include <stdio.h>

int main(void) {
    ast_sac_sic_t source = {.valid = true, .sac = 25, .sic = 12};
    ast_time_of_day_t time = {.valid = true, .hour = 7, .minute = 33, .second = 41};
    ast_mode_3a_t code = {.valid = true, .code = 05123};
    ast_mode_c_t level = {.valid = true, .validated = true, .flight_level = 350 * 4}; /* in steps of 25 ft */
    ast_target_address_t address = {.valid = true, .address = 0x4BA9D1};
    ast_aircraft_id_t callsign = {.valid = true, .text = "THY1AB"};
    const ast_datarecord_src_t values = {
        .category = 48,
        .uap = AST_UAP_STANDARD,
        .items = {{AST_DATAITEM_TYPE(48, 10), &source},
                  {AST_DATAITEM_TYPE(48, 140), &time},
                  {AST_DATAITEM_TYPE(48, 70), &code},
                  {AST_DATAITEM_TYPE(48, 90), &level},
                  {AST_DATAITEM_TYPE(48, 220), &address},
                  {AST_DATAITEM_TYPE(48, 240), &callsign}},
        .item_count = 6,
    };

    uint8_t octets[256], block[256];
    const ast_datarecord_t record = ast_datarecord_encode(octets, sizeof octets, &values);
    ast_datablock_begin(block, sizeof block, record.category);
    const uint64_t length = ast_datablock_append(block, sizeof block, octets, record.size);
    return length && fwrite(block, 1, length, stdout) == length && fflush(stdout) == 0 ? 0 : 1;
}
