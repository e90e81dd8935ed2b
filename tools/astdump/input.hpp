// Opens whatever a file holds as a source of datagrams.
#pragma once

#include <memory>
#include <optional>

#include "datagram.hpp"
#include "octet_stream.hpp"

namespace astdump {

class Damage;

class Source {
public:
    virtual ~Source() = default;

    // The next datagram, or nothing at the end. What cannot be read is told to the damage report that the source was
    // given; reading goes on behind it where it can.
    virtual std::optional<Datagram> next() = 0;
};

// A FILE of the command line: a file, standard input or a socket.
class Input {
public:
    // With `waiting`, which a socket needs, new octets are waited for. Sockets use the `interface`, or, if that is
    // empty, the one that the system chooses. Throws std::system_error when the file cannot be opened.
    Input(const std::string &path, const std::string &interface, Waiting *waiting, Damage &damage);

    std::optional<Datagram> next() { return source_->next(); }

    // Octets of the file: those read, and all, where that is known.
    uint64_t consumed() const { return stream_ ? stream_->consumed() : 0; }
    std::optional<uint64_t> size() const { return stream_ ? stream_->size() : std::nullopt; }

private:
    std::unique_ptr<OctetStream> stream_; // null for a socket
    std::unique_ptr<Source> source_;
};

} // namespace astdump
