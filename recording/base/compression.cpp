#include "base/compression.hpp"

#include <algorithm>

namespace ast::recording {

// A gzip header goes on with its method, 8, and flags of which three are spare.
std::unique_ptr<Compression> find_compression(Octets head) {
    constexpr uint8_t kGzip[] = {0x1F, 0x8B, 0x08};
    constexpr uint8_t kSpareFlags = 0xE0;
    constexpr uint8_t kZstd[] = {0x28, 0xB5, 0x2F, 0xFD};
    if (head.size() < kCompressionMagicOctets) return nullptr;
    if (std::ranges::equal(head.first(3), kGzip) && (head[3] & kSpareFlags) == 0) return make_gzip();
    if (std::ranges::equal(head.first(4), kZstd)) return make_zstd();
    return nullptr;
}

} // namespace ast::recording
