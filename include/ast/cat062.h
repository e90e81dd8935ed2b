/* Category 062: system tracks of a surveillance data processing system. */
#ifndef AST_CAT062_H
#define AST_CAT062_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 062, also of one that is known but not registered; "Unknown CAT062 Dataitem" for
 *  any other type, which is reported at level 2. Constant. */
AST_API const char *ast_dataitem_062_get_name(ast_dataitem_type_t type);

/** I062/510: parts of three octets, chained by bit 1 of the third. Never 0: where less is available than a part needs,
 *  the chain ends with the part before it, and the first part always counts. */
AST_API uint64_t ast_dataitem_062_510_get_size(const uint8_t *data, uint64_t available);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0, id "---" and name "UNKNOWN_SUBFIELD_NAME". */

/** I062/110, Mode 5 Data reports & Extended Mode 1 Code. */
AST_API uint64_t ast_dataitem_062_110_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_110_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_110_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_110_get_name(uint32_t subfield_type);

/** I062/290, system Track Update Ages. */
AST_API uint64_t ast_dataitem_062_290_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_290_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_290_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_290_get_name(uint32_t subfield_type);

/** I062/295, track Data Age. */
AST_API uint64_t ast_dataitem_062_295_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_295_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_295_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_295_get_name(uint32_t subfield_type);

/** I062/340, measured Information. */
AST_API uint64_t ast_dataitem_062_340_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_340_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_340_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_340_get_name(uint32_t subfield_type);

/** I062/380, aircraft Derived Data. */
AST_API uint64_t ast_dataitem_062_380_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_380_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_380_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_380_get_name(uint32_t subfield_type);

/** I062/390, flight Plan Related Data. */
AST_API uint64_t ast_dataitem_062_390_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_390_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_390_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_390_get_name(uint32_t subfield_type);

/** I062/500, estimated Accuracies. */
AST_API uint64_t ast_dataitem_062_500_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_062_500_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_062_500_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_062_500_get_name(uint32_t subfield_type);

AST_END_DECLARATIONS

#endif
