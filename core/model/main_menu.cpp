#include "core/model/main_menu.h"

#include <string>

#include "core/model/main_form.h"
#include "core/model/task_table.h"

namespace corvane {

std::span<const menu_entry> main_menu() {
    static constexpr menu_entry entries[] = {
        {"file_m", "文件(&F)", ""},
        {"对象目录_M", "目录选择(&D)...", "file_m", true, "Ctrl+O"},
        {"save_result", "保存结果(&S)...", "file_m"},
        {"open_result", "打开结果(&R)...", "file_m"},
        {"prog_dir", "程序目录(&P)", "file_m"},
        {"separator_file", "-", "file_m"},
        {"exit_sub", "退出(&X)", "file_m", true, "Ctrl+Q"},

        {"文件操作_m", "文件操作(&O)", ""},
        {"目录搜索_M", "文件搜索(&S)", "文件操作_m", true, "F5"},
        {"读暂存的文件清单_M", "读暂存的文件清单(&R)", "文件操作_m"},
        {"separator_compare", "-", "文件操作_m"},
        {"查相同文件_M", "查相同文件(&C)", "文件操作_m", true, "F6"},
        {"search_check_m", "搜索和比对(&B)", "文件操作_m", true, "F7"},
        {"显示相同文件_M", "显示相同文件(&V)", "文件操作_m", true, "F8"},
        {"disp_dispatch", "显示不相同的文件(&N)", "文件操作_m"},
        {"preview_m", "预览(&E)", "文件操作_m", true, "F4"},
        {"separator_delete", "-", "文件操作_m"},
        {"删除内容相同的文件_m", "删除内容相同文件(&D)", "文件操作_m"},
        {"按序号删除_m", "按序号删除(&I)", "文件操作_m"},
        {"restore_deleted", "恢复上次删除(&T)...", "文件操作_m"},
        {"separator_check", "-", "文件操作_m"},
        {"search_no_normal_file", "查找异常文件(&U)", "文件操作_m"},
        {"相同文件清单_m", "相同文件清单(&L)", "文件操作_m"},
        {"相同文件XLS清单_M", "相同文件XLS清单(&X)", "文件操作_m"},
        {"报告网页_M", "报告网页(&W)", "文件操作_m"},

        {"mark_m", "标记(&M)", ""},
        {"keep_newest", "保留最新的(&N)", "mark_m"},
        {"keep_oldest", "保留最旧的(&O)", "mark_m"},
        {"keep_shortest", "保留路径最短的(&S)", "mark_m"},
        {"keep_longest", "保留路径最长的(&L)", "mark_m"},
        {"keep_fullest_folder", "保留同组最多的目录里的(&F)", "mark_m"},
        {"keep_by_folders", "按目录次序保留(&D)...", "mark_m"},
        {"mark_copy_names", "标记名称像副本的(&C)", "mark_m"},
        {"separator_marks", "-", "mark_m"},
        {"invert_marks", "反选(&I)", "mark_m"},
        {"clear_marks", "取消全部标记(&A)", "mark_m"},
        {"separator_freed", "-", "mark_m"},
        {"sort_by_freed", "按可释放大小排序(&B)", "mark_m"},
        {"group_of_row", "同组份数和可释放大小(&G)", "mark_m"},
        {"separator_undo", "-", "mark_m"},
        {"undo_marks", "撤销标记(&U)", "mark_m", true, "Ctrl+Z"},
        {"redo_marks", "重做标记(&R)", "mark_m", true, "Ctrl+Shift+Z"},

        {"相同名称_M", "相同名称(&N)", ""},
        {"mnu_same_filename", "查同名文件(&F)", "相同名称_M"},
        {"check_same_1dir_filename", "查同目录同名文件(&S)", "相同名称_M"},
        {"search_repeat_dir_name", "查同名目录(&D)", "相同名称_M"},

        {"目录操作_m", "目录操作(&D)", ""},
        {"search_dir", "查找空目录(&S)", "目录操作_m"},
        {"disp_dir", "显示空目录(&V)", "目录操作_m"},
        {"del_dir", "删除空目录(&D)", "目录操作_m"},

        {"out_filelist", "导出文件清单(&E)", ""},
        {"out_sele", "参数选择(&P)", "out_filelist"},
        {"文件清单_M", "文本格式(&T)", "out_filelist"},
        {"out_excel_form", "Excel格式(&E)", "out_filelist"},
        {"open_excel", "打开文件清单(&O)", "out_filelist"},
        {"separator_tree", "-", "out_filelist"},
        {"tree_select_m", "树状目录(&R)...", "out_filelist"},

        {"tools_m", "工具(&T)", ""},
        {"select_m", "选项(&O)...", "tools_m"},
        {"shut_computer", "自动关机(&S)...", "tools_m"},
        {"separator_tools", "-", "tools_m"},
        {"debug_err", "追错(&D)", "tools_m"},
        {"debug_err_anly", "追错分析(&A)", "tools_m"},

        {"视图_m", "视图(&V)", "", false},
        {"文件工具栏_M", "文件工具栏", "视图_m"},
        {"空子目录工具栏_M", "空目录工具栏", "视图_m"},

        {"帮助_m", "帮助(&H)", ""},
        {"帮助文件_M", "帮助文件(&H)", "帮助_m", true, "F1"},
        {"help_spirit", "帮助精灵(&S)", "帮助_m", true, "Shift+F1"},
        {"programm_m", "帮助原稿(&P)", "帮助_m"},
        {"notes_m", "备记(&N)", "帮助_m"},
        {"separator_help", "-", "帮助_m"},
        {"技术支持_地_form", "技术支持(&T)", "帮助_m"},
        {"volume_explain", "版本说明(&V)", "帮助_m"},
        {"leave_word", "留言(&L)", "帮助_m"},
        {"关于_M", "关于(&A)...", "帮助_m"},

        {"reprod", "显示选择", "", false},
        {"open_same_file", "打开文件", "reprod"},
        {"double_disp", "成对打开文件", "reprod"},
        {"mnu_enter_dir", "进入目录", "reprod"},
        {"disp_same_file_attr", "显示文件属性", "reprod"},
        {"same_time_open_2file", "显示2文件属性", "reprod"},
        {"search_in_result", "在结果中查找", "reprod"},
        {"again_search", "再查(F3)", "reprod"},
        {"only_disp", "仅显示...", "reprod"},
        {"not_list", "不显示...", "reprod"},
        {"all_select", "全选", "reprod"},
        {"all_not_select", "全不选", "reprod"},
        {"result_refresh", "刷新", "reprod"},
        {"hide_menu", "隐藏", "reprod"},
        {"list_simplify", "简化显示", "reprod"},
        {"check_para", "查询参数", "reprod"},
    };
    return entries;
}

void wire_tasks(Tavrel& form) {
    for (const task_entry& task : task_table()) {
        const bool there = form.has_handler(task.handler);
        const auto run_task = [&form, handler = std::string(task.handler)] { form.run(handler); };
        if (control* picture = form.find(task.picture)) {
            picture->enabled = there;
            if (there && !form.has_handler(picture->name() + "_Click"))
                form.bind(picture->name() + "_Click", run_task);
        }
        if (task.label >= 0) {
            control& label = *form.labels[static_cast<std::size_t>(task.label)];
            label.enabled = there;
            if (there) form.bind(label.name() + "_Click", run_task);
        }
        if (there && !form.has_handler(task.menu)) form.bind(task.menu, run_task);
    }
    for (const menu_entry& entry : main_menu()) {
        bool is_parent = false;
        for (const menu_entry& other : main_menu()) is_parent |= std::string_view(other.parent) == entry.name;
        form.find(entry.name)->enabled = is_parent || form.has_handler(entry.name);
    }
}

}  // namespace corvane
