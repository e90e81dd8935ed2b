/* A program that reads recordings, of somebody else. */
#include <ast_recording.h>

#include <stdio.h>

/* A block of category 034 in memory: a north marker of 25/12. */
static const uint8_t kOctets[] = {34, 0, 11, 0xF0, 25, 12, 1, 0x54, 0x60, 0x00, 0x00};

int main(void) {
    ast_recording_error_t error;
    ast_recording_t *recording = ast_recording_open_octets(kOctets, sizeof kOctets, "north", NULL, &error);
    if (!recording) return fprintf(stderr, "%s\n", error.text), 2;
    static ast_datablock_t block;
    ast_recording_block_t read;
    uint64_t records = 0;
    while (ast_recording_next(recording, &read))
        if (ast_recording_decode(recording, &block)) records += block.record_count;
    ast_recording_close(recording);
    return records == 1 ? 0 : 1;
}
