#include "compare/abnormal_files.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"

namespace corvane {

namespace {

constexpr int list_margin = 100;
constexpr int both_margins = 300;

// Every byte begins a character but those that go on with one.
std::int64_t character_count(std::string_view utf8) {
    return std::count_if(utf8.begin(), utf8.end(),
                         [](char unit) { return (static_cast<unsigned char>(unit) & 0xC0) != 0x80; });
}

bool has_length(Tavrel& form, std::string_view path) {
    return !is_archive_member(path) && form.outside.files.facts(path).exists;
}

bool is_found(Tavrel& form, std::string_view path) {
    return !is_archive_member(path) && path_exists(form.outside.files, std::string(path));
}

}  // namespace

void Command44_Click(Tavrel& form) {
    if (help_mode_opens(form, 12)) return;
    run_state& state = form.state;
    if (state.shutdown_after_task == 1 && !state.chained_run_flag) ask_for_shutdown(form);
    state.base_time = form.outside.screen.seconds();
    if (!state.file_list_loaded) {
        form.panel(7, "查异常文件_读暂存文件清单");
        form.call(handlers::read_file_list);
        form.panel(7, "查异常文件");
    }
    if (state.quit_requested) return;
    if (state.file_count == 0) return form.complain("没有文件，请重新选择目录", 1009, true);

    list_box& rows = form.List1;
    rows.clear();
    rows.caption = "正在查找异常文件";
    rows.visible = true;
    rows.place.left = list_margin;
    rows.place.width = std::max(0, form.layout.inner_width - both_margins);
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        form.yield();
        if (state.quit_requested) return;
        const std::string_view path = state.file_list[i];
        if (has_length(form, path)) continue;
        rows.add(std::string(path) + "   -1");
        rows.add(std::to_string(character_count(path)));
    }
    std::int64_t abnormal = 0;
    for (std::int32_t i = 1; i <= state.file_count; ++i) {
        form.yield();
        if (state.quit_requested) return;
        const std::string_view path = state.file_list[i];
        if (is_found(form, path)) continue;
        rows.add(std::string(path));
        ++abnormal;
    }
    form.panel(7, "查异常文件结束");
    form.panel(3, std::to_string(abnormal) + "异常文件");
    rows.caption = std::to_string(abnormal) + " 个异常文件: 清单里有,磁盘上读不到";
    state.file_list_loaded = 0;
}

}  // namespace corvane
