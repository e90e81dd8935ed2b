// Numbers of things.
#pragma once

#include <string>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording {

// "1 block", "2 blocks".
std::string counted(uint64_t count, std::string_view noun);
void put_counted(TextBuffer &out, uint64_t count, std::string_view noun);

} // namespace ast::recording
