#include "search/options_menu.h"

namespace corvane {

std::span<const options_menu_entry> options_menus() {
    static constexpr options_menu_entry entries[] = {
        {"List1", "pop_num", "目录弹出菜单", 0},
        {"List1", "open_dir", "打开资源管理器", 'E'},
        {"List1", "tip_open", "(将目录拖到列表框中)", 0},
        {"List1", "dir_all_sele", "全选", 'A'},
        {"List1", "dir_all_no_select", "全不选", 'N'},
        {"List1", "move_dir", "移出目录", 'D'},
        {"List1", "DIR_EDIT", "文本编辑", 'T'},
        {"List1", "DIR_REFRESH", "刷新", 'R'},
        {"List1", "no_dir_help", "帮助F1", 'H'},

        {"List4", "file_type_list", "文件类型列表", 0},
        {"List4", "add_no_search", "加入<不搜索的文件类型>", 'N'},
        {"List4", "add_only_search", "加入<仅搜索的文件类型>", 'O'},
        {"List4", "edit_common", "编辑常用类型", 'T'},
        {"List4", "refresh", "刷新", 'R'},
        {"List4", "look_type_type", "查看类型归类", 'V'},
        {"List4", "look_type_itemize", "查看常用类型详表", 'L'},
        {"List4", "file_type_help", "帮助F1", 'H'},

        {"List2", "no_search", "不搜索的类型", 0},
        {"List2", "no_search_all_select", "全选", 'A'},
        {"List2", "only_search_no_select", "全不选", 'N'},
        {"List2", "move_no_search", "移去", 'D'},
        {"List2", "add_new_no_search_filetype", "新增项", 'I'},
        {"List2", "modify_no_search", "修改文本", 'T'},
        {"List2", "refresh_no_search", "刷新", 'R'},
        {"List2", "no_file_help", "帮助F1", 'H'},

        {"List3", "only_search", "仅搜索的类型", 0},
        {"List3", "only_search_all_select", "全选", 'A'},
        {"List3", "only_search_all_no_select", "全不选", 'N'},
        {"List3", "only_search_move", "移去", 'D'},
        {"List3", "add_new_only_search", "新增项", 'I'},
        {"List3", "only_search_edit_text", "修改文本", 'T'},
        {"List3", "only_search_refresh", "刷新", 'R'},
        {"List3", "only_help", "帮助F1", 'H'},
    };
    return entries;
}

}  // namespace corvane
