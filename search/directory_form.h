// The window 目录选择 as a model: where the user builds selected_dirs.
#pragma once

#include <string>
#include <vector>

#include "core/form_model.h"

namespace corvane {

class Tavrel;

class directory_form : public form_model {
  public:
    explicit directory_form(Tavrel& main);

    list_box& list_selected_dir;
    control& Dir_select;  // text: the path of the tree's current directory
    control& Command_sele;
    control& cmd_dir_firm;
    control& Command34;
    control& cmd_dir_discard;
    control& direction_help;

    // Fills the list from selected_dirs, keeps a copy for "放弃", and shows the window. The entry of the
    // task.
    void open();
    // Picked paths join the list at its end; a path that is there already moves to the end.
    void add_paths(const std::vector<std::string>& paths);
    // A double click on a row.
    void remove_row(std::size_t index);
    void remove_selected();
    void clear_list();
    // The list becomes selected_dirs: sorted, without second copies and without directories that lie inside
    // another selected one.
    void confirm_selection();
    // "执行": confirms, closes, and starts search and compare.
    void cmd_dir_firm_Click();
    // "确定": confirms and closes.
    void Command34_Click();
    // "放弃": puts the list back as it was when the window opened. selected_dirs is left alone.
    void cmd_dir_discard_Click();
    // The tree shows another directory.
    void Dir_select_Change();
    // "选中": picks the tree's current directory.
    void Command_sele_Click();

  private:
    bool confirm_and_close(bool compare_next);

    Tavrel& main_;
    std::vector<std::string> selected_dir_backup_;
};

}  // namespace corvane
