// The window restore_runs on the screen: runs to the recycle bin above, the files of one below. Made by
// front_end.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "cleanup/restore_form.h"
#include "forms/child_window.h"

class QLabel;
class QPushButton;

namespace corvane {

class list_box_view;

class restore_window : public child_window {
  public:
    // `act` runs a handler of the main form by its name and brings the screen up to date.
    restore_window(Tavrel& main, restore_form& form, std::function<void(const std::string&)> act,
                   QWidget* parent);

    void sync(bool tasks_locked) override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPushButton* make_button(control& model);

    restore_form& form_;
    list_box_view* runs_;
    list_box_view* files_;
    QLabel* words_;
    std::vector<std::pair<QPushButton*, control*>> buttons_;
    bool is_syncing_ = false;
};

}  // namespace corvane
