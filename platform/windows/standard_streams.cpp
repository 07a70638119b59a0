#include "platform/standard_streams.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <atomic>

namespace corvane {

namespace {

std::atomic<bool> interrupt_seen = false;

BOOL WINAPI note_interrupt(DWORD what) {
    if (what != CTRL_C_EVENT) return FALSE;
    // The second one finds nobody and ends the process.
    return interrupt_seen.exchange(true) ? FALSE : TRUE;
}

}  // namespace

void hold_standard_streams() {
    for (int number = 0; number <= 2; ++number) {
        // Bytes are written as they are: no CR comes before a LF, and 0x1A ends nothing.
        if (_setmode(number, _O_BINARY) == -1) static_cast<void>(_open("NUL", _O_RDONLY | _O_BINARY));
    }
    // A console window is told that the bytes are UTF-8.
    if (is_terminal(stdout) || is_terminal(stderr)) SetConsoleOutputCP(CP_UTF8);
}

joined_terminal::joined_terminal() {
    const auto is_missing = [](std::FILE* stream) { return _fileno(stream) < 0; };
    if (!is_missing(stdout) || !is_missing(stderr) || !AttachConsole(ATTACH_PARENT_PROCESS)) return;
    for (std::FILE* stream : {stdout, stderr}) static_cast<void>(std::freopen("CONOUT$", "w", stream));
    code_page_ = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
}

joined_terminal::~joined_terminal() {
    if (code_page_ == 0) return;
    for (std::FILE* stream : {stdout, stderr}) {
        std::fflush(stream);
        static_cast<void>(std::freopen("NUL", "w", stream));
    }
    SetConsoleOutputCP(code_page_);
    FreeConsole();
}

bool is_terminal(std::FILE* stream) {
    DWORD mode = 0;
    return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))), &mode) != 0;
}

// They are errors of the write on Windows anyway.
void keep_closed_pipes_as_errors() {}

void note_interrupts() {
    interrupt_seen = false;
    SetConsoleCtrlHandler(note_interrupt, TRUE);
}

bool interrupted() {
    return interrupt_seen;
}

}  // namespace corvane
