#include "app/still_to_come.h"

namespace corvane {

std::span<const char* const> handlers_to_come() {
    return {};  // nothing at present
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
