// How the places of data sources are known, in words.
#pragma once

#include <string>

#include "block/measuring_sources.hpp"

namespace ast::recording::astdump {

// "places of 9 sources: 1 given, 2 learnt, 5 worked out, 1 not known"
std::string places_text(const PlaceCounts &counts);

// "source 020/004 is at 41.6994, -4.8521 as worked out, standard error 308 m"
std::string estimate_text(const ast_site_t &site);

} // namespace ast::recording::astdump
