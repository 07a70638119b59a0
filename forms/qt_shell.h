// The desktop's services as the program with windows has them: with a clipboard.
#pragma once

#include "platform/desktop/desktop_shell.h"

namespace corvane {

class qt_shell : public desktop_shell {
  public:
    shell_result set_clipboard(const std::string& text) override;
};

}  // namespace corvane
