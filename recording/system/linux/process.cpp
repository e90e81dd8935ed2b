#include "system/process.hpp"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <iterator>
#include <sched.h>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ast::recording::system {

namespace {

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

constexpr int kEnding[] = {SIGINT, SIGTERM, SIGHUP};

// What was there before for each of these, and what the handler knows.
struct sigaction before[std::size(kEnding)];
std::atomic<void (*)()> act_of_process = nullptr;
std::atomic<int> signal_of_process = 0;

void on_signal(int number) {
    signal_of_process = number;
    if (void (*const act)() = act_of_process) act();
}

} // namespace

std::thread start_thread(std::function<void()> run) {
    const SignalsBlocked blocked;
    return std::thread(std::move(run));
}

size_t processors() {
    cpu_set_t set;
    CPU_ZERO(&set);
    if (sched_getaffinity(0, sizeof set, &set) == 0) return static_cast<size_t>(CPU_COUNT(&set));
    return std::max(std::thread::hardware_concurrency(), 1U);
}

// Where whoever started this has closed one, a file that is opened later would take its place, and be written to.
void prepare_standard_streams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(descriptor, F_GETFD) < 0) ::open("/dev/null", descriptor == STDIN_FILENO ? O_RDONLY : O_WRONLY);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

bool is_terminal(std::FILE *file) { return ::isatty(::fileno(file)) == 1; }

bool takes_escapes(std::FILE *) {
    const char *const value = std::getenv("TERM");
    const std::string_view kind = value ? value : "";
    return !kind.empty() && kind != "dumb";
}

std::optional<ScreenSize> screen_size(std::FILE *file) {
    winsize size{};
    if (::ioctl(::fileno(file), TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
    return ScreenSize{size.ws_col, size.ws_row};
}

namespace {

constexpr const char *kUsualPager = "if command -v less >/dev/null; then exec less; else exec cat; fi";

// The shell says so itself where the user's own program is not there.
[[noreturn]] void become_pager(const char *command) {
    constexpr int kKeep = 0;
    ::setenv("LESS", "FRX", kKeep); // a text of one screen is not kept waiting, and colours are shown
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
    ::execl("/bin/sh", "sh", "-c", command, static_cast<char *>(nullptr));
    ::_exit(1);
}

// Lets a standard stream be another one, and returns a descriptor of what it was.
int replace(int stream, int other) {
    const int kept = ::fcntl(stream, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    ::dup2(other, stream);
    return kept;
}

void restore(int stream, int kept) {
    if (kept < 0) return;
    ::dup2(kept, stream);
    ::close(kept);
}

} // namespace

Pager::Pager() {
    const char *const chosen = std::getenv("PAGER");
    const char *const command = chosen ? chosen : kUsualPager;
    int ends[2];
    if (*command == '\0' || std::string_view(command) == "cat" || ::pipe2(ends, O_CLOEXEC) != 0) return;
    process_ = ::fork();
    if (process_ == 0) {
        ::dup2(ends[0], STDIN_FILENO);
        become_pager(command);
    }
    if (process_ > 0) {
        output_ = replace(STDOUT_FILENO, ends[1]);
        if (is_terminal(stderr)) errors_ = replace(STDERR_FILENO, ends[1]);
    }
    ::close(ends[0]);
    ::close(ends[1]);
}

Pager::~Pager() {
    if (process_ <= 0) return;
    std::fflush(stderr);
    restore(STDOUT_FILENO, output_);
    restore(STDERR_FILENO, errors_);
    while (::waitpid(static_cast<pid_t>(process_), nullptr, 0) < 0 && errno == EINTR) continue;
}

Ending::Ending(void (*act)()) {
    act_of_process = act;
    struct sigaction action {};
    action.sa_handler = on_signal;
    action.sa_flags = SA_RESTART;
    for (size_t i = 0; i < std::size(kEnding); ++i) {
        sigaction(kEnding[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN) sigaction(kEnding[i], &action, nullptr);
    }
}

Ending::~Ending() {
    for (size_t i = 0; i < std::size(kEnding); ++i) sigaction(kEnding[i], &before[i], nullptr);
    act_of_process = nullptr;
}

void Ending::pass_on() {
    if (const int number = signal_of_process) {
        std::signal(number, SIG_DFL);
        raise(number);
    }
}

} // namespace ast::recording::system
