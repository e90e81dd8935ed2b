/* Category 023: status and statistics of CNS/ATM ground stations. */
#ifndef AST_CAT023_H
#define AST_CAT023_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 023, also of one that is known but not registered; "Unknown CAT023 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_023_get_name(ast_dataitem_type_t type);

AST_END_DECLARATIONS

#endif
