// Opens whatever a file holds as a source of datagrams.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "chunk.hpp"
#include "framing/framing.hpp"
#include "octet_stream.hpp"

namespace astdump {

// An input of a kind that cannot be read; what() says why.
class UnreadableInput : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Source {
public:
    virtual ~Source() = default;

    // Fills an empty chunk with what comes next, without waiting for more once there is something in it; false at the
    // end. What cannot be read is told to the damage of the chunk; reading goes on behind it where it can.
    virtual bool fill(Chunk &chunk) = 0;

    // What there is none of where it has yielded nothing.
    virtual std::string nothing() const { return "blocks"; }
};

struct LiveUrl;

// A FILE of the command line: a file, standard input or a connection, or several addresses to listen to.
class Input {
public:
    // With `waiting`, which a socket needs, the user can end the input; with `follow`, new octets are waited for at the
    // end of a file. Sockets use the `interface`, or, if that is empty, the one that the system chooses. Throws
    // std::system_error when the file cannot be opened.
    // The framing of a file is found out where it is null.
    Input(const std::string &path, const std::string &interface, Waiting *waiting, bool follow,
          const FramingKind *framing = nullptr, const DatagramChoice &choice = {});

    // What another source yields.
    Input(std::unique_ptr<Source> source, const DatagramChoice &choice);

    // As a source does, of the datagrams that are chosen. Their blocks are numbered. Says at the end what there was
    // nothing of.
    bool fill(Chunk &chunk);

    // Whether more may come, for which reports should not wait.
    bool is_live() const { return !stream_ || !stream_->is_at_rest(); }

    // How its blocks are wrapped, and how it is compressed: "raw", "pcap, gzip".
    const std::string &framing() const { return framing_; }

    // Octets of the file, where that is known.
    std::optional<uint64_t> size() const { return stream_ ? stream_->size() : std::nullopt; }

private:
    void open(const FramingKind *framing);
    void connect(const LiveUrl &url, Waiting &waiting, const FramingKind *framing);

    std::unique_ptr<OctetStream> stream_; // null for datagrams
    std::unique_ptr<Source> source_;
    bool tell_end(Chunk &chunk);

    std::string framing_;
    DatagramFilter filter_;
    bool has_any_ = false; // also of what is not chosen
    bool is_read_ = false;
    uint64_t next_number_ = 1; // of a block
};

} // namespace astdump
