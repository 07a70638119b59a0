#include "app/program.h"

#include <cmath>

#include "app/version.h"
#include "browser/different_view.h"
#include "browser/list_acts.h"
#include "browser/list_find.h"
#include "browser/list_marks.h"
#include "browser/list_menu.h"
#include "browser/same_view.h"
#include "cleanup/archive_tool.h"
#include "cleanup/delete_files.h"
#include "cleanup/empty_delete.h"
#include "cleanup/empty_search.h"
#include "cleanup/empty_view.h"
#include "compare/abnormal_files.h"
#include "compare/compare_task.h"
#include "compare/similar_files.h"
#include "core/model/main_menu.h"
#include "core/tasks/environment.h"
#include "core/tasks/error_trail.h"
#include "core/tasks/help.h"
#include "core/tasks/option_lists.h"
#include "core/tasks/progress.h"
#include "core/text/text_format.h"
#include "names/name_tasks.h"
#include "search/file_list_store.h"
#include "search/search_task.h"

namespace corvane {

namespace {

constexpr char program_name[] = "Corvane";

// Drops selected directories that are gone; the others move up in order.
void check_selected_directories(Tavrel& form) {
    run_state& state = form.state;
    std::vector<std::string> kept{std::string()};
    for (std::int16_t i = 1; i <= state.selected_dir_count; ++i) {
        const std::string& directory = state.selected_dirs[static_cast<std::size_t>(i)];
        if (path_exists(form.outside.files, directory)) kept.push_back(directory);
    }
    state.selected_dirs = std::move(kept);
    state.selected_dir_count = static_cast<std::int16_t>(state.selected_dirs.size() - 1);
}

}  // namespace

program::program(ports outside, std::string program_dir)
    : main_(outside, std::move(program_dir)), directory_(main_), options_(main_) {
    main_.add_child(directory_);
    main_.add_child(options_);
    bind_handlers();
    wire_tasks(main_);
}

void program::bind_task(std::string_view handler, std::function<void()> procedure) {
    main_.bind(handler, [this, procedure = std::move(procedure)] {
        if (!tasks_locked(main_)) procedure();
    });
}

void program::bind_list() {
    const auto bind = [this](std::string_view handler, void (*procedure)(Tavrel&)) {
        main_.bind(handler, [this, procedure] { procedure(main_); });
    };
    bind("ListView1_MouseDown", ListView1_MouseDown);
    bind("ListView1_Click", ListView1_Click);
    bind("ListView1_DblClick", ListView1_DblClick);
    bind("ListView1_ColumnClick", ListView1_ColumnClick);
    bind("ListView1_KeyDown", ListView1_KeyDown);
    bind("open_same_file", open_same_file_Click);
    bind("double_disp", double_disp_Click);
    bind("mnu_enter_dir", mnu_enter_dir_Click);
    bind("disp_same_file_attr", disp_same_file_attr_Click);
    bind("same_time_open_2file", same_time_open_2file_Click);
    bind("search_in_result", search_in_result_Click);
    bind("again_search", again_search_Click);
    bind("all_select", all_select_Click);
    bind("all_not_select", all_not_select_Click);
    bind("layout_list", layout_list);
    bind("load_same_view", load_same_view);
    // These rebuild the rows, which a running task may be working on.
    bind_task("only_disp", [this] { only_disp_Click(main_); });
    bind_task("not_list", [this] { not_list_Click(main_); });
    bind_task("result_refresh", [this] {
        if (main_.state.list_mode == 0) load_same_view(main_);
        if (main_.state.list_mode == 1) Picture7_Click(main_);
    });
    main_.bind("samefile_disp1_MouseDown",
               [this] { open_directory_of_box(main_, main_.samefile_disp1.text); });
    main_.bind("samefile_disp2_MouseDown",
               [this] { open_directory_of_box(main_, main_.samefile_disp2.text); });
    main_.bind("rewrite_store", [this] { rewrite_store(main_); });
    main_.bind("show_row_panel", [this] { show_row_panel(main_, main_.ListView1.selected_row); });
    main_.bind("Frame4_Close", [this] { main_.Frame4.visible = false; });
}

void program::bind_names() {
    bind_task("mnu_same_filename_Click", [this] { mnu_same_filename_Click(main_); });
    bind_task("check_same_1dir_filename_Click", [this] { check_same_1dir_filename_Click(main_); });
    bind_task("search_repeat_dir_name_Click", [this] { search_repeat_dir_name_Click(main_); });
    bind_task("Command44_Click", [this] { Command44_Click(main_); });
    main_.bind("Command31_Click", [this] { Command31_Click(main_); });
    main_.bind("Frame3_DblClick", [this] { main_.find("Frame3")->visible = false; });
}

void program::bind_handlers() {
    Tavrel& form = main_;
    bind_list();
    bind_names();
    form.bind("Picture1_Click", [this] { directory_.open(); });
    form.bind("select_m_Click", [this] { options_.open(); });
    options_.bind_handlers();
    bind_task("picture2_Click", [this] { picture2_Click(main_); });
    bind_task("Picture3_Click", [this] { Picture3_Click(main_); });
    bind_task("Picture4_Click", [this] { load_same_view(main_); });
    bind_task("Picture11_Click", [this] { Picture11_Click(main_); });
    bind_task("Picture6_Click", [this] { Picture6_Click(main_); });
    bind_task("Command43_Click", [this] { Command43_Click(main_); });
    bind_task("Picture7_Click", [this] { Picture7_Click(main_); });
    bind_task("Picture8_Click", [this] { Picture8_Click(main_); });
    bind_task("del_dir", [this] { del_dir_Click(main_); });
    bind_task("Command35_Click", [this] { Picture11_Click(main_); });
    bind_task("Command18_Click", [this] { Command18_Click(main_); });
    bind_task("Command19_Click", [this] { Command19_Click(main_); });
    bind_task("Command21_Click", [this] { Command21_Click(main_); });
    bind_task("search_check_m_Click", [this] { search_check_m_Click(main_); });
    bind_task("Picture5_Click", [this] { delete_marked_recycle(main_); });
    bind_task("delete_marked_recycle", [this] { delete_marked_recycle(main_); });
    bind_task("delete_marked_direct", [this] { delete_marked_direct(main_); });
    bind_task("Command45_Click", [this] { delete_marked_direct(main_); });
    form.bind("按序号删除_m", [this] { toggle_number_panel(main_); });
    form.bind("Command26_Click", [this] { close_number_panel(main_); });
    form.bind("Frame1_DblClick", [this] { close_number_panel(main_); });
    form.bind("Command28_Click", [this] { Command28_Click(main_); });
    form.bind("exit_sub", [this] { close(); });
    form.bind("help_spirit",
              [this] { main_.mouse_pointer = main_.mouse_pointer == help_pointer ? 0 : help_pointer; });
    form.bind("帮助文件_M", [this] { open_topic(main_, 1); });
    form.bind("prog_dir", [this] { open_beside_program(main_, ""); });
    form.bind("notes_m", [this] { open_notes(main_); });
    form.bind("programm_m", [this] { open_manual(main_); });
    form.bind("debug_err", [this] { debug_err_Click(main_); });
    form.bind("debug_err_anly", [this] { debug_err_anly_Click(main_); });
    form.bind("Command46_Click", [this] { Command46_Click(main_); });
    form.bind("Command47_Click", [this] { Command47_Click(main_); });
    form.bind("Timer2_Timer", [this] { Timer2_Timer(main_); });
    // A hook for a tool that has to be registered; 7z and rar need none.
    form.bind("rar_reg_para", [] {});
    form.bind("lock_tasks", [this] { lock_tasks(main_); });
    form.bind("unlock_tasks", [this] { unlock_tasks(main_); });
    form.bind("写Tavrel环境文件", [this] { 写Tavrel环境文件(main_); });
    form.bind("读不参加搜索的目录", [this] { 读不参加搜索的目录(main_); });
    form.bind("读不参加比较的文件类型", [this] { 读不参加比较的文件类型(main_); });
    form.bind("读仅搜索的文件类型", [this] { 读仅搜索的文件类型(main_); });

    form.bind("目录选择.cmd_dir_firm_Click", [this] { directory_.cmd_dir_firm_Click(); });
    form.bind("目录选择.Command34_Click", [this] { directory_.Command34_Click(); });
    form.bind("目录选择.cmd_dir_discard_Click", [this] { directory_.cmd_dir_discard_Click(); });
    form.bind("目录选择.Form_Unload", [this] { directory_.Form_Unload(); });
    form.bind("目录选择.Timer1_Timer", [this] { directory_.Timer1_Timer(); });
    form.bind("目录选择.Command_sele_Click", [this] { directory_.Command_sele_Click(); });
    form.bind("目录选择.Dir_select_Change", [this] { directory_.Dir_select_Change(); });
    form.bind("目录选择.direction_help_Click", [this] { open_topic(main_, 9); });
    form.bind("目录选择.list_selected_dir_DblClick", [this] { directory_.remove_selected(); });
    form.bind("目录选择.move_selected_dir", [this] { directory_.remove_selected(); });
    form.bind("目录选择.清空列表M", [this] { directory_.clear_list(); });
}

form_model* program::find_form(std::string_view name) {
    if (name.empty() || folded_name(name) == folded_name(main_.name())) return &main_;
    return main_.child(name);
}

bool program::start() {
    run_state& state = main_.state;
    // Claimed before anything is read: reading mends and writes, and another instance's files are not ours.
    const bool is_first = main_.outside.files.claim_directory(state.program_dir);
    if (is_first) {
        if (!main_.outside.files.can_write_into(state.program_dir)) {
            main_.complain(state.program_dir + "\r\n程序目录不能写入，设置、清单和结果不能保存。");
            state.program_dir_locked = true;
        }
        read_environment(main_);
        look_for_rar_tool(main_);
        options_.restore_place();
    }
    state.base_title = main_.caption + " V" + program_version;
    state.base_title +=
        is_blank(state.last_used) ? "        欢迎您使用" : "        上次使用时间：" + state.last_used;
    main_.caption = state.base_title;
    state.run_start_time = std::floor(main_.outside.screen.seconds());
    if (!is_first) {
        message box;
        box.title = program_name;
        box.text = std::string(program_name) + " 程序已经运行，不能再次装载。";
        box.icon = box_icon::exclamation;
        box.failure = true;
        main_.outside.screen.show_message(box);
        return false;
    }
    读不参加搜索的目录(main_);
    读不参加比较的文件类型(main_);
    读仅搜索的文件类型(main_);
    lay_out_halves(main_);
    static constexpr const char* panels[] = {"全部文件数", "全部文件大小", "相同文件数", "相同文件大小",
                                             "删除情况",   "运行时间",     "帮助"};
    for (int number = 1; number <= status_bar::panel_count; ++number) main_.panel(number, panels[number - 1]);
    state.file_list_loaded = 0;
    main_.pic_gressbar1.set_colours(0xC0C0C0, 0x400040, 0xFF);
    main_.pic_gressbar1.visible = false;
    main_.visible = true;
    check_selected_directories(main_);
    if (state.selected_dir_count == 0) directory_.open();
    // Still on: the last comparison did not come to its end.
    if (state.error_trail_on == -1) {
        debug_err_anly_Click(main_);
        state.error_trail_on = 0;
        main_.debug_err.value = 0;
    }
    read_avoid_list(main_);
    return true;
}

void program::close() {
    main_.state.quit_requested = -1;
    if (closed_) return;
    closed_ = true;
    store_followers(main_);
    for (form_model* window : main_.children()) {
        if (window->visible) main_.run(window->name() + ".Form_Unload");
        window->visible = false;
    }
    写Tavrel环境文件(main_);
    main_.visible = false;
    main_.outside.screen.end_program();
}

void program::tick() {
    run_state& state = main_.state;
    main_.caption = state.base_title + "    进入计时:" +
                    format_elapsed(main_.outside.screen.seconds() - state.run_start_time, 1);
}

}  // namespace corvane
