// The desktop's services through GIO: trash, documents by association, the file manager over the session bus.
// Both front ends use it.
#pragma once

#include "platform/shell.h"

namespace corvane {

class desktop_shell : public shell {
  public:
    outcome recycle(const std::string& path) override;
    outcome open_document(const std::string& path) override;
    outcome show_in_file_manager(const std::string& path) override;
    outcome show_properties(const std::string& path) override;
    outcome open_power_settings() override;
    std::string find_program(const std::string& name) override;
    outcome_with<started_process> start_process(const std::vector<std::string>& arguments) override;
    // Only a front end with windows owns a clipboard.
    outcome set_clipboard(const std::string& text) override;
    // No display system of this desktop lets one program type into another.
    outcome send_keys(const std::string& keys) override;
    outcome open_help_topic(const std::string& help_file, const std::string& topic) override;
};

}  // namespace corvane
