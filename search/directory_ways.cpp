// Ways into the directory window beside mouse and drop: a typed or pasted path, keys on the tree, the sets of
// earlier selections.
#include <utility>

#include "core/model/main_form.h"
#include "core/text/path_text.h"
#include "search/directory_form.h"
#include "search/given_paths.h"

namespace corvane {

namespace {

constexpr int key_enter = 13;
constexpr int key_blank = 32;
constexpr int key_insert = 45;

std::string set_words(const recent_sets::directories& set) {
    if (set.size() == 1) return set.front();
    return set.front() + " 等 " + std::to_string(set.size()) + " 个目录";
}

std::string set_tip(const recent_sets::directories& set) {
    constexpr std::size_t most_lines = 20;
    std::string tip;
    for (std::size_t i = 0; i < set.size() && i < most_lines; ++i) {
        if (i > 0) tip += "\r\n";
        tip += set[i];
    }
    return set.size() > most_lines ? tip + "\r\n…" : tip;
}

}  // namespace

void directory_form::Command_open_Click() {
    if (!Dir_select.text.empty()) tree_toggles = true;
}

void directory_form::Dir_select_KeyDown(int key_code) {
    if (key_code == key_blank) Command_open_Click();
    if (key_code == key_enter || key_code == key_insert) Command_sele_Click();
}

void directory_form::Command_path_Click() {
    const std::string typed = std::exchange(Text_path.text, {});
    const auto most = static_cast<std::size_t>(main_.state.limits.selected_directories);
    given_directories given = find_given_directories(main_.outside.files, typed, most);
    land();
    add_paths(given.directories);
    if (given.others.empty()) return;
    // To be mended where it was typed.
    if (given.others.size() == 1 && given.directories.empty()) Text_path.text = typed;
    main_.complain(others_words(given.others) + "  不是目录");
}

void directory_form::Command_recent_Click() {
    List_recent.clear();
    for (const recent_sets::directories& set : recent_.sets()) List_recent.add(set_words(set), set_tip(set));
}

void directory_form::List_recent_Click() {
    std::size_t chosen = 0;
    while (chosen < List_recent.rows().size() && !List_recent.rows()[chosen].selected) ++chosen;
    if (chosen >= List_recent.rows().size() || chosen >= recent_.sets().size()) return;
    const recent_sets::directories set = recent_.sets()[chosen];
    recent_sets::directories there;
    std::vector<std::string> gone;
    for (const std::string& directory : set)
        (main_.outside.files.attributes(directory).directory ? there : gone).push_back(directory);
    land();
    if (!there.empty()) {
        list_selected_dir.clear();
        add_paths(there);
    }
    if (!gone.empty()) main_.complain(others_words(gone) + "  不是目录");
}

}  // namespace corvane
