/* Category 008: weather as one radar sees it, in vectors and contours. */
#ifndef AST_CAT008_H
#define AST_CAT008_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 008, also of one that is known but not registered; "Unknown CAT008 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_008_get_name(ast_dataitem_type_t type);

/** I008/100: three octets, the third with an FX bit, then single octets chained by theirs, at most 11 in all. */
AST_API uint64_t ast_dataitem_008_100_get_size(const uint8_t *data, uint64_t available);

AST_END_DECLARATIONS

#endif
