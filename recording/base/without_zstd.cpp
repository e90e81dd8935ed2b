// In place of zstd.cpp, where there is no libzstd for the system.
#include "base/compression.hpp"
#include "base/unreadable_input.hpp"

namespace ast::recording {

std::unique_ptr<Compression> make_zstd() {
    throw UnreadableInput("is compressed by zstd, which this build does not support");
}

} // namespace ast::recording
