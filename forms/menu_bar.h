// Builds the menus of the main form from its table and keeps them as the models say. Used by main_window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/model/main_form.h"

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace corvane {

class menu_bar {
  public:
    // `act` runs a handler of the main form by its name. Menus of hidden top entries become pop-up menus.
    menu_bar(Tavrel& form, QMenuBar& bar, const std::function<void(const std::string&)>& act);

    // With `tasks_locked`, entries that start a task are disabled as well.
    void sync(bool tasks_locked);
    // A pop-up menu by the name of its top entry; null when there is none.
    QMenu* popup(std::string_view name) const;

  private:
    struct entry {
        control* model;
        QAction* action;
        const control* parent;  // null: stands at the top
        bool starts_task;
    };

    const Tavrel& form_;
    std::vector<entry> entries_;
    std::vector<std::pair<std::string, QMenu*>> popups_;
};

}  // namespace corvane
