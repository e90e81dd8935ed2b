// What a file is to be, by its name.
#pragma once

#include <optional>
#include <string_view>

namespace ast::recording {

enum class FileKind { pcap, blocks, json };

// By the extension; nothing for one that means none of these.
std::optional<FileKind> kind_of_name(std::string_view path);

} // namespace ast::recording
