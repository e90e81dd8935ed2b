#include "system/process.hpp"

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <timeapi.h>

#include "system/descriptor.hpp"

namespace ast::recording::system {

namespace {

// What the handler knows.
std::atomic<void (*)()> act_of_process = nullptr;
std::atomic<bool> is_to_end = false;

HANDLE handle_of(std::FILE *file) { return reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(file))); }

// When the console is closed, the process ends as soon as this returns, or after some seconds.
BOOL WINAPI on_event(DWORD event) {
    is_to_end = true;
    if (void (*const act)() = act_of_process) act();
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
    return TRUE;
}

} // namespace

std::thread start_thread(std::function<void()> run) { return std::thread(std::move(run)); }

size_t processors() { return std::max(std::thread::hardware_concurrency(), 1U); }

void prepare_standard_streams() {
    for (const int file : {kStandardInput, kStandardOutput, kStandardError}) {
        if (::_get_osfhandle(file) < 0) ::_open("NUL", file == kStandardInput ? _O_RDONLY : _O_WRONLY);
        ::_setmode(file, _O_BINARY);
    }
    SetConsoleOutputCP(CP_UTF8);
    constexpr UINT kFinest_ms = 1;
    timeBeginPeriod(kFinest_ms); // or what is sent would leave at steps of 16 ms
}

bool is_terminal(std::FILE *file) {
    DWORD mode = 0;
    return GetConsoleMode(handle_of(file), &mode);
}

bool takes_escapes(std::FILE *terminal) {
    DWORD mode = 0;
    return GetConsoleMode(handle_of(terminal), &mode) &&
           SetConsoleMode(handle_of(terminal), mode | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

std::optional<ScreenSize> screen_size(std::FILE *file) {
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    if (!GetConsoleScreenBufferInfo(handle_of(file), &screen)) return std::nullopt;
    const SMALL_RECT &window = screen.srWindow;
    return ScreenSize{static_cast<unsigned>(window.Right - window.Left + 1),
                      static_cast<unsigned>(window.Bottom - window.Top + 1)};
}

Pager::Pager() = default;
Pager::~Pager() = default;

Ending::Ending(void (*act)()) {
    act_of_process = act;
    SetConsoleCtrlHandler(on_event, TRUE);
}

Ending::~Ending() {
    SetConsoleCtrlHandler(on_event, FALSE);
    act_of_process = nullptr;
}

void Ending::pass_on() {
    if (is_to_end) ExitProcess(STATUS_CONTROL_C_EXIT);
}

} // namespace ast::recording::system
