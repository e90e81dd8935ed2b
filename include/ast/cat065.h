/* Category 065: status of a surveillance data processing system and its services. */
#ifndef AST_CAT065_H
#define AST_CAT065_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 065, also of one that is known but not registered; "Unknown CAT065 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_065_get_name(ast_dataitem_type_t type);

AST_END_DECLARATIONS

#endif
