// Ends the desktop session or the machine through logind.
#pragma once

#include "platform/power.h"

namespace corvane {

class desktop_power : public power {
  public:
    outcome log_off() override;
    outcome reboot() override;
    outcome power_off() override;
};

}  // namespace corvane
