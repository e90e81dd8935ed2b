// Compression for a page that unpacks by itself.
#pragma once

#include <string>
#include <string_view>

namespace ast::recording::astdump {

// zlib's format in base64.
std::string pack(std::string_view text);

} // namespace ast::recording::astdump
