// Threads of a library, which leave all signals to those of its caller.
#pragma once

#include <csignal>

namespace ast::recording {

// Holds for threads that are started as long as it lives.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked &) = delete;
    SignalsBlocked &operator=(const SignalsBlocked &) = delete;

private:
    sigset_t before_;
};

} // namespace ast::recording
