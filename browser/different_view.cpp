#include "browser/different_view.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "browser/file_date.h"
#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/date_text.h"
#include "core/text/text_case.h"
#include "core/text/text_file.h"
#include "core/text/text_sort.h"

namespace corvane {

namespace {

constexpr std::int32_t files_per_status = 621;
constexpr int date_cell = 3;

// System folders consist of these; they are never shown.
bool is_left_out(std::string_view path) {
    const std::string type = upper_case(path.substr(path.size() - std::min<std::size_t>(4, path.size())));
    return type == ".DLL" || type == ".DAT" || type == ".OCX";
}

// False: the reason has been shown.
bool read_stored_list(Tavrel& form) {
    run_state& state = form.state;
    const std::string path = form.data_path(data_file::different_files);
    if (!form.outside.files.attributes(path).exists) {
        form.inform(path + "  不存在");
        return false;
    }
    line_reader reader(form.outside.files, path);
    if (!reader.is_open()) {
        form.complain(path + "\r\n" + reader.error());
        return false;
    }
    state.different_files.clear();
    state.different_packed = {};
    std::string_view line;
    while (state.different_files.size() < state.limits.files && reader.next(line))
        state.different_files.push_back(line);
    state.different_count = state.different_files.size();
    return true;
}

void unpack(run_state& state) {
    if (state.different_packed.empty()) return;
    state.different_files.clear();
    state.different_files.reserve(state.different_count);
    state.different_packed.each([&](std::string_view path) { state.different_files.push_back(path); });
    state.different_packed = {};
}

void fill_rows(Tavrel& form, const list_view_row& view) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    list.share_texts(view.first_path, state.different_files);
    for (std::int32_t i = 1; i <= state.different_count; ++i) {
        form.yield();
        if (state.quit_requested) return;
        if (i % files_per_status == 0) bar_draw(form, i);
        const std::string_view path = state.different_files[i];
        if (is_archive_member(path) || is_left_out(path)) continue;
        const file_facts facts = form.outside.files.facts(path);
        if (!facts.exists) continue;
        const std::int32_t row = list.add_row();
        list.set_number(row, 1, row);
        list.set_number(row, view.length_column, facts.length);
        const local_time date = file_date(form, facts);
        list.set_text(row, date_cell, date_text(date) + ' ' + time_text(date));
        list.set_shared_text(row, view.first_path, state.different_files.entry(i));
    }
}

}  // namespace

void Picture11_Click(Tavrel& form) {
    if (help_mode_opens(form, 21)) return;
    run_state& state = form.state;
    form.Label4.visible = false;
    state.base_time = form.outside.screen.seconds();
    if (state.different_count == 0 && !read_stored_list(form)) return;
    unpack(state);
    form.Frame4.visible = false;
    form.panel(5, "不相同文件数:" + std::to_string(state.different_count));
    form.panel(7, "显示不相同文件");
    if (state.different_count == 0) return form.inform("没有不相同文件");
    const task_scope task(form);
    const list_view_row& view = view_of(list_modes::different_files);
    form.ListView1.visible = false;
    set_columns(form.ListView1, view);
    form.outside.screen.repaint();
    state.list_mode = view.list_mode;
    form.ListView1.help_context = view.help_context;
    form.ListView1.tooltip = view.tooltip;
    form.RichTextBox2.visible = false;
    sort_text_array(state.different_files, 1, state.different_count);
    bar_colours(form, 13619151, 6997185, 16711680);
    bar_scale(form, state.different_count);
    fill_rows(form, view);
    if (state.quit_requested) return;
    form.ListView1.visible = true;
    layout_list(form);
    form.pic_gressbar1.visible = false;
    show_elapsed(form);
}

}  // namespace corvane
