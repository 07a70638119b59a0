// The window 目录选择 as a model: where the user builds selected_dirs.
#pragma once

#include <string>
#include <vector>

#include "core/model/form_model.h"
#include "core/model/handlers.h"
#include "platform/file_system.h"
#include "search/directory_pick.h"
#include "search/recent_sets.h"

namespace corvane {

class Tavrel;

class directory_form : public form_model {
  public:
    explicit directory_form(Tavrel& main);

    list_box& List_disk_sele;  // a row each volume; the tooltip tells its free space
    list_box& list_selected_dir;
    control& Dir_select;    // text: the path of the tree's current directory
    control& Check_hidden;  // the tree shows hidden directories as well
    control& Label1;
    control& Command_sele;
    control& direction_help;
    control& cmd_dir_firm;
    control& Command34;
    control& cmd_dir_discard;
    control& Text_animal;  // the flying caption
    timer_control& Timer1;
    control& select_dir_mnu;
    control& move_selected_dir;
    control& 清空列表M;
    control& Text_path;       // what the user types or pastes: paths and file URLs in the system's bytes
    control& Command_path;    // "加入": takes them into the list
    control& Command_open;    // "打开": opens the tree's directory and picks nothing
    control& Command_remove;  // "移去": the selected rows of the list go
    control& Command_recent;  // "最近用过": fills List_recent
    list_box& List_recent;    // a row each set of directories, newest first
    control& Label_nested;    // which rows lie in others; empty for none

    // The rows of the tree on the screen; the front end sets `paths`.
    pick_source tree;
    pick_source drives;
    // Height of a row, twips; the front end sets it from its font, at least 255.
    int row_height = 255;

    // The volume below which the tree shows Dir_select; ends in the separator.
    const std::string& tree_root() const { return tree_root_; }
    const std::vector<volume>& volumes() const { return volumes_; }

    // The handlers of the task and of the window, which they hold on to.
    handler_table handlers();

    // Fills the list from selected_dirs, keeps a copy for "放弃", and shows the window. The entry of the
    // task.
    void open();
    // The window goes: its place is kept, picks on their way are dropped.
    void Form_Unload();

    // Presses in the two lists to pick from. `x`, `y` is where, in twips of the window.
    void Dir_select_MouseDown(mouse_button button, int shift, int row, int x, int y);
    void List_disk_sele_MouseDown(mouse_button button, int shift, int row, int x, int y);
    // The tree shows another volume; one that cannot be read leaves everything as it was.
    void List_disk_sele_Click(int row);
    // The tree shows another directory.
    void Dir_select_Change();
    // "选中": picks the tree's current directory.
    void Command_sele_Click();
    // The tree is to open or close its current directory; the front end does it and sets false.
    bool tree_toggles = false;
    void Command_open_Click();
    // A key on the tree, as the code of its key: Enter and Insert pick the current directory, the blank opens
    // it.
    void Dir_select_KeyDown(int key_code);

    // Takes the directories that Text_path names into the list and empties it. What is none stays there and
    // is told.
    void Command_path_Click();
    // Fills List_recent with the sets of earlier selections.
    void Command_recent_Click();
    // The selected set of List_recent becomes the list; what is no directory any more is left out and told.
    void List_recent_Click();

    // A step of the flying caption.
    void Timer1_Timer();

    // Picked paths join the list at its end; a path that is there already moves to the end.
    void add_paths(const std::vector<std::string>& paths);
    // Dropped paths that are directories; without Ctrl they replace the list.
    void drop_paths(const std::vector<std::string>& paths, bool ctrl);
    // Directories that the user has chosen outside of the program, as absolute paths. They become the
    // selection, cleaned as by "确定"; while the window is open, where the user is choosing, they join its
    // list and the selection is left alone. With `joins` they join the selection in place of taking its
    // place. Protection stays as it is: nobody has looked at the checks. The caller sees to it that no task
    // runs.
    void take_from_outside(const std::vector<std::string>& directories, bool joins = false);
    // A double click on a row.
    void remove_row(std::size_t index);
    void remove_selected();
    void clear_list();

    // The list becomes selected_dirs: sorted, without second copies and without directories that lie inside
    // another selected one.
    void confirm_selection();
    // "执行": confirms, closes, and starts search and compare. By this and by "确定" alone a checked row
    // becomes a protected folder, and an unchecked one is none any more.
    void cmd_dir_firm_Click();
    // "确定": confirms and closes.
    void Command34_Click();
    // "放弃": puts the list back as it was when the window opened. selected_dirs is left alone.
    void cmd_dir_discard_Click();

  private:
    void load();
    bool is_protected(const std::string& path) const;
    void take_protection();
    void tell_nested();
    void fill_from_backup();
    void fill_volumes();
    void choose_tree_root();
    void take_stored_place();
    void pick(pick_source& source, mouse_button button, int shift, int row, int x, int y);
    void send(std::vector<std::string> paths, int x, int y);
    void land();
    bool confirm_and_close(bool compare_next);

    Tavrel& main_;
    std::vector<volume> volumes_;
    std::string tree_root_;
    pick_flight flight_;
    recent_sets recent_;
};

}  // namespace corvane
