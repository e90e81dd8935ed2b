/* ast_recording: opens recordings and streams of ASTERIX and hands over their blocks, one after the other.
 *
 * SPDX-License-Identifier: MIT
 *
 * A second library beside the one of ast.h, which it is built upon. That one is handed octets; this one finds them: in
 * captures (pcap and pcapng, of UDP, TCP and LLC frames), in files of blocks back to back or as recorders wrap them, in
 * records as JSON, all of them also in gzip or zstd, on standard input, in memory, and on the network as they come. It
 * also chooses records by what they hold, hands them out as columns, and sends datagrams, at the times of a recording,
 * and to those who connect.
 *
 *     static void tell(void *context, const ast_recording_report_t *report) {
 *         (void)context;
 *         char text[500];
 *         ast_recording_report_to_text(text, sizeof text, report);
 *         fprintf(stderr, "%s: %s\n", report->file, text);
 *     }
 *
 *     const char *inputs[] = {"radar.pcap"};
 *     const ast_recording_options_t options = {.report = tell};
 *     ast_recording_error_t error;
 *     ast_recording_t *recording = ast_recording_open(inputs, 1, &options, &error);
 *     if (!recording) return fprintf(stderr, "%s\n", error.text), 2;
 *     ast_recording_block_t block;
 *     ast_datarecord_t record;
 *     while (ast_recording_next(recording, &block))
 *         for (uint64_t r = 0; ast_recording_get_record(recording, r, &record); ++r)
 *             printf("%06X\n", ast_datarecord_get_icaoaddr(&record).address);
 *     ast_recording_state_t state;
 *     const bool is_read = ast_recording_get_state(recording, &state) == AST_RECORDING_ENDED; // why not has been told
 *     ast_recording_close(recording);
 *
 * What holds everywhere:
 *
 * - A recording belongs to one thread at a time, but for ast_recording_interrupt. Any number of them may be open in a
 *   process, also of the same file; they share nothing.
 * - What is damaged, not supported or left out never ends the reading: it goes to the caller's report function, as
 *   data, and reading goes on behind it. Nothing is written to a standard stream, nor to the log of ast.h.
 * - What is handed over, a block with its octets and texts, is the recording's own and good until the next call of
 *   ast_recording_next, ast_recording_next_within or ast_recording_close with it.
 * - Unlike the first library, this one allocates, and it starts threads where that is said. They block all signals.
 * - Structs that the caller fills in are all zero for the defaults: use = {0}. Texts in them may be null or empty.
 *
 * Link with -last-recording -last, by pkg-config ast-recording or by the CMake target ast::recording. */
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

/* ------------------------------------------------------------------------------------------- times and addresses -- */

/** A time of which nothing is known. */
#define AST_TIME_UNKNOWN INT64_MIN

/** Room for any text of a time, and of an endpoint, in octets. */
#define AST_TIME_TEXT_OCTETS 40
#define AST_ENDPOINT_TEXT_OCTETS 80

/** One end of the way that a datagram or a stream took. */
typedef struct {
    uint8_t family;     /* 4 or 6, the version of IP; 0 where nothing is known, and then all else is 0 */
    uint8_t octets[16]; /* of the address, as they stand in a packet; the first four for IPv4 */
    uint16_t port;      /* of UDP or TCP */
    uint32_t scope;     /* of a link-local IPv6 address, the index of its interface; 0 where that is not known */
} ast_endpoint_t;

/** Writes "10.0.0.1:8600" or "[2001:db8::1]:8600", or nothing where nothing is known: cut at the capacity, and
 *  terminated. Returns the length of the whole text. */
AST_RECORDING_API uint64_t ast_endpoint_to_text(char *text, uint64_t capacity, const ast_endpoint_t *endpoint);

/** Writes "2014-02-25 12:43:47.401501", in UTC, of nanoseconds since 1970-01-01, with nine digits where six do not tell
 *  all; nothing for AST_TIME_UNKNOWN. Otherwise as above. */
AST_RECORDING_API uint64_t ast_time_to_text(char *text, uint64_t capacity, int64_t time_ns);

/* ------------------------------------------------------------------------------------------------------- reports -- */

/* What a report means. */
#define AST_REPORT_DAMAGED UINT32_C(0) /* something is lost */
#define AST_REPORT_UNSUPPORTED                                                                                         \
    UINT32_C(1)                              /* in order, as far as can be told, but of no known category, edition or  \
                                                item */
#define AST_REPORT_OTHER_TRAFFIC UINT32_C(2) /* a capture has something else beside ASTERIX */
#define AST_REPORT_NOTE UINT32_C(3)          /* worth knowing; nothing is lost */
#define AST_REPORT_UNREADABLE UINT32_C(4)    /* an input cannot be opened, or read any further */
#define AST_REPORT_KINDS 5

/* Why something is reported, with the kind that it has, DAMAGED unless another one is named. In brackets, the members
 * that are set beside kind, reason, file and count. */
#define AST_REASON_NOTE UINT32_C(0)          /* NOTE: what detail says */
#define AST_REASON_UNREADABLE UINT32_C(1)    /* UNREADABLE: detail says why */
#define AST_REASON_UNFINISHED UINT32_C(2)    /* what is packed or captured is not whole: detail says why */
#define AST_REASON_FRAGMENTS UINT32_C(3)     /* of so many datagrams (count), fragments are missing */
#define AST_REASON_DROPPED UINT32_C(4)       /* so many datagrams (count) came faster than they were taken */
#define AST_REASON_TRUNCATED UINT32_C(5)     /* the capture has cut a datagram (its place, available, octets) */
#define AST_REASON_UNDISSECTED UINT32_C(6)   /* the headers of a packet make no sense (packet): detail says why */
#define AST_REASON_STREAM_GAP UINT32_C(7)    /* octets of a TCP stream are missing (packet, sender, receiver, octets) */
#define AST_REASON_STREAM_REST UINT32_C(8)   /* behind these, octets that begin no block (the same) */
#define AST_REASON_SHORT_HEADER UINT32_C(9)  /* too few octets for CAT and LEN (its place, available, octets) */
#define AST_REASON_SHORT_LENGTH UINT32_C(10) /* LEN is less than 3 (the same, category, length) */
#define AST_REASON_PAST_END UINT32_C(11)     /* LEN is more than there is up to the next block (the same) */
#define AST_REASON_TEXT UINT32_C(12)         /* octets of text (its place, available, octets) */
#define AST_REASON_NO_BLOCKS UINT32_C(13)    /* octets that are no blocks (the same) */
#define AST_REASON_NO_FRAME UINT32_C(14)     /* octets that are no frame of the framing in detail (offset, octets) */
#define AST_REASON_LINE UINT32_C(15)         /* a line that is no record (line, character, path): detail says why */
#define AST_REASON_BLOCK UINT32_C(16)        /* DAMAGED, UNSUPPORTED or OTHER_TRAFFIC: a block breaks off, see below */
#define AST_REASON_OTHER_DATAGRAM UINT32_C(17) /* OTHER_TRAFFIC (its place, available): detail has the first octets */
#define AST_REASON_OTHER_STREAM UINT32_C(18)   /* OTHER_TRAFFIC, of TCP (sender, receiver) */
#define AST_REASON_TRAILERS UINT32_C(19)       /* NOTE: octets (available) behind the blocks of datagrams (count) */

/** An offset where there is none. */
#define AST_OFFSET_NONE UINT64_MAX

/** One thing that was not read, or that is worth knowing. Texts are good until the report function returns. Where a
 *  datagram or packet is at hand, its place is packet, offset, sender and receiver; else it is the offset. */
typedef struct {
    uint32_t kind;    /* AST_REPORT_... */
    uint32_t reason;  /* AST_REASON_... */
    const char *file; /* the input that it is about, as ast_recording_open was given it; "" where it is about several;
                         never null */
    uint64_t count;   /* of what is reported at once, 1 as a rule */
    uint64_t packet;  /* its number in the capture, or of the datagram on the network, from 1; 0 where there is none */
    uint64_t offset;  /* of the first octet: in the file as it is without compression; of a datagram, in its octets; of
                         TCP in a capture, in the stream. AST_OFFSET_NONE where there is none */
    uint64_t octets;  /* that are lost; 0 where that is not known or there are none: a sum of these is what is known to
                         be lost */
    uint64_t available;      /* octets that are there of what it is about */
    uint64_t length;         /* LEN of the block */
    uint32_t category;       /* of the block; 0 where it is about none */
    ast_endpoint_t sender;   /* where it came from, as far as it is known */
    ast_endpoint_t receiver; /* where it was sent to, as far as it is known */
    const char *detail;      /* what the reason cannot say; never null */

    /* Of AST_REASON_LINE. */
    uint64_t line;      /* from 1 */
    uint64_t character; /* from 1 */
    const char *path;   /* of the member that is wrong, "" where that is not known; never null */

    /* Of AST_REASON_BLOCK, which sets its place, category, length and octets, too: detail says why it breaks off. It
     * is told behind its block, by the call that follows; the names are those of ast_reader_result_t. */
    uint64_t block;                  /* its number */
    uint64_t record;                 /* that breaks off, from 1; those before it were read */
    uint64_t items;                  /* that were read of that record */
    uint32_t split_reason;           /* why, AST_SPLIT_... */
    uint64_t end;                    /* where, in octets from the CAT octet */
    uint32_t broken_frn;             /* the FRN of the item at fault, 0 for none */
    ast_dataitem_type_t broken_type; /* what that FRN announces */
} ast_recording_report_t;

/** Is told each thing as it is met, on the thread that calls ast_recording_open, ast_recording_next or
 *  ast_recording_next_within, in the order of the recording as far as that can be; what only the rest of a recording
 *  tells, such as other traffic and missing fragments, comes at its end. It must not call functions that take the
 *  recording, but for ast_recording_interrupt; those that take the report are meant for it. Blocks that options leave
 * out are not reported on, nor is why ast_recording_open returns null. */
typedef void (*ast_recording_report_function_t)(void *context, const ast_recording_report_t *report);

/** Writes the whole sentence about a report, place included, without the name of its file: "offset 12: category 048:
 * LEN is 2, less than the block header; 9 octets skipped". Cut at the capacity, and terminated; 500 octets do as a
 * rule. Returns the length of the whole text. */
AST_RECORDING_API uint64_t ast_recording_report_to_text(char *text, uint64_t capacity,
                                                        const ast_recording_report_t *report);

/** Writes its place alone: "offset 12", "packet 5, octet 0" (the offset in its octets), "line 3, character 1", or
 * nothing where it has none. Otherwise as above. */
AST_RECORDING_API uint64_t ast_recording_report_get_place(char *text, uint64_t capacity,
                                                          const ast_recording_report_t *report);

/** Writes what reports of the same cause have in common, to count them by: "category 048: LEN is less than the block
 *  header". Otherwise as above. */
AST_RECORDING_API uint64_t ast_recording_report_get_cause(char *text, uint64_t capacity,
                                                          const ast_recording_report_t *report);

/** "damaged", "not supported", "not ASTERIX", "note" or "not readable"; constant. "" for a number that is none of
 *  AST_REPORT_... */
AST_RECORDING_API const char *ast_recording_report_kind_to_str(uint32_t kind);

/* ------------------------------------------------------------------------------------------------------- opening -- */

/** What may be asked of a recording. Texts are copied. */
typedef struct {
    const char *framing;    /* how the blocks of files are wrapped: "raw", "final", "gps", "oradis", "hdlc", "mac-llc",
                               "hex", "text" or "json"; null or "auto" where the content is to tell */
    const char *profile;    /* that is read with, as far as it lays out a category: "cat021-2.1"; null or "auto" for the
                               one that fits each data source, learnt from the beginning of files before they are read,
                               and on the network from what has come */
    const char *categories; /* of the blocks that are handed over: "34,48" or "1-21"; null for all. Others keep their
                               numbers */
    const char *ports;      /* that datagrams come from or go to: "8600-8620,9000"; null for all. Blocks of others are
                               not counted */
    const char *hosts;      /* the same: "10.1.0.0/16,10.2.3.4-10.2.3.9", also IPv6 */
    const char *from;       /* what was received at this time or later, in UTC: "2014-02-25T12:43:47.5Z", also with a
                               blank for the T, and without the Z, the fraction or the seconds; or "12:43:47", without
                               the date: then on the day of the first datagram, or on the next one, where that is
                               nearer.
                               Without a time of its own, or without a date where one is asked for, nothing is chosen */
    const char *to;         /* what was received at this time or before. Without a date, the first such time behind the
                               beginning, or, if that is later, behind `from` */
    const char *network_interface; /* that udp:// listens on, by name or address; null for the system's choice */
    bool merge;  /* several inputs as one, by the times of their datagrams, of equal ones by the order of the inputs.
                    Each keeps its own order. Times without a date are put on the day that brings them nearest to the
                    first datagram of the first input that has one, but are handed over as they are. An input without
                    times ends the reading */
    bool follow; /* wait for more at the end of a file that grows; of one input */
    uint32_t threads; /* that read and split ahead of the caller, at most 256; blocks come in the same order. 0: they
                         are read within ast_recording_next; but what has to be waited for, from the network, standard
                         input, a pipe or a file that grows, is always read by a thread. Of a file of JSON as many again
                         encode its lines, at most 8 */
    ast_recording_report_function_t report; /* null drops what is reported */
    void *context;                          /* its first argument */
    const void *reserved[8];                /* null */
} ast_recording_options_t;

/* Why a recording or a sender cannot be opened, an input not read, or a datagram not sent. */
#define AST_RECORDING_ERROR_NONE UINT32_C(0)
#define AST_RECORDING_ERROR_OPTION UINT32_C(1)     /* an option, or a URL, has no meaning */
#define AST_RECORDING_ERROR_NOT_FOUND UINT32_C(2)  /* there is no such file, host, address or interface */
#define AST_RECORDING_ERROR_NO_ACCESS UINT32_C(3)  /* the system does not allow it */
#define AST_RECORDING_ERROR_IN_USE UINT32_C(4)     /* another program listens to that port */
#define AST_RECORDING_ERROR_CONNECTION UINT32_C(5) /* the other side refuses, or cannot be reached */
#define AST_RECORDING_ERROR_INPUT UINT32_C(6)      /* it is of a kind that cannot be read or sent, or that fails */
#define AST_RECORDING_ERROR_MEMORY UINT32_C(7)

/** What went wrong: a code, and a sentence with the name of the input. */
typedef struct {
    uint32_t code;  /* AST_RECORDING_ERROR_... */
    char text[500]; /* the sentence, terminated */
} ast_recording_error_t;

/** Opens inputs, to be read one after the other or merged.
 *  inputs   paths, "-" for standard input, udp://HOST:PORT (several are listened to at once, as one input), or one
 *           tcp://HOST:PORT; copied
 *  count    how many, at least 1
 *  options  null for the defaults
 *  error    is set whatever comes; null when nobody asks
 *  Returns null when an option has no meaning, a file is not there or may not be read, or an address cannot be listened
 *  to. All else shows when it is read: that a file is a directory, or no capture after all, is reported, and the inputs
 *  behind it are read. A connection is made by a thread of the recording, so that it can be interrupted: the first
 *  ast_recording_next waits for it. */
AST_RECORDING_API ast_recording_t *ast_recording_open(const char *const *inputs, uint64_t count,
                                                      const ast_recording_options_t *options,
                                                      ast_recording_error_t *error);

/** Opens what a file would hold, in memory: a capture, blocks, whatever it is.
 *  octets  borrowed until the recording is closed; null only where count is 0
 *  name    stands for the file in blocks and reports; copied; null for "memory"
 *  Options for several inputs and for what grows have no meaning here. Otherwise as above. */
AST_RECORDING_API ast_recording_t *ast_recording_open_octets(const uint8_t *octets, uint64_t count, const char *name,
                                                             const ast_recording_options_t *options,
                                                             ast_recording_error_t *error);

/** Closes a recording, ends its threads, and frees all that it handed out. Null is none. */
AST_RECORDING_API void ast_recording_close(ast_recording_t *recording);

/* ------------------------------------------------------------------------------------------------------- reading -- */

/* What a block turns out to be. */
#define AST_BLOCK_WHOLE UINT32_C(0)         /* its records fill it */
#define AST_BLOCK_DAMAGED UINT32_C(1)       /* its octets contradict themselves */
#define AST_BLOCK_UNSUPPORTED UINT32_C(2)   /* it is of no known category or edition, or has more than a record holds */
#define AST_BLOCK_OTHER_TRAFFIC UINT32_C(3) /* it only begins like one */

/** One block as it came: whole by its LEN, whether its records can be read or not. */
typedef struct {
    const uint8_t *octets; /* from the CAT octet on */
    uint64_t length;       /* LEN */
    uint64_t records;      /* that can be read; of a block that breaks off, those before that */
    uint64_t input;        /* place of its input among those of ast_recording_open, from 0 */
    const char *file;  /* the name of that, as it was given; of several addresses, all of them set apart by blanks */
    uint64_t number;   /* of the block in its input, from 1; where inputs are merged, in all of them together */
    uint64_t datagram; /* blocks of one datagram or frame share this number, counted likewise. A file of blocks back
                          to back has no datagrams; what is read of it at a time counts as one */
    uint64_t packet;   /* in a capture, or of the datagram on the network, from 1; 0 where there are none */
    uint64_t offset;   /* of the CAT octet: in the file as it is without compression; of a datagram, in its octets; of
                          TCP in a capture, in the stream. Of JSON, that of the line of its first record */
    int64_t time_ns;   /* when it was received, since 1970-01-01 UTC, by the clock of the recorder, or of this host
                          when it was taken from the network. Of a recorder that knows no date, since the beginning of
                          its first day, as if that were 1970-01-01. AST_TIME_UNKNOWN where there is none */
    ast_endpoint_t sender;    /* where it came from, as far as it is known */
    ast_endpoint_t receiver;  /* where it was sent to, as far as it is known */
    ast_reader_result_t read; /* whether its records fill it, by which profile and edition, and where it breaks off;
                                 category and length are the block's */
    uint32_t state;           /* AST_BLOCK_..., which says what is reported on it, if anything */
} ast_recording_block_t;

/** The next block that was asked for; waits for it as long as that takes.
 *  Returns false, and sets the block to zero, at the end, after an interruption, and where nothing more can be read;
 *  ast_recording_get_state tells which, and it stays so. */
AST_RECORDING_API bool ast_recording_next(ast_recording_t *recording, ast_recording_block_t *block);

/** The same, but returns false with AST_RECORDING_QUIET when there is no block within so many milliseconds, whatever
 * else comes, and may be called again then. Of a recording without a thread of its own (options.threads), which never
 * waits for anything, it is as ast_recording_next. */
AST_RECORDING_API bool ast_recording_next_within(ast_recording_t *recording, ast_recording_block_t *block,
                                                 uint32_t timeout_ms);

/** A record of the block that the last call handed over, read with the profile of that block.
 *  index   from 0
 *  record  the caller's; its octets are those of the block
 *  Returns false, and leaves the record alone, from block.records on. There is no limit on the records of a block. */
AST_RECORDING_API bool ast_recording_get_record(ast_recording_t *recording, uint64_t index, ast_datarecord_t *record);

/** Decodes that block into one of the caller's, as ast_reader_decode does, for those who need it whole.
 *  block  54 KB: static or heap storage; its octets are those of the block that was handed over. It has room for
 *         AST_DATABLOCK_MAX_RECORDS records; further ones are left out, and it is not valid then
 *  Returns whether it is valid. False, and leaves the block alone, when the last call handed over none. */
AST_RECORDING_API bool ast_recording_decode(ast_recording_t *recording, ast_datablock_t *block);

/* What a recording is about to do. */
#define AST_RECORDING_READING UINT32_C(0)     /* more may come */
#define AST_RECORDING_QUIET UINT32_C(1)       /* no block came in the time that was given; more may come */
#define AST_RECORDING_ENDED UINT32_C(2)       /* all is read, damaged or not */
#define AST_RECORDING_INTERRUPTED UINT32_C(3) /* by ast_recording_interrupt */
#define AST_RECORDING_FAILED UINT32_C(4)      /* there is nothing left to read, and an input could not be: see error */

/** How far a recording has got. */
typedef struct {
    uint32_t phase;       /* AST_RECORDING_READING to AST_RECORDING_FAILED */
    const char *file;     /* the input that is read, as it was given; null before the first. This and the next are good
                             until the next call for a block */
    const char *framing;  /* how its blocks are wrapped and how it is compressed: "raw", "pcap, gzip", "udp" */
    uint64_t octets_read; /* of files, as they are without compression, and of datagrams from the network */
    uint64_t file_octets; /* of the file that is read; 0 where that is not known */
    uint64_t blocks;      /* handed over */
    uint64_t reports[AST_REPORT_KINDS]; /* by kind, that there were, told or dropped: a recording without damage has
                                           none of AST_REPORT_DAMAGED and _UNREADABLE */
    ast_recording_error_t error;        /* with AST_RECORDING_FAILED, the first that there was */
} ast_recording_state_t;

/** Writes how far it is. Returns its phase. */
AST_RECORDING_API uint32_t ast_recording_get_state(const ast_recording_t *recording, ast_recording_state_t *state);

/** Ends any wait and any search within a tenth of a second; no call hands over a block from then on. From any thread,
 * and from a signal handler, as long as the recording is not closed. Null is none. */
AST_RECORDING_API void ast_recording_interrupt(ast_recording_t *recording);

/* ------------------------------------------------------------------------------------------------------ choosing -- */

/** What records must hold to be wanted: conditions as users write them, joined to an expression.
 *
 *      squawk in (7500, 7600, 7700) or callsign = DLH* and not (fl < 100)
 *      I048/020/TYP = "ModeS roll-call" and within 40nm of 48.35,11.79
 *
 *  docs/filter.md has the grammar, and all names. It is read once:
 *
 *      ast_filter_error_t mistake;
 *      ast_filter_t *filter = ast_filter_open("squawk = 7700 or emergency = 1", &mistake);
 *      if (!filter) return fprintf(stderr, "%s\n", mistake.text), 2;
 *      while (ast_recording_next(recording, &block))
 *          for (uint64_t r = 0; ast_recording_get_record(recording, r, &record); ++r)
 *              if (ast_filter_matches(filter, &record, NULL)) show(&record);
 *      ast_filter_close(filter);
 *
 *  Any number of threads may ask the same one at once; it keeps nothing of a record. */
typedef struct ast_filter ast_filter_t;

/** What is wrong in an expression, and where. */
typedef struct {
    uint64_t position; /* octets of the expression in front of what is wrong */
    uint64_t length;   /* octets of that; 0 where something is missing */
    char text[1000];   /* "'sqawk' is no quantity, nor a path such as I070/MODE3A; did you mean squawk?"; "" for none */
} ast_filter_error_t;

/** Reads an expression.
 *  expression  copied; the file behind "inside" is read here
 *  error       is set whatever comes; null when nobody asks
 *  Returns null when the expression has no meaning, is empty or null, or names a file that is no area. */
AST_RECORDING_API ast_filter_t *ast_filter_open(const char *expression, ast_filter_error_t *error);

/** Whether a record meets it. Allocates nothing.
 *  record   a decoded record of any category, from wherever it came; read only
 *  answers  what ast_datarecord_get_answers said of it, completed with ast_sites_locate where positions are to be known
 *           that are not sent; null to have the record asked, without a time of reception, hence without a timestamp
 *  False without a filter or a record. */
AST_RECORDING_API bool ast_filter_matches(const ast_filter_t *filter, const ast_datarecord_t *record,
                                          const ast_answers_t *answers);

/** Whether it asks for latitude and longitude. */
AST_RECORDING_API bool ast_filter_asks_position(const ast_filter_t *filter);

/** Writes what is asked for under one name that means different quantities in different categories: "I140 is Time of
 * Day (s) in 048; Geometric Height (ft) in 021", a line for each; nothing as a rule. Cut at the capacity, and
 * terminated. Returns the length of the whole text. */
AST_RECORDING_API uint64_t ast_filter_get_ambiguities(char *text, uint64_t capacity, const ast_filter_t *filter);

/** Null is none. No thread may be asking it. */
AST_RECORDING_API void ast_filter_close(ast_filter_t *filter);

/* ------------------------------------------------------------------------------------------------------- columns -- */

/* Arrow's C data and stream interfaces, as Arrow has defined them: what dataframe libraries and query engines of
 * many languages take columns by, without a copy. A program may have them from elsewhere, too. */
#ifndef ARROW_C_DATA_INTERFACE
#define ARROW_C_DATA_INTERFACE

#define ARROW_FLAG_DICTIONARY_ORDERED 1
#define ARROW_FLAG_NULLABLE 2
#define ARROW_FLAG_MAP_KEYS_SORTED 4

struct ArrowSchema {
    const char *format;
    const char *name;
    const char *metadata;
    int64_t flags;
    int64_t n_children;
    struct ArrowSchema **children;
    struct ArrowSchema *dictionary;
    void (*release)(struct ArrowSchema *);
    void *private_data;
};

struct ArrowArray {
    int64_t length;
    int64_t null_count;
    int64_t offset;
    int64_t n_buffers;
    int64_t n_children;
    const void **buffers;
    struct ArrowArray **children;
    struct ArrowArray *dictionary;
    void (*release)(struct ArrowArray *);
    void *private_data;
};

#endif
#ifndef ARROW_C_STREAM_INTERFACE
#define ARROW_C_STREAM_INTERFACE

struct ArrowArrayStream {
    int (*get_schema)(struct ArrowArrayStream *, struct ArrowSchema *out);
    int (*get_next)(struct ArrowArrayStream *, struct ArrowArray *out);
    const char *(*get_last_error)(struct ArrowArrayStream *);
    void (*release)(struct ArrowArrayStream *);
    void *private_data;
};

#endif

/** Which columns, and of which records. All zero is the common columns of all records. Texts are copied. */
typedef struct {
    const char *columns;        /* null or "common": the common quantities of a record, with the names and units that
                                   filters know; "all": all published fields of one category, nested as in JSON; or a
                                   list, "timestamp,icao24,I048/040/RHO". docs/tables.md has their types */
    const char *names;          /* "traffic": some of the common quantities, with the names and units that readers of
                                   that name expect; then columns is null. Null for names as above */
    const char *categories;     /* "48" or "1-21": records of others are left out, and "all" needs a single one. Null
                                   for all that the recording hands over */
    const ast_filter_t *filter; /* what records must hold to be wanted; copied. Null for anything */
    const ast_sites_t *sites;   /* where data sources stand, beside what the recording tells; copied. Null for none */
    uint64_t rows;              /* of a batch, at most; 0 for 100,000. Fewer where so many would take much memory */
    const void *reserved[8];    /* null */
} ast_columns_options_t;

/** Hands out what is left of a recording as columns, a row a record, batch by batch.
 *
 *      struct ArrowArrayStream stream;
 *      if (!ast_columns_get_stream(recording, NULL, &stream, &error)) return fprintf(stderr, "%s\n", error.text), 2;
 *      struct ArrowArray batch;
 *      while (stream.get_next(&stream, &batch) == 0 && batch.release) {
 *          use(&batch);
 *          batch.release(&batch);
 *      }
 *      stream.release(&stream);
 *
 *  recording  from then on read by the stream, on the thread that calls get_next, and not by ast_recording_next; its
 *             report function is called as ever. Where it is closed before the stream is released, get_next fails
 *  options    null for the defaults
 *  stream     the caller's, written whole: released as its interface says, at any time. Schemas and batches that it has
 *             handed out live on without it, and without the recording
 *  error      is set whatever comes; null when nobody asks
 *  Returns false, and a stream that is released, for null, for a column that there is not, for "all" without one
 *  category, and without memory. get_next returns ENOMEM without memory; ECANCELED after ast_recording_interrupt, and
 *  once the recording is closed; EIO where nothing more can be read, as with AST_RECORDING_FAILED. What was read until
 *  then is handed over before; get_last_error says why. Texts are encoded by dictionaries, each batch with its own. */
AST_RECORDING_API bool ast_columns_get_stream(ast_recording_t *recording, const ast_columns_options_t *options,
                                              struct ArrowArrayStream *stream, ast_recording_error_t *error);

/* ------------------------------------------------------------------------------------------------------- sending -- */

/** Sends datagrams to the network, each when it is due: a recording at its own pace, or faster. It belongs to one
 * thread at a time, but for ast_sender_interrupt. */
typedef struct ast_sender ast_sender_t;

/** How datagrams are sent. Texts are copied. */
typedef struct {
    double speed;                  /* by which the times of datagrams pass: 2 for twice as fast, HUGE_VAL for as fast as
                                      can be; 0 for 1 */
    uint64_t most_bits_per_s;      /* of what datagrams hold; 0 for any */
    uint32_t ttl;                  /* routers on the way plus one, at most 255; 0 for 1 to a multicast group, and for as
                                      many as usual to anything else */
    const char *network_interface; /* that multicast leaves by, by name or address; null for the system's choice */
    const void *reserved[8];       /* null */
} ast_sender_options_t;

/** Opens a way to send.
 *  url      udp://HOST:PORT, a host or a multicast group, or tcp://HOST:PORT, a server that is connected to; copied
 *  options  null for the defaults
 *  error    is set whatever comes; null when nobody asks
 *  Returns null when an option or the URL has no meaning, the address is a broadcast or an unspecified one, or nothing
 *  can be sent to it. A connection is served by a thread; where it fails, it is made again, after pauses that grow from
 *  a tenth of a second to ten. */
AST_RECORDING_API ast_sender_t *ast_sender_open(const char *url, const ast_sender_options_t *options,
                                                ast_recording_error_t *error);

/** Opens a way to send to whoever connects: each gets all datagrams from then on. Clients are served by a thread. Up to
 *  100 may be connected; further ones are closed.
 *  url      tcp://HOST:PORT, an address of this host, with port 0 for one of the system's choice, which
 *           ast_sender_next_event tells; copied
 *  Otherwise as above. */
AST_RECORDING_API ast_sender_t *ast_sender_listen(const char *url, const ast_sender_options_t *options,
                                                  ast_recording_error_t *error);

/** Waits until a datagram is due, and sends it.
 *  octets   borrowed; null only where count is 0
 *  count    at most 65507, which is what a datagram holds; over a connection, any
 *  time_ns  any time: the first datagram is due at once, others by how much later than its time theirs is, divided by
 *           the speed; one that has an earlier time than another before it, with that. AST_TIME_UNKNOWN is due at once
 *  Returns whether it has been sent. After an interruption it has not; else see ast_sender_get_statistics. What has
 *  failed does not keep what follows from being sent.
 *
 *  Over a connection, what the other side does not take as yet is kept, up to 4 MiB for each; beyond that, whole
 *  datagrams are lost to it, while others get them. A datagram that is due at a time waits for nobody. One that may go
 *  at any time, or at speed HUGE_VAL, waits for a server to take what is before it, as long as that takes anything at
 *  least once a second; never for clients. */
AST_RECORDING_API bool ast_sender_send_at(ast_sender_t *sender, const uint8_t *octets, uint64_t count, int64_t time_ns);

/** Waits until a datagram of so many octets and that time is due, but at most so many milliseconds, for those who look
 *  after something else meanwhile. Nothing is sent, and nothing changes: ast_sender_send_at sends it then.
 *  Returns whether it is due now; false after an interruption. */
AST_RECORDING_API bool ast_sender_wait_within(ast_sender_t *sender, uint64_t count, int64_t time_ns,
                                              uint32_t timeout_ms);

/** The next datagram is due at once, whatever its time, and those behind it by theirs against that: where a recording
 *  begins anew, or another one begins. */
AST_RECORDING_API void ast_sender_restart(ast_sender_t *sender);

/** What has become of datagrams. */
typedef struct {
    uint64_t sent;                 /* datagrams */
    uint64_t octets;               /* of these */
    uint64_t failed;               /* datagrams that were not sent, that the other side has refused, or that a client
                                      has lost */
    int64_t late_median_ns;        /* of those that were due at a time, to 3 %; 0 where there was none */
    int64_t late_greatest_ns;      /* the same */
    ast_recording_error_t failure; /* the first that there was */
} ast_sender_statistics_t;

/** Writes what has become of the datagrams so far. All zero without a sender. */
AST_RECORDING_API void ast_sender_get_statistics(const ast_sender_t *sender, ast_sender_statistics_t *statistics);

/* What has become of a connection. */
#define AST_SENDER_LISTENING UINT32_C(1) /* clients may connect to this endpoint */
#define AST_SENDER_CONNECTED UINT32_C(2) /* a client; or the server once more, which has lost so much in between */
#define AST_SENDER_SLOW UINT32_C(3)      /* it takes less than is sent, and has begun to lose datagrams */
#define AST_SENDER_GONE UINT32_C(4)      /* it is closed, or has failed, having lost so much in all */

/** One thing that has happened to a connection. */
typedef struct {
    uint32_t kind;                 /* AST_SENDER_... */
    ast_endpoint_t endpoint;       /* of the other side; with AST_SENDER_LISTENING, of this one */
    uint64_t lost_blocks;          /* in the datagrams that are lost */
    uint64_t lost_octets;          /* of these datagrams */
    ast_recording_error_t failure; /* with AST_SENDER_GONE, why */
} ast_sender_event_t;

/** Hands over what has happened to connections, one after the other, up to 1000 that nobody has asked for.
 *  event  the caller's; all zero where nothing more has
 *  Returns whether anything has. Never waits. */
AST_RECORDING_API bool ast_sender_next_event(ast_sender_t *sender, ast_sender_event_t *event);

/** Ends any wait; nothing is sent from then on. From any thread, and from a signal handler, as long as the sender is
 * not closed. Null is none. */
AST_RECORDING_API void ast_sender_interrupt(ast_sender_t *sender);

/** Closes a sender. What has been sent over connections is waited for, as long as they take anything at least once a
 * second, unless it has been interrupted. Null is none. */
AST_RECORDING_API void ast_sender_close(ast_sender_t *sender);

/* ------------------------------------------------------------------------------------------------------- writing -- */

/** A file of blocks as it is written. It belongs to one thread at a time. */
typedef struct ast_writer ast_writer_t;

/** Begins a file: a capture in pcap form where the name ends in .pcap, blocks back to back where it ends in .ast, .bin
 *  or .raw.
 *  path   copied. What is there stays as it is until ast_writer_finish; what is no regular file is written at once
 *  error  is set whatever comes; null when nobody asks
 *  Returns null for any other name, and when nothing can be written there. */
AST_RECORDING_API ast_writer_t *ast_writer_open(const char *path, ast_recording_error_t *error);

/** Writes a datagram: its blocks one behind the other, and in a capture a packet of UDP around them.
 *  octets            borrowed; null only where count is 0
 *  count             at most 65507 in a capture
 *  time_ns           when it was received, kept to microseconds; AST_TIME_UNKNOWN is 1970-01-01
 *  sender, receiver  null, or of family 0, where they are not known: then it is 192.0.2.1:8600 > 233.252.0.1:8600
 *  error             is set whatever comes; null when nobody asks
 *  Returns whether it has been written. What does not fit a capture leaves the file as it is; what cannot be written
 *  ends it: ast_writer_finish fails, too. */
AST_RECORDING_API bool ast_writer_write(ast_writer_t *writer, const uint8_t *octets, uint64_t count, int64_t time_ns,
                                        const ast_endpoint_t *sender, const ast_endpoint_t *receiver,
                                        ast_recording_error_t *error);

/** All is written: the file takes its place, and the writer is closed whatever comes.
 *  Returns whether it has. Otherwise what was there before is left. */
AST_RECORDING_API bool ast_writer_finish(ast_writer_t *writer, ast_recording_error_t *error);

/** Gives the file up: what was there before is left. Null is none. */
AST_RECORDING_API void ast_writer_discard(ast_writer_t *writer);

AST_END_DECLARATIONS

#endif
