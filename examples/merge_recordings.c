/* Prints a line for each block of several recordings, in the order in which they were received: where it came from,
 * where it went, its category and its records: merge_recordings radar.pcap adsb.pcap tracks.pcap */

#include <ast_recording.h>
#include <inttypes.h>
#include <stdio.h>

int main(int argc, char **argv) {
    /* Reports are dropped; how many there were is said at the end. Two threads read ahead of this one. */
    const ast_recording_options_t options = {.merge = true, .threads = 2};
    ast_recording_error_t error;
    const char *const *inputs = (const char *const *)argv + 1;
    ast_recording_t *recording = ast_recording_open(inputs, (uint64_t)(argc - 1), &options, &error);
    if (!recording) return fprintf(stderr, "%s\n", error.text), 2;

    ast_recording_block_t block;
    while (ast_recording_next(recording, &block)) {
        char time[AST_TIME_TEXT_OCTETS], sender[AST_ENDPOINT_TEXT_OCTETS], receiver[AST_ENDPOINT_TEXT_OCTETS];
        ast_time_to_text(time, sizeof time, block.time_ns);
        ast_endpoint_to_text(sender, sizeof sender, &block.sender);
        ast_endpoint_to_text(receiver, sizeof receiver, &block.receiver);
        printf("%s %s > %s category %03" PRIu32 " records %" PRIu64 " %s%s\n", time, sender, receiver,
               block.read.category, block.records, block.file, block.state == AST_BLOCK_WHOLE ? "" : " (breaks off)");
    }

    ast_recording_state_t state;
    if (ast_recording_get_state(recording, &state) == AST_RECORDING_FAILED) fprintf(stderr, "%s\n", state.error.text);
    printf("blocks %" PRIu64 ", damaged %" PRIu64 ", not supported %" PRIu64 ", not ASTERIX %" PRIu64 "\n",
           state.blocks, state.reports[AST_REPORT_DAMAGED], state.reports[AST_REPORT_UNSUPPORTED],
           state.reports[AST_REPORT_OTHER_TRAFFIC]);
    ast_recording_close(recording);
    return state.phase == AST_RECORDING_ENDED ? 0 : 2;
}
