/* Counts what a file of blocks is made of, faster than it can be decoded: count_census < radar.ast */

#include <ast.h>
#include <inttypes.h>
#include <stdio.h>

#define TYPES 256000 /* of items: category times 1000, and number */

static void add(void *context, ast_dataitem_type_t type, uint64_t records) {
    uint64_t *const records_with = context;
    if (type < TYPES) records_with[type] += records;
}

int main(void) {
    static uint8_t octets[1 << 20]; /* the blocks, one after the other */
    static ast_reader_t reader;     /* finds out the edition that each data source sends */
    static ast_census_t census;     /* 100 KB, all zero */
    static uint64_t records_with[TYPES];
    ast_reader_result_t result = {0};
    ast_log_handler_reg(NULL); /* or reports, even of editions tried in vain, are printed */

    /* A census takes a reader that has learned all it needs; of a long recording, its beginning is enough. */
    const size_t end = fread(octets, 1, sizeof octets, stdin);
    for (size_t at = 0; at < end; at += result.length)
        if (!ast_reader_learn(&reader, octets + at, end - at, &result)) break;
    reader.frozen = true;
    const uint64_t counted = ast_reader_count(&reader, &census, octets, end);

    for (uint64_t g = 0; g < census.group_count; ++g) {
        const ast_census_group_t *group = &census.groups[g];
        printf("category %03" PRIu32 " edition %s: blocks %" PRIu64 ", records %" PRIu64 ", octets %" PRIu64 "\n",
               group->category, group->edition, group->blocks, group->records, group->octets);
    }
    ast_census_get_items(&census, add, records_with);
    for (uint32_t type = 0; type < TYPES; ++type)
        if (records_with[type]) printf("%s %" PRIu64 "\n", ast_dataitem_type_to_str(type), records_with[type]);
    return counted == end ? 0 : 1;
}
