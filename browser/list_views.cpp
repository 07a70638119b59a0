#include "browser/list_views.h"

#include <algorithm>

#include "core/model/main_form.h"

namespace corvane {

namespace {

constexpr auto shared = view_column::shared_width;
constexpr auto left = text_alignment::left;
constexpr auto right = text_alignment::right;
constexpr auto text = cell_content::text;
constexpr auto number = cell_content::number;
constexpr bool sorts = true;

constexpr view_column row_text = {"", 100, left, text, !sorts};
constexpr view_column row_number = {"序号", 700, right, number, sorts};
constexpr view_column row_number_only = {"序号", 700, right, number, !sorts};

constexpr view_column same_files[] = {row_text,
                                      row_number,
                                      {"长度", 900, right, number, sorts},
                                      {"重复文件1", shared, left, text, sorts},
                                      {"重复文件2", shared, left, text, sorts}};
constexpr view_column empty_directories[] = {row_text, row_number, {"空目录", shared, left, text, sorts}};
constexpr view_column different_files[] = {row_text,
                                           row_number_only,
                                           {"长度", 1000, right, number, sorts},
                                           {"日期", 2100, left, text, sorts},
                                           {"不相同文件", shared, left, text, sorts}};
constexpr view_column same_file_names[] = {row_text,
                                           row_number,
                                           {"同名文件名", 2000, left, text, sorts},
                                           {"同名文件1", shared, left, text, sorts},
                                           {"同名文件2", shared, left, text, sorts}};
constexpr view_column same_directory_names[] = {row_text,
                                                row_number_only,
                                                {"同名目录1", shared, left, text, !sorts},
                                                {"同名目录2", shared, left, text, !sorts}};

constexpr char pairs_tip[] =
    "双击鼠标，选中；Shift+鼠标，区域选择。双击序号栏，弹出相同文件名称[显示框].右键弹出菜单";
constexpr char empty_tip[] = "双击鼠标，选中；Shift+鼠标，区域选择。右键，打开目录.";
constexpr char different_tip[] =
    "双击鼠标，选中；Shift+鼠标，区域选择。双击序号栏，弹出对应目录的资源管理器.右键打开文件.";

constexpr const char* mark_entries[] = {"all_select", "all_not_select"};
constexpr const char* pair_entries[] = {"all_select",       "all_not_select",
                                        "open_same_file",   "same_time_open_2file",
                                        "double_disp",      "disp_same_file_attr",
                                        "search_in_result", "again_search",
                                        "only_disp",        "not_list"};
constexpr const char* file_entries[] = {"open_same_file",   "same_time_open_2file", "double_disp",
                                        "search_in_result", "again_search",         "only_disp",
                                        "not_list"};
constexpr const char* not_for_directories[] = {"open_same_file", "only_disp", "not_list", "all_select",
                                               "all_not_select"};

constexpr list_view_row views[] = {
    {
        .list_mode = list_modes::same_files,
        .columns = same_files,
        .taken_at_once = 2100,
        .taken_by_layout = 2100,
        .tooltip = pairs_tip,
        .help_context = 1015,
        .mouse_word = "选择要删除重复文件",
        .length_column = 2,
        .first_path = 3,
        .second_path = 4,
        .searched = {3, 4},
        .property_column = 0,
        .panel_shows_dates = true,
        .marks = mark_rule::pairs,
        .marks_all = true,
        .left_of_paths = double_click::shows_row,
        .colours = sort_colours::repeats_gray_archives_own,
        .sorts = true,
        .holds_copies = true,
        .deletes = deletion_rule::files,
        .refresh = &handlers::show_same_files,
        .menu_from_column = 3,
        .right_opens_column = 0,
        .menu_on = pair_entries,
        .menu_off = {},
        .left_off = mark_entries,
    },
    {
        .list_mode = list_modes::empty_directories,
        .columns = empty_directories,
        .taken_at_once = 1000,
        .taken_by_layout = 1000,
        .tooltip = empty_tip,
        .help_context = 1039,
        .mouse_word = "选择要删除空目录",
        .length_column = 0,
        .first_path = 2,
        .second_path = 0,
        .searched = {3, 4},
        .property_column = 2,
        .panel_shows_dates = true,
        .marks = mark_rule::single,
        .marks_all = true,
        .left_of_paths = double_click::marks,
        .colours = sort_colours::stay,
        .sorts = true,
        .holds_copies = false,
        .deletes = deletion_rule::empty_directories,
        .refresh = &handlers::show_empty_directories,
        .menu_from_column = 0,
        .right_opens_column = 0,
        .menu_on = {},
        .menu_off = file_entries,
        .left_off = {},
    },
    {
        .list_mode = list_modes::different_files,
        .columns = different_files,
        .taken_at_once = 3500 + 450,
        .taken_by_layout = 3500 + 450 + 100,
        .tooltip = different_tip,
        .help_context = 1015,
        .mouse_word = "显示不相同文件",
        .length_column = 2,
        .first_path = 4,
        .second_path = 0,
        .searched = {3, 4},
        .property_column = 0,
        .panel_shows_dates = true,
        .marks = mark_rule::single,
        .marks_all = false,
        .left_of_paths = double_click::opens_directory,
        .colours = sort_colours::stay,
        .sorts = true,
        .holds_copies = false,
        .deletes = deletion_rule::nothing,
        .refresh = nullptr,
        .menu_from_column = list_view_row::no_menu,
        .right_opens_column = 4,
        .menu_on = {},
        .menu_off = {},
        .left_off = {},
    },
    {
        .list_mode = list_modes::same_file_names,
        .columns = same_file_names,
        .taken_at_once = 1200 + 2000,
        .taken_by_layout = list_view_row::keeps_widths,
        .tooltip = pairs_tip,
        .help_context = 0,
        .mouse_word = "显示相同_文件名",
        .length_column = 0,
        .first_path = 3,
        .second_path = 4,
        .searched = {3, 4},
        .property_column = 0,
        .panel_shows_dates = true,
        .marks = mark_rule::none,
        .marks_all = false,
        .left_of_paths = double_click::shows_row,
        .colours = sort_colours::repeats_gray,
        .sorts = true,
        .holds_copies = false,
        .deletes = deletion_rule::left_to_file_manager,
        .refresh = nullptr,
        .menu_from_column = 3,
        .right_opens_column = 0,
        .menu_on = {},
        .menu_off = {},
        .left_off = {},
    },
    {
        .list_mode = list_modes::same_directory_names,
        .columns = same_directory_names,
        .taken_at_once = 1200,
        .taken_by_layout = list_view_row::keeps_widths,
        .tooltip = pairs_tip,
        .help_context = 0,
        .mouse_word = "显示同名目录",
        .length_column = 0,
        .first_path = 2,
        .second_path = 3,
        .searched = {2, 3},
        .property_column = 0,
        .panel_shows_dates = false,
        .marks = mark_rule::none,
        .marks_all = false,
        .left_of_paths = double_click::shows_row,
        .colours = sort_colours::stay,
        .sorts = false,
        .holds_copies = false,
        .deletes = deletion_rule::nothing,
        .refresh = nullptr,
        .menu_from_column = 2,
        .right_opens_column = 0,
        .menu_on = {},
        .menu_off = not_for_directories,
        .left_off = {},
    },
};

// The room of one shared column.
int share(const list_view& list, const list_view_row& view, int taken) {
    const auto sharing = std::count_if(view.columns.begin(), view.columns.end(), [](const view_column& each) {
        return each.width == view_column::shared_width;
    });
    return std::max(0, (list.place.width - taken) / static_cast<int>(sharing));
}

void set_shared_widths(list_view& list, const list_view_row& view, int width) {
    for (std::size_t column = 0; column < view.columns.size(); ++column)
        if (view.columns[column].width == view_column::shared_width &&
            static_cast<int>(column) < list.column_count())
            list.set_column_width(static_cast<int>(column), width);
}

}  // namespace

std::span<const list_view_row> list_views() {
    return views;
}

const list_view_row& view_of(std::int16_t list_mode) {
    return views[static_cast<std::size_t>(list_mode)];
}

const list_view_row& shown_view(const Tavrel& form) {
    return view_of(form.state.list_mode);
}

bool refuses_hidden_list(Tavrel& form) {
    if (form.ListView1.visible) return false;
    form.inform("列表没有显示,请先显示结果");
    return true;
}

void set_columns(list_view& list, const list_view_row& view) {
    list.clear_rows();
    list.clear_columns();
    const int path_width = share(list, view, view.taken_at_once);
    for (const view_column& each : view.columns)
        list.add_column({each.header, each.width == view_column::shared_width ? path_width : each.width,
                         each.alignment, each.content});
}

void renew_widths(list_view& list, const list_view_row& view) {
    set_shared_widths(list, view, share(list, view, view.taken_at_once));
}

void layout_list(Tavrel& form) {
    const list_view_row& view = shown_view(form);
    if (view.taken_by_layout == list_view_row::keeps_widths) return;
    set_shared_widths(form.ListView1, view, share(form.ListView1, view, view.taken_by_layout));
}

}  // namespace corvane
