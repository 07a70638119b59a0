// The script commands that stand for mouse and keys: mouse, header, key. Used by script_runner.
#pragma once

#include <string_view>

#include "app/program.h"

namespace corvane {

// Each command is false when its control or a word of it is unknown.
class script_input {
  public:
    explicit script_input(program& corvane) : program_(corvane) {}

    bool mouse(std::string_view arguments);
    bool header(std::string_view arguments);
    bool key(std::string_view arguments);

  private:
    std::string handler_prefix(const form_model& form) const;
    bool mouse_on_box(list_box& list, std::string_view handler, std::string_view arguments);
    bool mouse_on_view(list_view& list, std::string_view handler, std::string_view arguments);

    program& program_;
};

}  // namespace corvane
