#include "ui_text/interface_text.h"

#include "core/model/main_form.h"
#include "core/tasks/help.h"
#include "ui_text/help_topics.h"

namespace corvane {

namespace {

struct language_button {
    const char* name;
    const char* caption;
    const char* routine;
    language_table table;
};

constexpr language_button language_buttons[] = {
    {"Command37", "中文", "lang_chinese", language_table::chinese},
    {"Command38", "English", "lang_english", language_table::english},
    {"Command39", "Machine English", "lang_machine", language_table::machine},
};

}  // namespace

interface_text::interface_text(Tavrel& main, const std::string& version, std::string web_page)
    : main_(main), tooltips_(main), about_(main, version, std::move(web_page)) {
    add_language_frame();
}

// Nothing shows it: there is no visible way of choosing a language.
void interface_text::add_language_frame() {
    main_.add<control>(control_kind::frame, "Frame7").visible = false;
    for (const language_button& button : language_buttons) {
        control& added = main_.add<control>(control_kind::button, button.name);
        added.caption = button.caption;
        added.visible = false;
    }
}

void interface_text::start() {
    tooltips_.start();
}

void interface_text::change_language(language_table table) {
    if (form_model* const warning = main_.child("shut_msg"))
        if (auto* const clock = dynamic_cast<timer_control*>(warning->find("Timer1"))) clock->interval = 0;
    run_language_table(table, main_);
    tooltips_.save_tooltips();
}

handler_table interface_text::handlers() {
    handler_table all = help_handlers();
    for (const handler_table& table : {tooltips_.handlers(), about_.handlers()})
        all.insert(all.end(), table.begin(), table.end());
    for (const language_button& button : language_buttons) {
        all.push_back(
            {button.routine, [table = button.table](Tavrel& form) { run_language_table(table, form); }});
        all.push_back({std::string(button.name) + "_Click",
                       [this, table = button.table](Tavrel&) { change_language(table); }});
    }
    // Words to the makers: their web page, else how to reach whoever gave the program.
    all.push_back({"leave_word", [this](Tavrel& form) {
                       if (!about_.open_web_page()) open_topic(form, topic::support);
                   }});
    return all;
}

}  // namespace corvane
