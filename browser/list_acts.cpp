#include "browser/list_acts.h"

#include <string>

#include "browser/list_marks.h"
#include "browser/list_menu.h"
#include "browser/same_view.h"
#include "core/model/main_form.h"
#include "core/tasks/help.h"

namespace corvane {

namespace {

constexpr int key_delete = 46;
constexpr int key_f = 70;
constexpr int key_f3 = 114;

const char* view_name(int list_mode) {
    static constexpr const char* names[] = {"选择要删除重复文件", "选择要删除空目录", "显示不相同文件",
                                            "显示相同_文件名", "显示同名目录"};
    return list_mode >= 0 && list_mode <= 4 ? names[list_mode] : "";
}

void enable(Tavrel& form, std::initializer_list<const char*> entries, bool enabled) {
    for (const char* entry : entries) form.find(entry)->enabled = enabled && form.has_handler(entry);
}

void right_button(Tavrel& form) {
    const int column = form.state.clicked_column;
    switch (form.state.list_mode) {
        case 0:
            if (column <= 2) return enable(form, {"all_select", "all_not_select"}, false);
            enable(form,
                   {"all_select", "all_not_select", "open_same_file", "same_time_open_2file", "double_disp",
                    "disp_same_file_attr", "search_in_result", "again_search", "only_disp", "not_list"},
                   true);
            break;
        case 1:
            enable(form,
                   {"open_same_file", "same_time_open_2file", "double_disp", "search_in_result",
                    "again_search", "only_disp", "not_list"},
                   false);
            break;
        case 2:
            if (column == 4 && form.state.clicked_row > 0)
                open_quietly(form, form.ListView1.cell(form.state.clicked_row, 4));
            return;
        case 3:
            if (column <= 2) return;
            break;
        case 4:
            if (column <= 1) return;
            enable(form, {"open_same_file", "only_disp", "not_list", "all_select", "all_not_select"}, false);
            break;
        default:
            return;
    }
    form.popup_menu = "reprod";
}

void open_folder_of(Tavrel& form, const std::string& path) {
    const std::size_t cut = path.rfind(form.outside.files.separator());
    if (cut != std::string::npos) open_quietly(form, path.substr(0, cut + 1));
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
    run_state& state = form.state;
    locate_column(form);
    form.panel(7, view_name(state.list_mode));
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
    run_state& state = form.state;
    locate_column(form);
    if (state.clicked_row < 1 || state.clicked_row > form.ListView1.row_count()) return;
    const int column = state.clicked_column;
    switch (state.list_mode) {
        case 0:
            if (column < 3) return show_row_panel(form, state.clicked_row);
            return mark_pair_cell(form);
        case 1:
            return mark_single_cell(form, 2);
        case 2:
            if (column < 4) return open_folder_of(form, form.ListView1.cell(state.clicked_row, 4));
            return mark_single_cell(form, 4);
        case 3:
            if (column < 3) show_row_panel(form, state.clicked_row);
            return;
        case 4:
            if (column < 2) show_row_panel(form, state.clicked_row);
            return;
        default:
            return;
    }
}

void ListView1_KeyDown(Tavrel& form) {
    const list_pointer& event = form.list_event;
    if (event.key_code == key_f3) {
        form.start(handlers::find_again);
    } else if (event.key_code == key_f && event.ctrl && !event.shift) {
        form.start(handlers::find_in_list);
    } else if (event.key_code == key_delete && !event.ctrl && !event.shift) {
        if (form.state.list_mode == 0) form.start(handlers::delete_marked_files);
        if (form.state.list_mode == 1) form.start(handlers::delete_empty_directories);
        if (form.state.list_mode == 3) form.inform("因文件内容不一定相同,请在资源管理器中选择删除");
    }
}

}  // namespace corvane
