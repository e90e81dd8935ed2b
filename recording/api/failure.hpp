// What programs are told of failures.
#pragma once

#include <ast_recording.h>
#include <string_view>
#include <system_error>

namespace ast::recording {

// AST_RECORDING_ERROR_... of an error of the system, of a look-up of names, or of none, which is that of an input of a
// kind that cannot be read.
uint32_t code_of(const std::error_code &error);

// Cut where it is too long.
void set_error(ast_recording_error_t &error, uint32_t code, std::string_view text);

// Writes a text for a caller. Returns its length.
uint64_t give_text(char *text, uint64_t capacity, std::string_view what);

} // namespace ast::recording
