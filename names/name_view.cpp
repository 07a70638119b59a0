#include "names/name_view.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "names/name_pairs.h"
#include "names/star_centres.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_status = 1000;
constexpr std::int32_t first_rows_shown = 100;
constexpr int bar_margin = 100;

struct name_view {
    std::int16_t list_mode;
    const char* no_pairs;
    bool has_name_cell;
    const char* first_header;
    const char* second_header;
    const char* panel_word;
    const char* unit;
};

constexpr name_view file_view = {3, "没有相同_文件名", true, "同名文件1", "同名文件2", "同名文件:", "个文件"};
constexpr name_view directory_view = {4,           "没有相同_目录名", false,   "同名目录1",
                                      "同名目录2", "同名目录:",       "个目录"};

// An archive member's text is no path of the disk.
bool file_exists(Tavrel& form, std::string_view path) {
    return !is_archive_member(path) && path_exists(form.outside.files, std::string(path));
}

constexpr int name_width = 2000;  // twips

// Both paths share what the other columns leave.
int path_width(const list_view& list, const name_view& view) {
    return std::max(0, (list.place.width - 1200 - (view.has_name_cell ? name_width : 0)) / 2);
}

void set_headers(list_view& list, const name_view& view) {
    const int width = path_width(list, view);
    list.add_column({"", 100, text_alignment::left, cell_content::text});
    list.add_column({"序号", 700, text_alignment::right, cell_content::number});
    if (view.has_name_cell)
        list.add_column({"同名文件名", name_width, text_alignment::left, cell_content::text});
    list.add_column({view.first_header, width, text_alignment::left, cell_content::text});
    list.add_column({view.second_header, width, text_alignment::left, cell_content::text});
}

void place_bar(Tavrel& form) {
    rectangle& bar = form.pic_gressbar1.place;
    const rectangle& list = form.ListView1.place;
    bar.left = list.left + bar_margin;
    bar.top = list.top + bar_margin;
    bar.width = std::max(0, list.width - 2 * bar_margin);
}

void show_fill_status(Tavrel& form, std::int32_t k) {
    form.pic_gressbar1.draw(k);
    form.panel(3, std::to_string(k) + "个文件");
    form.panel(5, std::to_string(std::int64_t{k} * 100 / form.state.result_count) + "%");
    show_elapsed(form);
}

void show_names(Tavrel& form, const name_view& view) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    if (state.result_count == 0) {
        form.inform(view.no_pairs);
        return;
    }
    list.clear_rows();
    list.clear_columns();
    list.tooltip = "双击鼠标，选中；Shift+鼠标，区域选择。双击序号栏，弹出相同文件名称[显示框].右键弹出菜单";
    // The result takes the room of what showed the list of files, and its rows are not those of the open
    // panel.
    form.RichTextBox2.visible = false;
    form.Frame4.visible = false;
    state.list_mode = view.list_mode;
    bar_colours(form, 0xFF8080, 255, 0xCFCFCF);
    bar_scale(form, state.result_count);
    form.pic_gressbar1.visible = true;
    place_bar(form);
    set_headers(list, view);
    form.panel(7, "同名文件");
    fill_name_rows(form);
    if (state.quit_requested) return;
    list.visible = true;
    // The room may have grown by that of the text pane.
    form.outside.screen.repaint();
    for (const int column : {list.column_count() - 2, list.column_count() - 1})
        list.set_column_width(column, path_width(list, view));
    form.panel(3, view.panel_word);
    form.panel(4, std::to_string(state.result_count) + view.unit);
    form.pic_gressbar1.visible = false;
    state.same_fresh_flag = 0;
}

}  // namespace

void show_same_names(Tavrel& form) {
    show_names(form, file_view);
}

void show_same_directory_names(Tavrel& form) {
    show_names(form, directory_view);
}

void fill_name_rows(Tavrel& form) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    const bool has_name_cell = state.list_mode != directory_view.list_mode;
    const int first_cell = has_name_cell ? 3 : 2;
    const char separator = form.outside.files.separator();
    list.share_texts(first_cell, state.file_list);
    list.share_texts(first_cell + 1, state.result_file2);
    list.reserve_rows(state.result_count);
    star_centres centres;
    std::string_view previous;
    bool previous_exists = false;
    for (std::int32_t k = 1; k <= state.result_count; ++k) {
        form.yield();
        if (state.quit_requested) return;
        bool kept = true;
        if (!state.same_fresh_flag) {
            state.file_list.set_entry(k, centres.in_force(state.file_list.entry(k)));
            if (state.file_list[k] != previous) previous_exists = file_exists(form, state.file_list[k]);
            if (!previous_exists) centres.replace(state.file_list.entry(k), state.result_file2.entry(k));
            kept = previous_exists && file_exists(form, state.result_file2[k]);
        }
        const std::string_view path = state.file_list[k];
        if (kept) {
            const std::int32_t row = list.add_row();
            list.set_number(row, 1, row);
            if (has_name_cell) list.set_text(row, 2, file_name_of(path, separator));
            list.set_shared_text(row, first_cell, state.file_list.entry(k));
            list.set_shared_text(row, first_cell + 1, state.result_file2.entry(k));
            if (path == previous) list.set_colour(row, first_cell, cell_colour::colour_gray);
        }
        previous = path;
        if (k == first_rows_shown) form.outside.screen.repaint();
        if (k % rows_per_status == 0) show_fill_status(form, k);
    }
}

}  // namespace corvane
