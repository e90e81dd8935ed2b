/* Gives one aircraft another Mode 3/A code in all its reports: change_record 3C4A12 7700 < radar.ast > changed.ast */

#include <ast.h>
#include <stdio.h>
#include <stdlib.h>

/* The record with this code in I048/070, in buffer. One without that item stays as it is. */
static ast_datarecord_t with_code(uint8_t *buffer, uint64_t length, const ast_datarecord_t *record, uint32_t code) {
    ast_mode_3a_t value = {.valid = true, .code = code};
    const ast_dataitem_src_list_t changes = {.items = {{AST_DATAITEM_TYPE(48, 70), &value}}, .item_count = 1};
    return ast_datarecord_modify(buffer, length, record, &changes);
}

int main(int argc, char **argv) {
    static uint8_t octets[1 << 20]; /* the blocks, one after the other */
    static uint8_t changed[65535];  /* a block, written again */
    static uint8_t scratch[65535];  /* the record of it that changes */
    static ast_reader_t reader;     /* finds out the edition that each data source sends */
    static ast_datablock_t block;   /* 54 KB, all zero; used for one block after the other */
    ast_reader_result_t result = {0};
    ast_log_handler_reg(NULL); /* or reports, even of editions tried in vain, are printed */
    if (argc != 3) return 2;
    const unsigned long address = strtoul(argv[1], NULL, 16), code = strtoul(argv[2], NULL, 8);

    const size_t end = fread(octets, 1, sizeof octets, stdin);
    for (size_t at = 0; at < end; at += result.length) {
        if (!ast_reader_decode(&reader, &block, octets + at, end - at, &result)) {
            fprintf(stderr, "the block at octet %zu breaks\n", at);
            return 1;
        }
        uint64_t length = ast_datablock_begin(changed, sizeof changed, block.category);
        for (uint64_t r = 0; length && r < block.record_count; ++r) {
            ast_datarecord_t record = block.records[r];
            if (record.category == 48 && ast_datarecord_get_icaoaddr(&record).address == address)
                record = with_code(scratch, sizeof scratch, &record, (uint32_t)code);
            length = ast_datablock_append(changed, sizeof changed, record.data, record.size);
        }
        if (length == 0 || fwrite(changed, 1, length, stdout) != length) return 1;
    }
    return fflush(stdout) == 0 ? 0 : 1;
}
