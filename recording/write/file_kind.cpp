#include "write/file_kind.hpp"

#include <algorithm>
#include <iterator>

namespace ast::recording {

namespace {

struct Extension {
    std::string_view name;
    FileKind kind;
};

constexpr Extension kExtensions[] = {
    {".pcap", FileKind::pcap},  {".ast", FileKind::blocks}, {".bin", FileKind::blocks},
    {".raw", FileKind::blocks}, {".json", FileKind::json},  {".jsonl", FileKind::json},
};

} // namespace

std::optional<FileKind> kind_of_name(std::string_view path) {
    const auto found =
        std::ranges::find_if(kExtensions, [&](const Extension &extension) { return path.ends_with(extension.name); });
    return found == std::end(kExtensions) ? std::nullopt : std::optional(found->kind);
}

} // namespace ast::recording
