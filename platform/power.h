// Ending the desktop session or the machine. platform/desktop asks logind; the console prints it.
#pragma once

#include "platform/outcome.h"

namespace corvane {

class power {
  public:
    virtual ~power() = default;
    virtual outcome log_off() = 0;
    virtual outcome reboot() = 0;
    virtual outcome power_off() = 0;
};

}  // namespace corvane
