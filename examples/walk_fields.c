/* Shows every published field of an item, in each record that has it: walk_fields I048/130 < radar.ast */

#include <ast.h>
#include <stdio.h>
#include <string.h>

static void show(void *context, const ast_field_value_t *value) {
    (void)context;
    printf("%s:", value->field->path);
    if (value->has_number) printf(" %.10g", value->number);
    if (*value->field->unit) printf(" %s", value->field->unit);
    if (*value->text) printf(" %s", value->text); /* what a code means, or characters */
    if (*value->field->title) printf("  (%s)", value->field->title);
    puts("");
}

int main(int argc, char **argv) {
    static uint8_t octets[1 << 20]; /* the blocks, one after the other */
    static ast_reader_t reader;     /* finds out the edition that each data source sends */
    static ast_datablock_t block;   /* 54 KB, all zero; used for one block after the other */
    ast_reader_result_t result = {0};
    const char *const wanted = argc > 1 ? argv[1] : "I048/130";
    ast_log_handler_reg(NULL); /* or reports, even of editions tried in vain, are printed */

    const size_t end = fread(octets, 1, sizeof octets, stdin);
    for (size_t at = 0; at < end; at += result.length) {
        if (!ast_reader_decode(&reader, &block, octets + at, end - at, &result)) {
            fprintf(stderr, "the block at octet %zu breaks\n", at);
            return 1;
        }
        for (uint64_t r = 0; r < block.record_count; ++r) {
            const ast_datarecord_t *record = &block.records[r];
            uint32_t message_type = 0; /* item 000; some fields of category 004 depend on it */
            for (uint64_t i = 0; i < record->item_count; ++i) {
                const ast_dataitem_t *item = &record->items[i];
                if (item->type == AST_DATAITEM_TYPE(record->category, 0)) message_type = *item->data;
                if (strcmp(ast_dataitem_type_to_str(item->type), wanted) == 0)
                    ast_dataitem_walk(item, record->uap, message_type, show, NULL);
            }
        }
    }
    return 0;
}
