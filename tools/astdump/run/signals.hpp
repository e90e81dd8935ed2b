// What would end the process ends the reading: SIGINT, SIGTERM and SIGHUP, or Ctrl-C.
#pragma once

#include "base/interruption.hpp"
#include "system/process.hpp"

namespace ast::recording::astdump {

// As long as it lives. There is one at a time.
class Signals {
public:
    explicit Signals(Interruption &interruption);
    ~Signals();
    Signals(const Signals &) = delete;
    Signals &operator=(const Signals &) = delete;

    // Ends the process by the signal that has come, for whoever started it to see.
    void pass_on() const { ending_.pass_on(); }

private:
    system::Ending ending_;
};

} // namespace ast::recording::astdump
