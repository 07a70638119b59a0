#include "console/printing_shell.h"

namespace corvane {

namespace {

class process_never_started : public started_process {
  public:
    bool has_ended(double) override { return true; }
};

}  // namespace

shell_result printing_shell::recycle(const std::string& path) {
    output_.record({"shell", "recycle", path});
    return dry_ ? shell_result::success() : desktop_.recycle(path);
}

shell_result printing_shell::open_document(const std::string& path) {
    output_.record({"shell", "open", path});
    return dry_ ? shell_result::success() : desktop_.open_document(path);
}

shell_result printing_shell::show_in_file_manager(const std::string& path) {
    output_.record({"shell", "select", path});
    return dry_ ? shell_result::success() : desktop_.show_in_file_manager(path);
}

shell_result printing_shell::show_properties(const std::string& path) {
    output_.record({"shell", "properties", path});
    return dry_ ? shell_result::success() : desktop_.show_properties(path);
}

std::unique_ptr<started_process> printing_shell::start_process(const std::vector<std::string>& arguments,
                                                               std::string& reason) {
    std::string line = "shell\tstart";
    for (const std::string& argument : arguments) append_field(line += '\t', argument);
    output_.line(line);
    if (dry_) return std::make_unique<process_never_started>();
    return desktop_.start_process(arguments, reason);
}

shell_result printing_shell::set_clipboard(const std::string& text) {
    output_.record({"shell", "clipboard", text});
    return dry_ ? shell_result::success() : desktop_.set_clipboard(text);
}

shell_result printing_shell::send_keys(const std::string& keys) {
    output_.record({"shell", "keys", keys});
    return dry_ ? shell_result::success() : desktop_.send_keys(keys);
}

shell_result printing_shell::open_help_topic(const std::string& help_file, const std::string& topic) {
    output_.record({"shell", "help", topic});
    return dry_ ? shell_result::success() : desktop_.open_help_topic(help_file, topic);
}

shell_result printing_shell::log_off() {
    output_.record({"shell", "log_off"});
    return dry_ ? shell_result::success() : machine_.log_off();
}

shell_result printing_shell::reboot() {
    output_.record({"shell", "reboot"});
    return dry_ ? shell_result::success() : machine_.reboot();
}

shell_result printing_shell::power_off() {
    output_.record({"shell", "power_off"});
    return dry_ ? shell_result::success() : machine_.power_off();
}

}  // namespace corvane
