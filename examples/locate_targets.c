/* Prints where on the earth the targets of a file of blocks are, that of a radar too whose place is given:
 * locate_targets SAC SIC LATITUDE LONGITUDE HEIGHT_M < radar.ast */

#include <ast.h>
#include <inttypes.h>
#include <stdio.h>
#include <stdlib.h>

static void print_target(const ast_answers_t *answers) {
    if (!(answers->present & AST_ANSWER_LATITUDE)) return;
    printf("category %03" PRIu32 " %-8s %9.5f %10.5f", answers->category, answers->callsign, answers->latitude_deg,
           answers->longitude_deg);
    if (answers->located & AST_LOCATED_BY_SITE)
        printf(" as seen from %" PRIu32 "/%" PRIu32, answers->sac, answers->sic);
    if (answers->located & AST_LOCATED_ON_GROUND) printf(", if it is on the ground");
    printf("\n");
}

int main(int argc, char **argv) {
    static uint8_t octets[1 << 20];
    static ast_reader_t reader;
    static ast_datablock_t block;
    static ast_site_t room[100]; /* for as many data sources */
    ast_sites_t sites = {.sites = room, .room = sizeof room / sizeof *room};
    ast_reader_result_t result = {0};
    ast_answers_t answers;
    ast_log_handler_reg(NULL);

    if (argc == 6) {
        const ast_site_t given = {.sac = (uint32_t)atoi(argv[1]),
                                  .sic = (uint32_t)atoi(argv[2]),
                                  .known = AST_SITE_GIVEN,
                                  .place = {atof(argv[3]), atof(argv[4]), atof(argv[5])}};
        if (!ast_sites_add(&sites, &given)) return fprintf(stderr, "no such place\n"), 2;
    }

    const size_t end = fread(octets, 1, sizeof octets, stdin);
    for (size_t at = 0; at < end; at += result.length) {
        if (!ast_reader_decode(&reader, &block, octets + at, end - at, &result)) return 1;
        for (uint64_t r = 0; r < block.record_count; ++r) {
            ast_sites_learn(&sites, &block.records[r]); /* of a source that tells where it stands */
            ast_datarecord_get_answers(&block.records[r], NULL, &answers);
            ast_sites_locate(&sites, &answers);
            print_target(&answers);
        }
    }
    return 0;
}
