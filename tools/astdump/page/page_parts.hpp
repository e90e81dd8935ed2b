// What is the same on every HTML page.
#pragma once

#include <string>
#include <string_view>

namespace ast::recording::astdump {

// From the document type to the start of the blocks, with the style and the script.
std::string page_head();

// ---- The files of web/, which are built in ----

std::string page_style();

// What unpacks the scripts, and these, all in one.
std::string page_boot();
std::string page_script();

// By which a policy names both.
std::string_view page_script_hashes();

} // namespace ast::recording::astdump
