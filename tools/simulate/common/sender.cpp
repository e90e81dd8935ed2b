// Live: the datagrams go to the network when their time has come.

#define ASIO_STANDALONE
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/udp.hpp>

#include <chrono>
#include <optional>
#include <regex>
#include <stdexcept>
#include <thread>

#include "output.hpp"

namespace simulation {

namespace {

using asio::ip::udp;

// "udp://127.0.0.1:8600" or "udp://[::1]:8600".
udp::endpoint read_endpoint(const std::string &url) {
    static const std::regex kUrl(R"(udp://(?:\[(.+)\]|([^:]+)):(\d{1,5}))");
    std::smatch parts;
    asio::error_code error;
    if (std::regex_match(url, parts, kUrl)) {
        const auto address = asio::ip::make_address(parts[1].matched ? parts[1].str() : parts[2].str(), error);
        const unsigned long port = std::stoul(parts[3]);
        if (!error && port >= 1 && port <= UINT16_MAX) return {address, static_cast<uint16_t>(port)};
    }
    throw std::runtime_error("'" + url + "' is not udp://ADDRESS:PORT with an IP address");
}

class Sender final : public Output {
public:
    Sender(const std::string &url, double speed)
        : to_(read_endpoint(url)), socket_(context_, to_.protocol()), speed_(speed) {}

    void write(const Datagram &datagram) override {
        if (!first_s_) first_s_ = datagram.time_s;
        const std::chrono::duration<double> since_start((datagram.time_s - *first_s_) / speed_);
        std::this_thread::sleep_until(start_ + since_start);
        count(socket_.send_to(asio::buffer(datagram.blocks), to_));
    }

    void finish() override {}

private:
    asio::io_context context_;
    udp::endpoint to_;
    udp::socket socket_;
    double speed_;
    std::optional<double> first_s_; // when the first datagram is due
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

} // namespace

std::unique_ptr<Output> open_sender(const std::string &url, double speed) {
    return std::make_unique<Sender>(url, speed);
}

} // namespace simulation
