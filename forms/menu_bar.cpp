#include "forms/menu_bar.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <map>
#include <string_view>

#include "core/model/main_menu.h"
#include "core/model/task_table.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {

// Opening the directory selection or the options touches nothing that a running task works on.
bool waits_for_task(std::string_view menu) {
    if (menu == "select_m") return false;
    for (const task_entry& task : task_table())
        if (menu == task.menu) return std::string_view(task.picture) != "Picture1";
    return false;
}

}  // namespace

menu_bar::menu_bar(Tavrel& form, QMenuBar& bar, const std::function<void(const std::string&)>& act)
    : form_(form) {
    std::map<std::string_view, QMenu*> menus;
    for (const menu_entry& line : main_menu()) {
        control* model = form.find(line.name);
        const std::string_view parent = line.parent;
        if (parent.empty()) {
            auto* menu = new QMenu(&bar);
            menu->setToolTipsVisible(true);
            menus[line.name] = menu;
            if (line.visible)
                bar.addMenu(menu);
            else
                popups_.emplace_back(line.name, menu);
            menu->menuAction()->setObjectName(QString::fromUtf8(line.name));
            entries_.push_back({model, menu->menuAction(), nullptr, false});
            continue;
        }
        if (std::string_view(line.caption) == "-") {
            menus.at(parent)->addSeparator();
            continue;
        }
        QAction* action = menus.at(parent)->addAction(QString());
        action->setObjectName(QString::fromUtf8(line.name));
        action->setShortcut(QKeySequence(QString::fromLatin1(line.shortcut)));
        QObject::connect(action, &QAction::triggered, &bar,
                         [act, name = std::string(line.name)] { act(name); });
        entries_.push_back(
            {model, action, form.find(parent), parent == "mark_m" || waits_for_task(line.name)});
    }
}

void menu_bar::sync(bool tasks_locked) {
    // A pointer that asks for a topic is a state that the menu shows.
    const bool asks_for_help = form_.mouse_pointer == help_pointer;
    for (const entry& line : entries_) {
        mirror_text(line.action, own_line(line.model->caption));
        mirror_enabled(line.action, line.model->enabled && (!line.parent || line.parent->enabled) &&
                                        !(tasks_locked && line.starts_task));
        mirror_visible(line.action, line.model->visible);
        const bool checked = line.model->value != 0 || (asks_for_help && line.model->name() == "help_spirit");
        if (line.action->isCheckable() != checked) line.action->setCheckable(checked);
        mirror_checked(line.action, checked);
    }
}

QMenu* menu_bar::popup(std::string_view name) const {
    for (const auto& [known, menu] : popups_)
        if (known == name) return menu;
    return nullptr;
}

}  // namespace corvane
