// SIGINT, SIGTERM and SIGHUP end the reading, not the process.
#pragma once

#include <csignal>

#include "base/interruption.hpp"

namespace ast::recording::astdump {

// As long as it lives. There is one at a time.
class Signals {
public:
    explicit Signals(Interruption &interruption);
    ~Signals();
    Signals(const Signals &) = delete;
    Signals &operator=(const Signals &) = delete;

    // Ends the process by the signal that has come, for whoever started it to see.
    void pass_on() const;

private:
    struct sigaction before_[3];
};

} // namespace ast::recording::astdump
