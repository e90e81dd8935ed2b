// What goes through, told now and then while it runs: lines on standard error, and a file for those who collect
// figures.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "show/metrics.hpp"
#include "show/send.hpp"
#include "show/sink.hpp"

namespace ast::recording::astdump {

class Throughput : public Sink {
public:
    struct Form {
        std::chrono::seconds every{0}; // between lines; 0 for none
        std::string metrics;           // the file to write; empty for none
        std::vector<std::string> inputs{};
    };

    // `send` is null where nothing is sent. Throws std::runtime_error when the file cannot be written.
    Throughput(const Form &form, const Send *send);

    // To be called again and again while nothing comes.
    void refresh();

    std::unique_ptr<Renderer> renderer() const override { return nullptr; }
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    bool counts() const override { return true; }
    void file(const std::string &) override {}
    void take(std::string_view) override {}
    void count(const Tally &tally) override;
    void finish(uint64_t octets_read) override;

private:
    using Clock = std::chrono::steady_clock;

    void tell_lines(Clock::time_point now);
    std::string line(double seconds) const;
    std::string sent_line(size_t way, double seconds) const;
    void write_metrics();

    Form form_;
    const Send *send_;
    Flow flow_; // since the beginning
    Flow told_; // by the last line
    Clock::time_point told_at_ = Clock::now();
    Clock::time_point written_at_ = told_at_;
    bool cannot_write_ = false;
};

} // namespace ast::recording::astdump
