#include "core/model/task_table.h"

namespace corvane {

std::span<const task_entry> task_table() {
    static constexpr task_entry tasks[] = {
        {"Picture1", 0, "对象目录_M", "Picture1_Click", "目录选择", "目录选择", "选择要清理的目录", 9},
        {"Picture2", 1, "目录搜索_M", "picture2_Click", "文件搜索", "文件搜索", "列出选择目录中的全部文件",
         11},
        {"", -1, "读暂存的文件清单_M", "Command21_Click", "读暂存的文件清单", "", "", 0},
        {"Picture3", 2, "查相同文件_M", "Picture3_Click", "查相同文件", "查相同文件", "检查内容相同的文件",
         12},
        {"", -1, "search_check_m", "search_check_m_Click", "搜索和比对", "", "", 13},
        {"Picture4", 3, "显示相同文件_M", "Picture4_Click", "显示相同文件", "显示相同文件",
         "显示最近一次[查相同文件]的结果", 15},
        {"Picture11", 4, "disp_dispatch", "Picture11_Click", "显示不同文件", "显示不同文件",
         "显示不与其它文件相同的文件", 21},
        {"Picture5", 5, "删除内容相同的文件_m", "Picture5_Click", "删除文件或空目录", "删除选定的重复文件",
         "删除标记为红色的文件", 20},
        {"Picture6", 6, "search_dir", "Picture6_Click", "查找空目录", "查找空目录", "查找所选目录中的空目录",
         38},
        {"Picture7", 7, "disp_dir", "Picture7_Click", "显示空目录", "显示空目录", "显示查到的空目录", 39},
        {"Picture8", 8, "del_dir", "Picture8_Click", "删除空目录", "删除空目录", "删除标记为红色的空目录",
         40},
        {"", -1, "search_no_normal_file", "Command44_Click", "查异常文件", "", "", 12},
        {"", -1, "mnu_same_filename", "mnu_same_filename_Click", "查同名文件", "", "", 0},
        {"", -1, "check_same_1dir_filename", "check_same_1dir_filename_Click", "查同目录同名文件", "", "", 0},
        {"", -1, "search_repeat_dir_name", "search_repeat_dir_name_Click", "查同名目录", "", "", 0},
        {"", -1, "文件清单_M", "文件清单_M_Click", "导出文本格式的文件清单", "", "", 0},
        {"", -1, "out_excel_form", "Command33_Click", "导出相同文件清单->Excel", "", "", 0},
        {"", -1, "相同文件清单_m", "Command8_Click", "察看相同文件清单文本", "", "", 0},
        {"", -1, "相同文件XLS清单_M", "Command9_Click", "察看相同文件的xls清单", "", "", 0},
        {"", -1, "tree_select_m", "Command36_Click", "树状目录", "", "", 50},
        {"", -1, "select_m", "select_m_Click", "选项", "", "", 22},
    };
    return tasks;
}

}  // namespace corvane
