// The window 目录选择 on the screen: volumes and directory tree to pick from, the chosen directories beside
// them. Made by front_end.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/main_form.h"
#include "forms/child_window.h"
#include "forms/pick_views.h"
#include "forms/volumes.h"
#include "search/directory_form.h"

class QPushButton;

namespace corvane {

class directory_model;
class selected_list;

class directory_window : public child_window {
  public:
    // `act` runs a handler of the main form by its name and brings the screen up to date.
    directory_window(Tavrel& main, directory_form& form, std::function<void(const std::string&)> act,
                     QWidget* parent);

    // With `tasks_locked`, the buttons that change what a task works on are disabled.
    void sync(bool tasks_locked) override;

    void show_volume(const std::string& root);
    directory_model& directories() { return *directories_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void before_open() override;

  private:
    struct bound_button {
        QPushButton* button;
        control* model;
        const char* caption;  // with the mnemonic
        bool waits_for_task;
    };

    QWidget* make_pick_side();
    QWidget* make_selected_side();
    QWidget* make_buttons();
    void fill_volumes();
    void take_current(const QModelIndex& current);
    void pick(const std::vector<std::string>& paths);

    directory_form& form_;
    std::vector<volume> volumes_;
    directory_model* directories_;
    pick_list* volume_list_ = nullptr;
    pick_tree* tree_ = nullptr;
    selected_list* selected_ = nullptr;
    std::vector<bound_button> buttons_;
};

}  // namespace corvane
