/* Decodes one data block and prints a line for each item. */

#include <ast.h>
#include <stdio.h>

int main(void) {
    static const uint8_t octets[] = {48,   0,    23,   0xCD, 0xC0, 0x19, 0x0C, 0x35, 0x2A, 0x80, 0x0A, 0x53,
                                     0x05, 0x78, 0x4B, 0xA9, 0xD1, 0x50, 0x86, 0x71, 0x04, 0x28, 0x20};
    static ast_datablock_t block; /* 54 KB, all zero; used for one block after the other */
    ast_log_handler_reg(NULL);    /* or reports, even of editions tried in vain, are printed */
    ast_datablock_smart_decode_into(&block, octets, sizeof octets);
    for (uint64_t r = 0; r < block.record_count; ++r) {
        const ast_datarecord_t *record = &block.records[r];
        for (uint64_t i = 0; i < record->item_count; ++i) {
            const ast_dataitem_t *item = &record->items[i];
            char text[80];
            ast_dataitem_get_summary(text, sizeof text, item);
            printf("%s %s: %s\n", ast_dataitem_type_to_str(item->type), ast_dataitem_get_name(item->type), text);
        }
    }
    return block.valid ? 0 : 1;
}
