// The streams and signals that a program in a terminal is started with. Used by the mains.
#pragma once

#include <cstdio>

namespace corvane {

// Opens those of the first three streams that the program was started without, so that no file of its own
// takes their numbers: what is written to them fails, and what is read from them is empty.
void hold_standard_streams();

// While it lives, a program with windows writes to the terminal that it was started from, where the system
// gives it none by itself; a stream that leads somewhere stays. Only while there is something to say: who
// closes a terminal, or interrupts in it, ends all that have joined it.
class joined_terminal {
  public:
    joined_terminal();
    ~joined_terminal();
    joined_terminal(const joined_terminal&) = delete;
    joined_terminal& operator=(const joined_terminal&) = delete;

  private:
    [[maybe_unused]] unsigned code_page_ = 0;  // of the terminal, as it was found; 0: none was joined
};

bool is_terminal(std::FILE* stream);

// A closed pipe is then an error of the write to it and no longer the end of the process.
void keep_closed_pipes_as_errors();

// From now on, and as if there had been none before, the first interrupt is only noted; the next one ends the
// process as ever. Where interrupts were ignored when the program started, they still are.
void note_interrupts();
bool interrupted();

}  // namespace corvane
