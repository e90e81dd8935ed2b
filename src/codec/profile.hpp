// The exported profiles in the order in which they are tried on a block of unknown origin.
#pragma once

#include "ast.h"

namespace ast {

constexpr const ast_uap_t *kProfiles[] = {
    &AST_UAP_STANDARD,     &AST_UAP_CAT001_PLOT, &AST_UAP_CAT021_VER023, &AST_UAP_CAT021_VER026, &AST_UAP_CAT021_VER21,
    &AST_UAP_CAT021_VER24, &AST_UAP_ASR10SS,     &AST_UAP_ASR10SS_MK2,   &AST_UAP_THALES,        &AST_UAP_MANAGAIR,
};

} // namespace ast
