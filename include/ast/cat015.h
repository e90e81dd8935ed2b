/* Category 015: target reports of independent non-cooperative surveillance sensors. */
#ifndef AST_CAT015_H
#define AST_CAT015_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 015, also of one that is known but not registered; "Unknown CAT015 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_015_get_name(ast_dataitem_type_t type);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0, id "---" and name "UNKNOWN_SUBFIELD_NAME". */

/** I015/600, horizontal Position Information. */
AST_API uint64_t ast_dataitem_015_600_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_600_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_600_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_600_get_name(uint32_t subfield_type);

/** I015/601, geometric Height Information. */
AST_API uint64_t ast_dataitem_015_601_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_601_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_601_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_601_get_name(uint32_t subfield_type);

/** I015/602, horizontal Velocity Information. */
AST_API uint64_t ast_dataitem_015_602_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_602_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_602_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_602_get_name(uint32_t subfield_type);

/** I015/604, vertical Velocity Information. */
AST_API uint64_t ast_dataitem_015_604_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_604_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_604_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_604_get_name(uint32_t subfield_type);

/** I015/625, range Information. */
AST_API uint64_t ast_dataitem_015_625_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_625_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_625_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_625_get_name(uint32_t subfield_type);

/** I015/626, doppler Information. */
AST_API uint64_t ast_dataitem_015_626_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_626_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_626_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_626_get_name(uint32_t subfield_type);

/** I015/627, azimuth Information. */
AST_API uint64_t ast_dataitem_015_627_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_015_627_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_015_627_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_015_627_get_name(uint32_t subfield_type);

AST_END_DECLARATIONS

#endif
