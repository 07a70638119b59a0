// The views of ListView1 as a table: a row a value of list_mode, with its columns, widths, headings, words,
// marks, menu and what Delete means. A new view is a new row. Used by everything that works on the list.
#pragma once

#include <cstdint>
#include <span>

#include "core/model/handlers.h"
#include "core/model/list_view.h"

namespace corvane {

class Tavrel;

// Values of list_mode.
namespace list_modes {
inline constexpr std::int16_t same_files = 0;
inline constexpr std::int16_t empty_directories = 1;
inline constexpr std::int16_t different_files = 2;
inline constexpr std::int16_t same_file_names = 3;
inline constexpr std::int16_t same_directory_names = 4;
}  // namespace list_modes

struct view_column {
    const char* header;
    int width;  // twips; shared_width: a share of the room that the other columns leave
    text_alignment alignment;
    cell_content content;
    bool sorts;  // a click on the heading sorts by it

    static constexpr int shared_width = 0;
};

// What may be marked.
enum class mark_rule {
    none,
    single,  // the cell of first_path, each by itself
    pairs    // first_path or second_path, never both of a row
};

// What a double click left of the paths does.
enum class double_click { nothing, shows_row, opens_directory, marks };

// What a sort does to the colours of first_path.
enum class sort_colours { stay, repeats_gray, repeats_gray_archives_own };

// What deleting means.
enum class deletion_rule { nothing, files, empty_directories, left_to_file_manager };

// The column of the row's number among the pairs of the result, in the same-file view.
constexpr int number_column = 1;

struct list_view_row {
    std::int16_t list_mode;
    std::span<const view_column> columns;
    int taken_at_once;    // twips of the list that the shared columns do not get when the view is made
    int taken_by_layout;  // the same when the list changes its size; keeps_widths: they stay
    const char* tooltip;
    int help_context;        // 0: the list keeps the one it has
    const char* mouse_word;  // panel 7 while the mouse works on the list

    int length_column;    // 0: none
    int first_path;       // the first column that shows a path; what stands left of it tells about the row
    int second_path;      // 0: none
    int searched[2];      // the columns that find looks at, whether they are there or not
    int property_column;  // what "显示文件属性" is asked of; 0: the clicked one of the searched
    bool panel_shows_dates;

    mark_rule marks;
    bool marks_all;  // "全选" and "全不选" have an effect
    double_click left_of_paths;
    sort_colours colours;
    bool sorts;         // false: a click on a heading does nothing at all
    bool holds_copies;  // rows are pairs of files of the same content
    deletion_rule deletes;
    const handler_name* refresh;  // null: nothing to refresh

    int menu_from_column;                   // the right button opens the menu from here on; no_menu: nowhere
    int right_opens_column;                 // the right button opens the file here; 0: nowhere
    std::span<const char* const> menu_on;   // entries that it enables first
    std::span<const char* const> menu_off;  // and that it disables
    std::span<const char* const> left_off;  // disabled by a right click left of the menu

    static constexpr int keeps_widths = -1;
    static constexpr int no_menu = 1000;
};

// Said where Delete means nothing because contents were not compared.
inline constexpr char names_are_not_contents[] = "因文件内容不一定相同,请在资源管理器中选择删除";

// Ordered by list_mode, without a gap.
std::span<const list_view_row> list_views();
// The row of the view that stands. list_mode has no other values.
const list_view_row& shown_view(const Tavrel& form);
const list_view_row& view_of(std::int16_t list_mode);

// True when the list is not shown; the user has been told. Asked by whatever works on its rows.
bool refuses_hidden_list(Tavrel& form);

// Puts the columns of a view on the list, which loses its rows and columns.
void set_columns(list_view& list, const list_view_row& view);

// Gives the shared columns their room again, as the making of the view did: the list may have grown.
void renew_widths(list_view& list, const list_view_row& view);

// Sets the path column widths of the view that stands from the list's width.
void layout_list(Tavrel& form);

}  // namespace corvane
