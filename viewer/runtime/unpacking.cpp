// What is packed is unpacked by functions of whoever has loaded this.
#include <stdexcept>
#include <string>

#include "base/compression.hpp"

extern "C" {
#define AST_UNPACK(name) __attribute__((import_module("unpack"), import_name(#name)))

AST_UNPACK(begin) uint32_t unpack_begin(uint32_t kind);
AST_UNPACK(step)
uint32_t unpack_step(uint32_t handle, const uint8_t *packed, size_t packed_octets, uint8_t *plain, size_t plain_octets,
                     size_t *taken, size_t *given);
AST_UNPACK(message) void unpack_message(uint32_t handle, char *room, size_t octets);
AST_UNPACK(whole) uint32_t unpack_whole(uint32_t handle);
AST_UNPACK(end) void unpack_end(uint32_t handle);
}

namespace ast::recording {

namespace {

enum Kind : uint32_t { gzip = 1, zstd = 2 };

class Unpacking : public Compression {
public:
    Unpacking(Kind kind, std::string_view name) : handle_(unpack_begin(kind)), name_(name) {}
    ~Unpacking() override { unpack_end(handle_); }
    Unpacking(const Unpacking &) = delete;
    Unpacking &operator=(const Unpacking &) = delete;

    std::string_view name() const override { return name_; }
    bool is_whole() const override { return unpack_whole(handle_) != 0; }

    Step unpack(Octets packed, std::span<uint8_t> plain) override {
        Step step;
        const uint32_t message =
            unpack_step(handle_, packed.data(), packed.size(), plain.data(), plain.size(), &step.taken, &step.given);
        if (message == 0) return step;
        error_.assign(message, '\0');
        unpack_message(handle_, error_.data(), message);
        return {.error = error_.c_str()};
    }

private:
    uint32_t handle_;
    std::string_view name_;
    std::string error_;
};

} // namespace

std::unique_ptr<Compression> make_gzip() { return std::make_unique<Unpacking>(gzip, "gzip"); }
std::unique_ptr<Compression> make_zstd() { return std::make_unique<Unpacking>(zstd, "zstd"); }

} // namespace ast::recording
