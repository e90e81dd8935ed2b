// This process: its threads, its standard streams and their terminal, and how it is ended from outside.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <optional>
#include <thread>

namespace ast::recording::system {

// A thread that leaves all signals to those of the caller, as do those that it starts.
std::thread start_thread(std::function<void()> run);

// As many as this process may run on; at least 1.
size_t processors();

// To be called first: standard streams are open, and carry octets as they are; they and files fail to be written rather
// than end the process, where nobody reads them any more or beyond what a file may hold. A terminal is given UTF-8.
void prepare_standard_streams();

// Whether it is a terminal; and whether that may know more than lines of text, by what the user's environment says.
bool is_terminal(std::FILE *file);
bool takes_escapes(std::FILE *terminal);

// Of a terminal; nothing where that is not known.
struct ScreenSize {
    unsigned columns;
    unsigned rows; // 0 where that is not known
};
std::optional<ScreenSize> screen_size(std::FILE *file);

// As long as it lives, what is written to standard output goes to the program with which the user looks at long texts,
// PAGER or else less, and so does what would stand on the same terminal as an error. In the end it waits for the user
// to have seen enough. Where there is no such program, output goes where it went; on Windows always.
class Pager {
public:
    Pager();
    ~Pager();
    Pager(const Pager &) = delete;
    Pager &operator=(const Pager &) = delete;

private:
    int64_t process_ = -1; // none
    int output_ = -1;      // as they were
    int errors_ = -1;
};

// As long as it lives, something is done instead when the process is to end: for SIGINT, SIGTERM and SIGHUP, but those
// that it was told to ignore, as in the background of a shell; or for Ctrl-C, Ctrl-Break and the end of the console.
// There is one at a time.
class Ending {
public:
    // In a signal handler, or on a thread of the system.
    explicit Ending(void (*act)());
    ~Ending();
    Ending(const Ending &) = delete;
    Ending &operator=(const Ending &) = delete;

    // Ends the process by what has come, if anything has, for whoever started it to see.
    static void pass_on();
};

} // namespace ast::recording::system
