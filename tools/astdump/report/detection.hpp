// How often targets are detected: of the turns between the first and the last report of each, how many have one.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "report/distribution.hpp"

namespace ast::recording::astdump {

// What a target was detected with; a report may have several.
constexpr uint8_t kPrimary = 1;
constexpr uint8_t kSecondary = 2; // Mode A and C
constexpr uint8_t kModeS = 4;

// What a report of a target says of who it is and how it was seen.
struct Detected {
    double time_s = 0; // on one line
    uint8_t with = 0;
    bool is_extrapolated = false; // no detection
    bool is_last = false;         // the track ends
    std::optional<uint32_t> address{};
    std::optional<uint32_t> track_number{};
    std::optional<uint32_t> code{}; // Mode 3/A, unless it is in doubt
    std::optional<double> range_nm{};
};

// Of passes of the beam over targets.
struct Passes {
    uint64_t expected = 0;
    uint64_t detected = 0;

    Passes &operator+=(const Passes &other);
};

class Detection {
public:
    static constexpr double kRing_nm = 20;
    static constexpr size_t kRings = 26;     // up to the 512 NM that ranges go to
    static constexpr double kMostMissed = 5; // in a row: then the track has ended
    static constexpr double kLongest_s = 30; // between reports of a track, where no turn is known

    struct Kind {
        std::string_view title;
        uint8_t with; // any of these; 0 for any report
    };
    static constexpr Kind kKinds[] = {
        {"any", 0},
        {"primary", kPrimary},
        {"SSR", kSecondary},
        {"Mode S", kModeS},
    };

    struct Counts {
        Passes all;
        std::array<Passes, kRings> rings; // those without a range are in none
    };

    void add(const Detected &report, std::optional<double> period_s);

    // What follows does not go on with what was before.
    void interrupt() { ++part_; }

    const Counts &of(size_t kind) const { return counts_[kind]; }
    uint64_t tracks() const { return tracks_; }                  // of targets that were told apart
    uint64_t untold() const { return untold_; }                  // reports of others
    const Distribution &intervals() const { return intervals_; } // between reports of one track

private:
    // Reports of a target that follow each other, one kind by itself.
    struct Chain {
        bool is_begun = false;
        bool is_first = true; // and no other one has followed it
        uint64_t part = 0;
        double last_s = 0;
        std::optional<double> range_nm{};
    };

    struct Target {
        double last_s = 0;
        std::optional<double> range_nm{};
        std::optional<uint32_t> track_number{}; // that goes on with what were plots
        std::array<Chain, std::size(kKinds)> chains{};
    };

    struct Named {
        uint64_t target;
        double last_s;
    };

    // Who it is: of a kind of name and the name; 0 where that cannot be told.
    uint64_t target_of(const Detected &report, std::optional<double> period_s);
    std::optional<uint64_t> plot_of(const Detected &report, std::optional<double> period_s);
    bool is_fresh(double last_s, const Detected &report, std::optional<double> period_s) const;
    void count(size_t kind, Chain &chain, const Detected &report, std::optional<double> period_s);
    void add(size_t kind, const std::optional<double> &range_nm, const Passes &passes);
    void forget(double time_s, double longest_s);

    std::unordered_map<uint64_t, Target> targets_;
    std::unordered_map<uint32_t, Named> by_track_;
    std::bitset<4096> ambiguous_; // codes that several had at a time
    size_t enough_ = 1024;        // targets, before some are forgotten
    uint64_t part_ = 0;
    uint64_t tracks_ = 0;
    uint64_t untold_ = 0;
    std::array<Counts, std::size(kKinds)> counts_{};
    Distribution intervals_;
};

} // namespace ast::recording::astdump
