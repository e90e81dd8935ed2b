// The style and the scripts of the HTML page, from the folder page/, as they are built in.
#pragma once

#include <string>
#include <string_view>

namespace ast::recording::astdump {

std::string page_style();

// What unpacks the scripts, and these, all in one.
std::string page_boot();
std::string page_script();

// By which a policy names both.
std::string_view page_script_hashes();

} // namespace ast::recording::astdump
