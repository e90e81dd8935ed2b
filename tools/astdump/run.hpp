// From files to sinks.
#pragma once

#include <memory>
#include <vector>

#include "damage.hpp"
#include "input.hpp"
#include "options.hpp"
#include "sink.hpp"
#include "terminal.hpp"

namespace astdump {

class Run {
public:
    Run(const Options &options, std::vector<std::unique_ptr<Sink>> sinks, Damage &damage, Progress progress);

    // Reads all files and returns the exit status.
    int files();

private:
    bool done() const { return options_.count && shown_ >= *options_.count; }
    void file(const std::string &path);
    void datagram(const Datagram &datagram);
    void block(const Datagram &datagram, uint64_t offset, Octets octets);

    const Options &options_;
    std::vector<std::unique_ptr<Sink>> sinks_;
    Damage &damage_;
    Progress progress_;
    std::optional<Waiting> waiting_; // for more, if that is asked for
    Decoder decoder_;
    uint64_t number_ = 0; // of the last block in its file
    uint64_t shown_ = 0;
    bool unreadable_ = false;
};

} // namespace astdump
