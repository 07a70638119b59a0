// Ends the desktop session or the machine through logind.
#pragma once

#include "platform/power.h"

namespace corvane {

class desktop_power : public power {
  public:
    shell_result log_off() override;
    shell_result reboot() override;
    shell_result power_off() override;
};

}  // namespace corvane
