// The viewer that pages are made of.
#pragma once

#include <string_view>

namespace ast::recording::astdump {

// As viewer/ builds it, without a recording; empty where the tool was built without it. The file that AST_VIEWER names
// in the environment takes its place, for those who work on it, and for tests.
std::string_view viewer();

// The same in pieces, around what a page adds: the recording, and what is to be known about it.
struct ViewerPieces {
    std::string_view begin;
    std::string_view between;
    std::string_view end;
};

// Throws std::runtime_error where the tool was built without it.
ViewerPieces viewer_pieces();

} // namespace ast::recording::astdump
