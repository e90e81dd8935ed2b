/* Category 016: configuration reports of a multistatic surveillance system. */
#ifndef AST_CAT016_H
#define AST_CAT016_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 016, also of one that is known but not registered; "Unknown CAT016 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_016_get_name(ast_dataitem_type_t type);

/** I016/000, message type: 1 system configuration, 2 transmitter and receiver configuration. Takes an item of one octet
 *  of any type. */
AST_API void ast_dataitem_016_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I016/200, period of the configuration reports. */
typedef struct {
    bool valid;
    uint32_t period_s; /* how often the configuration is reported, 0 to 255 */
} ast_dataitem_016_200_t;
AST_API ast_dataitem_016_200_t ast_dataitem_016_200_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_016_200_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Repetitive items are not valid unless they are as long as their REP says; count is their REP in any case. Negative
 * latitudes, longitudes, heights and time offsets are read as magnitude less 2147483647 or, of 16 bits, 32767. */

/** I016/300, the pairs of a transmitter and a receiver. I015/400 refers to them. */
typedef struct {
    bool valid;
    uint32_t count; /* REP, as sent */
    struct {
        uint32_t pid;             /* the pair */
        uint32_t tid;             /* its transmitter, as in I016/410 */
        uint32_t rid;             /* its receiver, as in I016/420 */
    } pairs[AST_REPETITIONS_MAX]; /* the first count of an item that is valid */
} ast_dataitem_016_300_t;
AST_API ast_dataitem_016_300_t ast_dataitem_016_300_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_016_300_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_016_300_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I016/405, height of the reference point above mean sea level. */
typedef struct {
    bool valid;
    int32_t height_raw; /* LSB 1/4 m */
    double height_m;
} ast_dataitem_016_405_t;
AST_API ast_dataitem_016_405_t ast_dataitem_016_405_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_016_405_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_016_405_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** Where a transmitter or a receiver stands, in WGS-84. */
typedef struct {
    int32_t latitude_raw;  /* LSB 180/2^31 degrees */
    int32_t longitude_raw; /* LSB 180/2^31 degrees */
    int32_t altitude_raw;  /* LSB 1/4 m */
    double latitude_deg;
    double longitude_deg;
    double altitude_m; /* above the ellipsoid */
} ast_dataitem_016_site_t;

/** I016/410, properties of transmitters. */
typedef struct {
    bool valid;
    uint32_t count; /* REP, as sent */
    struct {
        uint32_t tid;                 /* identification */
        ast_dataitem_016_site_t site; /* where it stands */
        int32_t tto_raw;              /* transmission time offset, LSB 2 ns */
        int64_t tto_ns;
        uint32_t ato_ns;                 /* accuracy of the time offset: its standard deviation in nanoseconds */
        uint32_t pci;                    /* parallel transmitter index */
    } transmitters[AST_REPETITIONS_MAX]; /* the first count of an item that is valid */
} ast_dataitem_016_410_t;
AST_API ast_dataitem_016_410_t ast_dataitem_016_410_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_016_410_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_016_410_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I016/420, properties of receivers. */
typedef struct {
    bool valid;
    uint32_t count; /* REP, as sent */
    struct {
        uint32_t rid;                 /* identification */
        ast_dataitem_016_site_t site; /* where it stands */
    } receivers[AST_REPETITIONS_MAX]; /* the first count of an item that is valid */
} ast_dataitem_016_420_t;
AST_API ast_dataitem_016_420_t ast_dataitem_016_420_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_016_420_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_016_420_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

AST_END_DECLARATIONS

#endif
