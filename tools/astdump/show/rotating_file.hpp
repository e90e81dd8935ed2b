// What is chosen, as one file after the other: what is recorded for days.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "show/write_file.hpp"

namespace ast::recording::astdump {

// When a file is full, and how many of them stay.
struct Rotation {
    int64_t period_s = 0; // from midnight on, in UTC; 0 for any
    uint64_t octets = 0;  // at most, if a piece is no more than that; 0 for any
    uint64_t keep = 0;    // 0 for all

    bool is_any() const { return period_s != 0 || octets != 0; }
};

class RotatingFile : public Sink {
public:
    // `pattern` is a name with what strftime knows, for the time of what comes first, in UTC. Each file is written
    // beside its place, which it takes before the next begins, and which no other file has. take() throws
    // std::runtime_error when the first cannot be written; where a later one cannot, that is told, and it is tried
    // again after a while.
    RotatingFile(const std::string &pattern, const std::vector<std::string> &inputs, const Rotation &rotation,
                 const JsonForm &form)
        : kind_(file_kind(pattern)), pattern_(pattern), inputs_(inputs), rotation_(rotation), form_(form) {}

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    uint64_t shows(const DecodedBlock &decoded) const override {
        return kind_ == FileKind::json ? json_lines_of(decoded, form_) : 1;
    }
    void file(const std::string &name) override { input_ = name; }
    void take(std::string_view rendered) override;
    bool has_lost_any() const override { return has_lost_any_; }
    void finish(uint64_t octets_read) override;
    void break_off() override;

private:
    using Clock = std::chrono::steady_clock;

    void store(const Time &time, std::string_view piece);
    bool is_full(const Time &time, size_t octets) const;
    void begin(const Time &time);
    void close();
    void write(std::string_view octets);
    void lose(std::string_view piece, const std::string &reason);
    void tell_lost();
    void delete_oldest() const;
    std::string name_for(const Time &time) const;

    FileKind kind_;
    std::string pattern_;
    std::vector<std::string> inputs_;
    Rotation rotation_;
    JsonForm form_;
    std::string input_;
    std::optional<OutputFile> file_;
    int64_t period_ = 0;         // that this one is of
    bool has_begun_ = false;     // any
    Clock::time_point tried_at_; // in vain
    uint64_t lost_octets_ = 0;   // since then
    bool has_lost_any_ = false;
};

} // namespace ast::recording::astdump
