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

AST_END_DECLARATIONS

#endif
