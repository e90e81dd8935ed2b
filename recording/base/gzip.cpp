#include "base/compression.hpp"
#include "base/packing.hpp"

#include <algorithm>
#include <stdexcept>
#include <zlib.h>

namespace ast::recording {

namespace {

constexpr int kGzipHeader = 16; // with that around it, and not zlib's

class Gzip : public Compression {
public:
    Gzip() {
        if (inflateInit2(&stream_, MAX_WBITS + kGzipHeader) != Z_OK) throw std::runtime_error("no memory for gzip");
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

class GzipPacking : public Packing {
public:
    GzipPacking() {
        constexpr int kUsualMemory = 8;
        if (deflateInit2(&stream_, Z_BEST_SPEED, Z_DEFLATED, MAX_WBITS + kGzipHeader, kUsualMemory,
                         Z_DEFAULT_STRATEGY) != Z_OK)
            throw std::runtime_error("no memory for gzip");
    }
    ~GzipPacking() override { deflateEnd(&stream_); }
    GzipPacking(const GzipPacking &) = delete;
    GzipPacking &operator=(const GzipPacking &) = delete;

    PackingKind kind() const override { return PackingKind::gzip; }

    void pack(std::string_view piece, std::string &packed) override {
        deflateReset(&stream_);
        packed.resize(deflateBound(&stream_, static_cast<uLong>(piece.size())));
        stream_.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(piece.data()));
        stream_.avail_in = static_cast<uInt>(piece.size());
        stream_.next_out = reinterpret_cast<Bytef *>(packed.data());
        stream_.avail_out = static_cast<uInt>(packed.size());
        if (deflate(&stream_, Z_FINISH) != Z_STREAM_END) throw std::runtime_error("gzip has failed");
        packed.resize(packed.size() - stream_.avail_out);
    }

private:
    z_stream stream_{};
};

} // namespace

std::unique_ptr<Packing> make_gzip_packing() { return std::make_unique<GzipPacking>(); }

std::unique_ptr<Compression> make_gzip() { return std::make_unique<Gzip>(); }

} // namespace ast::recording
