// Carries out what the user chose for the end of a run: end the program, log off, reboot, power off. Whatever
// runs comes to its end before. Used by the two windows of this folder; the program owns it.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

class Tavrel;

// The index of "关机类型" (shut_action).
enum class end_action { none, end_program, log_off, reboot, power_off };

// Promise: nothing that the user has waited for is lost by it. The settings are written first, the
// marks last. A comparison
// is cancelled as its button does, which stores what it found; a search, a deletion, an archive tool are
// waited for; boxes are dismissed, for nobody is there to answer. The machine gets to hear of it when the
// outermost handler has returned and everything is on the disk, the settings once more. What could not be
// written is told, and the machine stays up.
class shutdown {
  public:
    explicit shutdown(Tavrel& main) : main_(main) {}

    // Carries the choice out, now or as soon as nothing runs. A second call meanwhile changes nothing. The
    // machine's refusal is told in one line, and everything stays as it is.
    void shout_close();
    // Takes it back while it waits.
    void call_off();
    bool is_waiting() const;
    // To be called when the outermost handler has returned.
    void when_idle();

    // "shout_close".
    handler_table handlers();

  private:
    void act();

    Tavrel& main_;
};

}  // namespace corvane
