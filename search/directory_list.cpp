// The list of chosen directories: what joins it, what leaves it, and how it becomes selected_dirs.
#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/tasks/protected_folders.h"
#include "core/text/path_text.h"
#include "search/directory_form.h"
#include "search/nested_rows.h"

namespace corvane {

void directory_form::add_paths(const std::vector<std::string>& paths) {
    const std::unordered_set<std::string_view> picked(paths.begin(), paths.end());
    // A row that only moves takes its check along.
    std::unordered_set<std::string> checked, unchecked;
    for (std::size_t row = list_selected_dir.rows().size(); row-- > 0;) {
        const list_box::row& there = list_selected_dir.rows()[row];
        if (picked.count(there.text) == 0) continue;
        (there.checked ? checked : unchecked).insert(there.text);
        list_selected_dir.remove(row);
    }
    // A path that was picked twice joins once, where it came last.
    std::unordered_map<std::string_view, std::size_t> last;
    for (std::size_t i = 0; i < paths.size(); ++i) last[paths[i]] = i;
    for (std::size_t i = 0; i < paths.size(); ++i)
        if (last[paths[i]] == i)
            list_selected_dir.add_checked(
                paths[i],
                checked.count(paths[i]) != 0 || (unchecked.count(paths[i]) == 0 && is_protected(paths[i])));
    tell_nested();
}

void directory_form::tell_nested() {
    Label_nested.caption = nested_line(list_selected_dir.rows(), main_.outside.files.separator());
}

bool directory_form::is_protected(const std::string& path) const {
    return main_.state.protected_folders.count(with_separator(path, main_.outside.files.separator())) != 0;
}

// The rows that a check protects; what is not in the list keeps what it has.
void directory_form::take_protection() {
    std::set<std::string> folders = main_.state.protected_folders;
    for (const list_box::row& row : list_selected_dir.rows()) {
        const std::string folder = with_separator(row.text, main_.outside.files.separator());
        if (row.checked)
            folders.insert(folder);
        else
            folders.erase(folder);
    }
    const std::uint64_t before = main_.state.protection_revision;
    set_protected_folders(main_, std::move(folders));
    if (before != main_.state.protection_revision) main_.call(handlers::unmark_protected);
}

void directory_form::drop_paths(const std::vector<std::string>& paths, bool ctrl) {
    if (!ctrl) list_selected_dir.clear();
    std::vector<std::string> directories;
    for (std::string path : paths) {
        // A root keeps its separator.
        while (path.size() > 1 && path.back() == main_.outside.files.separator() &&
               path[path.size() - 2] != ':')
            path.pop_back();
        if (main_.outside.files.attributes(path).directory) directories.push_back(std::move(path));
    }
    add_paths(directories);
}

void directory_form::remove_row(std::size_t index) {
    if (index < list_selected_dir.rows().size()) list_selected_dir.remove(index);
    tell_nested();
}

void directory_form::remove_selected() {
    for (std::size_t row = list_selected_dir.rows().size(); row-- > 0;)
        if (list_selected_dir.rows()[row].selected) list_selected_dir.remove(row);
    tell_nested();
}

void directory_form::clear_list() {
    list_selected_dir.clear();
    tell_nested();
}

void directory_form::confirm_selection() {
    run_state& state = main_.state;
    // What is said of the rows that go stays to be read.
    tell_nested();
    std::vector<std::string> rows;
    for (const list_box::row& row : list_selected_dir.rows()) rows.push_back(row.text);
    // Sorted by the text with its closing separator, a directory is followed at once by all that lies in it.
    const auto closed = [this](const std::string& path) {
        return with_separator(path, main_.outside.files.separator());
    };
    std::sort(rows.begin(), rows.end());
    std::vector<std::size_t> order(rows.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return closed(rows[a]) < closed(rows[b]); });
    std::vector<bool> kept(rows.size(), true);
    std::string outer;
    for (const std::size_t i : order) {
        if (!outer.empty() && closed(rows[i]).starts_with(outer))
            kept[i] = false;
        else
            outer = closed(rows[i]);
    }
    list_selected_dir.clear();
    state.selected_dirs.clear();
    bool full = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!kept[i]) continue;
        if (state.selected_dirs.size() >= state.limits.selected_directories) {
            full = true;
            break;
        }
        list_selected_dir.add_checked(rows[i], is_protected(rows[i]));
        state.selected_dirs.push_back(rows[i]);
    }
    state.selected_dir_count = static_cast<std::int16_t>(state.selected_dirs.size());
    if (full) main_.complain("选中的目录太多，只取前 " + std::to_string(state.selected_dir_count) + " 个。");
    recent_.note({state.selected_dirs.begin(), state.selected_dirs.end()});
}

void directory_form::take_from_outside(const std::vector<std::string>& directories, bool joins) {
    if (visible) {
        land();
        return add_paths(directories);
    }
    list_selected_dir.clear();
    if (joins) add_paths({main_.state.selected_dirs.begin(), main_.state.selected_dirs.end()});
    add_paths(directories);
    confirm_selection();
}

bool directory_form::confirm_and_close(bool compare_next) {
    land();
    if (list_selected_dir.rows().empty()) {
        const std::string advice =
            "   你未选择清查目录\r\n\r\n在驱动器框和目录框：\r\n  右键      选中单个目录\r\n  Ctrl+鼠标 "
            "多项选择\r\n"
            " shift+鼠标 选择一组目录\r\n";
        if (compare_next)
            main_.complain(advice + "选中的目录放入右边的选中目录框。");
        else
            main_.complain(advice + "选中的目录自动放入右边的选中目录框。", 1009, true);
        return false;
    }
    take_protection();
    confirm_selection();
    visible = false;
    Form_Unload();
    pointer_glide(main_, "Tavrel", "Picture2");
    return true;
}

void directory_form::cmd_dir_firm_Click() {
    if (main_.task_runs()) return;
    if (confirm_and_close(true)) main_.start(handlers::search_and_compare);
}

void directory_form::Command34_Click() {
    confirm_and_close(false);
}

void directory_form::cmd_dir_discard_Click() {
    flight_.land();
    fill_from_backup();
}

// The directories as they were, and the protected folders inside them, which the search finds without a row
// of their own: there they can be unchecked.
void directory_form::fill_from_backup() {
    const run_state& state = main_.state;
    const char separator = main_.outside.files.separator();
    list_selected_dir.clear();
    std::set<std::string> shown;
    for (std::int16_t i = 1; i <= state.selected_dir_backup_count; ++i) {
        const std::string& directory = state.selected_dir_backup[i];
        list_selected_dir.add_checked(directory, is_protected(directory));
        shown.insert(with_separator(directory, separator));
    }
    for (const std::string& folder : state.protected_folders) {
        const bool inside = std::any_of(shown.begin(), shown.end(), [&](const std::string& directory) {
            return folder.size() > directory.size() && folder.starts_with(directory);
        });
        if (inside && shown.count(folder) == 0)
            list_selected_dir.add_checked(folder.substr(0, folder.size() - 1), true);
    }
    tell_nested();
}

}  // namespace corvane
