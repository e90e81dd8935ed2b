/* Decodes a block with the installed library and checks what it says. */
#include <ast.h>
#include <stdio.h>
#include <string.h>

int main(void) {
    /* Category 048, 8 octets, FSPEC with FRN 1 and 5, SAC 25, SIC 12, Mode 3/A 5123. */
    static const uint8_t octets[] = {48, 0, 8, 0x88, 0x19, 0x0C, 0x0A, 0x53};
    static ast_datablock_t block;
    char summary[80] = "";

    block = ast_datablock_smart_decode(octets, sizeof octets);
    if (block.valid) ast_dataitem_get_summary(summary, sizeof summary, &block.records[0].items[1]);
    printf("ast %s: %s\n", ast_library_version(), summary);
    return strcmp(summary, "MODE_3/A:5123") == 0 ? 0 : 1;
}
