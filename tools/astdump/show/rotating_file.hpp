// What is chosen, as one capture after the other: what is recorded for days.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "show/sink.hpp"
#include "write/output_file.hpp"

namespace ast::recording::astdump {

// When a file is full, and how many of them stay.
struct Rotation {
    int64_t period_s = 0; // from midnight on, in UTC; 0 for any
    uint64_t octets = 0;  // at most, if a packet is no more than that; 0 for any
    uint64_t keep = 0;    // of those of this run; 0 for all

    bool is_any() const { return period_s != 0 || octets != 0; }
};

class RotatingFile : public Sink {
public:
    // `pattern` is a name with what strftime knows, for the time of the first packet, in UTC. `remainders`: nothing is
    // chosen by what records hold. Each file is written beside its place, which it takes before the next begins, and
    // which no other file has. Throws std::runtime_error when one cannot be written, as does take().
    RotatingFile(const std::string &pattern, const std::vector<std::string> &inputs, const Rotation &rotation,
                 bool remainders)
        : pattern_(pattern), inputs_(inputs), rotation_(rotation), remainders_(remainders) {}

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    void file(const std::string &) override {}
    void take(std::string_view rendered) override;
    void finish(uint64_t octets_read) override;
    void break_off() override;

private:
    bool is_full(const std::optional<Time> &time, size_t octets) const;
    void begin(const Time &time);
    void close();
    void write(std::string_view octets);
    std::string name_for(const Time &time) const;

    std::string pattern_;
    std::vector<std::string> inputs_;
    Rotation rotation_;
    bool remainders_;
    std::optional<OutputFile> file_;
    int64_t period_ = 0;            // that this one is of
    std::deque<std::string> whole_; // of this run, the oldest first
};

} // namespace ast::recording::astdump
