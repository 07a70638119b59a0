// The menus of the main form as a table: every entry with its parent. An entry is enabled when its handler,
// or that of the task it belongs to, is bound.
#pragma once

#include <span>

namespace corvane {

class Tavrel;

struct menu_entry {
    const char* name;
    const char* caption;  // "-" is a separator
    const char* parent;   // empty: stands in the menu bar
    bool visible = true;
    const char* shortcut = "";
};

std::span<const menu_entry> main_menu();

// Enables the entries, pictures and labels whose task is there and disables the others. Called once after
// all handlers are bound; binds the entries, pictures and labels of the task table to their procedures.
void wire_tasks(Tavrel& form);

}  // namespace corvane
