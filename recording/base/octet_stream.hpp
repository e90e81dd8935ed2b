// A file or standard input as a stream whose first octets can be looked at before they are read.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/compression.hpp"
#include "base/interruption.hpp"
#include "base/octets.hpp"

namespace ast::recording {

class OctetStream {
public:
    // "-" is standard input. With an interruption, waiting for it can be ended; with `follow`, a file has no end before
    // that: it may grow. Throws std::system_error when the file cannot be opened.
    OctetStream(const std::string &path, Interruption *interruption, bool follow);

    // What stands in memory, as if it were a file.
    OctetStream(Octets memory, Interruption *interruption)
        : interruption_(interruption), memory_(memory), is_at_rest_(true), size_(memory.size()) {}

    // What comes through a descriptor that is open already, which it closes in the end.
    OctetStream(system::Descriptor descriptor, Interruption *interruption)
        : descriptor_(descriptor), interruption_(interruption) {}
    ~OctetStream();
    OctetStream(const OctetStream &) = delete;
    OctetStream &operator=(const OctetStream &) = delete;

    // From now on the octets are those that are packed in the file, if it is compressed; they end where its data are
    // damaged. To be called before anything is read.
    void take_off_compression();

    // How the file is compressed, "" if it is not; and what is wrong with that, "" if nothing is.
    std::string_view compression() const { return compression_ ? compression_->name() : std::string_view(); }
    const std::string &damage() const { return damage_; }

    // The next octets, at most `count`, fewer only at the end. Throws std::system_error.
    Octets peek(size_t count);

    // Looks on behind what has been looked at, which is peeked(), up to `count` octets in all, without waiting for them
    // longer than a time.
    enum class Peek { more, quiet, end };
    Peek peek_on(size_t count, int limit_ms);
    Octets peeked() const { return peeked_; }

    // Takes up to `count` octets; 0 is the end. Throws std::system_error.
    size_t read(uint8_t *buffer, size_t count);

    // Puts octets in front of what is still to be read.
    void put_back(Octets octets);

    // Goes on at an offset, of what is at rest and not compressed; at the end, where there is less.
    void go_to(uint64_t offset);

    // Whether octets can be read without waiting for them, or the end.
    bool is_ready() const;

    uint64_t consumed() const { return consumed_; }

    // Whether the end came by the interruption.
    bool cut_off() const { return interruption_ && interruption_->ended(); }

    // Whether it has been recorded before, so that there is no need to wait for any of it.
    bool is_at_rest() const { return is_at_rest_; }

    // The octets of such a file, where they are known.
    std::optional<uint64_t> size() const { return size_; }

private:
    size_t read_memory(uint8_t *buffer, size_t count);
    size_t read_file(uint8_t *buffer, size_t count);
    size_t read_plain(uint8_t *buffer, size_t count);
    bool comes_within(int limit_ms) const;
    bool unpack();
    bool read_packed();

    system::Descriptor descriptor_; // of none for memory
    Interruption *interruption_;
    Octets memory_; // what is left of it
    bool grows_ = false;
    bool is_at_rest_ = false;
    std::vector<uint8_t> peeked_;
    uint64_t consumed_ = 0;
    std::optional<uint64_t> size_;
    std::unique_ptr<Compression> compression_; // null for none
    std::vector<uint8_t> packed_;              // read but not taken, from `packed_begin_` on
    size_t packed_begin_ = 0;
    std::vector<uint8_t> plain_; // unpacked but not taken, from `plain_begin_` on
    size_t plain_begin_ = 0;
    std::string damage_;
};

} // namespace ast::recording
