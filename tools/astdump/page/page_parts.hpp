// What is the same on every HTML page.
#pragma once

#include <string>

namespace ast::recording::astdump {

// From the document type to the start of the blocks, with the style and the script.
std::string page_head();

} // namespace ast::recording::astdump
