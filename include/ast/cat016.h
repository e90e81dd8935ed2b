/* Category 016: configuration reports of a multistatic surveillance system. */
#ifndef AST_CAT016_H
#define AST_CAT016_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 016, also of one that is known but not registered; "Unknown CAT016 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_016_get_name(ast_dataitem_type_t type);

AST_END_DECLARATIONS

#endif
