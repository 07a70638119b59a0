// The handlers of the options window under their names.
#include "core/model/main_form.h"
#include "core/model/window_handlers.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "search/options_form.h"

namespace corvane {

handler_table options_form::handlers() {
    handler_table table;
    table.push_back({"select_m_Click", [this](Tavrel&) { open(); }});
    table.push_back({name() + ".Form_Unload", [this](Tavrel&) { Form_Unload(); }});
    add_list_handlers(table);
    add_file_handlers(table);
    add_option_handlers(table);
    return table;
}

void options_form::add_list_handlers(handler_table& table) {
    window_handlers bind(table, *this);
    struct checking {
        option_list_edit& list;
        const char* check_all;
        const char* check_none;
        const char* remove;
    };
    for (const checking& entry :
         {checking{directories_, "dir_all_sele", "dir_all_no_select", "move_dir"},
          checking{left_out_types_, "no_search_all_select", "only_search_no_select", "move_no_search"},
          checking{only_types_, "only_search_all_select", "only_search_all_no_select", "only_search_move"}}) {
        bind(entry.check_all, [&list = entry.list] { list.check_all(true); });
        bind(entry.check_none, [&list = entry.list] { list.check_all(false); });
        bind(entry.remove, [&list = entry.list] { list.remove_selected(); });
    }
    bind("add_no_search", [this] { add_common_types(left_out_types_); });
    bind("add_only_search", [this] { add_common_types(only_types_); });
    bind("add_new_no_search_filetype",
         [this] { add_by_hand(left_out_types_, "输入新增的<不搜索>的文件类型,如: xls"); });
    bind("add_new_only_search", [this] { add_by_hand(only_types_, "输入新增的<仅搜索>的文件类型,如: xls"); });
}

void options_form::add_file_handlers(handler_table& table) {
    window_handlers bind(table, *this);
    static constexpr char type_seed[] = ".ani";
    static constexpr char described_seed[] = ".ani 动画鼠标";
    struct editing {
        const char* entry;
        const char* file;
        const char* seed;
    };
    for (const editing& each : {editing{"DIR_EDIT", data_file::excluded_directories, "c:\\"},
                                editing{"modify_no_search", data_file::excluded_types, type_seed},
                                editing{"only_search_edit_text", data_file::only_types, type_seed},
                                editing{"edit_common", data_file::common_types, described_seed},
                                editing{"look_type_type", data_file::types_by_kind, described_seed},
                                editing{"look_type_itemize", data_file::types_by_name, described_seed}})
        bind(each.entry, [this, each] { edit_file(each.file, each.seed); });
    bind("DIR_REFRESH", [this] { reload(directories_, 读不参加搜索的目录); });
    bind("refresh_no_search", [this] { reload(left_out_types_, 读不参加比较的文件类型); });
    bind("only_search_refresh", [this] { reload(only_types_, 读仅搜索的文件类型); });
    bind("refresh", [this] { read_common_types(); });
    bind("open_dir", [this] { open_file_manager(); });
}

void options_form::add_option_handlers(handler_table& table) {
    window_handlers bind(table, *this);
    bind("Check1_Click", [this] { Check1_Click(); });
    bind("Check7_Click", [this] { keep_added_settings(); });
    bind("Check8_Click", [this] { keep_added_settings(); });
    for (std::size_t i = 2; i <= 5; ++i) bind(checks[i]->name() + "_Click", [this, i] { store_check(i); });
    bind("Command1_Click", [this] { open_file_manager(); });
    for (std::size_t i = 0; i < Command2.size(); ++i)
        bind(Command2[i]->name() + "_Click", [this, i] { Command2_Click(static_cast<int>(i)); });
    bind("Command3_Click", [this] { read_common_types(); });
    bind("Command4_Click", [this] { Command4_Click(); });
    bind("Timer1_Timer", [this] { Timer1_Timer(); });
    const auto bind_help = [this, &bind](const char* entry, int topic) {
        bind(entry, [this, topic] { open_topic(main_, topic); });
    };
    bind_help("Command5_Click", 22);
    bind_help("no_dir_help", 23);
    bind_help("file_type_help", 25);
    bind_help("no_file_help", 26);
    bind_help("only_help", 27);
}

}  // namespace corvane
