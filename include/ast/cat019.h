/* Category 019: status of a multilateration system. */
#ifndef AST_CAT019_H
#define AST_CAT019_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 019, also of one that is known but not registered; "Unknown CAT019 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_019_get_name(ast_dataitem_type_t type);

AST_END_DECLARATIONS

#endif
