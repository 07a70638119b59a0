#include "names/name_view.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/path_text.h"
#include "names/name_pairs.h"
#include "names/star_centres.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_status = 1000;
constexpr std::int32_t first_rows_shown = 100;
constexpr int bar_margin = 100;
constexpr int name_cell = 2;  // where the view shows the name itself

struct name_view {
    std::int16_t list_mode;
    const char* no_pairs;
    const char* panel_word;
    const char* unit;
};

constexpr name_view file_view = {list_modes::same_file_names, "没有相同_文件名", "同名文件:", "个文件"};
constexpr name_view directory_view = {list_modes::same_directory_names, "没有相同_目录名",
                                      "同名目录:", "个目录"};

// An archive member's text is no path of the disk.
bool file_exists(Tavrel& form, std::string_view path) {
    return !is_archive_member(path) && path_exists(form.outside.files, std::string(path));
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
    const list_view_row& columns = view_of(view.list_mode);
    set_columns(list, columns);
    list.tooltip = columns.tooltip;
    // The result takes the room of what showed the list of files, and its rows are not those of the open
    // panel.
    form.RichTextBox2.visible = false;
    form.Frame4.visible = false;
    state.list_mode = view.list_mode;
    bar_colours(form, 0xFF8080, 255, 0xCFCFCF);
    bar_scale(form, state.result_count);
    form.pic_gressbar1.visible = true;
    place_bar(form);
    form.panel(7, "同名文件");
    fill_name_rows(form);
    if (state.quit_requested) return;
    list.visible = true;
    // The room may have grown by that of the text pane.
    form.outside.screen.repaint();
    renew_widths(list, columns);
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
    const list_view_row& view = shown_view(form);
    const int first_cell = view.first_path;
    const int second_cell = view.second_path;
    const bool has_name_cell = first_cell > name_cell;
    const char separator = form.outside.files.separator();
    list.share_texts(first_cell, state.result_file1);
    list.share_texts(second_cell, state.result_file2);
    list.reserve_rows(state.result_count);
    star_centres centres;
    std::string_view previous;
    bool previous_exists = false;
    for (std::int32_t k = 1; k <= state.result_count; ++k) {
        form.yield();
        if (state.quit_requested) return;
        bool kept = true;
        if (!state.same_fresh_flag) {
            state.result_file1.set_entry(k, centres.in_force(state.result_file1.entry(k)));
            if (state.result_file1[k] != previous) previous_exists = file_exists(form, state.result_file1[k]);
            if (!previous_exists) centres.replace(state.result_file1.entry(k), state.result_file2.entry(k));
            kept = previous_exists && file_exists(form, state.result_file2[k]);
        }
        const std::string_view path = state.result_file1[k];
        if (kept) {
            const std::int32_t row = list.add_row();
            list.set_number(row, 1, row);
            if (has_name_cell) list.set_text(row, name_cell, file_name_of(path, separator));
            list.set_shared_text(row, first_cell, state.result_file1.entry(k));
            list.set_shared_text(row, second_cell, state.result_file2.entry(k));
            if (path == previous) list.set_colour(row, first_cell, cell_colour::colour_gray);
        }
        previous = path;
        if (k == first_rows_shown) form.outside.screen.repaint();
        if (k % rows_per_status == 0) show_fill_status(form, k);
    }
}

}  // namespace corvane
