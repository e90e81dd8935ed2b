/* The texts of the codes in items.
 *
 * Coded fields of ADS-B and track items. `..._from_int` takes a raw field value and folds what is not defined into one
 * undefined value; `..._to_str` gives the text of a value, a fallback for one that is not defined. Constants, but for
 * ast_category_to_str. */
#ifndef AST_ENUMERATIONS_H
#define AST_ENUMERATIONS_H

#include "base.h"

AST_BEGIN_DECLARATIONS

/* Texts come short or long. */
#define AST_STYLE_SHORT UINT32_C(0)
#define AST_STYLE_LONG UINT32_C(1)

/** Emitter category 0 to 24; 25 is undefined. */
AST_API uint32_t ast_emitter_category_from_int(uint32_t raw);
AST_API const char *ast_emitter_category_to_str(uint32_t value, uint32_t style);

/** Transponder communications capability 0 to 4; 7 is undefined. */
AST_API uint32_t ast_transponder_comm_cap_from_int(uint32_t raw);
AST_API const char *ast_transponder_comm_cap_to_str(uint32_t value);

/** ACAS status 0 to 3; 8 is undefined. The next two have the same values and texts. */
AST_API uint32_t ast_acas_status_from_int(uint32_t raw);
AST_API const char *ast_acas_status_to_str(uint32_t value);

/** Multiple navigation aids status. */
AST_API uint32_t ast_multi_navids_status_from_int(uint32_t raw);
AST_API const char *ast_multi_navids_status_to_str(uint32_t value);

/** Differential correction status. */
AST_API uint32_t ast_diff_correction_status_from_int(uint32_t raw);
AST_API const char *ast_diff_correction_status_to_str(uint32_t value);

/** Altitude type: 0 barometric, 1 geometric. */
AST_API const char *ast_altitude_type_to_str(uint32_t value);

/** Source of a geometric altitude 0 to 7; any other is 0, no source. */
AST_API uint32_t ast_geometric_altitude_source_from_int(uint32_t raw);
AST_API const char *ast_geometric_altitude_source_to_str(uint32_t value);

/** Source of a selected altitude 0 to 3; any other is 0, unknown. */
AST_API uint32_t ast_selected_altitude_source_from_int(uint32_t raw);
AST_API const char *ast_selected_altitude_source_to_str(uint32_t value, uint32_t style);

/** Emergency status 0 to 7, of which 7 has no text; 8 is undefined. */
AST_API uint32_t ast_emergency_status_from_int(uint32_t raw);
AST_API const char *ast_emergency_status_to_str(uint32_t value);

/** Friend-or-foe status: 0 no interrogation, 1 friend, 2 unknown, 3 no reply; any other is 0. */
AST_API uint32_t ast_iff_status_from_int(uint32_t raw);
AST_API const char *ast_iff_status_to_str(uint32_t value);

/** Flight status of a transponder 0 to 5; 8 is undefined. */
AST_API uint32_t ast_radar_flight_status_from_int(uint32_t raw);
AST_API const char *ast_radar_flight_status_to_str(uint32_t value);

/** "I048" for category 48, in a buffer of the calling thread. */
AST_API const char *ast_category_to_str(uint32_t category);

AST_END_DECLARATIONS

#endif
