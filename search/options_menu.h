// The pop-up menus of the options window as a table. The form makes its entries from it, the front end its
// menus.
#pragma once

#include <span>

namespace corvane {

struct options_menu_entry {
    const char* list;  // the list whose right click opens the menu
    const char* name;
    const char* caption;
    char letter;  // of the keyboard, unique in its menu; 0: none, the entry only tells something
};

// The entries of each menu in their order, its own name and caption first.
std::span<const options_menu_entry> options_menus();

}  // namespace corvane
