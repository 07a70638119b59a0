#include "search/options_form.h"

#include <algorithm>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/environment.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"
#include "search/options_menu.h"

namespace corvane {

namespace {

constexpr int smallest_stored_width = 100;  // twips; what is not wider is no place that a window had
constexpr int edge = 150;                   // twips between the window and the edge of the screen

constexpr const char* check_captions[] = {
    "", "贴士帮助", "删除提示", "显示错误", "只查后缀相同的文件", "运行时显示文件名", "检查rar,zip内部文件"};
constexpr const char* label_captions[] = {
    "", "不参加搜索的目录. (从资源管理器中将目录拖放在列表框中.)", "不搜索", "仅搜索", "常用类型", "拖放-->"};

constexpr std::int16_t settings::*check_settings[] = {
    nullptr,
    &settings::tip_help_on,
    &settings::delete_prompt_on,
    &settings::show_error_on,
    &settings::same_suffix_only,
    &settings::show_run_filename,
    &settings::scan_archives,
};

}  // namespace

options_form::options_form(Tavrel& main)
    : form_model("Form_no_dire"),
      List1(add<list_box>("List1")),
      List2(add<list_box>("List2")),
      List3(add<list_box>("List3")),
      List4(add<list_box>("List4")),
      Check8(add<control>(control_kind::check_box, "Check8")),
      Check7(add<control>(control_kind::check_box, "Check7")),
      Command1(add<control>(control_kind::button, "Command1")),
      Command3(add<control>(control_kind::button, "Command3")),
      Command4(add<control>(control_kind::button, "Command4")),
      Command5(add<control>(control_kind::button, "Command5")),
      Timer1(add<timer_control>("Timer1", 100)),
      main_(main),
      directories_(main, List1, option_list::left_out_directories),
      left_out_types_(main, List2, option_list::left_out_types),
      only_types_(main, List3, option_list::only_types) {
    caption = "选项窗口";
    help_context = 1022;
    List1.help_context = 1023;
    List4.help_context = 1025;
    List2.help_context = 1026;
    List3.help_context = 1027;
    for (std::size_t i = 1; i < labels.size(); ++i) {
        labels[i] = &add<control>(control_kind::label, numbered_name("Label", i));
        labels[i]->caption = label_captions[i];
    }
    for (std::size_t i = 1; i < checks.size(); ++i) {
        checks[i] = &add<control>(control_kind::check_box, numbered_name("Check", i));
        checks[i]->caption = check_captions[i];
        checks[i]->help_context = 1028;
    }
    checks[6]->tooltip = "关闭本窗口后生效";
    Check8.caption = "英文界面 (English)";
    Check8.tooltip = "界面使用英文,重新启动程序后生效";
    Check7.caption = "较长的任务结束后通知";
    Check7.tooltip = "任务运行超过30秒,结束时窗口不在前面,就在桌面上显示通知";
    static constexpr const char* look[] = {"字体放大", "字体缩小", "背景颜色", "文字颜色"};
    for (std::size_t i = 0; i < Command2.size(); ++i) {
        Command2[i] = &add<control>(control_kind::button, element_name("Command2", i));
        Command2[i]->caption = look[i];
    }
    Command1.caption = "打开资源管理器";
    Command3.caption = "实验";
    Command3.tooltip = "重新读入常用类型";
    Command4.caption = "应用";
    Command5.caption = "F1";
    for (const options_menu_entry& entry : options_menus())
        add<control>(control_kind::menu_item, entry.name).caption = entry.caption;
    find("tip_open")->enabled = false;
}

void options_form::restore_place() {
    const run_state& state = main_.state;
    if (state.optform_width > smallest_stored_width)
        place = {state.optform_left, state.optform_top, state.optform_width, state.optform_height};
}

// The place that the window itself stored is never older than that of the main form's last close.
void options_form::prefer_own_place() {
    run_state& state = main_.state;
    if (state.optform_width <= smallest_stored_width) return;
    if (stored_place(state.optpos_left) != state.optform_left) state.optpos_left = state.optform_left;
    if (stored_place(state.optpos_top) != state.optform_top) state.optpos_top = state.optform_top;
}

void options_form::open() {
    if (help_mode_opens(main_, 22)) return;
    if (!loaded_) load();
    open_following(main_, *this);
    visible = true;
}

void options_form::load() {
    restore_place();
    prefer_own_place();
    directories_.fill();
    left_out_types_.fill();
    only_types_.fill();
    read_common_types();
    mend_settings();
    apply_look();
    for (std::size_t i = 1; i < checks.size(); ++i) checks[i]->value = main_.state.*check_settings[i];
    Check8.value = main_.state.added.english ? 1 : 0;
    Check7.value = main_.state.added.notify_after_task ? 1 : 0;
    kept_texts_ = active_texts();
    loaded_ = true;
    tiled_ = false;
}

void options_form::mend_settings() {
    run_state& state = main_.state;
    state.list_font_size = std::clamp(state.list_font_size, smallest_list_font, largest_list_font);
    if (state.list_back_color == state.list_fore_color) {
        state.list_back_color = 0xFFFFFF;
        state.list_fore_color = 0;
    }
    for (std::size_t i = 1; i < checks.size(); ++i) {
        std::int16_t& flag = state.*check_settings[i];
        if (flag != 0 && flag != 1) flag = 1;
    }
}

void options_form::apply_look() {
    for (list_box* list : {&List1, &List2, &List3, &List4}) {
        list->font_size = main_.state.list_font_size;
        list->back_colour = main_.state.list_back_color;
        list->fore_colour = main_.state.list_fore_color;
    }
}

void options_form::Form_Unload() {
    if (!loaded_) return;
    loaded_ = false;
    visible = false;
    Timer1.enabled = false;
    keep_options_place(main_.state, *this);
    for (const std::size_t i : {1u, 2u, 3u, 5u, 6u}) store_check(i);
}

void options_form::keep_added_settings() {
    main_.state.added.notify_after_task = Check7.value != 0;
    main_.state.added.english = Check8.value != 0;
    const std::string path = main_.data_path(data_file::added_settings);
    const outcome written = write_added_settings(main_.outside.files, path, main_.state.added);
    if (!written) main_.complain(path + "\r\n" + written.reason);
}

void options_form::store_check(std::size_t number) {
    main_.state.*check_settings[number] = checks[number]->value != 0 ? 1 : 0;
}

void options_form::read_common_types() {
    List4.clear();
    const std::string path = main_.data_path(data_file::common_types);
    if (!path_exists(main_.outside.files, path)) return main_.inform(path + "  不存在");
    line_reader reader(main_.outside.files, path);
    if (!reader.is_open()) return main_.complain(path + "\r\n" + reader.error());
    std::string_view line;
    while (reader.next(line)) List4.add(std::string(line));
}

void options_form::drop_paths(const std::vector<std::string>& paths) {
    directories_.add(paths);
    directories_.apply();
}

void options_form::drop_types(const list_box& target, std::string_view lines) {
    if (&target == &List2) left_out_types_.add_lines(lines);
    if (&target == &List3) only_types_.add_lines(lines);
}

void options_form::add_by_hand(option_list_edit& list, const char* prompt) {
    const std::optional<std::string> answer =
        main_.outside.screen.ask_text("输入框", std::string(prompt) + "\r\n", {});
    if (!answer || trimmed(*answer).empty()) return;
    list.add_typed(*answer);
    if (const std::string failure = list.save(); !failure.empty()) main_.complain(failure);
}

void options_form::add_common_types(option_list_edit& list) {
    std::vector<std::string> types;
    for (const list_box::row& row : List4.rows()) {
        if (!row.selected) continue;
        std::string type = first_word(row.text);
        if (!type.empty()) types.push_back(std::move(type));
    }
    list.add(types);
}

void options_form::edit_file(const char* name, const char* seed) {
    const std::string path = main_.data_path(name);
    if (!path_exists(main_.outside.files, path)) {
        main_.inform(path + " 不存在");
        line_writer writer(main_.outside.files, path);
        writer.line(seed);
        if (!writer.finish()) return main_.complain(path + "\r\n" + writer.error());
    }
    open_beside_program(main_, name);
}

void options_form::reload(option_list_edit& list, void (*read)(Tavrel&)) {
    read(main_);
    list.fill();
}

void options_form::Command2_Click(int index) {
    run_state& state = main_.state;
    if (index < 2) {
        const std::int32_t step = index == 0 ? 1 : -1;
        state.list_font_size = std::clamp(state.list_font_size + step, smallest_list_font, largest_list_font);
    } else {
        std::int32_t& colour = index == 2 ? state.list_back_color : state.list_fore_color;
        if (const auto chosen = main_.outside.screen.choose_colour("选择选择颜色", colour)) colour = *chosen;
    }
    apply_look();
}

void options_form::Command4_Click() {
    std::string failures;
    for (option_list_edit* list : {&directories_, &left_out_types_, &only_types_}) {
        const std::string failure = list->save();
        if (!failures.empty() && !failure.empty()) failures += "\r\n";
        failures += failure;
    }
    if (!failures.empty()) main_.complain(failures);
    const std::array<std::string, 3> texts = active_texts();
    if (texts == kept_texts_ || main_.task_runs()) return;
    if (!main_.confirm("搜索选项已变化，是否重新搜索")) return;
    kept_texts_ = texts;
    main_.start(handlers::search_files);
}

void options_form::Check1_Click() {
    const bool on = checks[1]->value != 0;
    store_check(1);
    main_.state.tips_on = on ? -1 : 0;
    main_.call(on ? handlers::tooltips_on : handlers::tooltips_off);
}

void options_form::open_file_manager() {
    const std::string& last = main_.state.current_dir;
    const std::string root = main_.outside.files.separator() == '\\' ? "c:\\" : "/";
    const outcome result = main_.outside.desktop.open_document(
        !last.empty() && path_exists(main_.outside.files, last) ? last : root);
    if (!result) return main_.complain(result.reason);
    Timer1.enabled = visible && !tiled_;
}

void options_form::Timer1_Timer() {
    Timer1.enabled = false;
    if (tiled_ || window != window_state::normal || place.width <= 0) return;
    tiled_ = true;
    // To the right edge: the file manager stands at the left, both in reach of a drag.
    const screen_size screen = main_.outside.screen.screen();
    place.width = std::min(place.width, screen.width * 3 / 5);
    place.left = screen.width - place.width - edge;
}

std::array<std::string, 3> options_form::active_texts() const {
    return {directories_.active(), left_out_types_.active(), only_types_.active()};
}

}  // namespace corvane
