// In place of zstd.cpp, where there is no libzstd for the system.
#include "base/compression.hpp"
#include "base/packing.hpp"
#include "base/unreadable_input.hpp"

namespace ast::recording {

std::unique_ptr<Compression> make_zstd() {
    throw UnreadableInput("is compressed by zstd, which this build does not support");
}

std::unique_ptr<Packing> make_packing() { return make_gzip_packing(); }

} // namespace ast::recording
