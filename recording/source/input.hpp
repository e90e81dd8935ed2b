// Opens whatever a file holds as a source of datagrams.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/octet_stream.hpp"
#include "datagram/datagram_source.hpp"
#include "source/live_url.hpp"
#include "source/read_options.hpp"

namespace ast::recording {

// A file, standard input or a connection, or several addresses to listen to.
class Input {
public:
    // With `interruption`, which a socket needs, its waiting can be ended; new octets at the end of a file are waited
    // for only with that. Throws std::system_error when it cannot be opened.
    Input(const Origin &origin, const ReadOptions &options, Interruption *interruption, const Announce &announce);

    // What another source yields.
    Input(std::unique_ptr<DatagramSource> source, const DatagramChoice &choice);

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
    void open(const FramingKind *framing, const ReadOptions &options);
    void connect(const LiveUrl &url, Interruption &interruption, const ReadOptions &options, const Announce &announce);
    bool tell_end(Chunk &chunk);

    std::unique_ptr<OctetStream> stream_; // null for datagrams
    std::unique_ptr<DatagramSource> source_;
    std::string framing_;
    const Interruption *interruption_ = nullptr;
    DatagramFilter filter_;
    bool is_part_ = false; // of the file that is read
    bool has_any_ = false; // also of what is not chosen
    bool is_read_ = false;
    uint64_t next_number_ = 1; // of a block
};

} // namespace ast::recording
