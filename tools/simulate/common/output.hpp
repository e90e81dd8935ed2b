// Where the datagrams go: a capture, a file of raw blocks, or the network.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "splice.hpp"

namespace simulation {

class Output {
public:
    virtual ~Output() = default;

    virtual void write(const Datagram &datagram) = 0;

    // Brings everything to its place. Errors here and in write() are thrown as std::runtime_error.
    virtual void finish() = 0;

    // Octets written so far.
    uint64_t size_octets() const { return size_octets_; }

protected:
    void count(uint64_t octets) { size_octets_ += octets; }

private:
    uint64_t size_octets_ = 0;
};

// Files: "-" is standard output. In a capture the datagrams come from the station of this number.
std::unique_ptr<Output> open_capture(const std::string &path, uint8_t station);
std::unique_ptr<Output> open_raw_file(const std::string &path);

// Sends in real time, or faster by a factor, to "udp://HOST:PORT".
std::unique_ptr<Output> open_live(const std::string &url, double speed);

} // namespace simulation
