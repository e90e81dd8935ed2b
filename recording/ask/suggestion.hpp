// What users may have meant by a name that there is not.
#pragma once

#include <string>
#include <string_view>

namespace ast::recording {

// "; did you mean I145? It is a value of its own, without /FL", of quantities for a name and of published fields for
// what has the form of a path; empty where nothing is near.
std::string suggestion(std::string_view name);

} // namespace ast::recording
