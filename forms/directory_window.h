// The window 目录选择 on the screen: volumes and directory tree to pick from, the chosen directories beside
// them. Made by front_end.
#pragma once

#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "core/model/main_form.h"
#include "forms/child_window.h"
#include "forms/pick_views.h"
#include "search/directory_form.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace corvane {

class directory_model;
class path_box;
class selected_list;

class directory_window : public child_window {
  public:
    // `act` runs a handler of the main form by its name and brings the screen up to date.
    directory_window(Tavrel& main, directory_form& form, std::function<void(const std::string&)> act,
                     QWidget* parent);

    // With `tasks_locked`, the buttons that change what a task works on are disabled.
    void sync(bool tasks_locked) override;

    // Shows Dir_select's directory in the tree below the model's volume.
    void show_directory();
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
        std::string design = {};  // the model's caption before any table of texts
    };

    QWidget* make_path_row();
    QWidget* make_list_buttons();
    QPushButton* add_button(const bound_button& bound, QWidget* parent);
    void take_given(const std::string& text);
    void show_recent();
    void toggle_directory();
    QWidget* make_pick_side();
    QWidget* make_selected_side();
    QWidget* make_buttons();
    void connect_picks();
    void tell_places();
    void show_flight();
    void take_current(const QModelIndex& current);

    directory_form& form_;
    directory_model* directories_;
    path_box* path_ = nullptr;
    QLabel* nested_ = nullptr;
    pick_list* volume_list_ = nullptr;
    pick_tree* tree_ = nullptr;
    selected_list* selected_ = nullptr;
    QCheckBox* hidden_ = nullptr;
    QLabel* note_ = nullptr;
    QLabel* flight_ = nullptr;
    QTimer flight_clock_;
    std::vector<bound_button> buttons_;
    std::string shown_path_;  // of the model, what the box was set to last
    std::string shown_directory_;
    bool showing_ = false;  // the tree is being set after the model, not by the user
};

}  // namespace corvane
