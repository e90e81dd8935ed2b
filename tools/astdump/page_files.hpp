// The style and the scripts of the HTML page, from the folder page/, as they are built in.
#pragma once

#include <string_view>
#include <vector>

namespace astdump {

// One file each, to be put one behind the other.
const std::vector<std::string_view> &page_style();
const std::vector<std::string_view> &page_script();

// By which a policy names the scripts, all in one.
std::string_view page_script_hash();

} // namespace astdump
