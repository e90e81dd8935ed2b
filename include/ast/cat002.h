/* Category 002: service messages of one radar, edition 1.2 and the layouts of three radar families. */
#ifndef AST_CAT002_H
#define AST_CAT002_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 002, also of one that is known but not registered; "Unknown CAT002 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_002_get_name(ast_dataitem_type_t type);

/** I002/000, message type: 1 north marker, 2 sector crossing, 3 south marker, 8 blind zone filtering starts, 9 stops.
 */
AST_API void ast_dataitem_002_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I002/050, station configuration status, and types 2901 and 2902, which two radar families send for it: what the bits
 *  mean is the radar's to say. */
AST_API ast_octet_chain_t ast_dataitem_002_050_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_002_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_octet_chain_t ast_dataitem_002_A01_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_002_A01_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_002_A01_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API ast_octet_chain_t ast_dataitem_002_A02_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_002_A02_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_002_A02_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/* Accessors: each reads the first item of its type. */
/** I002/010. */
AST_API ast_sac_sic_t ast_datarecord_002_get_sacsic(const ast_datarecord_t *record);
/** I002/030. */
AST_API ast_time_of_day_t ast_datarecord_002_get_timeofday(const ast_datarecord_t *record);
/** North or sector as I002/000 says; not valid for its other types. */
AST_API ast_uint_value_t ast_datarecord_002_get_msgtype(const ast_datarecord_t *record);

/** All of a category 002 record that has a member; types 2951, 2997 and 2999 have none. */
typedef struct {
    bool valid;
    ast_uint_value_t message_type;              /* I002/000 */
    ast_sac_sic_t data_source;                  /* I002/010 */
    ast_scaled_value_t sector;                  /* I002/020, degrees */
    ast_time_of_day_t time_of_day;              /* I002/030 */
    ast_scaled_value_t antenna_rotation_period; /* I002/041, seconds */
    ast_octet_chain_t station_status;           /* I002/050 and types 2901 and 2902 */
} ast_datarecord_002_t;

/** Decodes all items of a category 002 record into flat, which is not valid for a record that is not valid or of
 * another category, and returns flat; items that have no member are reported at level 0. */
AST_API ast_datarecord_002_t *ast_datarecord_002_disassemble(ast_datarecord_002_t *flat,
                                                             const ast_datarecord_t *record);

/** Encodes the members message_type to antenna_rotation_period that are valid and that the profile has. Encoders may
 *  store raw values back. */
AST_API ast_datarecord_t ast_datarecord_002_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_002_t *flat,
                                                     ast_uap_t uap);

AST_END_DECLARATIONS

#endif
