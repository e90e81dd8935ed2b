/* Encodes records: reads a line of JSON for each, writes a data block for each. */

#include <ast.h>
#include <stdio.h>
#include <string.h>

#define HEADER_OCTETS 3
#define MOST_BLOCK_OCTETS 65535

static bool encode(const char *line) {
    static uint8_t block[MOST_BLOCK_OCTETS];
    const ast_json_result_t record =
        ast_datarecord_from_json(block + HEADER_OCTETS, sizeof block - HEADER_OCTETS, line, strlen(line));
    if (!record.valid) {
        fprintf(stderr, "character %llu: %s %s\n", (unsigned long long)record.position, record.path,
                record.error ? record.error : "is too long");
        return false;
    }
    const uint64_t octets = HEADER_OCTETS + record.size;
    block[0] = (uint8_t)record.category;
    block[1] = (uint8_t)(octets / 256);
    block[2] = (uint8_t)(octets % 256);
    return fwrite(block, 1, octets, stdout) == octets;
}

int main(void) {
    static char line[65536];
    while (fgets(line, sizeof line, stdin))
        if (!encode(line)) return 1;
    return fflush(stdout) == 0 ? 0 : 1;
}
