/* Encodes the records that lines of JSON describe: encode_json < categories.json > categories.ast
 * Lines of the same "block" and category are one block; a line without "block" is a block of its own. */

#include <ast.h>
#include <inttypes.h>
#include <stdio.h>
#include <string.h>

static bool write_block(const uint8_t *block) {
    const size_t length = (size_t)block[1] << 8 | block[2]; /* LEN; 0 before the first block */
    return fwrite(block, 1, length, stdout) == length;
}

int main(void) {
    static char line[1 << 20];
    static uint8_t record[65535], block[65535];
    uint64_t number = 0; /* the "block" of the lines before */

    while (fgets(line, sizeof line, stdin)) {
        const ast_json_result_t result = ast_datarecord_from_json(record, sizeof record, line, strlen(line));
        if (!result.valid || result.is_data) {
            fprintf(stderr, "character %" PRIu64 ": %s %s\n", result.position, result.path,
                    result.error ? result.error : "is no record, or too long");
            return 1;
        }
        const bool goes_on = number != 0 && result.block == number && result.category == block[0];
        if (!goes_on || !ast_datablock_append(block, sizeof block, record, result.size)) { /* or the block is full */
            if (!write_block(block)) return 1;
            ast_datablock_begin(block, sizeof block, result.category);
            if (!ast_datablock_append(block, sizeof block, record, result.size)) return 1;
        }
        number = result.block;
    }
    return write_block(block) && fflush(stdout) == 0 ? 0 : 1;
}
