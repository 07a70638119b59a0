#include "reports/tree_form.h"

#include <algorithm>
#include <limits>

#include "core/model/main_form.h"
#include "core/tasks/help.h"
#include "core/text/date_text.h"
#include "core/text/text_format.h"
#include "reports/current_list.h"
#include "reports/tree_lines.h"

namespace corvane {

namespace {

constexpr std::int32_t previewed_files = 100;
constexpr const char* check_captions[] = {"", "长度", "日期", "正常", "隐含", "", ""};
constexpr const char* label_captions[] = {
    "", "目录层数", "排版列数", "<=长度<=", "Kb", "<=日期<=", "只包含类型", "不包含类型"};
constexpr const char* command_captions[] = {"", "输出", "放弃", "帮助 F1", "查找全部后缀"};
constexpr const char* format_captions[] = {"TXT", "Excel"};

constexpr std::int16_t settings::*check_settings[] = {nullptr,
                                                      &settings::tree_show_length,
                                                      &settings::tree_show_date,
                                                      &settings::tree_show_normal,
                                                      &settings::tree_show_hidden,
                                                      &settings::tree_length_filter,
                                                      &settings::tree_date_filter};

std::int16_t small_number(std::string_view text) {
    return static_cast<std::int16_t>(std::clamp<std::int32_t>(whole_number(text),
                                                              std::numeric_limits<std::int16_t>::min(),
                                                              std::numeric_limits<std::int16_t>::max()));
}

}  // namespace

tree_form::tree_form(Tavrel& main)
    : form_model("tree_dir"),
      Picture1(add<control>(control_kind::picture, "Picture1")),
      List1(add<list_box>("List1")),
      ListView1(add<list_view>("ListView1")),
      MonthView1(add<control>(control_kind::label, "MonthView1")),
      ProgressBar1(add<range_control>(control_kind::progress_bar, "ProgressBar1", 0, 0)),
      suffixes(ListView1),
      main_(main) {
    caption = "树状目录输出";
    add_controls();
    set_help_contexts();
    Picture1.tooltip = "察看目录文件";
    ListView1.tooltip = "双击鼠标，选中.点击标题,排序";
    texts[5]->tooltip = texts[6]->tooltip = "双击,打开日期选择表,或直接修改";
    texts[7]->tooltip = texts[8]->tooltip = "双击,打开选择表";
    ListView1.visible = MonthView1.visible = ProgressBar1.visible = false;
}

void tree_form::add_controls() {
    for (std::size_t i = 1; i < labels.size(); ++i) {
        labels[i] = &add<control>(control_kind::label, numbered_name("Label", i));
        labels[i]->caption = label_captions[i];
    }
    for (std::size_t i = 1; i < texts.size(); ++i)
        texts[i] = &add<control>(control_kind::text_box, numbered_name("Text", i));
    for (std::size_t i = 1; i < checks.size(); ++i) {
        checks[i] = &add<control>(control_kind::check_box, numbered_name("Check", i));
        checks[i]->caption = check_captions[i];
    }
    for (std::size_t i = 0; i < Option1.size(); ++i) {
        Option1[i] = &add<control>(control_kind::check_box, element_name("Option1", i));
        Option1[i]->caption = format_captions[i];
    }
    for (std::size_t i = 1; i < commands.size(); ++i) {
        commands[i] = &add<control>(control_kind::button, numbered_name("Command", i));
        commands[i]->caption = command_captions[i];
    }
}

void tree_form::set_help_contexts() {
    help_context = 1050;
    texts[1]->help_context = checks[1]->help_context = checks[2]->help_context = 1051;
    checks[5]->help_context = texts[3]->help_context = texts[4]->help_context = 1053;
    checks[6]->help_context = texts[5]->help_context = texts[6]->help_context = 1054;
    checks[3]->help_context = checks[4]->help_context = 1055;
    texts[7]->help_context = texts[8]->help_context = 1056;
    for (control* option : Option1) option->help_context = 1057;
}

void tree_form::open() {
    if (help_mode_opens(main_, 50)) return;
    if (!loaded_) {
        load();
        if (main_.state.quit_requested) return;
    }
    open_following(main_, *this);
    visible = true;
}

void tree_form::load() {
    loaded_ = true;
    mend_place();
    fill_controls();
    suffixes.clear();
    List1.clear();
    List1.visible = true;
    ListView1.visible = MonthView1.visible = ProgressBar1.visible = false;
    if (hold_file_list(main_)) show_preview();
}

// A stored corner beyond the screen comes to the middle. The place that the window itself stored is never
// older than that of the main form's last close.
void tree_form::mend_place() {
    run_state& state = main_.state;
    const screen_size screen = main_.outside.screen.screen();
    const auto mended = [](std::int32_t stored, int size) {
        return stored < 0 ? 0 : stored > size ? size / 2 : stored;
    };
    state.treeform_left = mended(state.treeform_left, screen.width);
    state.treeform_top = mended(state.treeform_top, screen.height);
    state.treepos_left = place.left = state.treeform_left;
    state.treepos_top = place.top = state.treeform_top;
}

void tree_form::fill_controls() {
    const run_state& state = main_.state;
    texts[1]->text = std::to_string(state.tree_levels);
    texts[3]->text = std::to_string(state.tree_min_kb);
    texts[4]->text = std::to_string(state.tree_max_kb);
    texts[5]->text = date_text(state.tree_date_from);
    texts[6]->text = date_text(state.tree_date_to);
    texts[7]->text = state.tree_only_types;
    texts[8]->text = state.tree_not_types;
    for (std::size_t i = 1; i < checks.size(); ++i) checks[i]->value = state.*check_settings[i] == 1 ? 1 : 0;
    choose_format(state.tree_format == 1 ? 1 : 0);
    enable_bounds();
}

void tree_form::enable_bounds() {
    texts[3]->enabled = texts[4]->enabled = checks[5]->value == 1;
    texts[5]->enabled = texts[6]->enabled = checks[6]->value == 1;
}

void tree_form::choose_format(int index) {
    for (std::size_t i = 0; i < Option1.size(); ++i) Option1[i]->value = static_cast<int>(i) == index ? 1 : 0;
}

void tree_form::show_preview() {
    // A cancel of an earlier task is none of this one.
    main_.state.cancel_task = main_.state.going_down;
    const std::int32_t count = std::min(main_.state.file_count, previewed_files);
    const tree_rules rules = preview_rules(main_.state);
    tree_files first;
    if (!collect_tree(
            main_, count, [this] { return stops(); }, first))
        return;
    sort_tree(first);
    tree_lines tree(main_, rules, first.count());
    for (std::int32_t i = 1; i <= first.count(); ++i) {
        tree.add(first, i);
        main_.yield();
        if (stops()) return;
    }
    List1.take(std::move(tree.lines()));
}

void tree_form::Form_Unload() {
    if (!loaded_) return;
    loaded_ = false;
    visible = false;
    List1.clear();
    files_ = {};
    if (window != window_state::normal) return;
    main_.state.treeform_left = place.left;
    main_.state.treeform_top = place.top;
}

tree_form::wrong tree_form::read_controls() {
    run_state& state = main_.state;
    state.tree_levels = small_number(texts[1]->text);
    state.tree_min_kb = whole_number(texts[3]->text);
    state.tree_max_kb = whole_number(texts[4]->text);
    const bool from_is_date = parse_date(texts[5]->text, state.tree_date_from);
    const bool to_is_date = parse_date(texts[6]->text, state.tree_date_to);
    state.tree_only_types = texts[7]->text;
    state.tree_not_types = texts[8]->text;
    for (std::size_t i = 1; i < checks.size(); ++i)
        state.*check_settings[i] = static_cast<std::int16_t>(checks[i]->value != 0 ? 1 : 0);
    state.tree_format = Option1[1]->value != 0 ? 1 : 0;
    if (state.tree_length_filter == 1 && state.tree_min_kb >= state.tree_max_kb) return wrong::lengths;
    if (state.tree_date_filter == 1 &&
        (!from_is_date || !to_is_date || state.tree_date_from >= state.tree_date_to))
        return wrong::dates;
    return wrong::nothing;
}

void tree_form::complain_of(wrong found) {
    const run_state& state = main_.state;
    if (found == wrong::lengths)
        main_.complain("文件长度设置有误,左边长度" + std::to_string(state.tree_min_kb) + "应小于右边长度" +
                       std::to_string(state.tree_max_kb) + " ,请重新设置");
    if (found == wrong::dates)
        main_.complain("文件日期设置有误,左边" + texts[5]->text + "应小于右边" + texts[6]->text +
                       " ,请重新设置");
}

// The window has been closed, or the user has asked for an end.
bool tree_form::stops() const {
    return !loaded_ || main_.state.quit_requested || main_.state.cancel_task;
}

void tree_form::Command4_Click() {
    suffixes.clear();
    if (hold_file_list(main_)) suffixes.count(main_);
    suffixes.fill();
    List1.visible = false;
    ListView1.visible = true;
}

void tree_form::show_suffixes(int target) {
    suffix_target = target;
    List1.visible = false;
    if (suffixes.suffix_total == 0 && hold_file_list(main_)) suffixes.count(main_);
    suffixes.fill();
    ListView1.visible = true;
}

}  // namespace corvane
