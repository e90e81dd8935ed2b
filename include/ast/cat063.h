/* Category 063: status of the sensors that feed a surveillance data processing system. */
#ifndef AST_CAT063_H
#define AST_CAT063_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 063, also of one that is known but not registered; "Unknown CAT063 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_063_get_name(ast_dataitem_type_t type);

AST_END_DECLARATIONS

#endif
