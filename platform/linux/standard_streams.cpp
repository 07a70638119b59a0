#include "platform/standard_streams.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace corvane {

namespace {

volatile sig_atomic_t interrupt_seen = 0;

void note_interrupt(int) {
    interrupt_seen = 1;
}

}  // namespace

void hold_standard_streams() {
    // The lowest number that is free is taken, so each stands in for itself. What is written must fail.
    for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number)
        if (fcntl(number, F_GETFD) == -1) static_cast<void>(open("/dev/null", O_RDONLY));
}

// Every program has the streams of its caller.
joined_terminal::joined_terminal() = default;
joined_terminal::~joined_terminal() = default;

bool is_terminal(std::FILE* stream) {
    return isatty(fileno(stream)) == 1;
}

void keep_closed_pipes_as_errors() {
    signal(SIGPIPE, SIG_IGN);
}

void note_interrupts() {
    interrupt_seen = 0;
    struct sigaction before {};
    sigaction(SIGINT, nullptr, &before);
    if (before.sa_handler == SIG_IGN) return;
    struct sigaction noted {};
    noted.sa_handler = note_interrupt;
    // A read that is under way goes on; the next interrupt finds no handler.
    noted.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigemptyset(&noted.sa_mask);
    sigaction(SIGINT, &noted, nullptr);
}

bool interrupted() {
    return interrupt_seen != 0;
}

}  // namespace corvane
