// Opens whatever a file holds as a source of datagrams.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "chunk.hpp"
#include "framing/framing.hpp"
#include "octet_stream.hpp"

namespace astdump {

class Source {
public:
    virtual ~Source() = default;

    // Fills an empty chunk with what comes next, without waiting for more once there is something in it; false at the
    // end. What cannot be read is told to the damage of the chunk; reading goes on behind it where it can.
    virtual bool fill(Chunk &chunk) = 0;
};

// A FILE of the command line: a file, standard input or a socket.
class Input {
public:
    // With `waiting`, which a socket needs, the user can end the input; with `follow`, new octets are waited for at the
    // end of a file. Sockets use the `interface`, or, if that is empty, the one that the system chooses. Throws
    // std::system_error when the file cannot be opened.
    // The framing of a file is found out where it is null.
    Input(const std::string &path, const std::string &interface, Waiting *waiting, bool follow,
          const FramingKind *framing = nullptr);

    // As a source does. The blocks of the chunk are numbered.
    bool fill(Chunk &chunk);

    // How its blocks are wrapped, and how it is compressed: "raw", "pcap, gzip".
    const std::string &framing() const { return framing_; }

    // Whether all of it is there.
    bool is_at_rest() const { return stream_ && stream_->is_at_rest(); }

    // Octets of the file, where that is known.
    std::optional<uint64_t> size() const { return stream_ ? stream_->size() : std::nullopt; }

private:
    std::unique_ptr<OctetStream> stream_; // null for a socket
    std::unique_ptr<Source> source_;
    std::string framing_;
    bool is_read_ = false;
    uint64_t next_number_ = 1; // of a block
};

} // namespace astdump
