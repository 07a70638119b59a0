#include "browser/same_view.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "browser/list_views.h"
#include "browser/read_pairs.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"
#include "core/text/text_sort.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_fill_status = 1000;
constexpr std::int32_t first_rows_shown = 100;
constexpr std::int32_t rows_ahead = 16;  // whose texts come from memory while others are looked at

constexpr char legend[] =
    "显示最近一次[查相同文件]的结果,选择欲删除的文件。右键<显示选择>菜单.\r\n----------------\r\n"
    "黑色:正常文件;\r\n紫色:压缩包内部文件;\r\n灰色:与上个文件为同一文件\r\n红色:欲删除的文件\r\n"
    "蓝色:因属性原因删不掉的文件\r\n水红:查找到的文件 \r\n"
    "空:该文件已删除 \r\n空:该文件已删除 \r\n空:该文件已删除 \r\n空:该文件已删除 ";

void empty_result(Tavrel& form) {
    run_state& state = form.state;
    form.ListView1.clear_rows();
    state.same_count = 0;
    state.result_length.clear();
    state.result_file1.clear();
    state.result_file2.clear_and_share(state.result_file1);
}

// The rows of the old view are gone, and those of a new one were not to be had.
void reject_load(Tavrel& form) {
    empty_result(form);
    form.state.stored_pairs = 0;
    form.ListView1.visible = false;
    form.inform("没有相同文件");
}

// Of a long list the columns go, and the files without a twin hold on to its texts no more.
void put_away(run_state& state) {
    give_up_columns(state);
    if (state.different_files.size() != state.different_count || state.different_count == 0) return;
    state.different_packed = {};
    for (std::int32_t i = 1; i <= state.different_count; ++i)
        state.different_packed.push_back(state.different_files[i]);
    state.different_files.clear();
}

}  // namespace

void load_same_view(Tavrel& form) {
    if (help_mode_opens(form, 15)) return;
    run_state& state = form.state;
    form.labels[5]->caption = "删除选定的重复文件";
    form.find("Picture4")->tooltip = legend;
    const list_view_row& view = view_of(list_modes::same_files);
    form.ListView1.help_context = view.help_context;
    form.ListView1.tooltip = view.tooltip;
    form.RichTextBox2.visible = false;
    form.Frame4.visible = false;
    form.Label4.visible = false;
    state.task_start_time = tick_seconds(form);
    state.base_time = form.outside.screen.seconds();
    form.panel(7, "显示相同文件_读入数据");
    empty_result(form);
    // What a comparison or a check has used up is not kept beside the result.
    if (!state.file_list_loaded) {
        state.file_list.clear();
        if (state.file_count > many_files) put_away(state);
    }

    line_reader reader(form.outside.files, state.same_file_path);
    if (!reader.is_open()) return reject_load(form);
    task_scope task(form);
    std::string_view line;
    if (!reader.next(line)) {
        return reject_load(form);
    }
    if (reader.next(line))
        state.same_count = static_cast<std::int32_t>(
            std::clamp<std::int64_t>(parse_number(line), 0, state.limits.result_rows));
    bar_colours(form, 11202800, 65280, 16402770);
    bar_scale(form, state.same_count);
    form.pic_gressbar1.visible = true;
    const pairs_read read = read_stored_pairs(form, reader);
    if (read == pairs_read::closing || state.quit_requested) return;
    const bool complete = read == pairs_read::all;
    if (!complete) state.same_count = state.limits.result_rows;
    form.pic_gressbar1.draw(state.same_count);
    if (state.same_count == 0) {
        return reject_load(form);
    }
    sort_result_rows(form, 1, state.same_count);
    if (state.quit_requested) return;
    form.ListView1.visible = false;
    state.list_mode = view.list_mode;
    set_columns(form.ListView1, view);
    fill_same_rows(form);
    form.panel(7, "显示相同文件");
    form.ListView1.visible = true;
    form.pic_gressbar1.visible = false;
    task.close();
    state.same_fresh_flag = 0;
    state.stored_pairs = state.same_count;
    if (!complete) form.inform("相同文件太多，只显示前 " + std::to_string(state.same_count) + " 条。");
}

void sort_result_rows(Tavrel& form, std::int32_t low, std::int32_t high) {
    if (low >= high) return;
    run_state& state = form.state;
    // Long steps lie before the sort, and so they do behind it.
    form.yield();
    std::vector<text_row> rows;
    rows.reserve(static_cast<std::size_t>(high - low + 1));
    for (std::int32_t i = low; i <= high; ++i) rows.push_back({state.result_file1.entry(i), i});
    form.work_aside([&rows] { sort_rows_by_text(rows); });
    form.yield();
    if (state.quit_requested) return;
    std::vector<const char*> files2(rows.size());
    std::vector<std::int64_t> lengths(rows.size());
    for (std::size_t n = 0; n < rows.size(); ++n) {
        files2[n] = state.result_file2.entry(rows[n].row);
        lengths[n] = state.result_length[rows[n].row];
    }
    for (std::size_t n = 0; n < rows.size(); ++n) {
        const std::int32_t i = low + static_cast<std::int32_t>(n);
        state.result_file1.set_entry(i, rows[n].entry);
        state.result_file2.set_entry(i, files2[n]);
        state.result_length[i] = lengths[n];
    }
}

void share_pair_texts(list_view& list, const result_state& result) {
    const list_view_row& view = view_of(list_modes::same_files);
    list.share_texts(view.first_path, result.result_file1);
    list.share_texts(view.second_path, result.result_file2);
}

void fetch_pair_ahead(const result_state& result, std::int32_t i, std::int32_t last) {
    constexpr std::ptrdiff_t cache_line = 64;
    if (i + rows_ahead > last) return;
    for (const text_column* paths : {&result.result_file1, &result.result_file2}) {
        const char* entry = paths->entry(i + rows_ahead);
        __builtin_prefetch(entry);
        __builtin_prefetch(entry + cache_line);
    }
}

std::int32_t add_pair_row(list_view& list, const result_state& result, std::int32_t i) {
    const list_view_row& view = view_of(list_modes::same_files);
    const std::int32_t row = list.add_row();
    list.set_number(row, 1, i);
    list.set_number(row, view.length_column, result.result_length[i]);
    list.set_shared_text(row, view.first_path, result.result_file1.entry(i));
    list.set_shared_text(row, view.second_path, result.result_file2.entry(i));
    return row;
}

void fill_same_rows(Tavrel& form) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    bar_colours(form, 11202800, 16777088, 8454143);
    bar_scale(form, state.same_count);
    form.pic_gressbar1.visible = true;
    list.clear_rows();
    const list_view_row& view = view_of(list_modes::same_files);
    share_pair_texts(list, state);
    list.reserve_rows(state.same_count);
    state.result_max_length = 0;
    state.total_bytes = 0;
    std::string_view previous;
    for (std::int32_t i = 1; i <= state.same_count; ++i) {
        form.yield();
        fetch_pair_ahead(state, i, state.same_count);
        const std::int64_t length = state.result_length[i];
        const std::string_view path1 = state.result_file1[i];
        const std::int32_t row = add_pair_row(list, state, i);
        if (is_archive_member(path1)) list.set_colour(row, view.first_path, cell_colour::colour_archive);
        if (is_archive_member(state.result_file2[i]))
            list.set_colour(row, view.second_path, cell_colour::colour_archive);
        state.total_bytes += static_cast<double>(length);
        state.result_max_length = std::max(state.result_max_length, length);
        if (previous == path1) list.set_colour(row, view.first_path, cell_colour::colour_gray);
        previous = path1;
        if (i == first_rows_shown) form.outside.screen.repaint();
        if (i % rows_per_fill_status == 0) {
            form.pic_gressbar1.draw(i);
            form.panel(3, "相同文件:" + std::to_string(i) + "个文件");
            form.panel(5, "读取: " + std::to_string(std::int64_t{i} * 100 / state.same_count) + "%");
            show_elapsed(form);
        }
    }
    list.visible = true;
    // The columns share their texts with the cells, so reading back is taking over the entries.
    state.same_count = list.row_count();
    for (std::int32_t row = 1; row <= state.same_count; ++row) {
        state.result_length[row] = list.number_cell(row, view.length_column);
        state.result_file1.set_entry(row, list.text_entry(row, view.first_path));
        state.result_file2.set_entry(row, list.text_entry(row, view.second_path));
    }
    form.panel(3, "相同文件:" + std::to_string(state.same_count));
    scale_size(state.total_bytes, state.size_unit);
    form.panel(4, "相同文件长度:" + group_digits(state.total_bytes) + state.size_unit);
    form.panel(5, "100%");
    show_elapsed(form);
}

}  // namespace corvane
