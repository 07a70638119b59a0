// The window Form_no_dire as a model: what the search leaves out and looks at, and the options of a run.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/model/form_model.h"
#include "core/model/handlers.h"
#include "search/option_list_edit.h"

namespace corvane {

class Tavrel;

class options_form : public form_model {
  public:
    explicit options_form(Tavrel& main);

    list_box& List1;                   // left out directories
    list_box& List2;                   // left out types
    list_box& List3;                   // only these types
    list_box& List4;                   // common types to take from
    std::array<control*, 6> labels{};  // Label1 to Label5 from index 1
    std::array<control*, 7> checks{};  // Check1 to Check6 from index 1
    control& Check8;                   // English windows; kept in the added settings
    control& Check7;  // a notification when a long task has ended; kept in the added settings
    control& Command1;
    std::array<control*, 4> Command2{};
    control& Command3;
    control& Command4;
    control& Command5;
    timer_control& Timer1;

    // The handlers of the task and of the window, the latter as "Form_no_dire.NAME". They hold on to the
    // window.
    handler_table handlers();
    // Takes the place that the settings hold, if they hold one. Before the first opening this keeps a write
    // of the settings from losing it.
    void restore_place();
    // The entry of the task: loads lists and options, where the window is not open yet, and shows it.
    void open();
    // Stores place and check boxes. What the lists hold and was not saved is lost.
    void Form_Unload();

    // Paths of any kind, dropped on List1; the search leaves them out at once, the file waits for "应用".
    void drop_paths(const std::vector<std::string>& paths);
    // Lines of text, dropped on List2 or List3: one type a line, up to its first blank.
    void drop_types(const list_box& target, std::string_view lines);

    // Bigger, smaller, background, text colour.
    void Command2_Click(int index);
    // "应用": saves the lists and, when they changed, offers a new search. While a task runs it only saves.
    void Command4_Click();

  private:
    void load();
    void prefer_own_place();
    void mend_settings();
    void apply_look();
    void store_check(std::size_t number);
    void read_common_types();
    void add_by_hand(option_list_edit& list, const char* prompt);
    void add_common_types(option_list_edit& list);
    void edit_file(const char* name, const char* seed);
    void reload(option_list_edit& list, void (*read)(Tavrel&));
    void Check1_Click();
    void keep_added_settings();
    void open_file_manager();
    void Timer1_Timer();
    void add_list_handlers(handler_table& table);
    void add_file_handlers(handler_table& table);
    void add_option_handlers(handler_table& table);
    std::array<std::string, 3> active_texts() const;

    Tavrel& main_;
    option_list_edit directories_;
    option_list_edit left_out_types_;
    option_list_edit only_types_;
    std::array<std::string, 3> kept_texts_;  // the active strings that the last search offer was settled with
    bool loaded_ = false;
    bool tiled_ = false;  // the window has made room for the file manager
};

}  // namespace corvane
