// Live: the datagrams go to the network when their time has come.

#include <cmath>
#include <system_error>

#include "base/counted.hpp"
#include "output.hpp"
#include "write/sender.hpp"

namespace simulation {

namespace {

using ast::recording::Sender;

class Live final : public Output {
public:
    Live(const std::string &url, double speed) : sender_(url, {.form = {}, .pace = {.speed = speed}}, interruption_) {}

    void write(const Datagram &datagram) override {
        constexpr double kNanosecondsPerS = 1e9;
        sender_.send(datagram.blocks, std::llround(datagram.time_s * kNanosecondsPerS));
        count(datagram.blocks.size());
    }

    // Whoever is to receive it may come later.
    void finish() override {
        const ast::recording::Sent &sent = sender_.sent();
        if (sent.failed != 0)
            throw std::system_error(sent.failure, ast::recording::counted(sent.failed, "datagram") + " not received");
    }

private:
    ast::recording::Interruption interruption_;
    Sender sender_;
};

} // namespace

std::unique_ptr<Output> open_live(const std::string &url, double speed) { return std::make_unique<Live>(url, speed); }

} // namespace simulation
