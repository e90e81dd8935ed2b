// What the codec knows and those below it ask for.
#pragma once

#include "ast.h"

namespace ast {

// The name of the exported profile with the same layouts; null for another one.
const char *exported_profile_name(const ast_uap_t &uap);

} // namespace ast
