/* Category 020: multilateration target reports, edition 1.11. */
#ifndef AST_CAT020_H
#define AST_CAT020_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 020, also of one that is known but not registered; "Unknown CAT020 Dataitem" for
 *  any other type. Constant. */
AST_API const char *ast_dataitem_020_get_name(ast_dataitem_type_t type);

/** I020/500: a compound item without registered subfields: DOP and SDP of six octets each, SDH of two. */
AST_API uint64_t ast_dataitem_020_500_get_size(const uint8_t *data, uint64_t available);

AST_END_DECLARATIONS

#endif
