// What a program asks of a recording, checked.
#pragma once

#include <ast_recording.h>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "source/read_options.hpp"

namespace ast::recording {

// Why a recording cannot be opened.
class CannotOpen : public std::runtime_error {
public:
    CannotOpen(uint32_t code, const std::string &what) : std::runtime_error(what), code_(code) {}
    uint32_t code() const { return code_; }

private:
    uint32_t code_; // AST_RECORDING_ERROR_...
};

// All three throw CannotOpen.
ReadOptions read_open_options(const ast_recording_options_t &options);

// Addresses to listen to become one origin.
std::vector<Origin> origins_of(std::span<const char *const> inputs, const ReadOptions &options);

// Whether the file of an origin, if it is one, is there and may be read.
void check_access(const Origin &origin);

} // namespace ast::recording
