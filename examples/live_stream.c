/* Prints what read_recording.c does, as it comes: live_stream udp://239.1.1.1:8600, or tcp://HOST:PORT; Ctrl-C ends it.
 * Its exit status is 0 when it was ended, or the other side has closed the connection, and 2 when that failed. */

#include <ast_recording.h>
#include <signal.h>
#include <stdio.h>

static ast_recording_t *_Atomic stream; /* for the signal handler */

static void stop(int number) {
    (void)number;
    ast_recording_interrupt(stream);
}

static void tell(void *context, const ast_recording_report_t *report) {
    (void)context;
    char text[500];
    ast_recording_report_to_text(text, sizeof text, report);
    fprintf(stderr, "%s: %s\n", ast_recording_report_kind_to_str(report->kind), text);
}

static void print_position(const ast_datarecord_t *record) {
    char time[40], source[40], position[80];
    ast_datarecord_get_keyword(position, sizeof position, record, AST_KEYWORD_WGS84COORD, AST_POSITION_DEGREES);
    if (!*position) ast_datarecord_get_keyword(position, sizeof position, record, AST_KEYWORD_POLARCOORD, 0);
    if (!*position) return;
    ast_datarecord_get_keyword(time, sizeof time, record, AST_KEYWORD_TIMEOFDAY, 0);
    ast_datarecord_get_keyword(source, sizeof source, record, AST_KEYWORD_SACSIC, 0);
    printf("%-12s %-8s %-8s %s\n", time, source, ast_datarecord_get_callsign(record).text, position);
}

int main(int argc, char **argv) {
    const ast_recording_options_t options = {.report = tell};
    ast_recording_error_t error;
    stream = ast_recording_open((const char *const *)argv + 1, (uint64_t)(argc - 1), &options, &error);
    if (!stream) return fprintf(stderr, "%s\n", error.text), 2;
    signal(SIGINT, stop);
    setvbuf(stdout, NULL, _IOLBF, BUFSIZ); /* also into a pipe, lines go as they come */

    ast_recording_block_t block;
    ast_datarecord_t record;
    ast_recording_state_t state;
    bool was_quiet = false;
    while (true) {
        if (ast_recording_next_within(stream, &block, 1000)) {
            for (uint64_t r = 0; ast_recording_get_record(stream, r, &record); ++r) print_position(&record);
            was_quiet = false;
            continue;
        }
        if (ast_recording_get_state(stream, &state) != AST_RECORDING_QUIET) break;
        if (!was_quiet) puts("quiet for a second");
        was_quiet = true;
    }

    signal(SIGINT, SIG_DFL); /* the handler must not meet a closed recording */
    ast_recording_close(stream);
    return state.phase == AST_RECORDING_FAILED ? 2 : 0;
}
