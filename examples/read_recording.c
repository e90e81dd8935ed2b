/* Prints a line for each record with a position, in degrees or as range (NM) and azimuth: read_recording radar.pcap ...
 * Its exit status is 0 when nothing is damaged, 1 when something is, and 2 when not all could be read. */

#include <ast_recording.h>
#include <stdio.h>

static void tell(void *context, const ast_recording_report_t *report) {
    (void)context;
    char text[500];
    ast_recording_report_to_text(text, sizeof text, report);
    fprintf(stderr, "%s: %s: %s\n", report->file, ast_recording_report_kind_to_str(report->kind), text);
}

static void print_position(const ast_datarecord_t *record) {
    char time[40], source[40], name[40], position[80];
    ast_datarecord_get_keyword(position, sizeof position, record, AST_KEYWORD_WGS84COORD, AST_POSITION_DEGREES);
    if (!*position) ast_datarecord_get_keyword(position, sizeof position, record, AST_KEYWORD_POLARCOORD, 0);
    if (!*position) return;
    ast_datarecord_get_keyword(time, sizeof time, record, AST_KEYWORD_TIMEOFDAY, 0);
    ast_datarecord_get_keyword(source, sizeof source, record, AST_KEYWORD_SACSIC, 0);
    ast_datarecord_get_keyword(name, sizeof name, record, AST_KEYWORD_CALLSIGN, 0);
    if (!*name) ast_datarecord_get_keyword(name, sizeof name, record, AST_KEYWORD_SQUAWK, 0);
    printf("%-12s %-8s %-8s %s\n", time, source, name, position);
}

int main(int argc, char **argv) {
    const ast_recording_options_t options = {.report = tell};
    ast_recording_error_t error;
    ast_recording_t *recording =
        ast_recording_open((const char *const *)argv + 1, (uint64_t)(argc - 1), &options, &error);
    if (!recording) return fprintf(stderr, "%s\n", error.text), 2;

    ast_recording_block_t block;
    ast_datarecord_t record;
    while (ast_recording_next(recording, &block))
        for (uint64_t r = 0; ast_recording_get_record(recording, r, &record); ++r) print_position(&record);

    ast_recording_state_t state;
    const uint32_t phase = ast_recording_get_state(recording, &state);
    ast_recording_close(recording);
    if (phase != AST_RECORDING_ENDED) return 2;
    return state.reports[AST_REPORT_DAMAGED] ? 1 : 0;
}
