// What is chosen, sent to the network datagram by datagram.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "show/metrics.hpp"
#include "show/sink.hpp"
#include "show/timeline.hpp"
#include "write/sender.hpp"

namespace ast::recording::astdump {

// "late by 0.080 ms in the median and 1.200 ms at most"
std::string lateness_text(const Lateness &lateness);

// Where it goes.
struct Destination {
    std::string url;
    bool listens; // there, to those who connect
};

class Send : public Sink {
public:
    // To several alike. Throws std::runtime_error when nothing can be sent to one, or it would be an input.
    // `remainders`: nothing is chosen by what records hold.
    Send(const std::vector<Destination> &destinations, const SendOptions &options,
         const std::vector<std::string> &inputs, bool remainders, Interruption &interruption);

    // Says what has become of connections.
    void tell_events();

    // By destination.
    std::vector<SentTo> sent() const;

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{16} * 1024; }
    void file(const std::string &name) override;
    void live() override { is_live_ = true; }
    void take(std::string_view rendered) override;
    bool has_lost_any() const override;
    std::string progress() override;
    void finish(uint64_t octets_read) override;

private:
    struct Way {
        std::string url;
        Sender sender;
    };

    void send(Octets octets, const std::optional<Time> &time);
    static void tell_events(Way &way);

    bool remainders_;
    Interruption &interruption_;
    std::vector<Way> ways_;
    Timeline timeline_;
    bool is_live_ = false;
    std::optional<Time> last_; // recorded
    uint64_t shown_ = 0;       // datagrams, by the last progress
    std::chrono::steady_clock::time_point shown_at_ = std::chrono::steady_clock::now();
};

} // namespace ast::recording::astdump
