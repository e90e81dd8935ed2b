/* Category 063: status of the sensors that feed a surveillance data processing system. */
#ifndef AST_CAT063_H
#define AST_CAT063_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 063, also of one that is known but not registered; "Unknown CAT063 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_063_get_name(ast_dataitem_type_t type);

/** I063/060, sensor configuration and status. What a second octet says is clear without one. */
typedef struct {
    bool valid;
    uint32_t con; /* 0 operational, 1 degraded, 2 initialising, 3 not connected */
    bool psr;     /* PSR out of service */
    bool ssr;     /* SSR (Mode A/C) out of service */
    bool mds;     /* Mode S out of service */
    bool ads;     /* ADS out of service */
    bool mlt;     /* multilateration out of service */
    bool ops;     /* not released for operational use */
    bool odp;     /* data processor overloaded */
    bool oxt;     /* transmission overloaded */
    bool msc;     /* monitoring system disconnected */
    bool tsv; /* read from bit 4 of the eleventh octet from the item's start, with one octet too; clear where the item
               * is not known to be followed that far */
    bool npw; /* no plots are received */
} ast_dataitem_063_060_t;
AST_API ast_dataitem_063_060_t ast_dataitem_063_060_decode(const ast_dataitem_t *item);
AST_API void ast_dataitem_063_060_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item);
AST_API void ast_dataitem_063_060_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item);

/** All of a category 063 record that has a member; I063/998 and 999 have none. */
typedef struct {
    bool valid;
    ast_sac_sic_t data_source;     /* I063/010 */
    ast_uint_value_t service;      /* I063/015 */
    ast_time_of_day_t time_of_day; /* I063/030 */
    ast_sac_sic_t sensor;          /* I063/050 */
    ast_dataitem_063_060_t status; /* I063/060 */
} ast_datarecord_063_t;

/** Decodes all items of a category 063 record into flat, whatever that held, and returns flat. Not valid for a record
 *  that is not valid or of another category; items that have no member are reported at level 2. */
AST_API ast_datarecord_063_t *ast_datarecord_063_disassemble(ast_datarecord_063_t *flat,
                                                             const ast_datarecord_t *record);

AST_END_DECLARATIONS

#endif
