/* Category 010: monosensor surface movement reports, edition 1.1. */
#ifndef AST_CAT010_H
#define AST_CAT010_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 010, also of one that is known but not registered; "Unknown CAT010 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_010_get_name(ast_dataitem_type_t type);

AST_END_DECLARATIONS

#endif
