/* The header of recordings on its own, as C11. */
#include "ast_recording.h"

#include "ast_recording.h" /* twice is once */

static void report(void *context, const ast_recording_report_t *report) { *(uint64_t *)context += report->octets; }

uint64_t use_recording_header(const char *path);

uint64_t use_recording_header(const char *path) {
    uint64_t lost = 0;
    const ast_recording_options_t options = {.categories = "34,48", .report = report, .context = &lost};
    ast_recording_t *recording = ast_recording_open(&path, 1, &options, 0);
    ast_recording_block_t block;
    while (ast_recording_next(recording, &block)) continue;
    ast_recording_close(recording);
    return lost;
}
