// Ending the session or the machine on Windows.
#pragma once

#include "platform/power.h"

namespace corvane {

// Programs are asked to end and may save; those that do not answer are ended.
class windows_power : public power {
  public:
    outcome log_off() override;
    outcome reboot() override;
    outcome power_off() override;
};

// Gives this process the right to shut down, which a user's processes have but not in force.
outcome take_shutdown_right();

}  // namespace corvane
