// Ending the desktop session or the machine. platform/desktop asks logind; the console prints it.
#pragma once

#include "platform/shell.h"

namespace corvane {

class power {
  public:
    virtual ~power() = default;
    virtual shell_result log_off() = 0;
    virtual shell_result reboot() = 0;
    virtual shell_result power_off() = 0;
};

}  // namespace corvane
