#include "run/signals.hpp"

#include <atomic>
#include <iterator>

namespace ast::recording::astdump {

namespace {

constexpr int kEnding[] = {SIGINT, SIGTERM, SIGHUP};

// What the handler knows.
std::atomic<Interruption *> interruption_of_process = nullptr;
std::atomic<int> signal_of_process = 0;

void on_signal(int number) {
    signal_of_process = number;
    if (Interruption *const interruption = interruption_of_process) interruption->interrupt();
}

} // namespace

// What the process was told to ignore, as in the background of a shell, it goes on to ignore.
Signals::Signals(Interruption &interruption) {
    interruption_of_process = &interruption;
    struct sigaction action {};
    action.sa_handler = on_signal;
    action.sa_flags = SA_RESTART;
    for (size_t i = 0; i < std::size(kEnding); ++i) {
        sigaction(kEnding[i], nullptr, &before_[i]);
        if (before_[i].sa_handler != SIG_IGN) sigaction(kEnding[i], &action, nullptr);
    }
}

Signals::~Signals() {
    for (size_t i = 0; i < std::size(kEnding); ++i) sigaction(kEnding[i], &before_[i], nullptr);
    interruption_of_process = nullptr;
}

void Signals::pass_on() const {
    if (const int number = signal_of_process) {
        std::signal(number, SIG_DFL);
        raise(number);
    }
}

} // namespace ast::recording::astdump
