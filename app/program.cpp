#include "app/program.h"

#include <cmath>
#include <utility>

#include "app/first_start.h"
#include "app/still_to_come.h"
#include "app/trace.h"
#include "app/version.h"
#include "browser/browser_handlers.h"
#include "browser/mark_store.h"
#include "browser/same_store.h"
#include "browser/preview.h"
#include "cleanup/archive_tool.h"
#include "cleanup/cleanup_handlers.h"
#include "compare/compare_handlers.h"
#include "core/model/main_menu.h"
#include "core/settings/added_settings.h"
#include "core/settings/data_files.h"
#include "core/tasks/core_handlers.h"
#include "core/tasks/environment.h"
#include "core/tasks/error_trail.h"
#include "core/tasks/option_lists.h"
#include "core/tasks/protected_folders.h"
#include "core/text/text_format.h"
#include "names/name_handlers.h"
#include "reports/page_task.h"
#include "reports/report_handlers.h"
#include "search/given_paths.h"
#include "search/search_handlers.h"

namespace corvane {

namespace {

constexpr char program_name[] = "Corvane";
constexpr char ending[] = "正在结束…";

// Drops selected directories that are gone; the others move up in order.
void check_selected_directories(Tavrel& form) {
    run_state& state = form.state;
    column<std::string> kept;
    for (std::int16_t i = 1; i <= state.selected_dir_count; ++i) {
        const std::string& directory = state.selected_dirs[i];
        if (path_exists(form.outside.files, directory)) kept.push_back(directory);
    }
    state.selected_dirs = std::move(kept);
    state.selected_dir_count = static_cast<std::int16_t>(state.selected_dirs.size());
}

}  // namespace

program::program(ports outside, program_place place)
    : files_(outside.files),
      place_(std::move(place)),
      main_({files_, outside.desktop, outside.machine, outside.screen, outside.encodings, outside.instances,
             outside.notice, outside.bin},
            place_.folder),
      Text_given_(main_.add<control>(control_kind::text_box, "Text_given")),
      directory_(main_),
      options_(main_),
      tree_(main_),
      shutdown_(main_),
      warning_(main_, shutdown_),
      sleep_(main_, warning_, shutdown_),
      texts_(main_, program_version, program_web_page),
      restore_(main_) {
    main_.state.shared_dir = place_.shared;
    Text_given_.visible = false;
    main_.add_child(directory_);
    main_.add_child(options_);
    main_.add_child(tree_);
    main_.add_child(sleep_);
    main_.add_child(warning_);
    main_.add_child(texts_.about());
    main_.add_child(restore_);
    join_handlers();
    main_.when_idle = [this] {
        end_when_idle();
        if (closing_ == stage::open) shutdown_.when_idle();
        if (closing_ == stage::open) take_waiting();
    };
    wire_tasks(main_);
    trace_if_asked(main_);
}

void program::join_handlers() {
    for (const handler_table& table :
         {core_handlers(), search_handlers(), compare_handlers(), browser_handlers(), name_handlers(),
          cleanup_handlers(), report_handlers(), result_page_handlers(program_version), directory_.handlers(),
          options_.handlers(), tree_.handlers(), shutdown_.handlers(), sleep_.handlers(), warning_.handlers(),
          texts_.handlers(), restore_.handlers()})
        main_.bind(table);
    main_.bind("exit_sub", [this] { close(); });
    main_.bind("drop_directories", [this] { take_given(main_.list_event.ctrl); });
    main_.bind("paste_directories", [this] { take_given(true); });
    for (const char* name : handlers_to_come())
        if (!main_.has_handler(name)) main_.expect(name);
}

form_model* program::find_form(std::string_view name) {
    if (name.empty() || folded_name(name) == folded_name(main_.name())) return &main_;
    return main_.child(name);
}

void program::prepare_folder() {
    run_state& state = main_.state;
    const bool is_fresh = is_first_start(main_, place_);
    if (!main_.outside.files.can_write_into(state.program_dir)) {
        main_.inform(state.program_dir + "\r\n程序目录不能写入，设置、清单和结果不能保存。");
        state.program_dir_locked = true;
        files_.hold(state.program_dir);
        tell_of_earlier_files(main_, place_);
    } else if (may_ask_) {
        offer_earlier_files(main_, place_);
    } else {
        tell_of_earlier_files(main_, place_);
    }
    if (is_fresh) seed_lists(main_, place_);
}

bool program::start() {
    run_state& state = main_.state;
    // Where it cannot be made it cannot be written either, and that is told.
    if (place_.kind == place_kind::user) main_.outside.files.make_directory(state.program_dir);
    // Claimed before anything is read: reading mends and writes, and another instance's files are not ours.
    const bool is_first = main_.outside.files.claim_directory(state.program_dir);
    if (is_first) {
        prepare_folder();
        read_environment(main_);
        state.added = read_added_settings(main_.outside.files, main_.data_path(data_file::added_settings));
        state.remembered.read(main_.outside.files, main_.data_path(data_file::window_looks));
        look_for_rar_tool(main_);
        options_.restore_place();
    }
    state.base_title = main_.caption + " V" + program_version;
    state.base_title +=
        is_blank(state.last_used) ? "        欢迎您使用" : "        上次使用时间：" + state.last_used;
    main_.caption = state.base_title;
    state.run_start_time = std::floor(main_.outside.screen.seconds());
    if (!is_first) {
        speak_with_other();
        return false;
    }
    读不参加搜索的目录(main_);
    读不参加比较的文件类型(main_);
    读仅搜索的文件类型(main_);
    read_protected_folders(main_);
    read_preview_shown(main_);
    texts_.start();
    state.stored_pairs = stored_pair_count(main_.outside.files, state.same_file_path);
    lay_out_halves(main_);
    static constexpr const char* panels[] = {"全部文件数", "全部文件大小", "相同文件数", "相同文件大小",
                                             "删除情况",   "运行时间",     "帮助"};
    for (int number = 1; number <= status_bar::panel_count; ++number) main_.panel(number, panels[number - 1]);
    state.file_list_loaded = 0;
    main_.run("control_helpid");
    main_.pic_gressbar1.set_colours(0xC0C0C0, 0x400040, 0xFF);
    main_.pic_gressbar1.visible = false;
    main_.visible = true;
    check_selected_directories(main_);
    if (const std::vector<std::string> asked = existing(asked_); !asked.empty())
        directory_.take_from_outside(asked);
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

void program::speak_with_other() {
    const std::string& folder = main_.state.program_dir;
    instance_link* const others = main_.outside.instances;
    if (others != nullptr && !asked_.empty()) {
        const std::vector<std::string> asked = existing(asked_);
        if (asked.empty()) return;
        const reception what = others->hand_over(folder, asked);
        passed_on_ = what == reception::taken || what == reception::waits;
        if (what == reception::waits) main_.inform("Corvane 正在运行任务，任务结束后选中这些目录。");
        if (what == reception::refused) main_.complain("Corvane 正在结束，没有选中这些目录。请稍后再打开。");
        if (what != reception::none) return;
    }
    // One that still waits for its end is shown as it is; it says so itself.
    if (others != nullptr && others->raise_other(folder)) return;
    message box;
    box.title = program_name;
    box.text = std::string(program_name) + " 程序已经运行，不能再次装载。";
    box.icon = box_icon::exclamation;
    box.failure = true;
    main_.outside.screen.show_message(box);
}

std::vector<std::string> program::existing(const std::vector<std::string>& directories) {
    constexpr int most_named = 10;
    std::vector<std::string> found;
    std::string others;
    int count = 0;
    for (const std::string& directory : directories) {
        if (main_.outside.files.attributes(directory).directory)
            found.push_back(directory);
        else if (++count <= most_named)
            others.append(count > 1 ? "\r\n" : "").append(directory).append("  不是目录");
    }
    if (count > most_named) others.append("\r\n共 ").append(std::to_string(count)).append(" 个不是目录");
    if (count > 0) main_.complain(others);
    return found;
}

reception program::receive(const std::vector<std::string>& directories) {
    if (closing_ != stage::open) return reception::refused;
    for (const std::string& directory : directories)
        if (main_.outside.files.attributes(directory).directory) {
            waiting_.push_back(directory);
            waiting_joins_ = false;
        }
    if (main_.handler_runs() || main_.task_runs()) return reception::waits;
    take_waiting();
    return reception::taken;
}

void program::take_waiting() {
    if (waiting_.empty()) return;
    const std::vector<std::string> directories = std::exchange(waiting_, {});
    directory_.take_from_outside(directories, std::exchange(waiting_joins_, true));
}

void program::take_given(bool joins) {
    const std::string text = std::exchange(Text_given_.text, {});
    if (closing_ != stage::open) return;
    const auto most = static_cast<std::size_t>(main_.state.limits.selected_directories);
    const given_directories given = find_given_directories(files_, text, most);
    if (given.directories.empty()) return main_.inform("没有可选中的目录。\r\n" + others_words(given.others));
    // They are taken when the outermost handler has returned, which may be this one.
    waiting_.insert(waiting_.end(), given.directories.begin(), given.directories.end());
    waiting_joins_ = waiting_joins_ && joins;
    if (main_.task_runs()) return main_.inform("正在运行任务,任务结束后选中这些目录。");
    main_.panel(7, "目录选择");
}

void program::close() {
    main_.state.quit_requested = -1;
    if (closing_ == stage::open) {
        closing_ = stage::closes;
        store_followers(main_);
        for (form_model* window : main_.children()) {
            if (window->visible) main_.run(window->name() + ".Form_Unload");
            window->visible = false;
        }
        store_marks(main_);
        写Tavrel环境文件(main_);
        // Without it the next start looks as the first one: nothing to bother anybody with.
        main_.state.remembered.write(main_.outside.files, main_.data_path(data_file::window_looks));
        main_.caption = std::string(program_name) + "    " + ending;
        main_.panel(7, ending);
        closing_ = stage::waits;
    }
    end_when_idle();
}

void program::end_when_idle() {
    if (closing_ != stage::waits || main_.handler_runs()) return;
    closing_ = stage::ended;
    main_.visible = false;
    main_.outside.screen.end_program();
}

void program::tick() {
    if (closing_ != stage::open) return;
    run_state& state = main_.state;
    main_.caption = state.base_title + "    进入计时:" +
                    format_elapsed(main_.outside.screen.seconds() - state.run_start_time, 1);
}

}  // namespace corvane
