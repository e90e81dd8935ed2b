// Recordings: captures as a network card would have seen the datagrams, and their blocks one after the other.

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <system_error>

#include "output.hpp"
#include "write/packets.hpp"

namespace simulation {

namespace {

[[noreturn]] void fail(const std::string &what) { throw std::system_error(errno, std::generic_category(), what); }

std::FILE *open_file(const std::string &path) {
    std::FILE *const file = path == "-" ? stdout : std::fopen(path.c_str(), "wb");
    if (!file) fail(path);
    return file;
}

// A multicast packet each, from an address to a group that both end in the number of the station.
class Capture final : public Output {
public:
    Capture(const std::string &path, uint8_t station) : file_(open_file(path), std::fclose) {
        constexpr uint16_t kPort = 8600;
        packet_.endpoints = {{{.octets = {192, 0, 2, station}}, kPort}, {{.octets = {239, 192, 25, station}}, kPort}};
        put(ast::recording::pcap_header());
    }

    void write(const Datagram &datagram) override {
        packet_.time = time_of(datagram.time_s);
        text_.clear();
        ast::recording::put_packet(text_, packet_, datagram.blocks);
        put(text_.text());
    }

    void finish() override {
        if (std::fflush(file_.get()) != 0) fail("capture");
    }

private:
    // The recording begins on 1 June 2024.
    static ast::recording::Time time_of(double time_s) {
        constexpr int64_t kFirstDay_s = 1717200000;
        constexpr double kMicrosecondsPerS = 1e6;
        constexpr uint32_t kNanosecondsPerMicrosecond = 1000;
        const double whole_s = std::floor(time_s);
        const auto microseconds = static_cast<uint32_t>((time_s - whole_s) * kMicrosecondsPerS);
        return {kFirstDay_s + static_cast<int64_t>(whole_s), microseconds * kNanosecondsPerMicrosecond};
    }

    void put(std::string_view octets) {
        if (std::fwrite(octets.data(), 1, octets.size(), file_.get()) != octets.size()) fail("capture");
        count(octets.size());
    }

    std::unique_ptr<std::FILE, int (*)(std::FILE *)> file_;
    ast::recording::Datagram packet_;
    ast::recording::TextBuffer text_;
};

class RawFile final : public Output {
public:
    explicit RawFile(const std::string &path) : file_(open_file(path), std::fclose) {}

    void write(const Datagram &datagram) override {
        const Octets &octets = datagram.blocks;
        if (std::fwrite(octets.data(), 1, octets.size(), file_.get()) != octets.size()) fail("recording");
        count(octets.size());
    }

    void finish() override {
        if (std::fflush(file_.get()) != 0) fail("recording");
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> file_;
};

} // namespace

std::unique_ptr<Output> open_capture(const std::string &path, uint8_t station) {
    return std::make_unique<Capture>(path, station);
}

std::unique_ptr<Output> open_raw_file(const std::string &path) { return std::make_unique<RawFile>(path); }

} // namespace simulation
