/* Category 021: ADS-B target reports, editions 0.23 to 2.4. */
#ifndef AST_CAT021_H
#define AST_CAT021_H

#include "compounds.h"
#include "queries.h"
#include "registers.h"

AST_BEGIN_DECLARATIONS

/** The title of an item of category 021, also of one that is known but not registered; "Unknown CAT021 Dataitem" for
 *  any other type, which is reported at level 2. Constant. */
AST_API const char *ast_dataitem_021_get_name(ast_dataitem_type_t type);

/** I021/271 of editions 1.0 to 2.1: one octet, two when the first has FX set. */
AST_API uint64_t ast_dataitem_021_A07_get_size(const uint8_t *data, uint64_t available);

/* Compound items. For each: the size of the whole item, and the size, short id and title of one of its subfields, with
 * the outcomes of ast_dataitem_subfields_get_size, ast_subfield_get_size, _get_id and _get_name. A subfield number that
 * the item does not define has size 0 (which I021/110 reports at level 3), id "---" and name "UNKNOWN_SUBFIELD_NAME".
 */

/** I021/110, trajectory intent. */
AST_API uint64_t ast_dataitem_021_110_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_110_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_110_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_110_get_name(uint32_t subfield_type);

/** I021/220, met information. */
AST_API uint64_t ast_dataitem_021_220_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_220_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_220_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_220_get_name(uint32_t subfield_type);

/** I021/295, data Ages. */
AST_API uint64_t ast_dataitem_021_295_get_size(const uint8_t *data, uint64_t available);
AST_API uint64_t ast_subfield_021_295_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type);
AST_API const char *ast_subfield_021_295_get_id(uint32_t subfield_type);
AST_API const char *ast_subfield_021_295_get_name(uint32_t subfield_type);

AST_END_DECLARATIONS

#endif
