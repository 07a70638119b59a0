#include "app/still_to_come.h"

namespace corvane {

std::span<const char* const> handlers_to_come() {
    static constexpr const char* names[] = {
        // Lists for other programs and the directory tree.
        "相同文件清单_m",
        "相同文件XLS清单_M",
        "out_sele",
        "文件清单_M",
        "out_excel_form",
        "open_excel",
        "tree_select_m",
        // Shutting down.
        "shut_computer",
        "start_shutdown",
    };
    return names;
}

std::span<const char* const> names_without_effect() {
    static constexpr const char* names[] = {
        // The hidden menu of tool bars that no longer are, and entries of the list's menu without an action.
        "文件工具栏_M",
        "空子目录工具栏_M",
        "hide_menu",
        "list_simplify",
        "check_para",
        // Buttons of a search for similar files that does not exist, and of the panel of row numbers.
        "Command30_Click",
        "Command32_Click",
        "Command7_Click",
    };
    return names;
}

}  // namespace corvane
