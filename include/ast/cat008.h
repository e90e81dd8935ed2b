/* Category 008: weather as one radar sees it, in vectors and contours.
 *
 * A picture comes as a message that starts it, with the scaling factor f in I008/100, then vectors or contours, then a
 * message that ends it. Coordinates and ranges stay as they are sent; what their unit is, f says: 2^(f-6) NM for
 * Cartesian coordinates and lengths, 2^(f-7) NM for the ranges of polar vectors. */
#ifndef AST_CAT008_H
#define AST_CAT008_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 008, also of one that is known but not registered; "Unknown CAT008 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_008_get_name(ast_dataitem_type_t type);

/** I008/000, message type: 1 polar vectors, 2 Cartesian vectors of start point and length, 3 contour, 4 Cartesian
 *  vectors of two points, 254 start and 255 end of picture. */
AST_API void ast_dataitem_008_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I008/020, vector qualifier. */
typedef struct {
    bool valid;
    bool org;           /* system coordinates, otherwise local ones */
    uint32_t intensity; /* of the precipitation, 0 to 7 */
    uint32_t dir_raw;   /* shading orientation from north, LSB 22.5 degrees */
    double dir_deg;
    bool tst; /* test vector; in the second octet, as the next */
    bool er;  /* error condition encountered */
} ast_dataitem_008_020_t;
AST_API ast_dataitem_008_020_t ast_dataitem_008_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_008_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I008/034, polar vectors. Not valid, as the next and I008/050, where the octets are not as many as the count says. */
typedef struct {
    bool valid;
    uint32_t count; /* REP */
    struct {
        uint32_t start_range; /* LSB 2^(f-7) NM, as the next */
        uint32_t end_range;
        uint32_t azimuth_raw; /* LSB 360/2^16 degrees */
        double azimuth_deg;
    } vectors[AST_REPETITIONS_MAX]; /* the first count are meaningful */
} ast_dataitem_008_034_t;
AST_API ast_dataitem_008_034_t ast_dataitem_008_034_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_034_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_008_034_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I008/036, Cartesian vectors of start point and length. */
typedef struct {
    bool valid;
    uint32_t count; /* REP */
    struct {
        int32_t x; /* LSB 2^(f-6) NM, as the next two */
        int32_t y;
        uint32_t length;
    } vectors[AST_REPETITIONS_MAX]; /* the first count are meaningful */
} ast_dataitem_008_036_t;
AST_API ast_dataitem_008_036_t ast_dataitem_008_036_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_036_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_008_036_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I008/038, weather vectors of start point and end point. */
typedef struct {
    bool valid;
    uint32_t count; /* REP */
    struct {
        int32_t x1; /* LSB 2^(f-6) NM, as the next three */
        int32_t y1;
        int32_t x2;
        int32_t y2;
    } vectors[AST_REPETITIONS_MAX]; /* the first count are meaningful */
} ast_dataitem_008_038_t;
AST_API ast_dataitem_008_038_t ast_dataitem_008_038_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_038_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_008_038_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I008/040, contour identifier. */
typedef struct {
    bool valid;
    bool org;           /* system coordinates, otherwise local ones */
    uint32_t intensity; /* of the precipitation, 0 to 7 */
    uint32_t fst_lst; /* which record of its contour: 0 an intermediate one, 1 the last, 2 the first, 3 the only one */
    uint32_t csn;     /* contour serial number, 0 to 255 */
} ast_dataitem_008_040_t;
AST_API ast_dataitem_008_040_t ast_dataitem_008_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_008_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I008/050, points of a contour. */
typedef struct {
    bool valid;
    uint32_t count; /* REP */
    struct {
        int32_t x; /* LSB 2^(f-6) NM, as the next */
        int32_t y;
    } points[AST_REPETITIONS_MAX]; /* the first count are meaningful */
} ast_dataitem_008_050_t;
AST_API ast_dataitem_008_050_t ast_dataitem_008_050_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_050_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_008_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

#define AST_008_100_MAX_EXTENTS 8

/** I008/100, processing status: three octets, the third with an FX bit, then single octets chained by theirs, at most
 *  11 in all. A chain that goes on after them is cut there and reported at level 3. */
typedef struct {
    bool valid;
    int32_t f;                                /* scaling factor, -16 to 15 */
    uint32_t r;                               /* reduction stage, 0 to 7; 0 is normal operation */
    uint32_t q;                               /* processing parameters, 15 bits that the application defines */
    uint32_t extent_count;                    /* the octets behind the third */
    uint8_t extents[AST_008_100_MAX_EXTENTS]; /* as sent, FX bits included */
} ast_dataitem_008_100_t;
AST_API uint64_t ast_dataitem_008_100_get_size(const uint8_t *data, uint64_t available);
AST_API ast_dataitem_008_100_t ast_dataitem_008_100_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_100_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_008_100_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

#define AST_008_110_MAX_OCTETS 2

/** I008/110, station configuration status, which the application defines. Its summary is that of binary data. */
typedef struct {
    bool valid;
    uint32_t count;                         /* the octets of the item */
    uint8_t octets[AST_008_110_MAX_OCTETS]; /* as sent, FX bits included */
} ast_dataitem_008_110_t;
AST_API ast_dataitem_008_110_t ast_dataitem_008_110_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_110_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I008/120, total number of items constituting one weather picture. */
typedef struct {
    bool valid;
    uint32_t value; /* vectors or contour points, 0 to 65535 */
} ast_dataitem_008_120_t;
AST_API ast_dataitem_008_120_t ast_dataitem_008_120_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_008_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** All of a category 008 record; about 16,000 octets. */
typedef struct {
    bool valid;
    ast_uint_value_t message_type;             /* I008/000 */
    ast_sac_sic_t data_source;                 /* I008/010 */
    ast_dataitem_008_020_t vector_qualifier;   /* I008/020 */
    ast_dataitem_008_034_t polar_vectors;      /* I008/034 */
    ast_dataitem_008_036_t cartesian_vectors;  /* I008/036 */
    ast_dataitem_008_038_t weather_vectors;    /* I008/038 */
    ast_dataitem_008_040_t contour_identifier; /* I008/040 */
    ast_dataitem_008_050_t contour_points;     /* I008/050 */
    ast_time_of_day_t time_of_day;             /* I008/090 */
    ast_dataitem_008_100_t processing_status;  /* I008/100 */
    ast_dataitem_008_110_t station_status;     /* I008/110 */
    ast_dataitem_008_120_t picture_items;      /* I008/120 */
} ast_datarecord_008_t;

/** Decodes all items of a category 008 record into flat, whatever it held before, and returns flat; null for none. Not
 *  valid for a record that is not valid or of another category; items that have no member are reported at level 2. */
AST_API ast_datarecord_008_t *ast_datarecord_008_disassemble(ast_datarecord_008_t *flat,
                                                             const ast_datarecord_t *record);

AST_END_DECLARATIONS

#endif
