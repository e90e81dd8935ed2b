// Sites as users write them.
#pragma once

#include <ast.h>
#include <string>
#include <string_view>
#include <vector>

namespace ast::recording {

// "25/12=43.57,16.41,780": SAC and SIC, latitude and longitude in degrees, and height in metres, 0 without one. Throws
// std::invalid_argument for another text.
ast_site_t read_site(std::string_view text);

// Those of a file, a line each: "25,12,43.57,16.41,780,name". The name is for readers of the file. Behind "#" stands a
// comment. Throws std::invalid_argument for another line, and a file that cannot be read.
std::vector<ast_site_t> read_site_file(const std::string &path);

} // namespace ast::recording
