// The desktop of Windows: recycle bin, documents by association, Explorer, property sheets, clipboard, keys.
#pragma once

#include "platform/shell.h"

namespace corvane {

class windows_shell : public shell {
  public:
    outcome recycle(const std::string& path) override;
    outcome open_document(const std::string& path) override;
    outcome show_in_file_manager(const std::string& path) override;
    outcome show_properties(const std::string& path) override;
    outcome open_power_settings() override;
    // Also where 7-Zip and WinRAR install themselves, which enter no search path.
    std::string find_program(const std::string& name) override;
    outcome_with<started_process> start_process(const std::vector<std::string>& arguments) override;
    outcome set_clipboard(const std::string& text) override;
    outcome send_keys(const std::string& keys) override;
    outcome open_help_topic(const std::string& help_file, const std::string& topic) override;
};

}  // namespace corvane
