/* What the page asks of the libraries: recordings read into columns, and what is said of one block, record or item.
 *
 * SPDX-License-Identifier: MIT
 *
 * These functions are the exports of viewer.wasm. There is one recording at a time, of one file or several, which
 * stand in directories of WASI; module.mjs beside this file loads the module and calls it.
 *
 *     viewer_open("/a.pcap\n/b.gps", "{}")   what is wrong, as JSON, or a null pointer
 *     while (viewer_read(1 << 20) != 0)      until nothing is left
 *         ...viewer_column(...)              what came with that call, to be copied: the next call writes over it
 *
 * - A row is a record that could be read, counted from 0 through all files; a block is counted likewise, whether it has
 *   rows or not. Rows of a block follow one another.
 * - Arguments that are texts end with a zero. viewer_room(octets) gives a place to write them to.
 * - Texts that come back are UTF-8, JSON unless said otherwise, and good until the next call of a function that returns
 *   a text; viewer_text_octets() tells how long the last one was. Members that are not known are left out.
 * - Rows, blocks and items that there are not, and calls without a recording, give null. Nothing that is handed in, or
 *   stands in a file, ends the module. Without memory it traps, and has to be loaded anew. */
#ifndef AST_VIEWER_H
#define AST_VIEWER_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define VIEWER_API(name) __attribute__((export_name(#name), visibility("default"))) name

/** A place for arguments of so many octets in all, good until the next call of this function. */
char *VIEWER_API(viewer_room)(uint32_t octets);

/** How many octets the last text has. */
uint32_t VIEWER_API(viewer_text_octets)(void);

/* ------------------------------------------------------------------------------------------------------- reading -- */

/** Opens files in place of those that were open.
 *  paths    one a line
 *  options  {"framing": "auto", "profile": "auto", "categories": "34,48", "ports": ..., "hosts": ..., "from": ...,
 *           "to": ..., "merge": false, "sites": "25/12=43.57,16.41,780;..."}: as ast_recording_options_t has them, and
 *           as --site has places; all may be missing
 *  Returns null, or {"code": AST_RECORDING_ERROR_..., "text": "a.pcap: ..."}. Texts name files by the last parts
 *  of their paths. */
const char *VIEWER_API(viewer_open)(const char *paths, const char *options);

/** Closes them; nothing is kept. */
void VIEWER_API(viewer_close)(void);

/** Reads on, until about so many more octets of blocks have come.
 *  Returns how many blocks came; 0 at the end, when there may still be reports. */
uint32_t VIEWER_API(viewer_read)(uint32_t most_octets);

/** {"phase": "reading" | "ended" | "failed", "file", "framing", "octets_read", "file_octets", "blocks", "rows",
 *   "memory": octets that the module has taken, "error": {"code", "text"}} */
const char *VIEWER_API(viewer_state)(void);

/* Columns, of what came with the last viewer_read. Behind the name stands what an element is: u8, u16, u32, i32, f32 or
 * f64, little-endian, aligned to its size. */

/* Of rows, an element each. */
#define VIEWER_BLOCK 0         /* u32: its block */
#define VIEWER_SOURCE 1        /* u16: place among the sources, see viewer_sources */
#define VIEWER_TIME 2          /* f64: seconds, see VIEWER_TIME_KIND; 0 for none */
#define VIEWER_TIME_KIND 3     /* u8: VIEWER_TIME_... */
#define VIEWER_POSITION_KIND 4 /* u8: VIEWER_POSITION_... */
#define VIEWER_FIRST 5         /* i32, as the next: latitude and longitude in degrees * 10^7; range in NM * 2^16 and */
#define VIEWER_SECOND 6        /* azimuth in degrees * 10^6; x and y in NM * 2^16 */
#define VIEWER_LEVEL 7         /* f32: flight level; NaN for none, as all f32 are */
#define VIEWER_HEIGHT 8        /* f32: altitude in feet, where the record has one beside the level or instead of it */
#define VIEWER_CALLSIGN 9      /* u32: place among the texts, from 1; 0 for none */
#define VIEWER_CODE 10         /* u16: Mode 3/A code, 12 bits; 0xFFFF for none */
#define VIEWER_ADDRESS 11      /* u32: aircraft address, 24 bits; 0xFFFFFFFF for none */
#define VIEWER_TRACK 12        /* u32: track number; 0xFFFFFFFF for none */
#define VIEWER_SPEED 13        /* f32: ground speed in knots */
#define VIEWER_ANGLE 14        /* f32: track angle in degrees, clockwise from north */
#define VIEWER_RATE 15         /* f32: vertical rate in feet per minute */
#define VIEWER_TYPE 16         /* u8: AST_MESSAGE_... of answers.h; 0 for none */
#define VIEWER_FLAGS 17        /* u16: bits VIEWER_FLAG_... */

/* Of blocks, an element each. */
#define VIEWER_BLOCK_ROW 20      /* u32: its first row, or the one that would be; the next block's begins behind it */
#define VIEWER_BLOCK_STATE 21    /* u8: AST_BLOCK_...: 0 whole, 1 damaged, 2 not supported, 3 other traffic */
#define VIEWER_BLOCK_CATEGORY 22 /* u8 */
#define VIEWER_BLOCK_FILE 23     /* u16: place of its file among the paths */
#define VIEWER_BLOCK_OCTETS 24   /* u16: its LEN */

/* Of neither. */
#define VIEWER_SHAPES 30 /* u32: words of weather and video, as plan_shapes.hpp describes them; rows as above */

#define VIEWER_TIME_NONE 0
#define VIEWER_TIME_DATED 1     /* the record's own, since 1970-01-01 UTC */
#define VIEWER_TIME_OF_DAY 2    /* the record's own, since midnight UTC; nobody knows the date */
#define VIEWER_TIME_TRUNCATED 3 /* the record's own, modulo 512 s; nobody knows more */
#define VIEWER_TIME_RECEIVED 4  /* of the recorder, since 1970-01-01 UTC */
#define VIEWER_TIME_SINCE 5     /* of a recorder that knows no date, since the midnight that its file begins with */

#define VIEWER_POSITION_NONE 0
#define VIEWER_POSITION_WGS84 1
#define VIEWER_POSITION_POLAR 2     /* around the source */
#define VIEWER_POSITION_CARTESIAN 3 /* around the source, or on the plane of a system: see VIEWER_FLAG_SYSTEM */

#define VIEWER_FLAG_SPI 1
#define VIEWER_FLAG_EMERGENCY 2
#define VIEWER_FLAG_ON_GROUND 4
#define VIEWER_FLAG_SIMULATED 8
#define VIEWER_FLAG_TEST 16
#define VIEWER_FLAG_COASTED 32
#define VIEWER_FLAG_ENDED 64 /* the last report of a track */
#define VIEWER_FLAG_CODE_GARBLED 128
#define VIEWER_FLAG_CODE_NOT_VALIDATED 256
#define VIEWER_FLAG_SYSTEM 512 /* the frame of its position is AST_FRAME_SYSTEM */
#define VIEWER_FLAG_IMPLAUSIBLE 1024

/** A column, and how many elements it has. Null and 0 for one that there is not. */
const void *VIEWER_API(viewer_column)(uint32_t column);
uint32_t VIEWER_API(viewer_column_elements)(uint32_t column);

/** Callsigns that came with the last viewer_read, a line each, no JSON: their places go on where the last ones ended.
 */
const char *VIEWER_API(viewer_texts)(void);

/** All sources so far: [{"category", "sac", "sic"}, ...]; those of records without a source have but a category. */
const char *VIEWER_API(viewer_sources)(void);

/** What was reported with the last viewer_read: [{"kind": "damaged", "reason": AST_REASON_..., "file", "place",
 *  "text": the whole sentence, "cause", "count", "octets", "packet", "offset", "line", "block": of the module, from 0,
 *  where it is about one that was handed over}, ...]; kind, place, text and cause are those of ast_recording_report_...
 */
const char *VIEWER_API(viewer_reports)(void);

/* ------------------------------------------------------------------------------------------------------- details -- */

/** A block: {"number": in its file, from 1, "category", "file", "octets", "records", "first_row", "profile",
 *   "time": "2014-02-25 12:43:47.401501", "source": "10.0.0.1:8600", "destination", "packet", "offset",
 *   "fault": {"kind": "damaged", "octets": of the block before it, "reason", "items": [as viewer_record's, of the
 *   record that breaks off]}} */
const char *VIEWER_API(viewer_block)(uint32_t block);

/** A record: {"row", "block", "record": in its block, from 1, "category", "octets", "profile": where it is not the
 *   block's, "implausible": true, "items": [{"id": "I048/040", "name", "octets": in hex, "summary"}, ...]} */
const char *VIEWER_API(viewer_record)(uint32_t row);

/** What is inside an item, counted from 0: {"id", "name", "octets", "summary", "detail": [part, ...]}; of a compound
 *  item also "subfields": [{"number": from 1, "id", "name", "size", "octets", "summary", "detail"}, ...], of those that
 *  are there. A part is one of
 *      {"title": [piece, ...]}, {"paragraph": [piece, ...]}, {"bits": octets in hex} or
 *      {"table": [cell, ...] of the head, "rows": [[cell, ...], ...]}
 *  where a piece or cell is a text, {"strong": text}, or, as the last cell of a row, {"link": title, "url", "latitude",
 *  "longitude"}. The first parts of a compound item are an overview of its subfields. A published value that is another
 *  than the described one stands behind it: "... (published: -0.01 NM)". */
const char *VIEWER_API(viewer_item)(uint32_t row, uint32_t item);

/** The same for the record that breaks off in a block. */
const char *VIEWER_API(viewer_fault_item)(uint32_t block, uint32_t item);

/** The record as the tool writes it with --json: one line, with its end. */
const char *VIEWER_API(viewer_json)(uint32_t row);

/** All lines of a block that --json writes: its records, and a last one of what is behind them, if anything is. */
const char *VIEWER_API(viewer_block_json)(uint32_t block);

/** What is said of a row's quantities, in the units of the filter language: {"timestamp": ..., "callsign": ..., ...};
 * the names are those of ast_answer_to_str. */
const char *VIEWER_API(viewer_answers)(uint32_t row);

/* ------------------------------------------------------------------------------------------------------- filters -- */

/** Takes an expression of the filter language; an empty one is met by all. Rows are asked from the first one on.
 *  Returns null, or {"position", "length", "text"}: octets of the UTF-8 in front of the mistake, and of it. */
const char *VIEWER_API(viewer_filter)(const char *expression);

/** Asks the next rows, of those that have been read: of whole blocks, up to about so many.
 *  Returns how many it asked, 0 when there are none as yet; viewer_marks() has a u8 for each, 1 where it is met. */
uint32_t VIEWER_API(viewer_filter_read)(uint32_t most_rows);
const uint8_t *VIEWER_API(viewer_marks)(void);

/** Whether the filter asks where on the earth targets are, so that it has to be set once more when sites change. */
uint32_t VIEWER_API(viewer_filter_asks_position)(void);

/* -------------------------------------------------------------------------------------------------------- totals -- */

/** {"blocks", "records", "items", "octets", "damaged", "unsupported", "categories": [{"category", and the same of it},
 *   ...], "losses": "1 datagram truncated, 16 octets skipped", "other_traffic": "3 datagrams, 2 TCP streams", both
 * empty where there are none, "causes": [{"kind", "text", "count", "octets"}, ...] of reports} */
const char *VIEWER_API(viewer_totals)(void);

/* --------------------------------------------------------------------------------------------------------- sites -- */

/** Where sources of rows stand, as far as it is known: [{"sac", "sic", "known": "given" | "learnt" | "worked out",
 *   "latitude", "longitude", "height_m", "standard_error_m": of one that is worked out}, ...]. A file is looked through
 *  for that when it is opened. */
const char *VIEWER_API(viewer_sites)(void);

/** Gives a source a place, in degrees and metres above the ellipsoid; not a number for latitude takes a given one back.
 *  Returns 1; 0 for what is no place or no source. */
uint32_t VIEWER_API(viewer_set_site)(uint32_t sac, uint32_t sic, double latitude, double longitude, double height_m);

/* ------------------------------------------------------------------------------------------------------- imports -- */

/* What the module needs beside wasi_snapshot_preview1, from the import module "unpack"; module.mjs has it.
 *     begin(kind: 1 gzip, 2 zstd) -> handle
 *     step(handle, packed, packed octets, plain, plain octets, taken*, given*) -> 0, or the length of a message that
 *         message(handle, room, octets) writes
 *     whole(handle) -> 1 where the input may end here
 *     end(handle) */

#ifdef __cplusplus
}
#endif

#endif
