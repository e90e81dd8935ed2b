/* Prints a line for each record of a file of blocks, whatever its category and edition: when, who, where, how fast.
 * list_answers < radar.ast */

#include <ast.h>
#include <inttypes.h>
#include <stdio.h>

/* An answer means something where its bit is set. */
static bool has(const ast_answers_t *answers, uint64_t wanted) { return (answers->present & wanted) == wanted; }

static void print_time(const ast_answers_t *answers) {
    const uint32_t ms = (uint32_t)(answers->time_of_day_s * 1000 + 0.5);
    printf(" %02" PRIu32 ":%02" PRIu32 ":%02" PRIu32 ".%03" PRIu32, ms / 3600000, ms / 60000 % 60, ms / 1000 % 60,
           ms % 1000);
}

static void print_answers(const ast_answers_t *answers) {
    printf("category %03" PRIu32, answers->category);
    if (has(answers, AST_ANSWER_TIME)) print_time(answers);
    if (has(answers, AST_ANSWER_SAC | AST_ANSWER_SIC))
        printf(" source %" PRIu32 "/%" PRIu32, answers->sac, answers->sic);
    if (has(answers, AST_ANSWER_TYPE)) printf(" %s", ast_message_to_str(answers->type));
    if (has(answers, AST_ANSWER_TRACK_NUMBER)) printf(" number %" PRIu32, answers->track_number);
    if (has(answers, AST_ANSWER_CALLSIGN)) printf(" %s", answers->callsign);
    if (has(answers, AST_ANSWER_ICAO24)) printf(" address %06" PRIX32, answers->icao24);
    if (has(answers, AST_ANSWER_SQUAWK)) printf(" squawk %04" PRIo32, answers->squawk);
    if (has(answers, AST_ANSWER_FL)) printf(" FL%.2f", answers->fl);
    if (has(answers, AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE))
        printf(" at %.5f %.5f", answers->latitude_deg, answers->longitude_deg);
    else if (has(answers, AST_ANSWER_RANGE | AST_ANSWER_AZIMUTH))
        printf(" at %.2f NM in %.2f deg", answers->range_nm, answers->azimuth_deg);
    if (has(answers, AST_ANSWER_GROUNDSPEED)) printf(" %.0f kt", answers->groundspeed_kt);
    if (has(answers, AST_ANSWER_TRACK)) printf(" to %.1f deg", answers->track_deg);
    if (answers->emergency) printf(" EMERGENCY"); /* false where it is not known, too */
    printf("\n");
}

int main(void) {
    static uint8_t octets[1 << 20]; /* the blocks, one after the other */
    static ast_reader_t reader;     /* finds out the edition that each data source sends */
    static ast_datablock_t block;   /* 54 KB: no stack */
    ast_reader_result_t result = {0};
    ast_answers_t answers;
    ast_log_handler_reg(NULL); /* or reports, even of editions tried in vain, are printed */

    const size_t end = fread(octets, 1, sizeof octets, stdin);
    for (size_t at = 0; at < end; at += result.length) {
        if (!ast_reader_decode(&reader, &block, octets + at, end - at, &result)) return 1;
        for (uint64_t r = 0; r < block.record_count; ++r) {
            /* No reception is known of a file: no timestamp, and no time of day in category 001. */
            ast_datarecord_get_answers(&block.records[r], NULL, &answers);
            print_answers(&answers);
        }
    }
    return 0;
}
