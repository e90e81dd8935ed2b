// What the application has told the library about sites, sensors and countries. Each function asks the registered
// lookup; without one the answer is empty.
#pragma once

#include "ast.h"

namespace ast {

// Countries and sensors; the count never exceeds the entries.
ast_sac_info_list_t sac_info(uint32_t sac);
ast_sensor_list_t sensors(uint32_t sac, uint32_t sic);

bool has_country_lookup();

// Asks for the country of an aircraft address and, when there is one, announces its code to the flag lookup.
ast_country_t aircraft_country(uint32_t address, const ast_dataitem_t *item);

} // namespace ast
