// Compresses pieces of octets, each by itself.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace ast::recording {

enum class PackingKind { gzip, zstd };

class Packing {
public:
    virtual ~Packing() = default;

    virtual PackingKind kind() const = 0;

    // Sets what a piece is compressed to.
    virtual void pack(std::string_view piece, std::string &packed) = 0;
};

// The faster one that this build has.
std::unique_ptr<Packing> make_packing();
std::unique_ptr<Packing> make_gzip_packing();

} // namespace ast::recording
