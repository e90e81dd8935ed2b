/* Category 240: radar video, in blocks of cell amplitudes per azimuth sector.
 *
 * A record says where its cells are (I240/040 or I240/041), how many bits each has (I240/048), and then gives the cells
 * (I240/050, 051 or 052). The views of a block need the former two, and take them from the three variables below;
 * ast_videocell_decode takes them as arguments. */
#ifndef AST_CAT240_H
#define AST_CAT240_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 240, also of one that is known but not registered; "Unknown CAT240 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_240_get_name(ast_dataitem_type_t type);

/* What the items of a record tell the views of the blocks behind them: plain variables of the process, 0 at first. Each
 * valid I240/048 and I240/041 that is decoded or shown overwrites them; I240/040 does not. These two items and the
 * views of blocks are the only functions that several threads may not call at once. */
AST_API extern uint32_t g_video_resolution; /* the code of I240/048: 1 for 1 bit per cell, then 2, 4, 8, 16, 32 bits */
AST_API extern uint32_t g_start_range;      /* of I240/041, in cells */
AST_API extern double g_cell_duration;      /* of I240/041, in seconds */

#define AST_VIDEO_MAX_CELLS 1024U

/** One cell that is not empty. */
typedef struct {
    uint32_t number;    /* its place in the block, from 1 */
    double range_m;     /* metres */
    uint32_t amplitude; /* 1 to 255 */
} ast_videocell_t;

/** The cells of a block that are not empty; about 24,000 octets. */
typedef struct {
    bool valid;
    uint32_t resolution;                        /* the code of I240/048 */
    ast_videocell_t cells[AST_VIDEO_MAX_CELLS]; /* in the order of their octets; the first count are meaningful */
    uint64_t count;                             /* at most AST_VIDEO_MAX_CELLS */
} ast_videocells_t;

/** The bits of a cell for a code of I240/048: 2, 4, 8, 16 and 32 for 2 to 6, 1 for any other. */
AST_API uint32_t ast_video_resolution_get_bits(uint32_t resolution);

/** Finds the cells in the octets of a block, octet_count of them, without a look at the variables above. The range of
 *  the cell of the octet at index i is (start_range + i) * cell_duration_s * 299792458 / 2 metres. Cells of one octet
 *  alone are read: any resolution but 4 is reported at level 3 and gives no cells. Each cell is reported at level 1.
 *  Not valid, with the cells so far, once there are AST_VIDEO_MAX_CELLS, which is reported at level 4. */
AST_API ast_videocells_t ast_videocell_decode(const uint8_t *octets, uint64_t octet_count, int32_t resolution,
                                              uint32_t start_range, double cell_duration_s);

/** A table of the cells, with their amplitudes also in percent of the full scale; empty for cells that are not valid.
 */
AST_API void ast_videocells_get_detail_html(char *text, uint64_t capacity, const ast_videocells_t *cells);

/** I240/000, message type: 1 video summary, 2 video message. */
AST_API void ast_dataitem_240_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I240/020, video record header. */
typedef struct {
    bool valid;
    uint32_t message_index; /* counts messages, so that a gap shows lost ones */
} ast_dataitem_240_020_t;
AST_API ast_dataitem_240_020_t ast_dataitem_240_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I240/030, video summary: free text about the stream. Not valid without a character. */
typedef struct {
    bool valid;
    uint32_t length; /* characters, as sent */
    char text[256];  /* terminated; as sent, so it may hold any characters, markup included, as the summary does; the
                        detail view and that of a record escape it */
} ast_dataitem_240_030_t;
AST_API ast_dataitem_240_030_t ast_dataitem_240_030_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_030_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_240_030_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I240/040, video header with a cell duration in nanoseconds. */
typedef struct {
    bool valid;
    uint32_t start_azimuth_raw; /* LSB 360/2^16 degrees, as the next */
    uint32_t end_azimuth_raw;
    double start_azimuth_deg;
    double end_azimuth_deg;
    uint32_t start_range;       /* of the first cell, in cells */
    uint32_t cell_duration_raw; /* LSB 10^-9 s in I240/040, 10^-15 s in I240/041 */
    double cell_duration_s;
} ast_dataitem_240_040_t;
AST_API ast_dataitem_240_040_t ast_dataitem_240_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_240_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I240/041, the same in femtoseconds. Each function sets g_start_range and g_cell_duration. */
typedef ast_dataitem_240_040_t ast_dataitem_240_041_t;
AST_API ast_dataitem_240_041_t ast_dataitem_240_041_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_041_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_240_041_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I240/048, video cells resolution and data compression indicator. Each function sets g_video_resolution. */
typedef struct {
    bool valid;
    bool dci;     /* the cells are compressed */
    uint32_t res; /* the code of the resolution, as ast_video_resolution_get_bits takes it */
} ast_dataitem_240_048_t;
AST_API ast_dataitem_240_048_t ast_dataitem_240_048_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_048_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_240_048_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I240/049, video octets and video cells counters. */
typedef struct {
    bool valid;
    uint32_t valid_octets; /* octets of the block that hold cells, 0 to 65535 */
    uint32_t valid_cells;  /* cells in them, 0 to 2^24 - 1 */
} ast_dataitem_240_049_t;
AST_API ast_dataitem_240_049_t ast_dataitem_240_049_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_049_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_240_049_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

#define AST_240_050_MAX_OCTETS 1020
#define AST_240_051_MAX_OCTETS 16320
#define AST_240_052_MAX_OCTETS 64770

/** I240/050, video block of low data volume. Its views, as those of the next two, are made with g_video_resolution,
 *  g_start_range and g_cell_duration. */
typedef struct {
    bool valid;
    uint64_t length;                        /* octets, four for each repetition */
    uint8_t octets[AST_240_050_MAX_OCTETS]; /* as sent; the first length are meaningful */
} ast_dataitem_240_050_t;
AST_API ast_dataitem_240_050_t ast_dataitem_240_050_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_050_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_240_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I240/051, video block of medium data volume. */
typedef struct {
    bool valid;
    uint64_t length;                        /* octets, 64 for each repetition */
    uint8_t octets[AST_240_051_MAX_OCTETS]; /* as sent; the first length are meaningful */
} ast_dataitem_240_051_t;
AST_API ast_dataitem_240_051_t ast_dataitem_240_051_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_051_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_240_051_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I240/052, video block of high data volume; about 65,000 octets. The item has 256 octets for each repetition, of
 * which 254 are taken: the first 254 of one repetition, the first 508 of two. */
typedef struct {
    bool valid;
    uint64_t length;                        /* octets, 254 for each repetition */
    uint8_t octets[AST_240_052_MAX_OCTETS]; /* the first length are meaningful */
} ast_dataitem_240_052_t;
AST_API ast_dataitem_240_052_t ast_dataitem_240_052_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_240_052_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_240_052_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Accessors: each reads the first item of its type. They are asked by name only; the functions for records of any
 * category do not know them. */
/** I240/010. */
AST_API ast_sac_sic_t ast_datarecord_240_get_sacsic(const ast_datarecord_t *record);
/** I240/140. */
AST_API ast_time_of_day_t ast_datarecord_240_get_timeofday(const ast_datarecord_t *record);
/** AST_MSGTYPE_VIDEO when I240/000 is one of its two types. */
AST_API ast_uint_value_t ast_datarecord_240_get_msgtype(const ast_datarecord_t *record);

AST_END_DECLARATIONS

#endif
