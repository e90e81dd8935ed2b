#include "run/signals.hpp"

#include <atomic>

namespace ast::recording::astdump {

namespace {

// What the handler knows.
std::atomic<Interruption *> interruption_of_process = nullptr;

void interrupt() {
    if (Interruption *const interruption = interruption_of_process) interruption->interrupt();
}

} // namespace

Signals::Signals(Interruption &interruption) : ending_((interruption_of_process = &interruption, interrupt)) {}

Signals::~Signals() { interruption_of_process = nullptr; }

} // namespace ast::recording::astdump
