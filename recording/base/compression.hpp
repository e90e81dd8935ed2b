// Takes compression off octets as they come, in bounded memory.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "base/octets.hpp"

namespace ast::recording {

class Compression {
public:
    virtual ~Compression() = default;

    virtual std::string_view name() const = 0;

    struct Step {
        size_t taken = 0;            // octets of what came in
        size_t given = 0;            // and of what went out
        const char *error = nullptr; // why there is no more to get; constant
    };

    // Takes some of the octets and gives some; nothing of either when it needs more.
    virtual Step unpack(Octets packed, std::span<uint8_t> plain) = 0;

    // Whether the input may end here.
    virtual bool is_whole() const = 0;
};

// As much as the kinds of compression are told by.
constexpr size_t kCompressionMagicOctets = 4;

// Null for octets that are not compressed, as far as one can tell. Throws UnreadableInput for a kind that this build
// does not support.
std::unique_ptr<Compression> find_compression(Octets head);

// Each of these kinds.
std::unique_ptr<Compression> make_gzip();
std::unique_ptr<Compression> make_zstd();

} // namespace ast::recording
