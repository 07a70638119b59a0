#include "search/directory_form.h"

#include <algorithm>

#include "core/directory_filter.h"
#include "core/help.h"
#include "core/main_form.h"
#include "core/progress.h"

namespace corvane {

directory_form::directory_form(Tavrel& main)
    : form_model("目录选择"),
      list_selected_dir(add<list_box>("list_selected_dir")),
      Dir_select(add<control>(control_kind::text_box, "Dir_select")),
      Command_sele(add<control>(control_kind::button, "Command_sele")),
      cmd_dir_firm(add<control>(control_kind::button, "cmd_dir_firm")),
      Command34(add<control>(control_kind::button, "Command34")),
      cmd_dir_discard(add<control>(control_kind::button, "cmd_dir_discard")),
      direction_help(add<control>(control_kind::button, "direction_help")),
      main_(main) {
    caption = "搜索目录_选择";
    help_context = 1009;
    Command_sele.caption = "选中";
    cmd_dir_firm.caption = "执行";
    cmd_dir_firm.tooltip = "确定并执行查重";
    Command34.caption = "确定";
    cmd_dir_discard.caption = "放弃";
    direction_help.caption = "帮助F1";
    list_selected_dir.tooltip = "鼠标双击，放弃该目录.支持鼠标拖放,Ctrl+鼠标,多重拖入";
}

void directory_form::open() {
    if (help_mode_opens(main_, 9)) return;
    run_state& state = main_.state;
    main_.pic_gressbar1.visible = false;
    main_.RichTextBox2.visible = false;
    state.task_start_time = tick_seconds(main_);
    main_.StatusBar1.clear_figures();
    main_.panel(7, "目录选择");
    list_selected_dir.clear();
    selected_dir_backup_.assign(state.selected_dirs.begin() + 1, state.selected_dirs.end());
    for (const std::string& directory : selected_dir_backup_) list_selected_dir.add(directory);
    open_following(main_, *this);
    visible = true;
}

void directory_form::add_paths(const std::vector<std::string>& paths) {
    for (std::size_t row = list_selected_dir.rows().size(); row-- > 0;) {
        const std::string& path = list_selected_dir.rows()[row].text;
        if (std::find(paths.begin(), paths.end(), path) != paths.end()) list_selected_dir.remove(row);
    }
    for (const std::string& path : paths) list_selected_dir.add(path);
}

void directory_form::remove_row(std::size_t index) {
    if (index < list_selected_dir.rows().size()) list_selected_dir.remove(index);
}

void directory_form::remove_selected() {
    for (std::size_t row = list_selected_dir.rows().size(); row-- > 0;)
        if (list_selected_dir.rows()[row].selected) list_selected_dir.remove(row);
}

void directory_form::clear_list() {
    list_selected_dir.clear();
}

void directory_form::confirm_selection() {
    run_state& state = main_.state;
    std::vector<std::string> rows;
    for (const list_box::row& row : list_selected_dir.rows()) rows.push_back(row.text);
    // Sorted by the text with its closing separator, a directory is followed at once by all that lies in it.
    const auto closed = [this](const std::string& path) { return with_separator(main_, path); };
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
    state.selected_dirs.assign(1, {});
    bool full = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!kept[i]) continue;
        if (static_cast<std::int32_t>(state.selected_dirs.size()) > state.limits.selected_directories) {
            full = true;
            break;
        }
        list_selected_dir.add(rows[i]);
        state.selected_dirs.push_back(rows[i]);
    }
    state.selected_dir_count = static_cast<std::int16_t>(state.selected_dirs.size() - 1);
    if (full) main_.complain("选中的目录太多，只取前 " + std::to_string(state.selected_dir_count) + " 个。");
}

bool directory_form::confirm_and_close(bool compare_next) {
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
    confirm_selection();
    visible = false;
    pointer_glide(main_, "Tavrel", "Picture2");
    return true;
}

void directory_form::cmd_dir_firm_Click() {
    if (tasks_locked(main_)) return;
    if (confirm_and_close(true)) main_.run("search_check_m_Click");
}

void directory_form::Command34_Click() {
    confirm_and_close(false);
}

void directory_form::cmd_dir_discard_Click() {
    list_selected_dir.clear();
    for (const std::string& directory : selected_dir_backup_) list_selected_dir.add(directory);
}

void directory_form::Dir_select_Change() {
    main_.state.current_dir = with_separator(main_, Dir_select.text);
}

void directory_form::Command_sele_Click() {
    if (!Dir_select.text.empty()) add_paths({Dir_select.text});
}

}  // namespace corvane
