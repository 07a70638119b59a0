#include "browser/list_acts.h"

#include <span>
#include <string>

#include "browser/list_marks.h"
#include "browser/list_menu.h"
#include "browser/list_views.h"
#include "browser/row_panel.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/help.h"

namespace corvane {

namespace {

constexpr int key_delete = 46;
constexpr int key_f = 70;
constexpr int key_f3 = 114;

void enable(Tavrel& form, std::span<const char* const> entries, bool enabled) {
    for (const char* entry : entries) form.find(entry)->enabled = enabled && form.has_handler(entry);
}

void right_button(Tavrel& form) {
    const list_view_row& view = shown_view(form);
    const int column = form.state.clicked_column;
    if (view.right_opens_column != 0 && column == view.right_opens_column && form.state.clicked_row > 0)
        open_quietly(form, form.ListView1.cell(form.state.clicked_row, column));
    if (column < view.menu_from_column) return enable(form, view.left_off, false);
    enable(form, view.menu_on, true);
    enable(form, view.menu_off, false);
    form.popup_menu = "reprod";
}

void open_folder(Tavrel& form, const std::string& path) {
    const std::string_view folder = folder_of(path, form.outside.files.separator());
    if (!folder.empty()) open_quietly(form, std::string(folder));
}

}  // namespace

void locate_column(Tavrel& form) {
    run_state& state = form.state;
    const list_view& list = form.ListView1;
    state.clicked_row = list.selected_row;
    if (list.row_count() == 0) return;
    state.clicked_column = 0;
    const int count = list.column_count();
    const int x = form.list_event.x;
    int left = 0;
    for (int column = 0; column < count; ++column) {
        const int next = left + list.columns()[static_cast<std::size_t>(column)].width;
        const bool is_last = column + 1 == count;
        if (x >= left && (is_last || x < next)) state.clicked_column = column;
        left = next;
    }
    if (state.clicked_column == 0) state.clicked_column = 1;
}

void ListView1_MouseDown(Tavrel& form) {
    if (form.mouse_pointer == help_pointer) return;  // the click that follows opens the topic
    run_state& state = form.state;
    locate_column(form);
    form.panel(7, shown_view(form).mouse_word);
    const bool range = form.list_event.button == list_pointer::left_button && form.list_event.shift;
    if (range) {
        if (state.anchor_row == 0) return;
        mark_range(form);
    } else if (form.list_event.button == list_pointer::right_button) {
        right_button(form);
    }
    state.anchor_row = state.clicked_row;
}

void ListView1_Click(Tavrel& form) {
    if (help_mode_opens(form, 15) || !form.Frame4.visible) return;
    form.state.clicked_row = form.ListView1.selected_row;
    show_row_panel(form, form.state.clicked_row);
}

void ListView1_DblClick(Tavrel& form) {
    if (form.mouse_pointer == help_pointer) return;
    run_state& state = form.state;
    locate_column(form);
    if (state.clicked_row < 1 || state.clicked_row > form.ListView1.row_count()) return;
    const list_view_row& view = shown_view(form);
    if (state.clicked_column < view.first_path) {
        if (view.left_of_paths == double_click::shows_row) return show_row_panel(form, state.clicked_row);
        if (view.left_of_paths == double_click::opens_directory)
            return open_folder(form, form.ListView1.cell(state.clicked_row, view.first_path));
        if (view.left_of_paths != double_click::marks) return;
    }
    if (view.marks == mark_rule::pairs) mark_pair_cell(form);
    if (view.marks == mark_rule::single) mark_single_cell(form, view.first_path);
}

void ListView1_KeyDown(Tavrel& form) {
    const list_pointer& event = form.list_event;
    if (event.key_code == key_f3) {
        form.start(handlers::find_again);
    } else if (event.key_code == key_f && event.ctrl && !event.shift) {
        form.start(handlers::find_in_list);
    } else if (event.key_code == key_delete && !event.ctrl && !event.shift) {
        const deletion_rule deletes = shown_view(form).deletes;
        if (deletes == deletion_rule::files) form.start(handlers::delete_marked_files);
        if (deletes == deletion_rule::empty_directories) form.start(handlers::delete_empty_directories);
        if (deletes == deletion_rule::left_to_file_manager) form.inform(names_are_not_contents);
    }
}

}  // namespace corvane
