#include "core/help.h"

#include <string>

#include "core/main_form.h"

namespace corvane {

void open_topic(Tavrel& form, int topic) {
    std::string digits = std::to_string(topic);
    if (digits.size() < 2) digits.insert(0, 1, '0');
    const shell_result result = form.outside.desktop.open_help_topic(
        form.data_path("Corvane帮助.chm"), "aux" + digits + "_Corvane帮助_Link.htm");
    if (!result.done) form.complain(result.reason);
}

bool help_mode_opens(Tavrel& form, int topic) {
    if (form.mouse_pointer != help_pointer) return false;
    open_topic(form, topic);
    return true;
}

}  // namespace corvane
