/* Category 065: status of a surveillance data processing system (SDPS) and its services. */
#ifndef AST_CAT065_H
#define AST_CAT065_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 065, also of one that is known but not registered; "Unknown CAT065 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_065_get_name(ast_dataitem_type_t type);

/** I065/000, message type: 1 SDPS status, 2 end of batch, 3 service status report. Takes an item of one octet of any
 *  type. */
AST_API void ast_dataitem_065_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I065/020, batch number: which batch of track data of a processing cycle is complete. */
typedef struct {
    bool valid;
    uint32_t number; /* 0 to one less than the batches of a cycle */
} ast_dataitem_065_020_t;
AST_API ast_dataitem_065_020_t ast_dataitem_065_020_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_065_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** I065/040, SDPS configuration and status. */
typedef struct {
    bool valid;
    uint32_t nogo; /* 0 operational, 1 degraded, 2 not connected, 3 unknown */
    bool ovl;      /* overloaded */
    bool tsv;      /* time source invalid */
    uint32_t pss;  /* which processing system is selected, 1 to 3; 0 not applicable */
} ast_dataitem_065_040_t;
AST_API ast_dataitem_065_040_t ast_dataitem_065_040_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_065_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_065_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** All of a category 065 record that has a member; I065/998 and 999 have none. */
typedef struct {
    bool valid;
    ast_uint_value_t message_type; /* I065/000 */
    ast_sac_sic_t data_source;     /* I065/010 */
    ast_uint_value_t service;      /* I065/015 */
    ast_dataitem_065_020_t batch;  /* I065/020 */
    ast_time_of_day_t time_of_day; /* I065/030 */
    ast_dataitem_065_040_t status; /* I065/040 */
} ast_datarecord_065_t;

/** Decodes all items of a category 065 record into flat, whatever that held, and returns flat. Not valid for a record
 *  that is not valid or of another category; items that have no member are reported at level 2. */
AST_API ast_datarecord_065_t *ast_datarecord_065_disassemble(ast_datarecord_065_t *flat,
                                                             const ast_datarecord_t *record);

AST_END_DECLARATIONS

#endif
