/* Shows each record of a file of blocks as a line of JSON: json_records < radar.ast */

#include <ast.h>
#include <stdio.h>

int main(void) {
    static uint8_t octets[1 << 20]; /* the blocks, one after the other */
    static ast_reader_t reader;     /* finds out the edition that each data source sends */
    static ast_datablock_t block;   /* 54 KB, all zero; used for one block after the other */
    static char text[1 << 20];
    ast_json_line_t line = {.block = 1};
    ast_reader_result_t result;
    ast_log_handler_reg(NULL); /* or reports, even of editions tried in vain, are printed */

    const size_t end = fread(octets, 1, sizeof octets, stdin);
    for (size_t at = 0; at < end; at += result.length, ++line.block) {
        const bool whole = ast_reader_decode(&reader, &block, octets + at, end - at, &result);
        for (uint64_t r = 0; r < block.record_count; ++r) {
            line.record = r + 1;
            const uint64_t chars = ast_datarecord_to_json(text, sizeof text, &block.records[r], &line);
            if (chars >= sizeof text || puts(text) < 0) return 1;
        }
        if (!whole) {
            fprintf(stderr, "the block at octet %zu breaks\n", at);
            return 1;
        }
    }
    return fflush(stdout) == 0 ? 0 : 1;
}
