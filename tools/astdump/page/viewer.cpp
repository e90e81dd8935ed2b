#include "page/viewer.hpp"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#ifdef AST_HAS_VIEWER
extern "C" {
extern const char ast_viewer_begin[]; // see embedded_viewer.S
extern const char ast_viewer_end[];
}
#endif

namespace ast::recording::astdump {

namespace {

// Up to the end of an opening tag, whose element is empty.
constexpr std::string_view kRecording = "id=\"recording\">";
constexpr std::string_view kAbout = "id=\"about\">";

std::string_view built_in() {
#ifdef AST_HAS_VIEWER
    return {ast_viewer_begin, static_cast<size_t>(ast_viewer_end - ast_viewer_begin)};
#else
    return {};
#endif
}

std::string read(const char *path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator(file), {}};
}

size_t end_of(std::string_view tag, size_t from) {
    const size_t place = viewer().find(tag, from);
    if (place == std::string_view::npos) throw std::runtime_error("--html: the viewer has no place for a recording");
    return place + tag.size();
}

} // namespace

std::string_view viewer() {
    static const char *const other = std::getenv("AST_VIEWER");
    static const std::string text = other && *other != '\0' ? read(other) : std::string(built_in());
    return text;
}

ViewerPieces viewer_pieces() {
    if (viewer().empty())
        throw std::runtime_error("--html: this astdump was built without its viewer, which scripts/viewer makes");
    const size_t recording = end_of(kRecording, 0);
    const size_t about = end_of(kAbout, recording);
    return {viewer().substr(0, recording), viewer().substr(recording, about - recording), viewer().substr(about)};
}

} // namespace ast::recording::astdump
