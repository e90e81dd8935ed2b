// Keeps libast from its log.
#pragma once

#include <ast.h>

namespace ast::recording {

// On this thread, as long as it lives: the log is the caller's, and none of his business what is tried here.
class Silence {
public:
    Silence() : was_silent_(ast_log_silence(true)) {}
    ~Silence() { ast_log_silence(was_silent_); }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;

private:
    bool was_silent_;
};

} // namespace ast::recording
