/* Category 001: target reports of one radar, plots and tracks, edition 1.4 and the layouts of three radar families. */
#ifndef AST_CAT001_H
#define AST_CAT001_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 001, also of one that is known but not registered; "Unknown CAT001 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_001_get_name(ast_dataitem_type_t type);

AST_END_DECLARATIONS

#endif
