/* Category 004: safety net messages, alerts between and about aircraft. */
#ifndef AST_CAT004_H
#define AST_CAT004_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 004, also of one that is known but not registered; "Unknown CAT004 Dataitem" for
 *  any other type, which is reported at level 2. Constant. */
AST_API const char *ast_dataitem_004_get_name(ast_dataitem_type_t type);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0, id "--" and name "UNKNOWN_SUBFIELD_NAME". */

/** I004/100, area Definition. */
AST_API uint64_t ast_dataitem_004_100_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_100_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_100_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_100_get_name(uint32_t subfield_type);

/** I004/120, conflict Characteristics. */
AST_API uint64_t ast_dataitem_004_120_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_120_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_120_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_120_get_name(uint32_t subfield_type);

/** I004/170, aircraft Identification & Characteristics 1. */
AST_API uint64_t ast_dataitem_004_170_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_170_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_170_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_170_get_name(uint32_t subfield_type);

/** I004/171, aircraft Identification & Characteristics 2. */
AST_API uint64_t ast_dataitem_004_171_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_004_171_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_004_171_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_004_171_get_name(uint32_t subfield_type);

AST_END_DECLARATIONS

#endif
