#include "base/compression.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <zlib.h>
#include <zstd.h>

namespace ast::recording {

namespace {

class Gzip : public Compression {
public:
    Gzip() {
        constexpr int kGzipOnly = 16;
        if (inflateInit2(&stream_, MAX_WBITS + kGzipOnly) != Z_OK) throw std::runtime_error("no memory for gzip");
    }
    ~Gzip() override { inflateEnd(&stream_); }
    Gzip(const Gzip &) = delete;
    Gzip &operator=(const Gzip &) = delete;

    std::string_view name() const override { return "gzip"; }
    bool is_whole() const override { return is_whole_; }

    // Members may follow each other, and zeros the last one.
    Step unpack(Octets packed, std::span<uint8_t> plain) override {
        if (is_whole_) {
            const auto zeros = std::ranges::find_if(packed, [](uint8_t octet) { return octet != 0; }) - packed.begin();
            if (zeros != 0 || packed.empty()) return {.taken = static_cast<size_t>(zeros)};
        }
        stream_.next_in = const_cast<Bytef *>(packed.data());
        stream_.avail_in = static_cast<uInt>(packed.size());
        stream_.next_out = plain.data();
        stream_.avail_out = static_cast<uInt>(plain.size());
        const int result = inflate(&stream_, Z_NO_FLUSH);
        const Step step{.taken = packed.size() - stream_.avail_in, .given = plain.size() - stream_.avail_out};
        is_whole_ = result == Z_STREAM_END;
        if (is_whole_) inflateReset(&stream_);
        if (result == Z_OK || result == Z_BUF_ERROR || is_whole_ || step.given != 0) return step;
        return {.error = stream_.msg ? stream_.msg : "unknown"};
    }

private:
    z_stream stream_{};
    bool is_whole_ = false; // between members
};

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

} // namespace

// A gzip header goes on with its method, 8, and flags of which three are spare.
std::unique_ptr<Compression> find_compression(Octets head) {
    constexpr uint8_t kGzip[] = {0x1F, 0x8B, 0x08};
    constexpr uint8_t kSpareFlags = 0xE0;
    constexpr uint8_t kZstd[] = {0x28, 0xB5, 0x2F, 0xFD};
    if (head.size() < kCompressionMagicOctets) return nullptr;
    if (std::ranges::equal(head.first(3), kGzip) && (head[3] & kSpareFlags) == 0) return std::make_unique<Gzip>();
    if (std::ranges::equal(head.first(4), kZstd)) return std::make_unique<Zstd>();
    return nullptr;
}

} // namespace ast::recording
