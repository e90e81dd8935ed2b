/* ast_recording: opens recordings and streams of ASTERIX and hands over their blocks, one after the other.
 *
 * SPDX-License-Identifier: MIT
 *
 * A second library beside the one of ast.h, which it is built upon. That one is handed octets; this one finds them: in
 * captures (pcap and pcapng, of UDP, TCP and LLC frames), in files of blocks back to back or as recorders wrap them, in
 * records as JSON, all of them also in gzip or zstd, on standard input, in memory, and on the network as they come.
 *
 *     ast_recording_error_t error;
 *     const char *path = "radar.pcap";
 *     ast_recording_t *recording = ast_recording_open(&path, 1, NULL, &error);
 *     if (!recording) return fprintf(stderr, "%s\n", error.text), 2;
 *     ast_recording_block_t block;
 *     while (ast_recording_next(recording, &block)) printf("%u %s\n", block.octets[0], block.read.edition);
 *     ast_recording_close(recording);
 *
 * What holds everywhere:
 *
 * - A recording belongs to one thread at a time, but for ast_recording_interrupt. Any number of them may be open in a
 *   process, also of the same file; they share nothing.
 * - What is damaged, not supported or left out never ends the reading: it goes to the caller's report function, as
 * data, between the blocks that it stands between, and reading goes on behind it. Nothing is written to a standard
 * stream. ast_library's log stays the caller's: reading tries profiles that do not fit, which log; silence it with
 *   ast_log_handler_reg(NULL) where that disturbs.
 * - Unlike the first library, this one allocates, and it starts threads where that is said. Without memory, opening
 *   fails and reading ends, with AST_RECORDING_FAILED.
 * - Structs that the caller fills in are all zero for the defaults: use = {0}. Their last member is room for what
 *   later versions add.
 *
 * Link with -last-recording -last, by pkg-config ast-recording or by the target ast::recording. */
#ifndef AST_RECORDING_H
#define AST_RECORDING_H

#include "ast.h"

#if defined(__GNUC__)
#define AST_RECORDING_API __attribute__((visibility("default")))
#else
#define AST_RECORDING_API
#endif

AST_BEGIN_DECLARATIONS

/** An open recording. */
typedef struct ast_recording ast_recording_t;

/* ------------------------------------------------------------------------------------------------ times and addresses
 * --
 */

/** A time of which nothing is known. */
#define AST_TIME_UNKNOWN INT64_MIN

/** One end of the way that a datagram or a stream took. */
typedef struct {
    uint8_t family;     /* 4 or 6, the version of IP; 0 where nothing is known, and then all else is 0 */
    uint8_t octets[16]; /* of the address, as they stand in a packet; the first four for IPv4 */
    uint16_t port;
    uint32_t scope; /* of a link-local IPv6 address, the index of its interface; 0 where that is not known */
} ast_endpoint_t;

/** Writes "10.0.0.1:8600" or "[2001:db8::1]:8600", or nothing where nothing is known: cut at the capacity, and
 *  terminated. Returns the length of the whole text. */
AST_RECORDING_API uint64_t ast_endpoint_to_text(char *text, uint64_t capacity, const ast_endpoint_t *endpoint);

/** Writes "2014-02-25 12:43:47.401501", in UTC, of nanoseconds since 1970-01-01, with nine digits where six do not tell
 *  all; nothing for AST_TIME_UNKNOWN. Otherwise as above. */
AST_RECORDING_API uint64_t ast_time_to_text(char *text, uint64_t capacity, int64_t time_ns);

/* ---------------------------------------------------------------------------------------------------------- reports --
 */

/* What a report means. */
#define AST_REPORT_DAMAGED UINT32_C(0)       /* something is lost */
#define AST_REPORT_UNSUPPORTED UINT32_C(1)   /* in order, as far as can be told, but of no known category or edition */
#define AST_REPORT_OTHER_TRAFFIC UINT32_C(2) /* a capture has something else beside ASTERIX */
#define AST_REPORT_NOTE UINT32_C(3)          /* worth knowing; nothing is lost */

/* Why something is reported. In brackets, what members of the report are set beside kind, reason, file and count. */
#define AST_REASON_NOTE UINT32_C(0)          /* what detail says */
#define AST_REASON_UNREADABLE UINT32_C(1)    /* an input cannot be opened or read: detail says why */
#define AST_REASON_UNFINISHED UINT32_C(2)    /* an input is not read to its end: detail says why */
#define AST_REASON_FRAGMENTS UINT32_C(3)     /* of so many datagrams (count), fragments are missing */
#define AST_REASON_DROPPED UINT32_C(4)       /* so many datagrams (count) came faster than they were taken */
#define AST_REASON_TRUNCATED UINT32_C(5)     /* only the first octets of a datagram were captured (packet, octets) */
#define AST_REASON_UNDISSECTED UINT32_C(6)   /* headers of a packet contradict themselves (packet): detail says how */
#define AST_REASON_STREAM_GAP UINT32_C(7)    /* octets of a TCP stream are missing (packet, sender, receiver, octets) */
#define AST_REASON_STREAM_REST UINT32_C(8)   /* behind these, octets that begin no block (as above) */
#define AST_REASON_SHORT_HEADER UINT32_C(9)  /* too few octets for CAT and LEN (packet, offset, available, octets) */
#define AST_REASON_SHORT_LENGTH UINT32_C(10) /* LEN is less than 3 (the same, category, length) */
#define AST_REASON_PAST_END UINT32_C(11)     /* LEN is more than there is (the same) */
#define AST_REASON_TEXT UINT32_C(12)         /* octets of text (packet, offset, available, octets) */
#define AST_REASON_NO_BLOCKS UINT32_C(13)    /* octets that are no blocks (the same) */
#define AST_REASON_NO_FRAME UINT32_C(14)     /* octets that are no frame of the framing in detail (offset, octets) */
#define AST_REASON_LINE UINT32_C(15)         /* a line that is no record (line, character, path): detail says why */
#define AST_REASON_BLOCK                                                                                               \
    UINT32_C(16) /* a block breaks off (packet, offset, category, length, and those of the                             \
                    block): detail says why */
#define AST_REASON_OTHER_DATAGRAM UINT32_C(17) /* (packet, sender, receiver, octets), the first of them in detail */
#define AST_REASON_OTHER_STREAM UINT32_C(18)   /* of TCP (sender, receiver) */

/** An offset where there is none. */
#define AST_OFFSET_NONE UINT64_MAX

/** One thing that was not read, or that is worth knowing. Texts are good until the report function returns. */
typedef struct {
    uint32_t kind;     /* AST_REPORT_... */
    uint32_t reason;   /* AST_REASON_... */
    const char *file;  /* the input that it is about, as ast_recording_open was given it */
    uint64_t packet;   /* its number in the capture, from 1; 0 where it is about none */
    uint64_t offset;   /* of the first octet: in the file as it is without compression, or, with a packet, in the octets
                          that this transports; AST_OFFSET_NONE where there is none */
    uint64_t octets;   /* that are lost, or what the reason says; 0 where that is not known */
    uint64_t count;    /* of what is reported at once, 1 as a rule */
    uint32_t category; /* of the block; 0 where it is about none */
    uint32_t available; /* octets that were there of the block */
    uint64_t length;    /* LEN of the block */
    const char *detail; /* what the reason cannot say; never null */
    ast_endpoint_t sender;
    ast_endpoint_t receiver;

    /* Of AST_REASON_LINE. */
    uint64_t line;      /* from 1 */
    uint64_t character; /* from 1 */
    const char *path;   /* of the member that is wrong, "" where that is not known; never null */

    /* Of AST_REASON_BLOCK. */
    uint32_t split_reason;    /* AST_SPLIT_... */
    uint32_t frn;             /* of the item at fault; 0 for none */
    ast_dataitem_type_t item; /* that this announces */
    uint32_t record;          /* in which it lies, from 1; those before it were read */
    uint32_t items;           /* of that record, before it */
    uint64_t fault;           /* where it is, in octets of the block */
} ast_recording_report_t;

/** Is told each thing as it is met, within ast_recording_open, ast_recording_next and its companion, on the thread that
 *  calls these. The report and its texts are good until it returns. It must not call back into the recording, but for
 *  ast_recording_interrupt. */
typedef void (*ast_recording_report_function_t)(void *context, const ast_recording_report_t *report);

/** Writes the whole sentence about a report, without the name of its file: "offset 12: category 048: LEN is 2, less
 * than the block header; 9 octets skipped". Cut at the capacity, and terminated. Returns the length of the whole text.
 */
AST_RECORDING_API uint64_t ast_recording_report_to_text(char *text, uint64_t capacity,
                                                        const ast_recording_report_t *report);

/** Writes what reports of the same cause have in common, to count them by: "category 048: LEN is less than the block
 *  header". Otherwise as above. */
AST_RECORDING_API uint64_t ast_recording_report_get_cause(char *text, uint64_t capacity,
                                                          const ast_recording_report_t *report);

/** "damaged", "not supported", "not ASTERIX" or "note"; constant. "" for a number that is none of AST_REPORT_... */
AST_RECORDING_API const char *ast_recording_report_kind_to_str(uint32_t kind);

/* ---------------------------------------------------------------------------------------------------------- opening --
 */

/** What may be asked of a recording; all zero for what astdump does without options. Texts are copied. */
typedef struct {
    const char *framing;    /* how the blocks of files are wrapped: "raw", "final", "gps", "oradis", "hdlc", "mac-llc",
                               "hex" or "json"; null or "auto" where the content is to tell */
    const char *profile;    /* that is read with, as far as it lays out a category: "cat021-2.1"; null or "auto" for the
                               one that fits each data source, learnt from the beginning of files */
    const char *categories; /* of the blocks that are handed over: "34,48" or "1-21"; null for all */
    const char *ports;      /* that datagrams come from or go to: "8600-8620,9000"; null for all */
    const char *hosts;      /* the same: "10.1.0.0/16,10.2.3.4-10.2.3.9", also IPv6; null for all */
    const char *from;       /* what came at this time or later: "12:00", "2014-02-25T12:43:47Z"; null for all */
    const char *to;         /* or at this one or before */
    const char *interface;  /* that udp:// listens on, by name or address; null for the system's choice */
    bool merge;             /* several inputs as one, by the times of their datagrams, not one after the other */
    bool follow;            /* wait for more at the end of a file that grows; of one input */
    uint32_t threads;       /* that read and split ahead of the caller, at most 256; blocks come in the same order. 0
                               reads within ast_recording_next, but for what comes over the network, for which, as for
                               standard input and files that grow, one thread is started in any case */
    ast_recording_report_function_t report; /* null drops what is reported */
    void *context;                          /* its first argument */
    const void *reserved[8];                /* null */
} ast_recording_options_t;

/* Why a recording cannot be opened, or read any further. */
#define AST_RECORDING_OK UINT32_C(0)
#define AST_RECORDING_BAD_OPTION UINT32_C(1)    /* an option, or a URL, says nothing that has a meaning */
#define AST_RECORDING_NOT_FOUND UINT32_C(2)     /* there is no such file, host or interface */
#define AST_RECORDING_NO_ACCESS UINT32_C(3)     /* the system does not allow it */
#define AST_RECORDING_NO_CONNECTION UINT32_C(4) /* the other side refuses, or cannot be reached */
#define AST_RECORDING_UNREADABLE UINT32_C(5)    /* the input is of a kind that cannot be read, or reading it fails */
#define AST_RECORDING_NO_MEMORY UINT32_C(6)

/** What went wrong: a code and a sentence. */
typedef struct {
    uint32_t code; /* AST_RECORDING_... */
    char text[500];
} ast_recording_error_t;

/** Opens inputs, to be read one after the other or merged.
 *  inputs   paths, "-" for standard input, udp://HOST:PORT (several are listened to at once), or one tcp://HOST:PORT;
 *           copied
 *  count    how many; 0 is AST_RECORDING_BAD_OPTION
 *  options  null for the defaults
 *  error    is set whatever comes; null when nobody asks
 *  Returns null when an option is wrong, a file is not there, or an address cannot be listened to. A connection is made
 *  by the first ast_recording_next, which can be interrupted. */
AST_RECORDING_API ast_recording_t *ast_recording_open(const char *const *inputs, uint64_t count,
                                                      const ast_recording_options_t *options,
                                                      ast_recording_error_t *error);

/** Opens what a file would hold, in memory: a capture, blocks, whatever it is.
 *  octets  borrowed until the recording is closed; may be null where count is 0
 *  name    stands for the file in blocks and reports; copied; null for "memory" */
AST_RECORDING_API ast_recording_t *ast_recording_open_octets(const uint8_t *octets, uint64_t count, const char *name,
                                                             const ast_recording_options_t *options,
                                                             ast_recording_error_t *error);

/** Closes a recording, ends its threads, and frees all that it handed out. Null is none. */
AST_RECORDING_API void ast_recording_close(ast_recording_t *recording);

/* ---------------------------------------------------------------------------------------------------------- reading --
 */

/** One block as it came: whole by its LEN, whether its records can be read or not. What it points to is good until the
 *  next call with its recording. */
typedef struct {
    const uint8_t *octets; /* from the CAT octet on */
    uint64_t length;       /* LEN */
    uint64_t number;       /* in its file, from 1 */
    uint64_t datagram;     /* that it came in, in its file, from 1: blocks of one datagram or frame share it. Blocks
                              back to back, in a file or a stream, are of one as far as they were read together */
    uint64_t packet;       /* of a capture, from 1; 0 where there are none */
    uint64_t offset;       /* of the CAT octet: in the file as it is without compression, or, with a packet, in the
                              octets that this transports. Of JSON, that of the line of its first record */
    const char *file;      /* as ast_recording_open was given it */
    int64_t time_ns;       /* when it was recorded, since 1970-01-01 UTC, or within the first day of 1970 where the
                              recorder knows no date; AST_TIME_UNKNOWN */
    ast_endpoint_t sender;
    ast_endpoint_t receiver;
    ast_reader_result_t read; /* whether its records fill it, by which profile and edition, and where it breaks off */
} ast_recording_block_t;

/** The next block that was asked for; waits for it as long as that takes.
 *  Returns false at the end, after an interruption, and where nothing more can be read; ast_recording_get_state tells
 *  which, and then it stays false. The block is then all zero. */
AST_RECORDING_API bool ast_recording_next(ast_recording_t *recording, ast_recording_block_t *block);

/** The same, but waits no longer than so many milliseconds: then it returns false with AST_RECORDING_QUIET, and may be
 *  called again. Only for recordings with a thread of their own (options.threads, or an input that gets one in any
 *  case); others never wait. */
AST_RECORDING_API bool ast_recording_next_within(ast_recording_t *recording, ast_recording_block_t *block,
                                                 uint32_t timeout_ms);

/** Decodes the block that was handed over last, with the profile that it was read with.
 *  block  the caller's, 54 KB: static or heap storage; its records point into the octets of the block that was handed
 *         over and are good for as long
 *  Returns whether it is valid; what was read before a fault is kept, up to the records and items that a decoded block
 *  has room for. False, and leaves the block alone, before the first one. */
AST_RECORDING_API bool ast_recording_decode(ast_recording_t *recording, ast_datablock_t *block);

/* What a recording is about to do. */
#define AST_RECORDING_READING UINT32_C(0)     /* more may come */
#define AST_RECORDING_QUIET UINT32_C(1)       /* nothing came in the time that was given */
#define AST_RECORDING_ENDED UINT32_C(2)       /* all is read */
#define AST_RECORDING_INTERRUPTED UINT32_C(3) /* by ast_recording_interrupt */
#define AST_RECORDING_FAILED UINT32_C(4)      /* all is read but at least one input, which could not be, or not whole */

/** How far a recording has got. */
typedef struct {
    uint32_t phase;       /* AST_RECORDING_READING to AST_RECORDING_FAILED */
    const char *file;     /* that is read, null before the first; good until the next call */
    const char *framing;  /* how its blocks are wrapped and how it is compressed: "raw", "pcap, gzip"; null likewise */
    uint64_t octets_read; /* of all files, as they are without compression */
    uint64_t file_octets; /* of the file that is read; 0 where that is not known */
    uint64_t blocks;      /* handed over */
    ast_recording_error_t error; /* with AST_RECORDING_FAILED, the first that there was */
} ast_recording_state_t;

/** Writes how far it is. Returns its phase. */
AST_RECORDING_API uint32_t ast_recording_get_state(const ast_recording_t *recording, ast_recording_state_t *state);

/** Ends any wait and any search within a tenth of a second, and all that follow. From any thread, and from a signal
 *  handler, as long as the recording is not closed. Null is none. */
AST_RECORDING_API void ast_recording_interrupt(ast_recording_t *recording);

AST_END_DECLARATIONS

#endif
