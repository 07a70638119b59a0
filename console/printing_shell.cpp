#include "console/printing_shell.h"

namespace corvane {

shell_result printing_shell::recycle(const std::string& path) {
    output_.record({"shell", "recycle", path});
    return desktop_ ? desktop_->recycle(path) : shell_result::success();
}

shell_result printing_shell::open_document(const std::string& path) {
    output_.record({"shell", "open", path});
    return desktop_ ? desktop_->open_document(path) : shell_result::success();
}

shell_result printing_shell::show_in_file_manager(const std::string& path) {
    output_.record({"shell", "select", path});
    return desktop_ ? desktop_->show_in_file_manager(path) : shell_result::success();
}

shell_result printing_shell::show_properties(const std::string& path) {
    output_.record({"shell", "properties", path});
    return desktop_ ? desktop_->show_properties(path) : shell_result::success();
}

shell_result printing_shell::start_process(const std::vector<std::string>& arguments) {
    std::string line = "shell\tstart";
    for (const std::string& argument : arguments) append_field(line += '\t', argument);
    output_.line(line);
    return desktop_ ? desktop_->start_process(arguments) : shell_result::success();
}

shell_result printing_shell::set_clipboard(const std::string& text) {
    output_.record({"shell", "clipboard", text});
    return desktop_ ? desktop_->set_clipboard(text) : shell_result::success();
}

shell_result printing_shell::send_keys(const std::string& keys) {
    output_.record({"shell", "keys", keys});
    return desktop_ ? desktop_->send_keys(keys) : shell_result::success();
}

shell_result printing_shell::open_help_topic(const std::string& help_file, const std::string& topic) {
    output_.record({"shell", "help", topic});
    return desktop_ ? desktop_->open_help_topic(help_file, topic) : shell_result::success();
}

shell_result printing_shell::log_off() {
    output_.record({"shell", "log_off"});
    return machine_ ? machine_->log_off() : shell_result::success();
}

shell_result printing_shell::reboot() {
    output_.record({"shell", "reboot"});
    return machine_ ? machine_->reboot() : shell_result::success();
}

shell_result printing_shell::power_off() {
    output_.record({"shell", "power_off"});
    return machine_ ? machine_->power_off() : shell_result::success();
}

}  // namespace corvane
