// The window restore_runs as a model: the runs to the recycle bin, the files of one, and the ways back.
#pragma once

#include <string>
#include <vector>

#include "cleanup/recycled_run.h"
#include "cleanup/restore_run.h"
#include "core/model/form_model.h"
#include "core/model/handlers.h"

namespace corvane {

class Tavrel;

class restore_form : public form_model {
  public:
    explicit restore_form(Tavrel& main);

    list_box& List1;    // the runs, the newest first; the selected one is shown
    list_box& List2;    // its files, with a check mark each
    control& Label1;    // what became of them, in numbers
    control& Command1;  // "恢复选中的"
    control& Command2;  // "恢复整次删除"
    control& Command3;  // "帮助"
    control& Command4;  // "关闭"

    // The handlers of the window, as "restore_runs.NAME", and the one that opens it.
    handler_table handlers();

  private:
    // Reads the runs and shows the newest; without one, or without a bin, says so.
    void open();
    void close();
    void List1_Click();
    // Double click on a file: that one.
    void List2_DblClick();
    // The checked files; without one, the selected one.
    void Command1_Click();
    // All files of the run that are in the bin.
    void Command2_Click();

    void show_runs();
    void show_run(std::size_t index);
    void show_files();
    void restore(const std::vector<std::size_t>& rows);

    Tavrel& main_;
    std::vector<std::string> paths_;  // of the notes, as List1 shows them
    recycled_run run_;                // the shown one
    std::vector<recycled_state> states_;
    std::vector<std::size_t> rows_;  // of List2: indices of run_.files
};

}  // namespace corvane
