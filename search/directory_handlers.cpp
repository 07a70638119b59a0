// The handlers of the directory window under their names.
#include "core/model/main_form.h"
#include "core/tasks/help.h"
#include "search/directory_form.h"

namespace corvane {

handler_table directory_form::handlers() {
    const auto own = [this](const char* handler, void (directory_form::*procedure)()) {
        return corvane::handler{name() + "." + handler, [this, procedure](Tavrel&) { (this->*procedure)(); }};
    };
    return {
        {"Picture1_Click", [this](Tavrel&) { open(); }},
        own("cmd_dir_firm_Click", &directory_form::cmd_dir_firm_Click),
        own("Command34_Click", &directory_form::Command34_Click),
        own("cmd_dir_discard_Click", &directory_form::cmd_dir_discard_Click),
        own("Form_Unload", &directory_form::Form_Unload),
        own("Timer1_Timer", &directory_form::Timer1_Timer),
        own("Command_sele_Click", &directory_form::Command_sele_Click),
        own("Command_path_Click", &directory_form::Command_path_Click),
        own("Command_open_Click", &directory_form::Command_open_Click),
        own("Command_remove_Click", &directory_form::remove_selected),
        own("Command_recent_Click", &directory_form::Command_recent_Click),
        own("List_recent_Click", &directory_form::List_recent_Click),
        {name() + ".Dir_select_KeyDown",
         [this](Tavrel& form) { Dir_select_KeyDown(form.list_event.key_code); }},
        own("Dir_select_Change", &directory_form::Dir_select_Change),
        own("list_selected_dir_DblClick", &directory_form::remove_selected),
        own("move_selected_dir", &directory_form::remove_selected),
        own("清空列表M", &directory_form::clear_list),
        {name() + ".direction_help_Click", [](Tavrel& form) { open_topic(form, 9); }},
    };
}

}  // namespace corvane
