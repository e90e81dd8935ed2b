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

// Tells captures from raw blocks by their magic numbers. The stream and the report outlive the source.
std::unique_ptr<Source> open_source(OctetStream &stream, Damage &damage);

} // namespace astdump
