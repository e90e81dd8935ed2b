/* Category 240: radar video, in blocks of cell amplitudes per azimuth sector. */
#ifndef AST_CAT240_H
#define AST_CAT240_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 240, also of one that is known but not registered; "Unknown CAT240 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_240_get_name(ast_dataitem_type_t type);

AST_END_DECLARATIONS

#endif
