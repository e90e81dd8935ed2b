// What the radar knows of itself, to hold against what others make of its recording.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace simulation {

class Truth {
public:
    void turn() { ++turns_; }

    // The beam has passed an aircraft with Mode S.
    void pass(uint64_t serial, bool answered);

    // As JSON: the turns that have begun, and of the passes between the first and the last answer of each aircraft how
    // many there were and how many had one. Whoever has not answered for six turns is taken for another one then.
    std::string json() const;

private:
    struct Aircraft {
        uint64_t answers = 0;
        uint64_t passes = 0; // since the first answer
        uint64_t misses = 0; // since the last answer
    };

    void add(const Aircraft &aircraft);

    uint64_t turns_ = 0;
    uint64_t passes_ = 0; // of those that will not answer any more
    uint64_t answers_ = 0;
    std::map<uint64_t, Aircraft> aircraft_;
};

} // namespace simulation
