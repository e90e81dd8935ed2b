#include "base/compression.hpp"
#include "base/packing.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <zstd.h>

namespace ast::recording {

namespace {

class Zstd : public Compression {
public:
    Zstd() : stream_(ZSTD_createDStream()) {
        if (!stream_) throw std::runtime_error("no memory for zstd");
    }

    std::string_view name() const override { return "zstd"; }
    bool is_whole() const override { return is_whole_; }

    // What has had no room so far comes first, by itself: a step that fails gives nothing.
    Step unpack(Octets packed, std::span<uint8_t> plain) override {
        if (is_whole_ && packed.empty()) return {};
        if (std::exchange(is_full_, false)) {
            const Step step = take({}, plain);
            if (step.given != 0 || step.error) return step;
        }
        return take(packed.first(std::min(packed.size(), next_)), plain);
    }

private:
    Step take(Octets packed, std::span<uint8_t> plain) {
        ZSTD_inBuffer in{packed.data(), packed.size(), 0};
        ZSTD_outBuffer out{plain.data(), plain.size(), 0};
        const size_t result = ZSTD_decompressStream(stream_.get(), &out, &in);
        if (ZSTD_isError(result)) return {.error = ZSTD_getErrorName(result)};
        is_whole_ = result == 0;
        is_full_ = !is_whole_ && out.pos == out.size;
        next_ = is_whole_ ? kFirstOctets : result;
        return {.taken = in.pos, .given = out.pos};
    }

    struct Free {
        void operator()(ZSTD_DStream *stream) const { ZSTD_freeDStream(stream); }
    };
    static constexpr size_t kFirstOctets = 5;
    size_t next_ = kFirstOctets; // octets of the next step
    bool is_full_ = false;       // what the last one had to give
    std::unique_ptr<ZSTD_DStream, Free> stream_;
    bool is_whole_ = false; // between frames
};

class ZstdPacking : public Packing {
public:
    ZstdPacking() : context_(ZSTD_createCCtx()) {
        if (!context_) throw std::runtime_error("no memory for zstd");
    }

    PackingKind kind() const override { return PackingKind::zstd; }

    void pack(std::string_view piece, std::string &packed) override {
        constexpr int kFast = 1;
        packed.resize(ZSTD_compressBound(piece.size()));
        const size_t size =
            ZSTD_compressCCtx(context_.get(), packed.data(), packed.size(), piece.data(), piece.size(), kFast);
        if (ZSTD_isError(size)) throw std::runtime_error(ZSTD_getErrorName(size));
        packed.resize(size);
    }

private:
    struct Free {
        void operator()(ZSTD_CCtx *context) const { ZSTD_freeCCtx(context); }
    };
    std::unique_ptr<ZSTD_CCtx, Free> context_;
};

} // namespace

std::unique_ptr<Packing> make_packing() { return std::make_unique<ZstdPacking>(); }

std::unique_ptr<Compression> make_zstd() { return std::make_unique<Zstd>(); }

} // namespace ast::recording
