/* Category 034: service messages of one radar: north markers, sector crossings, configuration and status. */
#ifndef AST_CAT034_H
#define AST_CAT034_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 034, also of one that is known but not registered; "Unknown CAT034 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_034_get_name(ast_dataitem_type_t type);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0, id "---" and name "UNKNOWN_SUBFIELD_NAME". */

/** I034/000, message type: 1 north marker, 2 sector crossing, 3 geographical filtering, 4 jamming strobe. */
AST_API void ast_dataitem_034_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I034/050, station configuration and status. PSR and MDS stay octets. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        bool nogo;       /* not released for operational use */
        uint32_t rdpc;   /* data processing chain in use, 1 or 2 */
        bool rdpr;       /* the chain was restarted */
        bool ovl_rdp;    /* data processor overloaded */
        bool ovl_xmt;    /* transmission overloaded */
        bool msc;        /* monitoring system connected */
        bool time_valid; /* time source valid */
    } com;               /* what all sensors have in common */
    struct {
        bool present;
        uint32_t ant;   /* antenna in use, 1 or 2 */
        uint32_t ch_ab; /* channel: 0 none, 1 A, 2 B, 3 invalid */
        bool ovl;       /* overloaded */
        bool msc;       /* monitoring system connected */
    } ssr;              /* of the SSR */
} ast_dataitem_034_050_t;
AST_API uint64_t ast_dataitem_034_050_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_034_050_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_034_050_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_034_050_get_name(uint32_t subfield_type);
AST_API ast_dataitem_034_050_t ast_dataitem_034_050_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_034_050_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_034_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

/** I034/060, system processing mode: how far the load is reduced, 0 for not at all. */
typedef struct {
    bool valid;
    ast_subfields_t subfields;
    struct {
        bool present;
        uint32_t red_rdp; /* step of the reduction for an overload of the data processor, 0 to 7 */
        uint32_t red_xmt; /* for an overload of the transmission, 0 to 7 */
    } com;                /* what all sensors have in common */
    struct {
        bool present;
        bool pol;         /* circular polarisation */
        uint32_t red_rad; /* for an overload within the PSR, 0 to 7 */
        uint32_t stc;     /* sensitivity time control map */
    } psr;                /* of the PSR */
    struct {
        bool present;
        uint32_t red_rad; /* for an overload within the SSR, 0 to 7 */
    } ssr;                /* of the SSR */
    struct {
        bool present;
        uint32_t red_rad;    /* for an overload within the Mode S subsystem, 0 to 7 */
        bool clu_autonomous; /* the cluster works autonomously; the bit that is sent says the contrary */
    } mds;                   /* of Mode S */
} ast_dataitem_034_060_t;
AST_API uint64_t ast_dataitem_034_060_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_034_060_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_034_060_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_034_060_get_name(uint32_t subfield_type);
AST_API ast_dataitem_034_060_t ast_dataitem_034_060_decode(const ast_dataitem_t *item);
AST_API void ast_subfield_034_060_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                              uint32_t subfield_type);
AST_API void ast_subfield_034_060_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                                  uint32_t subfield_type);

#define AST_034_070_MAX_COUNTERS 16

/** I034/070, message count values. An item may carry more than there is room for: counters holds the lesser of count
 * and AST_034_070_MAX_COUNTERS. */
typedef struct {
    bool valid;
    uint32_t count; /* REP, as sent */
    struct {
        uint32_t typ;                     /* what is counted, 0 to 31; the detail view names the kinds 0 to 16 */
        uint32_t value;                   /* how many, 0 to 2047 */
    } counters[AST_034_070_MAX_COUNTERS]; /* in the order in which they are sent */
} ast_dataitem_034_070_t;
AST_API ast_dataitem_034_070_t ast_dataitem_034_070_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_034_070_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_034_070_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I034/120, 3D position of the data source. Latitude and longitude are read as magnitude less 8388607 when negative.
 */
typedef struct {
    bool valid;
    int32_t height_raw;   /* LSB 1 m, two's complement */
    int32_t latitude_raw; /* LSB 180/2^23 degrees, as the next */
    int32_t longitude_raw;
    double height_m; /* above the WGS-84 ellipsoid */
    double latitude_deg;
    double longitude_deg;
} ast_dataitem_034_120_t;
AST_API ast_dataitem_034_120_t ast_dataitem_034_120_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_034_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_034_120_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** All of a category 034 record. */
typedef struct {
    bool valid;
    ast_uint_value_t message_type;              /* I034/000 */
    ast_sac_sic_t data_source;                  /* I034/010 */
    ast_scaled_value_t sector;                  /* I034/020 */
    ast_time_of_day_t time_of_day;              /* I034/030 */
    ast_scaled_value_t antenna_rotation_period; /* I034/041 */
    ast_dataitem_034_050_t station_status;      /* I034/050 */
    ast_dataitem_034_060_t processing_mode;     /* I034/060 */
    ast_dataitem_034_070_t message_counts;      /* I034/070 */
} ast_datarecord_034_t;

/** Decodes all items of a category 034 record. Not valid for a record that is not valid or of another category; items
 *  that have no member are reported at level 2. */
AST_API ast_datarecord_034_t ast_datarecord_034_disassemble(const ast_datarecord_t *record);

/** Encodes the members message_type to antenna_rotation_period that are valid. Encoders may store raw values back. */
AST_API ast_datarecord_t ast_datarecord_034_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_034_t *flat,
                                                     ast_uap_t uap);

AST_END_DECLARATIONS

#endif
