// A file or standard input as a stream whose first octets can be looked at before they are read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "datagram.hpp"
#include "waiting.hpp"

namespace astdump {

class OctetStream {
public:
    // "-" is standard input. With `waiting`, the user can end it; with `follow`, a file has no end before that: it may
    // grow. Throws std::system_error when the file cannot be opened.
    OctetStream(const std::string &path, Waiting *waiting, bool follow);
    ~OctetStream();
    OctetStream(const OctetStream &) = delete;
    OctetStream &operator=(const OctetStream &) = delete;

    // The next octets, at most `count`, fewer only at the end. Throws std::system_error.
    Octets peek(size_t count);

    // Takes up to `count` octets; 0 is the end. Throws std::system_error.
    size_t read(uint8_t *buffer, size_t count);

    // Puts octets in front of what is still to be read.
    void put_back(Octets octets);

    // Whether octets can be read without waiting for them, or the end.
    bool is_ready() const;

    uint64_t consumed() const { return consumed_; }

    // Whether the end came because the user wanted it.
    bool cut_off() const { return waiting_ && waiting_->ended(); }

    // The size of a regular file; nothing for a pipe or a terminal, nor for a file that may grow.
    std::optional<uint64_t> size() const { return size_; }

private:
    size_t read_file(uint8_t *buffer, size_t count);

    int descriptor_;
    Waiting *waiting_;
    bool grows_ = false;
    std::vector<uint8_t> peeked_;
    uint64_t consumed_ = 0;
    std::optional<uint64_t> size_;
};

} // namespace astdump
